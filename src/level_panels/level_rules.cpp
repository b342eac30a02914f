#include "level_panels/level_rules.h"

#include "platform/services/instrument_functions.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/Log.h"
#include "platform/utils/exchange_time.h"
#include "platform/utils/market_predicates.h"
#include "platform/utils/number_texts.h"
#include "records/Tolerance.h"
#include "records/bson/BSONObjBuilder.h"
#include "records/bson/jsonString.h"

#include <QHash>

#include <cmath>

namespace Kel {

namespace {

constexpr int kOneLevel = 1;
constexpr int kFiveLevels = 5;
constexpr int kTenLevels = 10;
constexpr const char* kInterbankSwaps = "YSWP";

constexpr double kTickShare = 10; // a price of no more than a tick divided by this is written "-"
constexpr int kCustomIndexDecimals = 2;

const QString& noNumber()
{
    static const QString text = QStringLiteral("-");
    return text;
}

QHash<QString, int> priceTypes()
{
    return {
        {QStringLiteral("卖五"), 0},   {QStringLiteral("卖四"), 1},      {QStringLiteral("卖三"), 2},
        {QStringLiteral("卖二"), 3},   {QStringLiteral("卖一"), 4},      {QStringLiteral("最新"), 5},
        {QStringLiteral("最新价"), 5}, {QStringLiteral("买一"), 6},      {QStringLiteral("买二"), 7},
        {QStringLiteral("买三"), 8},   {QStringLiteral("买四"), 9},      {QStringLiteral("买五"), 10},
        {QStringLiteral("卖六"), 30},  {QStringLiteral("卖七"), 31},     {QStringLiteral("卖八"), 32},
        {QStringLiteral("卖九"), 33},  {QStringLiteral("卖十"), 34},     {QStringLiteral("买六"), 35},
        {QStringLiteral("买七"), 36},  {QStringLiteral("买八"), 37},     {QStringLiteral("买九"), 38},
        {QStringLiteral("买十"), 39},  {QStringLiteral("涨跌停价"), 12}, {QStringLiteral("对手价"), 14},
    };
}

} // namespace

int shelvesOf(const std::string& market, bool tenLevels)
{
    if (utils::isFutureMarket(market))
        return kOneLevel;
    if (utils::isStockMarket(market) || utils::isHGTMarket(market) || utils::isSGTMarket(market) ||
        utils::isHKMarket(market))
        return tenLevels ? kTenLevels : kFiveLevels;
    if (market == kInterbankSwaps)
        return kTenLevels;
    if (utils::isStockOptionMarket(market))
        return kFiveLevels;
    return kOneLevel;
}

QList<QString> labelsOf(const QList<QString>& all, int shelves)
{
    return all.mid(kTenLevels - shelves, 2 * shelves);
}

QString labelAt(const QList<QString>& labels, int index)
{
    return labels.value(index);
}

EntrustLevel levelAt(const QVector<EntrustLevel>& levels, int index)
{
    return levels.value(index);
}

EntrustLevel levelOfRow(const EntrustStatusData& data, int index, int shelves)
{
    return index < shelves ? levelAt(data.askLevels, index - shelves + kTenLevels)
                           : levelAt(data.bidLevels, index - shelves);
}

LevelTexts levelTexts(const EntrustLevel& level, double priceTick, bool customIndex)
{
    LevelTexts texts;
    if (!level.valid)
        return texts;
    texts.price = std::fabs(level.price) <= priceTick / kTickShare
                      ? noNumber()
                      : Zeb::formatPriceDoubleNumber(level.price, priceTick);
    if (customIndex)
        texts.volume = Zeb::formatDoubleNumber(level.volume, kCustomIndexDecimals, Zeb::eFormatUnits, false,
                                               QStringLiteral("非法值"));
    else
        texts.volume = level.volume == 0 ? noNumber() : QString::number(level.volume);
    if (level.change != 0)
        texts.change = QString::asprintf("%+d", level.change);
    return texts;
}

bool isLastPrice(double price)
{
    return !isEqual(price, std::numeric_limits<double>::max());
}

int priceTypeOf(const QString& label)
{
    static const QHash<QString, int> types = priceTypes();
    return types.value(label, kOtherPriceType);
}

QString tradeText(const QString& stockKey, int priceType, double price, int volume)
{
    bson::BSONObjBuilder builder;
    builder.append("stockcode", stockKey)
        .append("pricetype", QString::number(priceType))
        .append("price", utils::formatDoubleNumber(price, utils::eFormatShortest))
        .append("vol", utils::formatIntNumber(volume, 0, 0));
    return QString::fromStdString(bson::jsonString(builder.obj()));
}

void logQuoteUpdate(const void* widget, const char* sourceFile, const char* function,
                    const CModelEntrustStatus& model, int status,
                    const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records)
{
    const auto stockKey = [&model] { return getDetailQsKey(model.data().instrument).toStdString(); };
    const auto timeText = [&records] {
        const bool known = !records.empty() && records.back();
        return known ? utils::millisecondsToTime(records.back()->m_time).toStdString() : std::string("0");
    };
    DEPTH_LOG(utils::kLogInfo, sourceFile,
              boost::format("[%1%] [%2%] update end [data heap check] code:%3%, type:%4%, time:%5%") %
                  widget % function % stockKey() % status % timeText());
}

} // namespace Kel
