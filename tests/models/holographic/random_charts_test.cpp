// The chart's model against a plain reference on random days: deals and snapshots in random batches, late and
// repeated ones among them, looked at after each.

#include "feed/record_making.h"
#include "feed/simulation/Random.h"
#include "models/tick/SimulatedTicks.h"
#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthHolographic.h"
#include "platform/models/tick_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <tuple>

using namespace Kel;
using namespace testing_support;

namespace {

using Pair = std::pair<int, int>;

using Day = SimulatedTicks;

Day simulate(std::uint64_t seed)
{
    return simulateTicks(seed, 2500);
}

/// All that came so far, looked at in the plainest way.
struct PlainChart
{
    struct Deal
    {
        int time;
        int number;
        int buyNo;
        int sellNo;
        int lots;
        double price;
    };

    void add(const feed::DealRow& row, int unit)
    {
        if (row.kind == 3)
            return;
        const Deal deal{static_cast<int>(row.time / 1000), row.dealNo, row.buyNo, row.sellNo,
                        lotsFromShares(row.volume, unit),  row.price};
        const auto isKnown = [&](const Deal& other) {
            return other.number == deal.number && other.time == deal.time;
        };
        if (std::any_of(deals.begin(), deals.end(), isKnown))
            return;
        const auto before = [](const Deal& left, const Deal& right) {
            return std::tie(left.time, left.number) < std::tie(right.time, right.number);
        };
        deals.insert(std::upper_bound(deals.begin(), deals.end(), deal, before), deal);
    }

    int size() const { return static_cast<int>(deals.size()); }
    const Deal& at(int index) const { return deals[static_cast<std::size_t>(index)]; }

    Pair view(int begin, int end) const
    {
        if (begin == -1 && end == -1)
            return size() == 0 ? Pair(0, -1) : Pair(std::max(size() - 300, 0), size() - 1);
        Pair range(0, -1);
        for (int index = 0; index < size(); ++index) {
            if (at(index).time < begin || at(index).time > end)
                continue;
            if (range.second == -1)
                range.first = index;
            range.second = index;
        }
        return range;
    }

    /// The second that closes the interval of a deal, the last deal's for an open one.
    Pair interval(int index, int& tagOfIt) const
    {
        tagOfIt = -1;
        if (snapshots.empty() || index < 0 || index >= size())
            return {-1, -1};
        const auto closing = [this](int seq) { return snapshots.lower_bound(at(seq).time); };
        Pair pair(index, index);
        while (pair.first > 0 && closing(pair.first - 1) == closing(index))
            --pair.first;
        while (pair.second + 1 < size() && closing(pair.second + 1) == closing(index))
            ++pair.second;
        tagOfIt = closing(index) == snapshots.end() ? at(size() - 1).time : *closing(index);
        return pair;
    }

    int kind(int index, bool buy) const
    {
        const auto numberOf = [&](int seq) { return buy ? at(seq).buyNo : at(seq).sellNo; };
        const int number = numberOf(index);
        if (number == 0)
            return 3;
        int previous = index - 1;
        while (previous >= 0 && numberOf(previous) != number)
            --previous;
        int next = index + 1;
        while (next < size() && numberOf(next) != number)
            ++next;
        const auto samePrice = [&](int seq) { return std::abs(at(seq).price - at(index).price) < 1e-5; };
        if (previous < 0) {
            if (next == size())
                return 0;
            return next == index + 1 && samePrice(next) ? 1 : 3;
        }
        if (!samePrice(previous))
            return 4;
        return previous == index - 1 ? 1 : 2;
    }

    std::vector<Deal> deals;
    std::set<int> snapshots;
};

void expectView(const CModelDepthHolographic& model, const PlainChart& plain, int begin, int end,
                double previousClose)
{
    const Pair view = plain.view(begin, end);
    ASSERT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), view);
    ASSERT_EQ(model.lastSeq, plain.size() - 1);
    std::int64_t extent = 0;
    double highest = previousClose;
    double lowest = previousClose;
    for (int index = view.first; index <= view.second; ++index) {
        const PlainChart::Deal& deal = plain.at(index);
        extent += deal.lots + 1;
        highest = index == view.first ? deal.price : std::max(highest, deal.price);
        lowest = index == view.first ? deal.price : std::min(lowest, deal.price);
    }
    ASSERT_EQ(model.viewExtent, extent);
    ASSERT_EQ(model.maxPrice, highest);
    ASSERT_EQ(model.minPrice, lowest);
}

