#include "truth_driver.h"

#include "feed/record_making.h"
#include "platform/services/CStockManager.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"
#include "records/PriceKey.h"
#include "records/Tolerance.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <limits>
#include <sstream>

namespace testing_support {

namespace {
constexpr std::size_t kLiveBatch = 100;
} // namespace

TruthDriver::TruthDriver(const feed::SimulationSettings& settings)
    : m_exchange(settings),
      m_market(m_exchange.settings().detail.market),
      m_code(m_exchange.settings().detail.code),
      m_unit(static_cast<double>(m_exchange.settings().volumeUnit))
{
    const auto detail = boost::make_shared<nelservice::CInstrumentDetail>(m_exchange.settings().detail);
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
    m_engine.setStock(Kel::getDetailQsKey(detail));
}

void TruthDriver::onOrder(const feed::OrderRow& row)
{
    m_orders.push_back(row);
    m_priceless += row.price == 0 ? 1 : 0;
}

void TruthDriver::onDeal(const feed::DealRow& row)
{
    if (m_mode == Mode::Live) {
        if (row.kind == quoter::eTransactionCancel && m_dealtSincePass.count(row.buyNo) != 0) {
            ++m_separated;
            flush();
            m_engine.updateDataList();
            m_dealtSincePass.clear();
        }
        if (row.kind != quoter::eTransactionCancel) {
            m_dealtSincePass.insert(row.buyNo);
            m_dealtSincePass.insert(row.sellNo);
        }
    }
    m_deals.push_back(row);
}

void TruthDriver::onSnapshot(const feed::SnapshotRow& row)
{
    flush();
    m_engine.quoterCallBack(0, -1, {feed::makeRecord(row, m_unit)});
}

void TruthDriver::onQueue(const feed::QueueRow& row)
{
    flush();
    m_lastQueue = row;
    m_engine.quoterCallBack(0, 1, {feed::makeRecord(row, m_unit)});
}

void TruthDriver::loadHistory(std::int64_t time, std::size_t batchSize)
{
    struct Collector : feed::RowSink
    {
        feed::InstrumentDay day;
        void onOrder(const feed::OrderRow& row) override { day.onOrder(row); }
        void onDeal(const feed::DealRow& row) override { day.onDeal(row); }
        void onSnapshot(const feed::SnapshotRow& row) override { day.onSnapshot(row); }
        void onQueue(const feed::QueueRow&) override {}
    } collector;
    m_exchange.runUntil(time, collector);
    // With no order in its cache the engine takes published queues for the truth: a load waits until an order
    // stands.
    const feed::TrueBook& book = m_exchange.book();
    while (book.isEmpty(feed::Side::Buy) && book.isEmpty(feed::Side::Sell))
        m_exchange.runUntil(m_exchange.now() + 1000, collector);
    for (const feed::OrderRow& row : collector.day.orders)
        m_priceless += row.price == 0 ? 1 : 0;

    int status = 0;
    for (std::size_t from = 0; from == 0 || from < collector.day.deals.size(); from += batchSize, status = 3)
        sendDeals(status, collector.day.deals, from, batchSize);
    // A history batch of at most 100 orders would be taken for a live one and be listed before those that
    // wait for the match, so a short rest goes with the batch before it.
    status = 0;
    const std::size_t orders = collector.day.orders.size();
    for (std::size_t from = 0, count = 0; from == 0 || from < orders; from += count, status = 3) {
        count = orders - from <= batchSize + kLiveBatch ? std::max<std::size_t>(orders - from, 1) : batchSize;
        sendOrders(status, collector.day.orders, from, count);
    }
    sendDeals(1, {}, 0, 0);
    if (!collector.day.snapshots.empty())
        onSnapshot(collector.day.snapshots.back());
    m_mode = Mode::Live;
}

void TruthDriver::live(std::int64_t time)
{
    m_mode = Mode::Live;
    m_exchange.runUntil(time, *this);
    flush();
}

void TruthDriver::quiet(int ticks)
{
    for (int i = 0; i < ticks; ++i)
        m_engine.slotTimeout();
    m_dealtSincePass.clear();
}

Kel::MetaCacheDataWrapperPtr TruthDriver::wrap(quoter::QuoterBatch batch) const
{
    const auto wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
    wrapper->data = std::move(batch);
    wrapper->market = m_market;
    wrapper->instrument = m_code;
    return wrapper;
}

void TruthDriver::sendOrders(int status, const std::vector<feed::OrderRow>& rows, std::size_t from,
                             std::size_t count)
{
    count = std::min(count, rows.size() - from);
    m_engine.doOrderCallBack(0, status, wrap(feed::makeOrderBatch(rows.data() + from, count)));
}

void TruthDriver::sendDeals(int status, const std::vector<feed::DealRow>& rows, std::size_t from,
                            std::size_t count)
{
    count = std::min(count, rows.size() - from);
    m_engine.doDealCallBack(0, status, wrap(feed::makeDealBatch(rows.data() + from, count)));
}

void TruthDriver::flush()
{
    for (std::size_t from = 0; from < m_orders.size(); from += kLiveBatch)
        sendOrders(1, m_orders, from, kLiveBatch);
    m_orders.clear();
    if (!m_deals.empty())
        sendDeals(1, m_deals, 0, m_deals.size());
    m_deals.clear();
}

void TruthDriver::compareSide(feed::Side side, std::string& text) const
{
    std::ostringstream out;
    const double tick = m_exchange.settings().detail.priceTick;
    const auto levels = m_exchange.book().levels(side, std::numeric_limits<int>::max());
    const auto& queues = m_engine.m_orderQueues.value(static_cast<int>(side));
    std::set<int> keys;
    for (const feed::TrueLevel& level : levels) {
        const int key = Kel::priceKey(level.price, tick);
        keys.insert(key);
        std::vector<feed::TrueOrder> expected = m_exchange.book().orders(side, level.price);
        expected.erase(
            std::remove_if(expected.begin(), expected.end(), [](const auto& o) { return o.priceless; }),
            expected.end());
        const auto rebuilt = queues.value(key);
        const Kel::OrderList listed = rebuilt ? rebuilt->m_orders : Kel::OrderList();
        bool same = static_cast<std::size_t>(listed.size()) == expected.size();
        for (int i = 0; same && i < listed.size(); ++i) {
            const auto& truth = expected[static_cast<std::size_t>(i)];
            same = listed.at(i).m_entrustNo == truth.number &&
                   Kel::isEqual(listed.at(i).m_vol * m_unit, static_cast<double>(truth.remaining)) &&
                   listed.at(i).m_type != Kel::OQT_CANCELED && listed.at(i).m_type != Kel::OQT_DEALT;
        }
        if (same)
            continue;
        out << (side == feed::Side::Buy ? "buy " : "sell ") << level.price << "\n  true:";
        for (const auto& order : expected)
            out << ' ' << order.number << 'x' << order.remaining;
        out << "\n  rebuilt: " << (rebuilt ? Kel::printLevel(*rebuilt).toStdString() : "no level\n");
    }
    for (auto it = queues.constBegin(); it != queues.constEnd(); ++it) {
        if (keys.count(it.key()) == 0 && !it.value()->m_orders.isEmpty())
            out << "not in the true book: " << Kel::printLevel(*it.value()).toStdString();
    }
    text += out.str();
}

std::string TruthDriver::differences() const
{
    std::string text;
    compareSide(feed::Side::Buy, text);
    compareSide(feed::Side::Sell, text);
    constexpr std::size_t kMostText = 2000;
    return text.size() > kMostText ? text.substr(0, kMostText) + "..." : text;
}

} // namespace testing_support
