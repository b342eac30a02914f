// View and quote intervals of the chart's model.

#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthHolographic.h"
#include "records/LevelOrderData.h"
#include "records/QuoterDepthData.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Kel;
using namespace testing_support;

namespace {

using Pair = std::pair<int, int>;
const Pair kNone{-1, -1};

boost::shared_ptr<quoter::QuoterDepthData> snapshot(std::int64_t time)
{
    auto record = boost::make_shared<quoter::QuoterDepthData>();
    record->m_time = time;
    return record;
}

class HolographicModel : public testing::Test
{
protected:
    HolographicModel()
    {
        addInstruments();
        model.setStock(kStock);
    }

    void deals(Batch batch, int status = 1) { model.transactionCallback(0, status, wrap(std::move(batch))); }
    void quotes(Batch batch, int status = 1) { model.quoterCallback(0, status, wrap(std::move(batch))); }

    /// So many deals of their own orders: one a second from 10:00:00 on, 2 lots, 10.00 to 10.09 in turn.
    void fill(int count, int first = 0)
    {
        Batch batch;
        for (int row = first; row < first + count; ++row)
            batch.push_back(deal(row + 1, 2 * row + 1, 2 * row + 2, 10 + row % 10 * 0.01, 200,
                                 at(10, 0, 0) + row * 1000));
        deals(batch);
    }

    CModelDepthHolographic model;
};

int second(int offset)
{
    return tag(10, 0, 0) + offset;
}

} // namespace

TEST_F(HolographicModel, StartsEmptyWithAFullHeightThatCanBeDividedBy)
{
    EXPECT_EQ(model.fullHeightHand, 500);
    EXPECT_EQ(model.viewExtent, 0);
    EXPECT_EQ(model.lastSeq, -1);
    EXPECT_EQ(model.getStartIndex(), 0);
    EXPECT_EQ(model.getEndIndex(), -1);
    EXPECT_FALSE(model.needRecalc);
}

TEST_F(HolographicModel, RefusesAFullHeightBelowOne)
{
    model.setFullHeightHandle(4);
    EXPECT_EQ(model.fullHeightHand, 4);
    model.setFullHeightHandle(0);
    EXPECT_EQ(model.fullHeightHand, 4);
    model.setFullHeightHandle(-7);
    EXPECT_EQ(model.fullHeightHand, 4);
    model.setFullHeightHandle(1);
    EXPECT_EQ(model.fullHeightHand, 1);
}

TEST_F(HolographicModel, NewDataAskForARecalculation)
{
    fill(1);
    EXPECT_TRUE(model.needRecalc);
    EXPECT_TRUE(model.dirty);
    model.needRecalc = false;
    model.dirty = false;
    quotes({snapshot(at(10, 0, 3))});
    EXPECT_TRUE(model.needRecalc);
    EXPECT_TRUE(model.dirty) << "the selected interval may end elsewhere";
    model.needRecalc = false;
    model.entrustCallback(0, 1, wrap({order(1, 1, 10, 100, at(9, 59, 0))}));
    EXPECT_TRUE(model.needRecalc) << "a bar's height is that of its order";
}

TEST_F(HolographicModel, ShowsTheLastThreeHundredDeals)
{
    fill(299);
    EXPECT_TRUE(model.recalcMaxMinSeqAndPrice());
    EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(0, 298));
    EXPECT_EQ(model.lastSeq, 298);
    fill(2, 299);
    EXPECT_TRUE(model.recalcMaxMinSeqAndPrice());
    EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(1, 300));
    EXPECT_EQ(model.lastSeq, 300);
}

TEST_F(HolographicModel, TheExtentIsTheLotsInViewAndOneForEachDeal)
{
    deals({deal(1, 1, 2, 10, 700, at(10, 0, 0)), deal(2, 3, 4, 10, 30, at(10, 0, 1))});
    model.recalcMaxMinSeqAndPrice();
    EXPECT_EQ(model.viewExtent, 7 + 1 + 2) << "a deal below a lot counts as one lot";
    model.setViewTimeRange(second(1), second(1));
    EXPECT_EQ(model.viewExtent, 1 + 1);
}

TEST_F(HolographicModel, AnExtentBeyondAnIntIsHeldAtTheLargest)
{
    constexpr std::int64_t kMany = std::int64_t(std::numeric_limits<int>::max()) * 100;
    deals({deal(1, 1, 2, 10, kMany, at(10, 0, 0)), deal(2, 3, 4, 10, kMany, at(10, 0, 1)),
           deal(3, 3, 4, 10, std::numeric_limits<std::int64_t>::max(), at(10, 0, 2))});
    model.recalcMaxMinSeqAndPrice();
    EXPECT_EQ(model.viewExtent, std::numeric_limits<int>::max());
}

