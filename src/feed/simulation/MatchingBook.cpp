#include "feed/simulation/MatchingBook.h"

#include "records/OrderData.h"

#include <algorithm>
#include <limits>

namespace feed {
namespace {

constexpr int kMarketOrderPrices = 5;

TrueOrder restOf(std::int64_t number, std::int64_t original, std::int64_t rest, std::int64_t time)
{
    TrueOrder order;
    order.number = number;
    order.original = original;
    order.remaining = rest;
    order.dealt = original - rest;
    order.time = time;
    return order;
}

} // namespace

MatchingBook::MatchingBook(TrueBook& book, MarketChannel& channel) : m_book(book), m_channel(channel) {}

void MatchingBook::limit(Side side, int ticks, std::int64_t volume)
{
    const std::int64_t number = m_channel.announceOrder(side, quoter::eOrderLimit, ticks, volume);
    const std::int64_t rest = take(side, number, ticks, volume, std::numeric_limits<int>::max());
    if (rest > 0)
        m_book.add(side, ticks, restOf(number, volume, rest, m_channel.time()));
}

void MatchingBook::limitInAuction(Side side, int ticks, std::int64_t volume)
{
    const std::int64_t number = m_channel.announceOrder(side, quoter::eOrderLimit, ticks, volume);
    m_book.add(side, ticks, restOf(number, volume, volume, m_channel.time()));
}

void MatchingBook::market(Side side, std::int64_t volume)
{
    const std::int64_t number = m_channel.announceOrder(side, quoter::eOrderMarket, 0, volume);
    const int worst = side == Side::Buy ? m_book.highestTicks() : m_book.lowestTicks();
    const std::int64_t rest = take(side, number, worst, volume, kMarketOrderPrices);
    if (rest > 0)
        m_channel.announceCancel(side, number, rest);
}

void MatchingBook::bestOwnSide(Side side, std::int64_t volume)
{
    const std::int64_t number = m_channel.announceOrder(side, quoter::eOrderBestOwnSide, 0, volume);
    if (m_book.isEmpty(side)) {
        m_channel.announceCancel(side, number, volume);
        return;
    }
    TrueOrder order = restOf(number, volume, volume, m_channel.time());
    order.priceless = true;
    m_book.add(side, m_book.bestTicks(side), order);
}

bool MatchingBook::cancel(std::int64_t number)
{
    const auto removed = m_book.remove(number);
    if (!removed)
        return false;
    m_channel.announceCancel(removed->side, number, removed->order.remaining);
    return true;
}

void MatchingBook::matchAuction(const AuctionMatch& match)
{
    std::int64_t left = match.volume;
    while (left > 0) {
        const TrueOrder buy = m_book.front(Side::Buy);
        const TrueOrder sell = m_book.front(Side::Sell);
        const std::int64_t volume = std::min({left, buy.remaining, sell.remaining});
        if (volume <= 0)
            break; // the match was not made from this book
        m_book.fillFront(Side::Buy, volume);
        m_book.fillFront(Side::Sell, volume);
        m_channel.announceDeal(match.ticks, volume, buy.number, sell.number, 0);
        left -= volume;
    }
}

std::int64_t MatchingBook::take(Side side, std::int64_t number, int limitTicks, std::int64_t volume,
                                int mostPrices)
{
    const Side other = opposite(side);
    int price = 0;
    while (volume > 0 && !m_book.isEmpty(other)) {
        const int best = m_book.bestTicks(other);
        if (side == Side::Buy ? best > limitTicks : best < limitTicks)
            break;
        if (best != price && mostPrices-- <= 0)
            break;
        price = best;
        const TrueOrder front = m_book.front(other);
        const std::int64_t dealt = std::min(volume, front.remaining);
        m_book.fillFront(other, dealt);
        volume -= dealt;
        if (side == Side::Buy)
            m_channel.announceDeal(price, dealt, number, front.number, static_cast<int>(Side::Buy));
        else
            m_channel.announceDeal(price, dealt, front.number, number, static_cast<int>(Side::Sell));
    }
    return volume;
}

} // namespace feed
