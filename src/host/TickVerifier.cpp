// A day with orders: the engine's lists against the published levels.

#include "host/TickVerifier.h"

#include "records/PriceKey.h"

#include <algorithm>

namespace host {
namespace {

constexpr int kSettleTicks = 3; // a part deal is marked, then subtracted; the third finds nothing to do
constexpr int kLevelsRead = 40; // levels of the engine looked at; more than ten so that surplus ones are seen
constexpr std::size_t kMostOrdersNamed = 4;
constexpr std::int64_t kMostShares = std::int64_t(1) << 60; // a published volume beyond it is none
constexpr std::int64_t kProgressRows = 5000;

const char* const kUnplaced = "the snapshot shows no moment of the feed";
const char* const kKeptRest = "dealt in part and cancelled between two refresh ticks: the dealt lots stay";
const char* const kOtherBook = "the snapshot differs from the plain book of its own feed";
const char* const kUnexplained = "not explained";
const char* const kNotExamined = "not examined";

/// Explaining a mismatch reads the whole book; of a broken day's hundred thousand the first tell the cause.
constexpr std::int64_t kMostExplained = 25000;

} // namespace

TickVerifier::TickVerifier(const feed::InstrumentDay& day, const VerifyOptions& options)
    : m_day(day), m_options(options)
{
    m_engine.open(day.detail);
    m_tick = m_engine.priceTick();
    m_book = ReferenceBook(m_tick);
}

Verification TickVerifier::run()
{
    for (const feed::OrderRow& row : m_day.orders)
        m_result.pricelessOrders += Kel::priceKey(row.price, m_tick) == 0 ? 1 : 0;

    m_places = placeSnapshots(m_day);
    const DayTimeline timeline(m_day, m_places);
    DayPlayer::Options playing;
    playing.tickBeforeCancel = m_options.refreshMs == 0;
    m_result.tickBeforeCancel = playing.tickBeforeCancel;
    if (m_options.refreshMs > 0)
        playing.refreshMs = m_options.refreshMs;
    DayPlayer player(timeline, m_engine, playing);
    m_player = &player;

    std::int64_t done = 0;
    while (!player.atEnd()) {
        const DayTimeline::Entry entry = timeline.entries()[player.played()];
        player.step();
        if (entry.kind == DayTimeline::Kind::Order)
            m_book.apply(m_day.orders[entry.index]);
        else if (entry.kind == DayTimeline::Kind::Deal)
            m_book.apply(m_day.deals[entry.index]);
        else if (entry.kind == DayTimeline::Kind::Snapshot && isContinuous(m_day.snapshots[entry.index]))
            compare(entry.index);
        if (m_options.progress && ++done % kProgressRows == 0 &&
            !m_options.progress(done, static_cast<std::int64_t>(timeline.entries().size()))) {
            m_result.cancelled = true;
            break;
        }
    }
    m_result.keptRests = static_cast<std::int64_t>(player.keptRests().size());
    return m_result;
}

void TickVerifier::compare(std::size_t index)
{
    m_player->quiet(kSettleTicks);
    const SnapshotPlace& place = m_places[index];
    ++m_result.snapshots;
    m_result.bySequence += place.placing == Placing::Sequence ? 1 : 0;
    m_result.byView += place.placing == Placing::View ? 1 : 0;
    m_unplaced = place.placing == Placing::Time;
    if (m_unplaced)
        noteUnplaced(m_day.snapshots[index]);

    const std::int64_t before = m_result.mismatches;
    compareSide(m_day.snapshots[index], Kel::OQT_BUY);
    compareSide(m_day.snapshots[index], Kel::OQT_SELL);
    m_result.snapshotsMatched += m_result.mismatches == before && !m_unplaced ? 1 : 0;
}

ShownLevel TickVerifier::publishedLevel(const feed::SnapshotRow& row, Kel::EOrderQueueType side,
                                        std::size_t i)
{
    if (side == Kel::OQT_BUY)
        return {row.bidPrice[i], row.bidVolume[i], row.bidCount[i]};
    return {row.askPrice[i], row.askVolume[i], row.askCount[i]};
}

/// The published levels against the engine's, both from the best price on. A surplus level of the engine is a
/// mismatch of the level before which it stands, and of no other.
void TickVerifier::compareSide(const feed::SnapshotRow& row, Kel::EOrderQueueType side)
{
    const std::vector<ListedLevel> listed = m_engine.levels(side, kLevelsRead);
    auto& tallies = side == Kel::OQT_BUY ? m_result.buy : m_result.sell;
    const bool countsPublished = side == Kel::OQT_BUY ? row.bidCount[0] != 0 : row.askCount[0] != 0;
    const auto& bookLevels = m_book.levels(side);
    std::size_t at = 0;
    for (std::size_t i = 0; i < tallies.size(); ++i) {
        const ShownLevel shown = publishedLevel(row, side, i);
        ShownLevel expected = shown;
        const int key = Kel::priceKey(shown.price, m_tick);
        if (key != 0) {
            const auto inBook = bookLevels.find(key);
            if (inBook != bookLevels.end() && inBook->second.pricelessOrders > 0) {
                ++m_result.lessPriceless;
                expected.shares =
                    std::clamp(shown.shares, -kMostShares, kMostShares) - inBook->second.pricelessShares;
                expected.orders -= countsPublished ? inBook->second.pricelessOrders : 0;
                // Nothing but orders without a price: the engine has no such level.
                if (inBook->second.pricelessOrders == inBook->second.orders && expected.shares == 0)
                    continue;
            }
        }

        LevelTally& tally = tallies[i];
        ++tally.compared;
        const bool surplus = at < listed.size() && (key == 0 || isBetter(side, listed[at].key, key));
        ShownLevel rebuilt;
        if (surplus) {
            rebuilt = {listed[at].price, listed[at].shares, listed[at].orders};
            while (at < listed.size() && (key == 0 || isBetter(side, listed[at].key, key)))
                ++at;
        }
        const bool found = key != 0 && at < listed.size() && listed[at].key == key;
        const ListedLevel own = found ? listed[at] : ListedLevel();
        at += found ? 1 : 0;

        const bool priceRight = !surplus && (found || key == 0);
        const bool volumeRight = priceRight && (key == 0 || own.shares == expected.shares);
        const bool countRight = priceRight && (key == 0 || own.orders == expected.orders);
        tally.prices += priceRight ? 1 : 0;
        tally.volumes += volumeRight ? 1 : 0;
        tally.countsCompared += countsPublished ? 1 : 0;
        tally.counts += countsPublished && countRight ? 1 : 0;
        if (volumeRight && (countRight || !countsPublished)) {
            ++tally.matched;
            continue;
        }
        if (!surplus && found)
            rebuilt = {own.price, own.shares, own.orders};
        note(row, side, static_cast<int>(i) + 1, shown, rebuilt);
    }
}

bool TickVerifier::isBetter(Kel::EOrderQueueType side, int key, int than)
{
    return side == Kel::OQT_BUY ? key > than : key < than;
}

void TickVerifier::note(const feed::SnapshotRow& row, Kel::EOrderQueueType side, int level,
                        const ShownLevel& published, const ShownLevel& rebuilt)
{
    Mismatch mismatch;
    mismatch.time = row.time;
    mismatch.side = side;
    mismatch.level = level;
    mismatch.published = published;
    mismatch.rebuilt = rebuilt;
    const double price = rebuilt.price != 0 ? rebuilt.price : published.price;
    if (m_result.mismatches < kMostExplained)
        explain(side, Kel::priceKey(price, m_tick), mismatch);
    else
        mismatch.cause = kNotExamined;
    ++m_result.mismatches;
    ++m_result.causes[mismatch.cause];
    if (m_result.listed.size() < m_options.mostListed)
        m_result.listed.push_back(std::move(mismatch));
}

/// Holds the engine's list at a price against the orders of the plain book there.
void TickVerifier::explain(Kel::EOrderQueueType side, int key, Mismatch& mismatch) const
{
    std::vector<std::string> others;
    bool kept = false;
    std::map<std::int64_t, std::int64_t> listed;
    if (const Kel::OrderQueueDataPtr level = m_engine.level(side, key)) {
        for (const Kel::COrderVol& order : level->m_orders) {
            if (order.m_type == Kel::OQT_CANCELED || order.m_type == Kel::OQT_DEALT)
                continue;
            listed[order.m_entrustNo] += wholeShares(order.m_vol, m_engine.volumeUnit());
        }
    }
    const auto name = [&](std::int64_t number, std::int64_t engine, std::int64_t book) {
        if (m_player->keptRests().contains(number)) {
            kept = true;
            others.insert(others.begin(),
                          "order " + std::to_string(number) + " keeps " + std::to_string(engine) + " shares");
            return;
        }
        others.push_back("order " + std::to_string(number) + ": listed with " + std::to_string(engine) +
                         " shares, in the book with " + std::to_string(book));
    };
    for (const auto& [number, shares] : listed) {
        const BookOrder* order = m_book.find(side, number);
        const std::int64_t rest = order && order->key == key ? order->rest : 0;
        if (rest != shares)
            name(number, shares, rest);
    }
    const std::size_t differing = others.size();
    std::size_t keptOrders = 0;
    for (const std::string& text : others)
        keptOrders += text.find(" keeps ") != std::string::npos ? 1 : 0;
    std::size_t missing = 0;
    for (const std::int64_t number : m_book.ordersAt(side, key)) {
        const BookOrder* order = m_book.find(side, number);
        if (listed.count(number) != 0 || order->priceless)
            continue;
        ++missing;
        others.push_back("order " + std::to_string(number) + " of " + std::to_string(order->rest) +
                         " shares is not listed");
    }

    if (kept && keptOrders == differing && missing == 0)
        mismatch.cause = kKeptRest;
    else if (m_unplaced)
        mismatch.cause = kUnplaced;
    else if (others.empty())
        mismatch.cause = kOtherBook;
    else
        mismatch.cause = kUnexplained;
    for (std::size_t i = 0; i < others.size() && i < kMostOrdersNamed; ++i)
        mismatch.detail += (i == 0 ? "" : "; ") + others[i];
    if (others.size() > kMostOrdersNamed)
        mismatch.detail += "; and " + std::to_string(others.size() - kMostOrdersNamed) + " more";
}

void TickVerifier::noteUnplaced(const feed::SnapshotRow& row)
{
    ++m_result.unplaced;
    if (m_result.unplacedListed.size() >= m_options.mostListed)
        return;
    Unplaced unplaced;
    unplaced.time = row.time;
    for (const Kel::EOrderQueueType side : {Kel::OQT_BUY, Kel::OQT_SELL}) {
        std::vector<std::pair<int, BookLevel>> levels(m_book.levels(side).begin(), m_book.levels(side).end());
        if (side == Kel::OQT_BUY)
            std::reverse(levels.begin(), levels.end());
        for (std::size_t i = 0; i < m_result.buy.size() && unplaced.side == 0; ++i) {
            const ShownLevel published = publishedLevel(row, side, i);
            const int key = Kel::priceKey(published.price, m_tick);
            const BookLevel book = i < levels.size() ? levels[i].second : BookLevel();
            const int bookKey = i < levels.size() ? levels[i].first : 0;
            if (key == bookKey && (key == 0 || (published.shares == book.shares &&
                                                (published.orders == 0 || published.orders == book.orders))))
                continue;
            unplaced.side = side;
            unplaced.level = static_cast<int>(i) + 1;
            unplaced.published = published;
            unplaced.book = {bookKey * m_tick, book.shares, book.orders};
        }
    }
    m_result.unplacedListed.push_back(unplaced);
}

} // namespace host
