// Recorded days, where they are at hand: DEPTH_SHARED_DATA, or the folder beside the repository.

#include "feed/import/importDay.h"
#include "host/Verification.h"
#include "support/SharedData.h"

#include <gtest/gtest.h>

namespace {

host::Verification verifyReal(const std::string& folder, const std::string& code)
{
    feed::ImportOptions importing;
    importing.codes = {code};
    const feed::ImportResult result = feed::importDay(folder, importing);
    EXPECT_EQ(result.error.text(), "");
    EXPECT_EQ(result.days.size(), 1u);
    return result.days.empty() ? host::Verification() : host::verifyDay(result.days[0], {});
}

TEST(RealDay, EveryContinuousSnapshotOf600519MatchesInPriceVolumeAndOrderCountOfTenLevels)
{
    REQUIRE_SHARED_DAY(folder, "600519-20230201");
    const host::Verification result = verifyReal(folder, "600519");
    EXPECT_EQ(result.snapshots, 4847);
    EXPECT_EQ(result.snapshotsMatched, 4847);
    EXPECT_EQ(result.byView, 4847);
    EXPECT_EQ(result.unplaced, 0);
    for (const auto* side : {&result.buy, &result.sell}) {
        for (const host::LevelTally& tally : *side) {
            EXPECT_EQ(tally.compared, 4847);
            EXPECT_EQ(tally.prices, 4847);
            EXPECT_EQ(tally.volumes, 4847);
            EXPECT_EQ(tally.counts, 4847);
        }
    }
}

TEST(RealDay, RowsAndPublishedQueuesOfALevelStyleMorningMatch)
{
    REQUIRE_SHARED_DAY(folder, "queues-20211201");
    struct Expected
    {
        const char* code;
        std::int64_t queues;
        std::int64_t
            headsNotFound; ///< by the rule of the merge, which then takes the last order for the head
    };
    for (const Expected& expected :
         {Expected{"600103", 2412, 0}, Expected{"600566", 2430, 3}, Expected{"688233", 2392, 2}}) {
        SCOPED_TRACE(expected.code);
        const host::Verification result = verifyReal(folder, expected.code);
        EXPECT_EQ(result.snapshotsMatched, result.snapshots);
        EXPECT_GT(result.snapshots, 1000);
        EXPECT_EQ(result.queues, expected.queues);
        EXPECT_EQ(result.queues - result.queuesMatched, expected.headsNotFound);
        EXPECT_LE(result.causes.size(), 1u);
    }
}

} // namespace
