// Batches of all lengths, whole or in pieces, in any order, with a change in between: the lists are the same.

#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthTransaction.h"
#include "platform/models/tick_batches.h"
#include "platform/services/RPCEngine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <set>
#include <thread>

using namespace Kel;
using namespace testing_support;

namespace {

constexpr int kLong = 300000; // rows of a batch that is put in place in many slices

Batch deals(int first, int count, std::int64_t time)
{
    Batch batch;
    for (int number = first; number < first + count; ++number)
        batch.push_back(deal(number, 1 + number / 3, 2 + number / 5, 10 + number % 3 * 0.01,
                             100 * (1 + number % 20), time + number / 100 * 1000));
    return batch;
}

Batch orders(int first, int count, std::int64_t time)
{
    Batch batch;
    for (int number = first; number < first + count; ++number)
        batch.push_back(order(number, 1 + number % 2, 10 + number % 3 * 0.01, 100 * (1 + number % 20),
                              time + number / 100 * 1000));
    return batch;
}

Batch cancels(int first, int count, std::int64_t time)
{
    Batch batch;
    for (int number = first; number < first + count; ++number)
        batch.push_back(cancel(number, number, 0, 100 * (1 + number % 20), time + number / 100 * 1000));
    return batch;
}

SDepthFilterParam atLeast(int lots)
{
    SDepthFilterParam param;
    param.relate = 1;
    param.volume = lots;
    return param;
}

bool isSame(const DepthTransData& left, const DepthTransData& right)
{
    const auto key = [](const DepthTransData& row) {
        return std::make_tuple(row.time, row.price, row.volume, row.buyNo, row.sellNo, row.buyPrevious,
                               row.buyNext, row.sellPrevious, row.sellNext, row.buyRun, row.sellRun,
                               row.trend, row.volumeRise);
    };
    return key(left) == key(right);
}

void expectSame(const CModelDepthTransaction& model, const CModelDepthTransaction& plain)
{
    ASSERT_EQ(model.count, plain.count);
    for (int row = 0; row < model.count; ++row)
        ASSERT_TRUE(isSame(*model.getData(row), *plain.getData(row))) << row;
}

void expectSame(const CModelDepthEntrust& model, const CModelDepthEntrust& plain)
{
    ASSERT_EQ(model.orderCount, plain.orderCount);
    for (int row = 0; row < model.orderCount; ++row)
        ASSERT_EQ(model.getOrderData(row, false)->orderNo, plain.getOrderData(row, false)->orderNo) << row;
    ASSERT_EQ(model.cancelCount, plain.cancelCount);
    for (int row = 0; row < model.cancelCount; ++row) {
        ASSERT_EQ(model.getCancelData(row)->orderNo, plain.getCancelData(row)->orderNo) << row;
        ASSERT_EQ(model.tracebackCancelSeq(row), plain.tracebackCancelSeq(row)) << row;
    }
    for (int number = 1; number < 200; ++number) {
        std::list<boost::shared_ptr<quoter::TransactionData>> records;
        std::list<boost::shared_ptr<quoter::TransactionData>> plainRecords;
        model.getTransactionData(number, records);
        plain.getTransactionData(number, plainRecords);
        ASSERT_EQ(records.size(), plainRecords.size()) << number;
    }
}

template <class Model>
std::unique_ptr<Model> modelOf(const SDepthFilterParam& param)
{
    addInstruments();
    auto model = std::make_unique<Model>();
    model->setStock(kStock);
    model->setFilterParam(param);
    return model;
}

/// Sends a long batch on another thread and calls `between` once the first rows have come.
template <class Count, class Send, class Between>
void inTheMiddle(const Count& count, Send send, Between between)
{
    std::thread feed(send);
    while (count == 0)
        std::this_thread::yield();
    between();
    feed.join();
}

} // namespace

TEST(RunningBatch, EndsWithAClear)
{
    const auto dealList = modelOf<CModelDepthTransaction>({});
    const auto dealBatch = wrap(deals(1, kLong, at(10, 0, 0)));
    inTheMiddle(
        dealList->count, [&] { dealList->transactionCallback(0, 1, dealBatch); }, [&] { dealList->clear(); });
    EXPECT_EQ(dealList->count, 0);
    EXPECT_FALSE(dealList->getData(0));

    const auto lists = modelOf<CModelDepthEntrust>({});
    const auto orderBatch = wrap(orders(1, kLong, at(10, 0, 0)));
    inTheMiddle(
        lists->orderCount, [&] { lists->entrustCallback(0, 1, orderBatch); }, [&] { lists->clear(); });
    EXPECT_EQ(lists->orderCount, 0);
    const auto cancelBatch = wrap(cancels(1, kLong, at(10, 0, 0)));
    inTheMiddle(
        lists->cancelCount, [&] { lists->transactionCallback(0, 1, cancelBatch); }, [&] { lists->clear(); });
    EXPECT_EQ(lists->cancelCount, 0);
}

TEST(RunningBatch, EndsWithAnotherInstrument)
{
    const auto dealList = modelOf<CModelDepthTransaction>({});
    const auto batch = wrap(deals(1, kLong, at(10, 0, 0)));
    int kept = 0;
    inTheMiddle(
        dealList->count, [&] { dealList->transactionCallback(0, 1, batch); },
        [&] {
            dealList->setStock(kOther);
            kept = dealList->count;
        });
    EXPECT_EQ(dealList->count, kept);

    const auto lists = modelOf<CModelDepthEntrust>({});
    const auto orderBatch = wrap(orders(1, kLong, at(10, 0, 0)));
    inTheMiddle(
        lists->orderCount, [&] { lists->entrustCallback(0, 1, orderBatch); },
        [&] {
            lists->setStock(QStringLiteral("SH999999"));
            kept = lists->orderCount;
        });
    EXPECT_EQ(lists->orderCount, kept);
}