void expectIntervals(const CModelDepthHolographic& model, const PlainChart& plain, feed::Random& random)
{
    for (int round = 0; round < 30; ++round) {
        const int seq = static_cast<int>(random.below(static_cast<std::uint32_t>(plain.size() + 2))) - 1;
        int tagOfIt = -1;
        int ignored = -1;
        const Pair pair = plain.interval(seq, tagOfIt);
        ASSERT_EQ(model.getCurrSeqPair(seq), pair) << seq;
        ASSERT_EQ(model.getCurrQuoterTimgtag(seq), tagOfIt) << seq;
        const Pair before = pair.first > 0 ? plain.interval(pair.first - 1, ignored) : Pair(-1, -1);
        ASSERT_EQ(model.getPreSeqPair(seq), before) << seq;
        const Pair after = pair.second >= 0 ? plain.interval(pair.second + 1, ignored) : Pair(-1, -1);
        ASSERT_EQ(model.getNextSeqPair(seq), after) << seq;
    }
}

void expectKinds(const CModelDepthHolographic& model, const PlainChart& plain)
{
    int seen = 0;
    model.visitDeals(0, plain.size(), [&](const HolographicDeal& deal) {
        ASSERT_EQ(deal.index, seen++);
        ASSERT_EQ(deal.time, plain.at(deal.index).time);
        ASSERT_EQ(int(deal.buyKind), plain.kind(deal.index, true)) << deal.index;
        ASSERT_EQ(int(deal.sellKind), plain.kind(deal.index, false)) << deal.index;
    });
    ASSERT_EQ(seen, plain.size());
    for (int index = 0; index < plain.size(); index += 7) {
        const auto deal = model.getData(index);
        ASSERT_EQ(int(model.getDataKind(deal, true)), plain.kind(index, true)) << index;
        ASSERT_EQ(int(model.getDataKind(deal, false)), plain.kind(index, false)) << index;
    }
}

class RandomChart : public testing::TestWithParam<std::uint64_t>
{
};

INSTANTIATE_TEST_SUITE_P(Seeds, RandomChart, testing::Range<std::uint64_t>(1, 9));

} // namespace

TEST_P(RandomChart, TheModelShowsWhatAPlainReferenceShows)
{
    const std::uint64_t seed = GetParam();
    SCOPED_TRACE("seed " + std::to_string(seed));
    feed::Random random(seed);
    const Day day = simulate(seed);
    CModelDepthHolographic model;
    model.setStock(QString::fromStdString(day.key));
    PlainChart plain;
    int begin = -1;
    int end = -1;
    const auto dealBatch = feed::makeDealBatch(day.rows.deals.data(), day.rows.deals.size());
    const int firstTime = static_cast<int>(day.rows.deals.front().time / 1000);
    const int lastTime = static_cast<int>(day.rows.deals.back().time / 1000);
    std::size_t nextSnapshot = 0;
    for (std::size_t from = 0; from < dealBatch.size();) {
        const std::size_t to = std::min(from + 1 + random.below(400), dealBatch.size());
        Batch batch;
        for (std::size_t index = from; index < to; ++index) {
            const std::size_t sent =
                random.chance(0.05) ? random.below(static_cast<std::uint32_t>(to)) : index;
            batch.push_back(dealBatch[sent]);
            plain.add(day.rows.deals[sent], day.unit);
        }
        model.transactionCallback(0, 1, wrap(batch, day.key));
        from = to;
        Batch quotes;
        while (nextSnapshot < day.rows.snapshots.size() &&
               day.rows.snapshots[nextSnapshot].time < day.rows.deals[to - 1].time) {
            const auto& row = day.rows.snapshots[nextSnapshot++];
            if (random.chance(0.5))
                continue;
            quotes.push_back(feed::makeRecord(row, day.unit));
            plain.snapshots.insert(static_cast<int>(row.time / 1000));
        }
        if (random.chance(0.3))
            std::reverse(quotes.begin(), quotes.end());
        model.quoterCallback(0, 1, wrap(quotes, day.key));
        if (random.chance(0.3)) {
            const int span = lastTime - firstTime + 200;
            begin = random.chance(0.3)
                        ? -1
                        : firstTime - 100 + static_cast<int>(random.below(static_cast<std::uint32_t>(span)));
            end = begin == -1 ? -1 : begin - 50 + static_cast<int>(random.below(8000));
            model.setViewTimeRange(begin, end);
        } else {
            model.recalcMaxMinSeqAndPrice();
        }
        expectView(model, plain, begin, end, model.preClose);
        expectIntervals(model, plain, random);
        if (HasFatalFailure())
            return;
    }
    expectKinds(model, plain);
}
