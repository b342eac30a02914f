// A recorded day, where it is at hand: DEPTH_SHARED_DATA, or the folder beside the repository.

#include "LadderFeed.h"
#include "feed/import/importDay.h"
#include "feed/record_making.h"
#include "host/DayTimeline.h"
#include "platform/models/tick_values.h"
#include "support/SharedData.h"

#include <gtest/gtest.h>

namespace {

using namespace testing_support;

constexpr std::size_t kLevels = quoter::kDepthLevels;

/// "10.01:5/2 ..." of the published levels, best first; volumes in shares.
template <class Prices, class Volumes, class Counts>
std::string published(const Prices& prices, const Volumes& volumes, const Counts& counts)
{
    std::ostringstream out;
    for (std::size_t i = 0; i < kLevels && prices[i] != 0; ++i)
        out << prices[i] << ':' << Kel::lotsFromShares(volumes[i], 100) << '/' << counts[i] << ' ';
    return out.str();
}

std::string rebuilt(const Answer::Rows& rows, bool isBuy)
{
    std::ostringstream out;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Kel::EntrustData& row = *rows[isBuy ? rows.size() - 1 - i : i];
        out << row.price << ':' << row.volume << '/' << row.orderCount << ' ';
    }
    return out.str();
}

TEST(LadderRealDay, EveryContinuousSnapshotOf600519ShowsTheTenBestRowsOfTheLadder)
{
    REQUIRE_SHARED_DAY(folder, "600519-20230201");
    feed::ImportOptions importing;
    importing.codes = {"600519"};
    const feed::ImportResult result = feed::importDay(folder, importing);
    ASSERT_EQ(result.error.text(), "");
    ASSERT_EQ(result.days.size(), 1u);
    const feed::InstrumentDay& day = result.days[0];
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(
        boost::make_shared<nelservice::CInstrumentDetail>(day.detail));

    Kel::CModelDepthThousand model(0, -1);
    model.setStock(QString::fromStdString(day.detail.market + day.detail.code));
    Answer answer;
    int snapshots = 0;
    int levels = 0;
    using Kind = host::DayTimeline::Kind;
    // The snapshots carry no sequence number: each is placed where a plain book of the rows, which knows
    // nothing of the model, shows its ten levels at the volume that it tells.
    const std::vector<host::SnapshotPlace> places = host::placeSnapshots(day);
    const host::DayTimeline timeline(day, places);
    for (const host::DayTimeline::Entry& entry : timeline.entries()) {
        const auto wrap = [&](const quoter::QuoterBasePtr& record) {
            return batchOf({record}, day.detail.market, day.detail.code);
        };
        if (entry.kind == Kind::Order)
            model.entrustCallback(0, 1, wrap(feed::makeRecord(day.orders[entry.index])));
        else if (entry.kind == Kind::Deal)
            model.transactionCallback(0, 1, wrap(feed::makeRecord(day.deals[entry.index])));
        if (entry.kind != Kind::Snapshot || !host::isContinuous(day.snapshots[entry.index]))
            continue;
        const feed::SnapshotRow& snapshot = day.snapshots[entry.index];
        EXPECT_NE(places[entry.index].placing, host::Placing::Time) << "snapshot " << snapshots;
        answer.ask(model, true);
        ASSERT_EQ(answer.latest, snapshot.lastPrice) << "snapshot " << snapshots;
        ASSERT_EQ(rebuilt(answer.buys, true),
                  published(snapshot.bidPrice, snapshot.bidVolume, snapshot.bidCount))
            << "snapshot " << snapshots;
        ASSERT_EQ(rebuilt(answer.sells, false),
                  published(snapshot.askPrice, snapshot.askVolume, snapshot.askCount))
            << "snapshot " << snapshots;
        // In shares, by the orders of each price.
        for (std::size_t i = 0; i < kLevels; ++i) {
            for (const bool isBuy : {true, false}) {
                const double price = isBuy ? snapshot.bidPrice[i] : snapshot.askPrice[i];
                if (price == 0)
                    continue;
                const auto queue = model.getQueue(isBuy, price);
                ASSERT_TRUE(queue);
                ASSERT_EQ(queue->totalVolume, isBuy ? snapshot.bidVolume[i] : snapshot.askVolume[i]);
                ASSERT_EQ(queue->orderCount, isBuy ? snapshot.bidCount[i] : snapshot.askCount[i]);
                ++levels;
            }
        }
        ++snapshots;
    }
    EXPECT_EQ(snapshots, 4847);
    EXPECT_GT(levels, 90000);
}

} // namespace
