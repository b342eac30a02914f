#include "host/window/tables/chart_tables.h"

#include "host/window/tables/text_tables.h"
#include "platform/models/tick_values.h"
#include "platform/utils/exchange_time.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <vector>

namespace host {

namespace {

constexpr int kDealsPerLook = 1000; // the model's lock is held for them

QString timeText(std::int64_t seconds)
{
    return utils::clockText(seconds * utils::kMSecPerSecond, false);
}

QString activeText(int side)
{
    return side == Kel::kBuySide || side == Kel::kSellSide ? sideText(side == Kel::kBuySide) : QString();
}

QString numberText(int number)
{
    return number > 0 ? QString::number(number) : QString();
}

QStringList cellsOf(const Kel::DepthTransData& deal, int buyLots, int sellLots, double priceTick)
{
    return {timeText(deal.time),          plainPrice(deal.price, priceTick),
            QString::number(deal.volume), activeText(deal.activeSide),
            numberText(deal.buyNo),       QString::number(buyLots),
            numberText(deal.sellNo),      QString::number(sellLots)};
}

/// Passes over the deals before the range and ends with its last one, piece by piece. A deal that comes late
/// on the way is not taken for one of those that stood there.
class DealWalk
{
public:
    DealWalk(const boost::shared_ptr<Kel::CModelDepthHolographic>& model, int first, int last, double tick)
        : m_model(model), m_before(std::max(first, 0)), m_left(std::max(0, last - m_before + 1)), m_tick(tick)
    {
    }

    bool operator()(int most, std::vector<QStringList>& rows)
    {
        rows.clear();
        std::vector<Kel::DepthTransData> deals;
        for (; m_before > 0; m_before -= static_cast<int>(deals.size())) {
            if (!m_model->nextRows(m_walk, std::min(m_before, kDealsPerLook), deals))
                return false;
            if (deals.empty())
                return true;
        }
        if (!m_model->nextRows(m_walk, std::min(most, m_left), deals))
            return false;
        m_left -= static_cast<int>(deals.size());
        for (const Kel::DepthTransData& deal : deals) {
            const auto shared = boost::make_shared<Kel::DepthTransData>(deal);
            rows.push_back(cellsOf(deal, m_model->getEntrustVolume(shared, true),
                                   m_model->getEntrustVolume(shared, false), m_tick));
        }
        return true;
    }

private:
    boost::shared_ptr<Kel::CModelDepthHolographic> m_model;
    int m_before; ///< deals to pass over
    int m_left;   ///< deals of the range to give
    double m_tick;
    Kel::RowWalk m_walk;
};

/// What an interval adds up to.
struct IntervalSum
{
    std::int64_t lots = 0;
    double high = 0;
    double low = 0;
    double value = 0; ///< yuan times lots

    void add(const Kel::DepthTransData& deal)
    {
        high = lots == 0 ? deal.price : std::max(high, deal.price);
        low = lots == 0 ? deal.price : std::min(low, deal.price);
        lots += deal.volume;
        value += deal.price * deal.volume;
    }
};

QStringList intervalCells(const Kel::CModelDepthHolographic& model, int first, int last)
{
    IntervalSum sum;
    for (int from = first; from <= last; from += kDealsPerLook)
        model.visitRows(from, std::min(last, from + kDealsPerLook - 1),
                        [&sum](int, const Kel::DepthTransData& deal) { sum.add(deal); });
    const int tag = model.getCurrQuoterTimgtag(first);
    const double tick = model.priceTick;
    return {tag < 0 ? QString() : timeText(tag),
            QString::number(last - first + 1),
            QString::number(sum.lots),
            plainPrice(sum.high, tick),
            plainPrice(sum.low, tick),
            plainPrice(sum.lots > 0 ? sum.value / static_cast<double>(sum.lots) : 0, tick)};
}

} // namespace

Kel::TickTable chartDealTable(const boost::shared_ptr<Kel::CModelDepthHolographic>& model, int first,
                              int last)
{
    Kel::TickTable table;
    table.columns = QStringList{QStringLiteral("时间"),       QStringLiteral("价格(元)"),
                                QStringLiteral("成交量(手)"), QStringLiteral("主动方"),
                                QStringLiteral("买方委托号"), QStringLiteral("买方委托量(手)"),
                                QStringLiteral("卖方委托号"), QStringLiteral("卖方委托量(手)")};
    table.rowCount = [first, last] { return std::max(0, last - std::max(first, 0) + 1); };
    table.walk = [model, first, last, tick = model->priceTick] {
        return Kel::TickTableWalk(DealWalk(model, first, last, tick));
    };
    return table;
}

QStringList chartDealCells(const Kel::CModelDepthHolographic& model, int deal)
{
    QStringList cells;
    if (deal < 0)
        return cells;
    model.visitDeals(deal, deal, [&cells, &model](const Kel::HolographicDeal& found) {
        cells = cellsOf(found, found.buyLots, found.sellLots, model.priceTick);
    });
    return cells;
}

Kel::TickTable chartIntervalTable(const Kel::CModelDepthHolographic& model, int first, int last)
{
    std::vector<QStringList> rows;
    for (auto deals = model.getCurrSeqPair(first); deals.first >= 0 && deals.first <= last;
         deals = model.getNextSeqPair(deals.second))
        rows.push_back(intervalCells(model, deals.first, deals.second));
    return fixedTable({QStringLiteral("时间"), QStringLiteral("成交笔数"), QStringLiteral("成交量(手)"),
                       QStringLiteral("最高(元)"), QStringLiteral("最低(元)"), QStringLiteral("均价(元)")},
                      std::move(rows));
}

} // namespace host
