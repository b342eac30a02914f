// Feed threads write deals, orders and snapshots while the thread of the interface looks at the chart's
// model.

#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthHolographic.h"
#include "records/QuoterDepthData.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace Kel;
using namespace testing_support;

namespace {

constexpr int kBatches = 300;
constexpr int kBatch = 100;

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
