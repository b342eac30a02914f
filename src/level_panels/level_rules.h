#pragma once

#include "platform/models/CModelEntrustStatus.h"

#include <QList>
#include <QString>

#include <string>
#include <vector>

/// What both quote panels know of levels, without drawing: how many a market has, what a level's numbers say,
/// and what a click on one sends. Any thread.
namespace Kel {

/// Levels a side that a panel shows of an instrument of `market`: 1, 5 or 10. `tenLevels` chooses between
/// five and ten where the market publishes ten. An unknown market has 1.
int shelvesOf(const std::string& market, bool tenLevels);

/// The labels of `shelves` levels a side out of the twenty of `all`, from the farthest sell level to the
/// farthest buy level.
QList<QString> labelsOf(const QList<QString>& all, int shelves);

/// The label at an index; empty outside the list.
QString labelAt(const QList<QString>& labels, int index);

/// The level at an index; an invalid one outside the list.
EntrustLevel levelAt(const QVector<EntrustLevel>& levels, int index);

/// The level of row `index`, counted from the top without the middle row: sells, then buys.
EntrustLevel levelOfRow(const EntrustStatusData& data, int index, int shelves);

/// The numbers of a level as a row shows them; empty for an invalid level.
struct LevelTexts
{
    QString price;
    QString volume;
    QString change; ///< with its sign, empty for 0
};

/// `customIndex` writes volumes in 万 and 亿.
LevelTexts levelTexts(const EntrustLevel& level, double priceTick, bool customIndex);

/// True unless the price is the largest double, which stands for none yet.
bool isLastPrice(double price);

/// Number by which an order ticket knows the kind of price of a row's label; `kOtherPriceType` for any other
/// text.
int priceTypeOf(const QString& label);
constexpr int kOtherPriceType = 11;  ///< a limit price, given as a number
constexpr int kVolumePriceType = -1; ///< no price at all: the click gave a volume

/// The parameters of a trade as a line of JSON: "stockcode", "pricetype", "price", "vol", all of them texts.
QString tradeText(const QString& stockKey, int priceType, double price, int volume);

/// Logs that `widget` has taken a quote. `function` is a literal with the class and the operation.
void logQuoteUpdate(const void* widget, const char* sourceFile, const char* function,
                    const CModelEntrustStatus& model, int status,
                    const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records);

} // namespace Kel