TEST_F(HolographicModel, PricesAreThoseOfTheDealsInView)
{
    fill(10);
    model.recalcMaxMinSeqAndPrice();
    EXPECT_DOUBLE_EQ(model.maxPrice, 10.09);
    EXPECT_DOUBLE_EQ(model.minPrice, 10.00);
    model.setViewTimeRange(second(3), second(5));
    EXPECT_DOUBLE_EQ(model.maxPrice, 10.05);
    EXPECT_DOUBLE_EQ(model.minPrice, 10.03);
}

TEST_F(HolographicModel, WithoutDealsInViewThePricesAreThePreviousClose)
{
    fill(10);
    model.recalcMaxMinSeqAndPrice();
    model.setViewTimeRange(second(100), second(200));
    EXPECT_EQ(model.viewExtent, 0);
    EXPECT_DOUBLE_EQ(model.maxPrice, 10.0);
    EXPECT_DOUBLE_EQ(model.minPrice, 10.0);
}

TEST_F(HolographicModel, ARangeHoldsTheDealsOfBothItsEnds)
{
    fill(20);
    EXPECT_TRUE(model.setViewTimeRange(second(5), second(9)));
    EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(5, 9));
    EXPECT_FALSE(model.setViewTimeRange(second(5), second(9))) << "nothing changed";
    EXPECT_TRUE(model.setViewTimeRange(second(-50), second(2)));
    EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(0, 2));
    EXPECT_TRUE(model.setViewTimeRange(second(18), second(500)));
    EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(18, 19));
    EXPECT_TRUE(model.setViewTimeRange(-1, -1));
    EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(0, 19));
}

TEST_F(HolographicModel, ARangeWithoutDealsShowsNone)
{
    fill(20);
    for (const Pair& range : {Pair(second(9), second(5)), Pair(second(-9), second(-5)),
                              Pair(second(50), second(60)), Pair(5, -1)}) {
        model.setViewTimeRange(-1, -1);
        EXPECT_TRUE(model.setViewTimeRange(range.first, range.second));
        EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(0, -1));
        EXPECT_EQ(model.viewExtent, 0);
        EXPECT_EQ(model.lastSeq, 19) << "the deals are there all the same";
    }
}

TEST_F(HolographicModel, ARangeTakesInTheDealsThatComeLater)
{
    model.setViewTimeRange(second(5), second(9));
    fill(7);
    EXPECT_TRUE(model.recalcMaxMinSeqAndPrice());
    EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(5, 6));
    fill(7, 7);
    EXPECT_TRUE(model.recalcMaxMinSeqAndPrice());
    EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(5, 9));
    fill(7, 14);
    EXPECT_FALSE(model.recalcMaxMinSeqAndPrice()) << "they lie outside";
    EXPECT_EQ(model.lastSeq, 20);
}

TEST_F(HolographicModel, ALateDealInViewIsSeen)
{
    fill(600);
    model.setViewTimeRange(second(0), second(2000));
    const int extent = model.viewExtent;
    deals({deal(9999, 1, 2, 11, 500, at(10, 0, 20))});
    EXPECT_TRUE(model.recalcMaxMinSeqAndPrice());
    EXPECT_EQ(model.viewExtent, extent + 6);
    EXPECT_DOUBLE_EQ(model.maxPrice, 11);
    EXPECT_EQ(model.lastSeq, 600);
}

TEST_F(HolographicModel, DealsThatReplaceThoseBeforeAreSeen)
{
    fill(600);
    model.recalcMaxMinSeqAndPrice();
    deals({deal(1, 1, 2, 11, 500, at(10, 0, 20))}, 0);
    EXPECT_TRUE(model.recalcMaxMinSeqAndPrice());
    EXPECT_EQ(model.viewExtent, 6);
    EXPECT_EQ(model.lastSeq, 0);
}

