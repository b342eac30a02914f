// Feed threads bring data while the thread of the interface changes the instrument.

#include "Chart.h"

#include <atomic>
#include <thread>

using namespace testing_support;
using namespace Kel;

namespace {

constexpr int kRounds = 60;

/// Sends deals, orders and snapshots of an instrument until it is told to stop.
void feedUntil(const std::atomic<bool>& stop, Chart& chart, const char* key)
{
    for (int number = 1; !stop; ++number) {
        Batch deals;
        for (int index = 0; index < 50; ++index)
            deals.push_back(deal(number * 50 + index, number, number + 1, 10 + index % 9 * 0.01, 300,
                                 at(10, 0, 0) + number * 500));
        chart.onTransactionCallback(key, 0, 1, wrap(deals, key));
        chart.onEntrustCallback(key, 0, 1, wrap({order(number, 1, 10, 5000, at(9, 59, 0))}, key));
        chart.slotQuoterCallBack(0, 1, {snapshot(at(10, 0, 0) + number * 500)}, key, 0);
        std::this_thread::yield();
    }
}

} // namespace

TEST(ChartThreads, TheInstrumentChangesUnderTheFeedOfTwoOthers)
{
    Chart chart(300, 200);
    std::atomic<bool> stop{false};
    std::thread first([&] { feedUntil(stop, chart, kStock); });
    std::thread second([&] { feedUntil(stop, chart, kOther); });
    for (int round = 0; round < kRounds; ++round) {
        chart.clear();
        chart.slotTimeOut();
        chart.setStock(QLatin1String(round % 3 == 2 ? "XX1" : round % 3 == 1 ? kOther : kStock));
        chart.slotTimeOut();
        chart.highlightTransactionSeq(0);
        chart.grab();
    }
    chart.setStock(kBond);
    chart.clear();
    stop = true;
    first.join();
    second.join();
    chart.slotTimeOut();
    EXPECT_EQ(chart.m_model->count, 0) << "nothing of another instrument";
    EXPECT_FALSE(chart.m_model->hasIntervals());
    EXPECT_EQ(chart.getSeqByX(0), -1);
}