TEST(RunningBatch, GoesOnWhenItsInstrumentIsChosenAgain)
{
    const auto dealList = modelOf<CModelDepthTransaction>({});
    const auto batch = wrap(deals(1, kLong, at(10, 0, 0)));
    inTheMiddle(
        dealList->count, [&] { dealList->transactionCallback(0, 1, batch); },
        [&] { dealList->setStock(kStock); });
    EXPECT_EQ(dealList->count, kLong);
}

TEST(StatusZero, ReplacesTheListInOneStep)
{
    const auto dealList = modelOf<CModelDepthTransaction>({});
    const auto lists = modelOf<CModelDepthEntrust>({});
    const int sizes[] = {30000, 20000};
    Batch batches[2][3];
    for (int which = 0; which < 2; ++which) {
        batches[which][0] = deals(1, sizes[which], at(10, 0, 0));
        batches[which][1] = orders(1, sizes[which], at(10, 0, 0));
        batches[which][2] = cancels(1, sizes[which], at(10, 0, 0));
    }
    const auto send = [&](int which) {
        dealList->transactionCallback(0, 0, wrap(batches[which][0]));
        lists->entrustCallback(0, 0, wrap(batches[which][1]));
        lists->transactionCallback(0, 0, wrap(batches[which][2]));
    };
    send(0);
    std::atomic<bool> ended{false};
    std::thread feed([&] {
        for (int round = 1; round < 12; ++round)
            send(round % 2);
        ended = true;
    });
    std::set<int> seen;
    while (!ended) {
        for (const int count : {dealList->count.load(), lists->orderCount.load(), lists->cancelCount.load()})
            seen.insert(count);
        if (!dealList->getData(sizes[1] - 1) || !lists->getOrderData(sizes[1] - 1, false) ||
            !lists->getCancelData(sizes[1] - 1))
            seen.insert(-1);
    }
    feed.join();
    for (const int count : seen)
        EXPECT_TRUE(count == sizes[0] || count == sizes[1]) << count;
}

TEST(LateHistory, NeverTakesTheLiveRowsAway)
{
    const auto dealList = modelOf<CModelDepthTransaction>({});
    dealList->transactionCallback(0, 1, wrap(deals(1000000, 50, at(11, 0, 0))));
    const int live = dealList->getData(0)->time;
    const auto history = wrap(deals(1, kLong, at(9, 0, 0)));
    bool isThere = true;
    std::atomic<bool> ended{false};
    std::thread feed([&] {
        dealList->transactionCallback(0, 3, history);
        ended = true;
    });
    while (!ended)
        isThere = isThere && dealList->find(live).first >= 0;
    feed.join();
    EXPECT_TRUE(isThere);
    EXPECT_EQ(dealList->count, kLong + 50);
}

TEST(LateHistory, GivesTheListsOfABatchInOrder)
{
    for (const int live : {100, 20000, 45000}) {
        SCOPED_TRACE(live);
        for (const int lots : {0, 7}) {
            const auto model = modelOf<CModelDepthTransaction>(atLeast(lots));
            const auto plain = modelOf<CModelDepthTransaction>(atLeast(lots));
            model->transactionCallback(0, 1, wrap(deals(30001, live, at(9, 0, 0))));
            model->setFilterParam(atLeast(lots)); // may still run when the history comes
            model->transactionCallback(0, 3, wrap(deals(1, 30000, at(9, 0, 0))));
            net::RPCEngine::drain(kFilterStrand);
            plain->transactionCallback(0, 1, wrap(deals(1, 30000 + live, at(9, 0, 0))));
            expectSame(*model, *plain);
        }
    }
}

TEST(LateHistory, OfOrdersAndCancelsGivesTheListsOfABatchInOrder)
{
    for (const int live : {100, 45000}) {
        SCOPED_TRACE(live);
        SDepthFilterParam param = atLeast(7);
        param.unsell = false;
        const auto model = modelOf<CModelDepthEntrust>(param);
        const auto plain = modelOf<CModelDepthEntrust>(param);
        const std::int64_t open = at(9, 0, 0);
        for (const auto* const first : {"cancels", "orders"}) {
            SCOPED_TRACE(first);
            const bool ordersFirst = first == std::string("orders");
            model->clear();
            if (ordersFirst)
                model->entrustCallback(0, 1, wrap(orders(30001, live, open)));
            model->transactionCallback(0, 1, wrap(cancels(30001, live, open)));
            model->transactionCallback(0, 1, wrap(deals(100001, live, at(12, 0, 0))));
            if (!ordersFirst)
                model->entrustCallback(0, 1, wrap(orders(30001, live, open)));
            model->setFilterParam(param);
            model->entrustCallback(0, 3, wrap(orders(1, 30000, open)));
            model->transactionCallback(0, 3, wrap(cancels(1, 30000, open)));
            model->transactionCallback(0, 3, wrap(deals(1, 30000, open)));
            net::RPCEngine::drain(kFilterStrand);
            plain->clear();
            plain->entrustCallback(0, 1, wrap(orders(1, 30000 + live, open)));
            plain->transactionCallback(0, 1, wrap(cancels(1, 30000 + live, open)));
            plain->transactionCallback(0, 1, wrap(deals(1, 30000, open)));
            plain->transactionCallback(0, 1, wrap(deals(100001, live, at(12, 0, 0))));
            expectSame(*model, *plain);
        }
    }
}
