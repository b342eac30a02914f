// Feed threads write deals, orders and snapshots while the thread of the interface looks at the chart's
// model.

#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthHolographic.h"
#include "records/QuoterDepthData.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

using namespace Kel;
using namespace testing_support;

namespace {

constexpr int kBatches = 300;
constexpr int kBatch = 100;
constexpr int kLongBatch = 200000; // snapshots, to be under way when the instrument changes
constexpr int kChanges = 20;

} // namespace

TEST(HolographicThreads, TheViewIsWholeAtEveryMomentAndRightAtTheEnd)
{
    addInstruments();
    CModelDepthHolographic model;
    model.setStock(kStock);
    std::atomic<int> ended{0};
    std::thread deals([&] {
        for (int number = 0; number < kBatches; ++number) {
            Batch batch;
            for (int index = 0; index < kBatch; ++index) {
                // Every seventh batch comes late.
                const int dealNo =
                    (number % 7 == 6 ? number - 3 : number) * kBatch * 2 + index * 2 + number % 2;
                batch.push_back(deal(dealNo + 1, 1 + dealNo % 9, 10 + dealNo % 7, 10 + dealNo % 3 * 0.01,
                                     100 * (1 + dealNo % 20), at(10, 0, 0) + dealNo * 10));
            }
            model.transactionCallback(number, number == 40 ? 0 : 1, wrap(batch));
            model.entrustCallback(number, 1, wrap({order(1 + number % 16, 1, 10, 5000, at(9, 59, 0))}));
        }
        ++ended;
    });
    std::thread quotes([&] {
        for (int number = 0; number < kBatches; ++number) {
            auto record = boost::make_shared<quoter::QuoterDepthData>();
            record->m_time = at(10, 0, 0) + number * 3000;
            model.quoterCallback(number, number == 50 ? 0 : 1, wrap({record}));
        }
        ++ended;
    });
    bool last = false;
    for (int round = 0; !last; ++round) {
        last = ended == 2;
        if (round == 200)
            model.clear();
        if (round % 10 == 5)
            model.setViewTimeRange(tag(10, 0, 0), tag(10, 0, 0) + round % 600);
        else if (round % 10 == 8)
            model.setViewTimeRange(-1, -1);
        if (model.needRecalc.exchange(false))
            model.recalcMaxMinSeqAndPrice();
        ASSERT_GE(model.viewExtent, 0);
        model.visitDeals(model.getStartIndex(), model.getEndIndex(), [](const HolographicDeal& row) {
            ASSERT_GT(row.volume, 0);
            ASSERT_GT(row.buyLots, 0);
        });
        const std::pair<int, int> pair = model.getCurrSeqPair(model.getEndIndex());
        ASSERT_LE(pair.first, pair.second);
        model.getPreSeqPair(model.lastSeq);
        model.getCurrQuoterTimgtag(model.lastSeq);
        model.getDataKind(model.getData(model.lastSeq), true);
    }
    deals.join();
    quotes.join();
    model.setViewTimeRange(0, tag(23, 0, 0));
    ASSERT_EQ(model.lastSeq, model.count - 1);
    std::int64_t extent = 0;
    for (int index = 0; index < model.count; ++index)
        extent += model.getData(index)->volume + 1;
    EXPECT_EQ(model.viewExtent, extent);
}

namespace {

/// A model into which a long batch of snapshots is read on another thread.
class SnapshotsUnderWay : public testing::Test
{
protected:
    SnapshotsUnderWay()
    {
        addInstruments();
        auto record = boost::make_shared<quoter::QuoterDepthData>();
        record->m_time = at(10, 0, 0);
        m_batch = wrap(Batch(kLongBatch, record));
    }

    /// Calls `change` while the batch is being read, as far as threads let it; gives whether it was not
    /// over already.
    template <class Change>
    bool readDuring(Change change)
    {
        model.clear();
        model.setStock(kStock);
        std::atomic<bool> started{false};
        std::thread feed([&] {
            started = true;
            model.quoterCallback(0, 1, m_batch);
        });
        while (!started)
            std::this_thread::yield();
        std::this_thread::sleep_for(std::chrono::microseconds(50));
        const bool isOver = model.hasIntervals();
        change();
        feed.join();
        return !isOver;
    }

    CModelDepthHolographic model;

private:
    boost::shared_ptr<MetaCacheDataWrapper> m_batch;
};

} // namespace

TEST_F(SnapshotsUnderWay, MakeNoIntervalsOfTheNextInstrument)
{
    for (int change = 0; change < kChanges; ++change) {
        readDuring([this, change] {
            if (change % 2 == 0) // a change of instrument alone is enough
                model.clear();
            model.setStock(kOther);
        });
        ASSERT_FALSE(model.hasIntervals());
    }
}

TEST_F(SnapshotsUnderWay, MakeNoIntervalsOfAChartThatWasCleared)
{
    // The other thread may not have begun before the clearing, but not every time.
    bool isDropped = false;
    for (int change = 0; change < 10 * kChanges && !isDropped; ++change)
        isDropped = readDuring([this] { model.clear(); }) && !model.hasIntervals();
    EXPECT_TRUE(isDropped);
}

TEST(HolographicThreads, SnapshotsThatCameBetweenClearingAndTheNextInstrumentAreDroppedWithIt)
{
    addInstruments();
    auto record = boost::make_shared<quoter::QuoterDepthData>();
    record->m_time = at(10, 0, 0);
    CModelDepthHolographic model;
    model.setStock(kStock);
    model.clear();
    model.quoterCallback(0, 1, wrap({record}));
    model.setStock(kStock);
    EXPECT_TRUE(model.hasIntervals()) << "of the same instrument they stay";
    model.setStock(kOther);
    EXPECT_FALSE(model.hasIntervals());
}
