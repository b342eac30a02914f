// A writer on a thread of the feed, a reader on that of the interface.

#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthTransaction.h"
#include "platform/models/tick_batches.h"
#include "platform/services/RPCEngine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <list>
#include <thread>

using namespace Kel;
using namespace testing_support;

namespace {

constexpr int kBatches = 500; // enough for a filter to be applied in the background
constexpr int kBatch = 200;

SDepthFilterParam atLeast(int lots)
{
    SDepthFilterParam param;
    param.relate = 1;
    param.volume = lots;
    return param;
}

/// Deals of a few orders; every seventh batch comes late.
Batch dealBatch(int number)
{
    const int first = (number % 7 == 3 ? number - 2 : number) * kBatch + (number % 7 == 3 ? 1 : 2);
    Batch batch;
    for (int index = 0; index < kBatch / 2; ++index) {
        const int dealNo = first + index * 2;
        batch.push_back(deal(dealNo, 1 + dealNo % 9, 10 + dealNo % 7, 10 + dealNo % 3 * 0.01,
                             100 * (1 + dealNo % 20), at(10, 0, 0) + dealNo));
    }
    return batch;
}

} // namespace

TEST(TickThreads, TheDealListIsWholeAtEveryMomentWhileItGrowsIsFilteredAndCleared)
{
    addInstruments();
    CModelDepthTransaction model;
    model.setStock(kStock);
    std::atomic<bool> ended{false};
    std::thread writer([&] {
        for (int number = 0; number < kBatches; ++number) {
            model.transactionCallback(number, number == 60 ? 0 : 1, wrap(dealBatch(number)));
            model.entrustCallback(number, 1, wrap({order(1 + number % 16, 1, 10, 5000, at(9, 59, 0))}));
        }
        ended = true;
    });
    int round = 0;
    bool last = false;
    while (!last) {
        last = ended;
        if (++round % 50 == 0)
            model.setFilterParam(atLeast(round / 50 % 12));
        if (round == 400)
            model.clear();
        model.dirty = false;
        const int count = model.count;
        for (int row = std::max(count - 40, 0); row < count; ++row) {
            const auto data = model.getData(row);
            if (!data)
                break; // cleared in between
            ASSERT_GE(data->time, tag(10, 0, 0));
            ASSERT_GT(data->volume, 0);
            ASSERT_GE(model.getEntrustVolume(data, true), 0);
            model.tracebackSeq(row);
            model.find(data->time);
        }
        model.getOrder(1 + round % 16);
    }
    writer.join();
    net::RPCEngine::drain(kFilterStrand);
    model.setFilterParam(atLeast(0));
    net::RPCEngine::drain(kFilterStrand);
    for (int row = 1; row < model.count; ++row)
        ASSERT_LE(model.getData(row - 1)->time, model.getData(row)->time);
}

TEST(TickThreads, OrdersAndCancelsAreWholeAtEveryMoment)
{
    addInstruments();
    CModelDepthEntrust model;
    model.setStock(kStock);
    std::atomic<int> ended{0};
    std::thread orders([&] {
        for (int number = 0; number < kBatches; ++number) {
            Batch batch;
            for (int index = 0; index < 100; ++index) {
                const int orderNo = number * 100 + index + 1;
                batch.push_back(
                    order(orderNo, 1 + orderNo % 2, 10, 100 * (1 + orderNo % 20), at(10, 0, 0) + orderNo));
            }
            model.entrustCallback(number, number == 70 ? 0 : 1, wrap(batch));
        }
        ++ended;
    });
    std::thread cancels([&] {
        for (int number = 0; number < kBatches; ++number) {
            Batch batch = dealBatch(number);
            for (int index = 0; index < 30; ++index)
                batch.push_back(cancel(1000000 + number * 30 + index, number * 100 + index * 3 + 1, 0, 100,
                                       at(10, 0, 1) + number));
            model.transactionCallback(number, 1, wrap(batch));
        }
        ++ended;
    });
    bool last = false;
    for (int round = 0; !last; ++round) {
        last = ended == 2;
        if (round % 40 == 0) {
            SDepthFilterParam param = atLeast(round / 40 % 8);
            param.unsell = round % 80 == 0;
            model.setFilterParam(param);
        }
        model.cancelDirty = false;
        for (int row = std::max(model.cancelCount - 30, 0); row < model.cancelCount; ++row) {
            const auto data = model.getCancelData(row);
            boost::shared_ptr<DepthOrderData> order;
            if (data && model.getOrderData(data->orderNo, order)) {
                ASSERT_EQ(order->orderNo, data->orderNo);
                std::list<boost::shared_ptr<quoter::TransactionData>> records;
                model.getTransactionData(order->orderNo, records);
                ASSERT_FALSE(records.empty());
            }
            model.tracebackCancelSeq(row);
        }
        if (const auto order = model.getOrderData(model.orderCount - 1, false)) {
            ASSERT_GT(order->volume, 0);
        }
    }
    orders.join();
    cancels.join();
    net::RPCEngine::drain(kFilterStrand);
    model.setFilterParam(SDepthFilterParam());
    net::RPCEngine::drain(kFilterStrand);
    EXPECT_EQ(model.orderCount, (kBatches - 70) * 100);
    EXPECT_EQ(model.cancelCount, kBatches * 30);
}
