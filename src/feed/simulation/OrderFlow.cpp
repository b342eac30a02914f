#include "feed/simulation/OrderFlow.h"

#include "feed/simulation/TradingHours.h"

#include <algorithm>
#include <cmath>

namespace feed {
namespace {

constexpr double kTradingSeconds = 14400;
constexpr double kReturnSeconds = 7200; // the fair price goes back to its anchor with this time constant
constexpr double kBookPullSeconds =
    1800;                             // the fair price follows the middle of the book with this time constant
constexpr double kSameSide = 0.62;    // probability that a message has the side of the one before
constexpr double kMostBias = 0.45;    // how far from one half the choice of side goes when the price is off
constexpr double kDistanceTail = 1.3; // waiting orders are farther than x typical distances with x^-1.3
constexpr double kBestPriceShare = 0.25; // waiting orders that join or improve the best price
constexpr double kNearShare = 0.15; // "near" in typical distances: how far orders improve and reach across
constexpr int kCancelTries = 24;    // places of the pool that are looked at for an order to withdraw
constexpr double kKeepDeep = 0.6;   // a deep order is left alone with this probability
constexpr double kKeepNear = 0.3;   // and one near the best price with this
constexpr int kThinLevels = 12;     // nobody reaches across when the other side has fewer prices
constexpr double kReachTicks = 3;   // an order that reaches across goes at least up to so many ticks deeper
constexpr double kRoundShare = 0.4; // larger orders that are rounded to tens or hundreds of lots

} // namespace

OrderFlow::OrderFlow(const SimulationSettings& settings, const TrueBook& book, Random& random)
    : m_settings(settings),
      m_book(book),
      m_random(random),
      m_start(book.scale().ticks(settings.detail.previousClose)),
      m_distance(std::max(1.5, m_start * settings.depthScale)),
      m_step(m_start * settings.volatility / std::sqrt(kTradingSeconds)),
      m_fair(m_start),
      m_second(hours::kOpeningAuction)
{
}

TraderMessage OrderFlow::next(double secondOfDay)
{
    if (!hours::takesOrders(secondOfDay))
        return {};
    moveFairPrice(secondOfDay);
    const bool inAuction = hours::phaseAt(secondOfDay) != Phase::Continuous;
    if (m_random.chance(m_settings.cancelShare) && hours::takesCancels(secondOfDay))
        return cancellation();
    return order(inAuction);
}

void OrderFlow::moveFairPrice(double secondOfDay)
{
    const double elapsed = std::clamp(secondOfDay - m_second, 0.0, 600.0);
    m_second = secondOfDay;
    const double day = (secondOfDay - hours::kOpeningAuction) / (hours::kClose - hours::kOpeningAuction);
    const double anchor = m_start * (1 + m_settings.drift * std::clamp(day, 0.0, 1.0));
    m_fair += m_step * std::sqrt(elapsed) * m_random.normal() +
              (anchor - m_fair) * (elapsed / (elapsed + kReturnSeconds));
    if (!m_book.isEmpty(Side::Buy) && !m_book.isEmpty(Side::Sell)) {
        const double middle = (m_book.bestTicks(Side::Buy) + double(m_book.bestTicks(Side::Sell))) / 2;
        m_fair += (middle - m_fair) * (elapsed / (elapsed + kBookPullSeconds));
    }
    m_fair = std::clamp(m_fair, double(m_book.lowestTicks()), double(m_book.highestTicks()));
}

TraderMessage OrderFlow::cancellation()
{
    TraderMessage message;
    const auto places = static_cast<std::uint32_t>(m_book.placeCount());
    for (int attempt = 0; places > 0 && attempt < kCancelTries; ++attempt) {
        const std::size_t place = m_random.below(places);
        const std::int64_t number = m_book.numberAt(place);
        if (number == 0)
            continue;
        // Whoever stands beyond the fair price withdraws first.
        const TrueBook::Standing standing = m_book.standingAt(place);
        const bool beyond = standing.side == Side::Buy ? standing.ticks > m_fair : standing.ticks < m_fair;
        const bool deep = std::abs(standing.ticks - m_book.bestTicks(standing.side)) > m_distance;
        if (!beyond && m_random.chance(deep ? kKeepDeep : kKeepNear))
            continue;
        message.action = TraderMessage::Action::Cancel;
        message.number = number;
        break;
    }
    return message;
}

TraderMessage OrderFlow::order(bool inAuction)
{
    using Action = TraderMessage::Action;
    TraderMessage message;
    message.action = Action::Limit;
    if (inAuction) {
        message.side = chooseSide();
        message.ticks = auctionTicks(message.side);
        message.volume = chooseVolume(message.side);
        return message;
    }
    const double kind = m_random.unit();
    const bool market = kind < m_settings.marketShare;
    const bool bestOwn = !market && kind < m_settings.marketShare + m_settings.bestOwnSideShare;
    bool reaches = market || (!bestOwn && m_random.chance(m_settings.aggressiveShare));
    message.side = reaches ? chooseReachingSide() : chooseSide();
    reaches = reaches && canReach(message.side);
    if (reaches && market)
        message.action = Action::Market;
    else if (bestOwn)
        message.action = Action::BestOwnSide;
    else
        message.ticks = reaches ? reachingTicks(message.side) : waitingTicks(message.side);
    message.volume = chooseVolume(message.side);
    return message;
}

Side OrderFlow::chooseSide()
{
    if (!m_random.chance(kSameSide))
        m_lastSide = opposite(m_lastSide);
    return m_lastSide;
}

/// Buyers reach across rather while the book is below the fair price, sellers rather while it is above.
Side OrderFlow::chooseReachingSide()
{
    if (m_book.isEmpty(Side::Buy) || m_book.isEmpty(Side::Sell))
        return chooseSide();
    const double middle = (m_book.bestTicks(Side::Buy) + double(m_book.bestTicks(Side::Sell))) / 2;
    const double bias = kMostBias * std::clamp((m_fair - middle) / m_distance, -1.0, 1.0);
    if (std::fabs(bias) < m_random.unit() * kMostBias)
        return chooseSide();
    m_lastSide = m_random.chance(0.5 + bias) ? Side::Buy : Side::Sell;
    return m_lastSide;
}

std::int64_t OrderFlow::chooseVolume(Side side)
{
    const double lots = m_settings.typicalLots * (m_random.pareto(m_settings.sizeTail) - 0.5);
    const double most = double(m_settings.maximumVolume) / double(m_settings.volumeUnit);
    auto whole = static_cast<std::int64_t>(std::clamp(lots, 1.0, std::max(most, 1.0)));
    if (whole > 20 && m_random.chance(kRoundShare))
        whole -= whole % (whole > 200 ? 100 : 10);
    std::int64_t volume = whole * m_settings.volumeUnit;
    if (side == Side::Sell && m_settings.volumeUnit > 1 && m_random.chance(m_settings.oddLotShare))
        volume += 1 + m_random.below(static_cast<std::uint32_t>(m_settings.volumeUnit - 1));
    return std::min(volume, m_settings.maximumVolume);
}

/// Auction prices lie on both sides of the fair price, so that many of them can be matched.
int OrderFlow::auctionTicks(Side side)
{
    const double distance = m_distance * (m_random.pareto(kDistanceTail) - 1);
    const double generous = m_distance * 2 * m_random.unit();
    const double away = m_random.chance(0.4) ? -generous : distance;
    return clampedTicks(side == Side::Buy ? m_fair - away : m_fair + away);
}

/// A price that does not reach the other side: at the best price, or away from the fair price.
int OrderFlow::waitingTicks(Side side)
{
    const int own = m_book.bestTicks(side);
    const int other = m_book.bestTicks(opposite(side));
    const bool buys = side == Side::Buy;
    double ticks = 0;
    // Nobody joins a best price that the fair price has left behind.
    const bool joins = own != 0 && (buys ? own <= m_fair : own >= m_fair) && m_random.chance(kBestPriceShare);
    if (joins) {
        const double near = 1 + std::floor(m_random.unit() * m_distance * kNearShare);
        const double improvement = m_random.chance(0.4) ? near : 0;
        ticks = buys ? own + improvement : own - improvement;
    } else {
        const double distance = m_distance * (m_random.pareto(kDistanceTail) - 1);
        ticks = buys ? m_fair - distance : m_fair + distance;
    }
    if (other != 0)
        ticks = buys ? std::min(ticks, other - 1.0) : std::max(ticks, other + 1.0);
    return clampedTicks(ticks);
}

int OrderFlow::reachingTicks(Side side)
{
    const double deeper = std::floor(m_random.unit() * std::max(kReachTicks, m_distance * kNearShare));
    const int other = m_book.bestTicks(opposite(side));
    const double ticks = side == Side::Buy ? other + deeper : other - deeper;
    return std::clamp(clampedTicks(ticks), m_book.lowestTicks(), m_book.highestTicks());
}

bool OrderFlow::canReach(Side side) const
{
    return m_book.levelCount(opposite(side)) >= kThinLevels;
}

int OrderFlow::clampedTicks(double ticks) const
{
    // Beyond the band by at most its width: the exchange refuses such orders, the traders send them all the
    // same.
    const double width = double(m_book.highestTicks()) - m_book.lowestTicks() + 1;
    return static_cast<int>(std::floor(
        std::clamp(ticks, std::max(1.0, m_book.lowestTicks() - width), m_book.highestTicks() + width) + 0.5));
}

} // namespace feed
