#include "host/PanelModels.h"

#include "host/WordHash.h"
#include "platform/services/CStockManager.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"

#include <boost/make_shared.hpp>

#include <limits>
#include <list>

namespace host {
namespace {

constexpr int kWholeList = std::numeric_limits<int>::max();
constexpr int kRowsPerLook = 1000; // the model's lock is held for them

void addDeal(WordHash& hash, const Kel::DepthTransData& deal)
{
    hash.add(deal.time, deal.price, deal.volume, deal.sellNo, deal.buyNo, deal.buyPrevious, deal.buyNext,
             deal.sellPrevious, deal.sellNext, deal.sellRun, deal.buyRun, deal.trend, deal.activeSide,
             deal.volumeRise);
}

void addSide(WordHash& hash, const Kel::DealSide& side)
{
    hash.add(side.lots, side.previousPrice, side.nextPrice);
}

std::uint64_t hashOf(const Kel::CModelDepthTransaction& model)
{
    WordHash hash;
    hash.add(model.count.load(), model.priceTick, model.preClose, model.volumeUnit);
    model.visitSides(0, kWholeList,
                     [&hash](int row, const Kel::DepthTransData& deal, const Kel::DealSide& buy,
                             const Kel::DealSide& sell) {
                         hash.add(row);
                         addDeal(hash, deal);
                         addSide(hash, buy);
                         addSide(hash, sell);
                     });
    return hash.value();
}

void addOrder(WordHash& hash, const Kel::DepthOrderData& order)
{
    hash.add(order.time, order.price, order.lots, order.volume, order.orderNo, order.side, order.kind);
}

/// The deals and the cancel that a click on an order lists.
void addTrack(WordHash& hash, const Kel::CModelDepthEntrust& model, int number)
{
    std::list<boost::shared_ptr<quoter::TransactionData>> track;
    model.getTransactionData(number, track);
    hash.add(track.size());
    for (const auto& record : track)
        hash.add(record->m_time, record->price, record->volume, record->dealNo, record->buyNo, record->sellNo,
                 record->kind, record->activeSide);
}

std::uint64_t hashOf(const Kel::CModelDepthEntrust& model)
{
    WordHash hash;
    hash.add(model.orderCount.load(), model.cancelCount.load());
    std::vector<Kel::DepthOrderData> orders;
    for (Kel::RowWalk walk; model.nextOrders(walk, kRowsPerLook, orders) && !orders.empty();) {
        for (const Kel::DepthOrderData& order : orders) {
            addOrder(hash, order);
            addTrack(hash, model, order.orderNo);
        }
    }
    std::vector<Kel::CancelWithOrder> cancels;
    for (Kel::RowWalk walk; model.nextCancels(walk, kRowsPerLook, cancels) && !cancels.empty();) {
        for (const Kel::CancelWithOrder& row : cancels) {
            hash.add(row.cancel.time, row.cancel.price, row.cancel.lots, row.cancel.volume,
                     row.cancel.orderNo, row.isKnown ? 1 : 0);
            if (row.isKnown)
                addOrder(hash, row.order);
        }
    }
    return hash.value();
}

/// The orders that a click on a row lists.
void addQueue(WordHash& hash, const std::shared_ptr<Kel::SingleQueue>& queue)
{
    hash.add(queue ? 1 : 0);
    if (!queue)
        return;
    hash.add(queue->isBuy, queue->time, queue->price, queue->totalVolume, queue->orderCount,
             queue->quotes.size());
    for (const auto& [number, quote] : queue->quotes)
        hash.add(std::int64_t(number), quote->time, quote->volume, quote->dealtVolume, quote->state);
}

template <class Model>
std::uint64_t hashOf(const Model& model, const PanelModels::Ladder& ladder, WordHash& changes)
{
    WordHash hash;
    hash.add(model.getPriceTick(), model.getLastClose(), model.getVolumeUnit());
    hash.add(ladder.latest, ladder.lastVolume, ladder.minPrice, ladder.maxPrice, ladder.maxAmount);
    for (const bool isBuy : {true, false}) {
        const auto& rows = isBuy ? ladder.buys : ladder.sells;
        hash.add(rows.size());
        changes.add(rows.size());
        for (const boost::shared_ptr<Kel::EntrustData>& row : rows) {
            hash.add(row->price, row->volume, row->orderCount);
            addQueue(hash, model.getQueue(isBuy, row->price));
            changes.add(row->change);
        }
    }
    return hash.value();
}

std::uint64_t hashOf(const Kel::CModelEntrustStatus& model)
{
    const Kel::EntrustStatusData quote = model.data();
    WordHash hash;
    hash.add(quote.lastPrice, quote.priceTick, quote.newVolume, model.getLastClosePrice());
    for (const auto* levels : {&quote.bidLevels, &quote.askLevels}) {
        hash.add(levels->size());
        for (const Kel::EntrustLevel& level : *levels)
            hash.add(level.valid ? 1 : 0, level.price, level.volume, level.change);
    }
    return hash.value();
}

std::uint64_t hashOf(const Kel::CModelDepthHolographic& model)
{
    WordHash hash;
    hash.add(model.getStartIndex(), model.getEndIndex(), model.lastSeq, model.maxPrice, model.minPrice,
             model.viewExtent);
    model.visitDeals(0, kWholeList, [&hash](const Kel::HolographicDeal& deal) {
        addDeal(hash, deal);
        hash.add(deal.index, deal.buyLots, deal.sellLots, static_cast<int>(deal.buyKind),
                 static_cast<int>(deal.sellKind));
    });
    hash.add(model.hasIntervals() ? 1 : 0);
    for (auto deals = model.getCurrSeqPair(0); deals.first >= 0; deals = model.getNextSeqPair(deals.second))
        hash.add(deals.first, deals.second, model.getCurrQuoterTimgtag(deals.first));
    return hash.value();
}

} // namespace

std::uint64_t PanelHashes::all() const
{
    WordHash hash;
    hash.add(deals, orders, ladder, readyLadder, quotes, chart, ladderChanges);
    return hash.value();
}

bool PanelModels::open(const nelservice::CInstrumentDetail& detail)
{
    const auto shared = boost::make_shared<nelservice::CInstrumentDetail>(detail);
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(shared);
    m_market = detail.market;
    m_code = detail.code;
    m_key = Kel::getDetailQsKey(shared);
    clear();
    return m_deals.detail.load() != nullptr;
}

void PanelModels::clear()
{
    const auto empty = [this](auto&... models) {
        (models.clear(), ...);
        (models.setStock(m_key), ...);
    };
    empty(m_deals, m_orders, m_ladder, m_readyLadder, m_quotes, m_chart);
    m_ladderShown = {};
    m_readyLadderShown = {};
}

PanelHashes PanelModels::look()
{
    int flags = 0;
    const auto outputs = [&flags](Ladder& shown, auto&& ask) {
        ask(flags, shown.buys, shown.sells, shown.latest, shown.lastVolume, shown.minPrice, shown.maxPrice,
            shown.maxAmount);
    };
    outputs(m_ladderShown, [this](auto&... out) { m_ladder.checkUpdate(out..., false); });
    outputs(m_readyLadderShown, [this](auto&... out) { m_readyLadder.checkUpdate(out...); });
    m_chart.recalcMaxMinSeqAndPrice();

    PanelHashes hashes;
    WordHash changes;
    hashes.deals = hashOf(m_deals);
    hashes.orders = hashOf(m_orders);
    hashes.ladder = hashOf(m_ladder, m_ladderShown, changes);
    hashes.readyLadder = hashOf(m_readyLadder, m_readyLadderShown, changes);
    hashes.quotes = hashOf(m_quotes);
    hashes.chart = hashOf(m_chart);
    hashes.ladderChanges = changes.value();
    return hashes;
}

void PanelModels::onOrders(const std::string& /*key*/, int seq, int status,
                           const Kel::MetaCacheDataWrapperPtr& batch)
{
    m_deals.entrustCallback(seq, status, batch);
    m_orders.entrustCallback(seq, status, batch);
    m_ladder.entrustCallback(seq, status, batch);
    m_chart.entrustCallback(seq, status, batch);
}

void PanelModels::onDeals(const std::string& /*key*/, int seq, int status,
                          const Kel::MetaCacheDataWrapperPtr& batch)
{
    m_deals.transactionCallback(seq, status, batch);
    m_orders.transactionCallback(seq, status, batch);
    m_ladder.transactionCallback(seq, status, batch);
    m_chart.transactionCallback(seq, status, batch);
}

void PanelModels::onQuotes(const std::string& /*key*/, int seq, int status, const quoter::QuoterBatch& batch)
{
    const auto named = boost::make_shared<Kel::MetaCacheDataWrapper>();
    named->data = batch;
    named->market = m_market;
    named->instrument = m_code;
    m_quotes.quoterCallBack(seq, status, batch);
    m_ladder.quoterCallback(seq, status, named);
    m_readyLadder.quoterCallback(seq, status, named);
    m_chart.quoterCallback(seq, status, named);
}

void PanelModels::onLadders(const std::string& /*key*/, int seq, int status,
                            const Kel::MetaCacheDataWrapperPtr& batch)
{
    m_readyLadder.ThousandDataCallback(seq, status, batch);
}

} // namespace host