TEST_F(HolographicModel, ClearDropsDealsSnapshotsAndRangeAndKeepsTheFullHeight)
{
    fill(20);
    quotes({snapshot(at(10, 0, 3))});
    model.setFullHeightHandle(77);
    model.setViewTimeRange(second(5), second(9));
    model.clear();
    EXPECT_EQ(model.count, 0);
    EXPECT_EQ(model.viewExtent, 0);
    EXPECT_EQ(model.lastSeq, -1);
    EXPECT_EQ(model.getEndIndex(), -1);
    EXPECT_FALSE(model.hasIntervals());
    EXPECT_EQ(model.fullHeightHand, 77);
    EXPECT_TRUE(model.needRecalc);
    EXPECT_TRUE(model.recalcMaxMinSeqAndPrice()) << "the rows have to be laid out anew";
    EXPECT_FALSE(model.recalcMaxMinSeqAndPrice());
    EXPECT_DOUBLE_EQ(model.maxPrice, 10.0) << "the previous close";
    fill(20);
    model.recalcMaxMinSeqAndPrice();
    EXPECT_EQ(Pair(model.getStartIndex(), model.getEndIndex()), Pair(0, 19));
}

// Quote intervals
// ---------------------------------------------------------------------------------------------------------

TEST_F(HolographicModel, WithoutSnapshotsThereAreNoIntervals)
{
    fill(10);
    EXPECT_FALSE(model.hasIntervals());
    EXPECT_EQ(model.getCurrSeqPair(3), kNone);
    EXPECT_EQ(model.getPreSeqPair(3), kNone);
    EXPECT_EQ(model.getNextSeqPair(3), kNone);
    EXPECT_EQ(model.getCurrQuoterTimgtag(3), -1);
}

TEST_F(HolographicModel, AnIntervalHoldsTheDealsAfterOneSnapshotUpToAndIncludingTheNext)
{
    fill(10);
    quotes({snapshot(at(10, 0, 2)), snapshot(at(10, 0, 5))});
    for (int seq : {0, 1, 2}) {
        EXPECT_EQ(model.getCurrSeqPair(seq), Pair(0, 2)) << seq;
        EXPECT_EQ(model.getCurrQuoterTimgtag(seq), second(2)) << seq;
    }
    for (int seq : {3, 4, 5}) {
        EXPECT_EQ(model.getCurrSeqPair(seq), Pair(3, 5)) << seq;
        EXPECT_EQ(model.getCurrQuoterTimgtag(seq), second(5)) << seq;
        EXPECT_EQ(model.getPreSeqPair(seq), Pair(0, 2)) << seq;
        EXPECT_EQ(model.getNextSeqPair(seq), Pair(6, 9)) << seq;
    }
    EXPECT_EQ(model.getPreSeqPair(1), kNone);
    EXPECT_EQ(model.getNextSeqPair(7), kNone);
}

TEST_F(HolographicModel, TheOpenIntervalIsTaggedByItsLastDeal)
{
    fill(10);
    quotes({snapshot(at(10, 0, 5))});
    EXPECT_EQ(model.getCurrSeqPair(7), Pair(6, 9));
    EXPECT_EQ(model.getCurrQuoterTimgtag(7), second(9));
    fill(1, 10);
    EXPECT_EQ(model.getCurrSeqPair(7), Pair(6, 10));
    EXPECT_EQ(model.getCurrQuoterTimgtag(7), second(10));
}

