#include "SmallDay.h"

#include "host/ReferenceBook.h"
#include "platform/utils/exchange_time.h"
#include "records/OrderData.h"
#include "records/TransactionData.h"

namespace testing_support {

namespace {

constexpr double kTick = 0.01;

template <class Iterator, class Prices, class Volumes, class Counts>
void publish(Iterator level, Iterator end, Prices& prices, Volumes& volumes, Counts& counts)
{
    for (std::size_t i = 0; i < prices.size() && level != end; ++i, ++level) {
        prices[i] = level->first / 100.0;
        volumes[i] = level->second.shares;
        counts[i] = level->second.orders;
    }
}

} // namespace

SmallDay::SmallDay() : m_time(utils::exchangeTime(20230201, 9, 30, 0, 0))
{
    day.detail.market = "SH";
    day.detail.code = "600999";
    day.detail.name = "沪市模拟";
    day.detail.kind = nelservice::EInstrumentKind::Stock;
    day.detail.priceTick = kTick;
    day.detail.previousClose = 10;
    day.tradingDay = 20230201;
}

SmallDay& SmallDay::at(double second)
{
    m_time = utils::exchangeTime(20230201, 9, 30, 0, 0) + static_cast<std::int64_t>(second * 1000);
    return *this;
}

SmallDay& SmallDay::order(int side, std::int64_t number, double price, std::int64_t shares, int kind)
{
    feed::OrderRow row;
    row.time = m_time;
    row.seq = ++m_seq;
    row.number = number;
    row.price = price;
    row.volume = shares;
    row.side = side;
    row.kind = kind;
    day.onOrder(row);
    return *this;
}

SmallDay& SmallDay::buy(std::int64_t number, double price, std::int64_t shares, int kind)
{
    return order(1, number, price, shares, kind);
}

SmallDay& SmallDay::sell(std::int64_t number, double price, std::int64_t shares, int kind)
{
    return order(2, number, price, shares, kind);
}

SmallDay& SmallDay::row(const feed::DealRow& given)
{
    feed::DealRow placed = given;
    placed.time = m_time;
    placed.seq = ++m_seq;
    placed.dealNo = static_cast<std::int32_t>(m_seq);
    day.onDeal(placed);
    return *this;
}

SmallDay& SmallDay::deal(std::int32_t buyNo, std::int32_t sellNo, double price, std::int64_t shares)
{
    feed::DealRow deal;
    deal.buyNo = buyNo;
    deal.sellNo = sellNo;
    deal.price = price;
    deal.volume = shares;
    m_last = price;
    // Tests of hostile volumes go beyond what 64 bits add up.
    m_total =
        static_cast<std::int64_t>(static_cast<std::uint64_t>(m_total) + static_cast<std::uint64_t>(shares));
    return row(deal);
}

SmallDay& SmallDay::cancelBuy(std::int32_t number, std::int64_t shares)
{
    feed::DealRow cancel;
    cancel.kind = quoter::eTransactionCancel;
    cancel.buyNo = number;
    cancel.volume = shares;
    return row(cancel);
}

SmallDay& SmallDay::cancelSell(std::int32_t number, std::int64_t shares)
{
    feed::DealRow cancel;
    cancel.kind = quoter::eTransactionCancel;
    cancel.buyNo = number;
    cancel.sellNo = number;
    cancel.volume = shares;
    return row(cancel);
}

SmallDay& SmallDay::snapshot(bool withSequence)
{
    host::ReferenceBook book(kTick);
    std::size_t deal = 0;
    for (const feed::OrderRow& order : day.orders) {
        for (; deal < day.deals.size() && day.deals[deal].seq < order.seq; ++deal)
            book.apply(day.deals[deal]);
        book.apply(order);
    }
    for (; deal < day.deals.size(); ++deal)
        book.apply(day.deals[deal]);

    feed::SnapshotRow row;
    row.time = m_time;
    row.seq = withSequence ? m_seq : 0;
    row.phase = feed::Phase::Continuous;
    row.lastPrice = m_last;
    row.totalVolume = m_total;
    publish(book.levels(1).rbegin(), book.levels(1).rend(), row.bidPrice, row.bidVolume, row.bidCount);
    publish(book.levels(2).begin(), book.levels(2).end(), row.askPrice, row.askVolume, row.askCount);
    day.onSnapshot(row);
    return *this;
}

SmallDay& SmallDay::queue(double bidPrice, std::vector<std::int64_t> bids, double askPrice,
                          std::vector<std::int64_t> asks)
{
    feed::QueueRow row;
    row.time = m_time;
    row.bidPrice = bidPrice;
    row.askPrice = askPrice;
    row.bidCount = static_cast<std::int32_t>(bids.size());
    row.askCount = static_cast<std::int32_t>(asks.size());
    row.bidVolumes = std::move(bids);
    row.askVolumes = std::move(asks);
    day.onQueue(row);
    return *this;
}

} // namespace testing_support