TEST_F(HolographicModel, ADealThatDoesNotExistLiesInNoInterval)
{
    fill(10);
    quotes({snapshot(at(10, 0, 5))});
    for (int seq : {-1, 10, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(model.getCurrSeqPair(seq), kNone) << seq;
        EXPECT_EQ(model.getPreSeqPair(seq), kNone) << seq;
        EXPECT_EQ(model.getNextSeqPair(seq), kNone) << seq;
        EXPECT_EQ(model.getCurrQuoterTimgtag(seq), -1) << seq;
    }
}

TEST_F(HolographicModel, SnapshotsWithoutDealsBetweenThemAreOneBoundary)
{
    deals({deal(1, 1, 2, 10, 100, at(10, 0, 0)), deal(2, 3, 4, 10, 100, at(10, 0, 30))});
    quotes({snapshot(at(10, 0, 3)), snapshot(at(10, 0, 6)), snapshot(at(10, 0, 9)), snapshot(at(10, 0, 33))});
    EXPECT_EQ(model.getNextSeqPair(0), Pair(1, 1));
    EXPECT_EQ(model.getPreSeqPair(1), Pair(0, 0));
    EXPECT_EQ(model.getCurrQuoterTimgtag(1), second(33));
}

TEST_F(HolographicModel, TheWholeSecondOfASnapshotBelongsToItsInterval)
{
    deals({deal(1, 1, 2, 10, 100, at(10, 0, 3, 100)), deal(2, 3, 4, 10, 100, at(10, 0, 3, 900)),
           deal(3, 3, 4, 10, 100, at(10, 0, 4))});
    quotes({snapshot(at(10, 0, 3, 400))});
    EXPECT_EQ(model.getCurrSeqPair(0), Pair(0, 1));
    EXPECT_EQ(model.getCurrQuoterTimgtag(1), second(3));
}

TEST_F(HolographicModel, SnapshotsComeInAnyOrderAndMoreThanOnce)
{
    fill(10);
    quotes({snapshot(at(10, 0, 5)), snapshot(at(10, 0, 2))});
    quotes({snapshot(at(10, 0, 5)), snapshot(at(10, 0, 2))});
    EXPECT_EQ(model.getCurrSeqPair(3), Pair(3, 5));
}

TEST_F(HolographicModel, SnapshotsOfStatusZeroReplaceThoseBefore)
{
    fill(10);
    quotes({snapshot(at(10, 0, 2)), snapshot(at(10, 0, 5))});
    quotes({snapshot(at(10, 0, 7))}, 0);
    EXPECT_EQ(model.getCurrSeqPair(3), Pair(0, 7));
    quotes({snapshot(at(10, 0, 2))}, 3);
    EXPECT_EQ(model.getCurrSeqPair(3), Pair(3, 7));
    quotes({}, 0);
    EXPECT_FALSE(model.hasIntervals());
}

TEST_F(HolographicModel, SnapshotsOfTheirOwnStatusAddAndPublishedQueuesTakeNoneAway)
{
    fill(10);
    quotes({snapshot(at(10, 0, 2))}, -1);
    quotes({snapshot(at(10, 0, 5))}, -1);
    EXPECT_EQ(model.getCurrSeqPair(3), Pair(3, 5));
    auto queue = boost::make_shared<quoter::LevelOrderData>();
    queue->m_time = at(10, 0, 6);
    quotes({queue}, 0);
    EXPECT_EQ(model.getCurrSeqPair(3), Pair(3, 5));
}

TEST_F(HolographicModel, WhatIsNoSnapshotOfTheInstrumentIsPassedOver)
{
    fill(10);
    model.needRecalc = false;
    model.quoterCallback(0, 1, wrap({snapshot(at(10, 0, 2))}, kOther));
    model.quoterCallback(0, 4, wrap({snapshot(at(10, 0, 2))}));
    model.quoterCallback(0, -2, wrap({snapshot(at(10, 0, 2))}));
    model.quoterCallback(0, 1, nullptr);
    auto wrong = boost::make_shared<quoter::LevelOrderData>();
    wrong->m_time = at(10, 0, 2);
    quotes({nullptr, wrong, snapshot(-1), snapshot(std::numeric_limits<std::int64_t>::max())});
    EXPECT_FALSE(model.hasIntervals());
    EXPECT_FALSE(model.needRecalc);
}

TEST_F(HolographicModel, WithoutAnInstrumentSnapshotsArePassedOver)
{
    CModelDepthHolographic other;
    other.quoterCallback(0, 1, wrap({snapshot(at(10, 0, 2))}));
    EXPECT_FALSE(other.hasIntervals());
}

TEST_F(HolographicModel, DealsAreHandedOutWithKindsAndOrders)
{
    model.entrustCallback(0, 1, wrap({order(1, 1, 10, 4200, at(9, 59, 0))}));
    deals({deal(1, 1, 2, 10, 100, at(10, 0, 0)), deal(2, 1, 3, 10, 500, at(10, 0, 1), 2)});
    std::vector<HolographicDeal> seen;
    model.visitDeals(-5, 99, [&](const HolographicDeal& row) { seen.push_back(row); });
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[1].index, 1);
    EXPECT_EQ(seen[1].volume, 5);
    EXPECT_EQ(seen[1].activeSide, 2);
    EXPECT_EQ(seen[1].buyLots, 42);
    EXPECT_EQ(seen[1].sellLots, 5) << "of an unknown order what it has dealt";
    EXPECT_EQ(seen[1].buyKind, E_DEAL_JOINED);
    EXPECT_EQ(seen[1].sellKind, E_DEAL_WHOLE);
    seen.clear();
    model.visitDeals(1, 0, [&](const HolographicDeal& row) { seen.push_back(row); });
    model.visitDeals(2, std::numeric_limits<int>::max(),
                     [&](const HolographicDeal& row) { seen.push_back(row); });
    EXPECT_TRUE(seen.empty());
}
