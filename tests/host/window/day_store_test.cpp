// Where the terminal's days come from.

#include "host/window/DayStore.h"

#include "host/RunProgram.h"
#include "host/SmallDay.h"
#include "host/window/WindowFixture.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace window_tests {
namespace {

TEST(DayStore, ASimulatedSourceHasOneInstrumentOfEachKind)
{
    host::DayStore store(smallSource());
    std::string error;
    ASSERT_TRUE(store.open({}, error)) << error;
    EXPECT_EQ(store.instruments().size(), host::simulatedKinds().size());
    EXPECT_EQ(store.wanted(error), 0);
}

TEST(DayStore, FindsTheWantedInstrumentByCodeKeyOrKind)
{
    for (const char* name : {"003999", "SZ003999", "shenzhen"}) {
        host::DaySource source = smallSource();
        source.instrument = name;
        host::DayStore store(source);
        std::string error;
        ASSERT_TRUE(store.open({}, error));
        EXPECT_EQ(store.wanted(error), 1) << name;
    }
}

TEST(DayStore, SaysWhichInstrumentsThereAre)
{
    host::DaySource source = smallSource();
    source.instrument = "600000";
    host::DayStore store(source);
    std::string error;
    ASSERT_TRUE(store.open({}, error));
    EXPECT_EQ(store.wanted(error), -1);
    EXPECT_NE(error.find("no instrument 600000; there are: SH600999, SZ003999"), std::string::npos) << error;
}

TEST(DayStore, TheSameSeedGivesTheSameDay)
{
    const host::DayPtr one = simulatedDay("stock", 7);
    const host::DayPtr two = simulatedDay("stock", 7);
    const host::DayPtr other = simulatedDay("stock", 8);
    ASSERT_TRUE(one && two && other);
    ASSERT_FALSE(one->orders.empty());
    ASSERT_EQ(one->orders.size(), two->orders.size());
    EXPECT_EQ(one->orders.back().price, two->orders.back().price);
    EXPECT_EQ(one->deals.size(), two->deals.size());
    EXPECT_NE(one->deals.size(), other->deals.size());
}

TEST(DayStore, ASimulationCanBeGivenUp)
{
    host::DayStore store(smallSource());
    std::string error;
    ASSERT_TRUE(store.open({}, error));
    int calls = 0;
    const auto twice = [&calls](std::int64_t, std::int64_t) { return ++calls < 2; };
    EXPECT_EQ(store.load(0, twice, error), nullptr);
    EXPECT_EQ(error, "cancelled");
    EXPECT_EQ(calls, 2);
}

TEST(DayStore, ABusySimulationAsksEachSecondOfTheDayWhetherToGoOn)
{
    for (const auto& [orders, step] : {std::pair<std::int64_t, std::int64_t>{50000, 60}, {50001, 1}}) {
        host::DaySource source = smallSource();
        source.orders = orders;
        host::DayStore store(source);
        std::string error;
        ASSERT_TRUE(store.open({}, error));
        std::vector<std::int64_t> seconds;
        const auto thrice = [&seconds = seconds](std::int64_t second, std::int64_t) {
            seconds.push_back(second);
            return seconds.size() < 3;
        };
        EXPECT_EQ(store.load(0, thrice, error), nullptr);
        EXPECT_EQ(seconds, (std::vector<std::int64_t>{0, step, 2 * step})) << orders;
        EXPECT_EQ(store.quick(), step == 60) << orders;
    }
}

TEST(DayStore, ReadsEachInstrumentOfAnArchive)
{
    const QTemporaryDir folder;
    host::DaySource source;
    source.archive = writeArchive(folder, 2);
    host::DayStore store(source);
    std::string error;
    ASSERT_TRUE(store.open({}, error)) << error;
    ASSERT_EQ(store.instruments().size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        const host::DayPtr day = store.load(i, {}, error);
        ASSERT_TRUE(day) << error;
        EXPECT_EQ(day->detail.code, store.instruments()[i].code);
        EXPECT_GT(day->orders.size(), 0U);
    }
    EXPECT_EQ(store.load(2, {}, error), nullptr);
    EXPECT_FALSE(error.empty());
}

TEST(DayStore, AMissingFolderIsNamed)
{
    host::DaySource source;
    source.archive = "/nowhere/at all";
    host::DayStore store(source);
    std::string error;
    EXPECT_FALSE(store.open({}, error));
    EXPECT_EQ(error, "/nowhere/at all: no such folder");
}

TEST(DayStore, ABrokenTableIsNamedWithItsLine)
{
    const QTemporaryDir folder;
    host::DaySource source;
    source.archive = writeArchive(folder, 1);
    testing_support::writeFile(QString::fromStdString(source.archive) + QStringLiteral("/instruments.csv"),
                               "nonsense\n");
    host::DayStore store(source);
    std::string error;
    EXPECT_FALSE(store.open({}, error));
    EXPECT_NE(error.find("instruments.csv:1: "), std::string::npos) << error;
}

TEST(DayStore, AnImportKeepsItsDays)
{
    const QTemporaryDir folder;
    testing_support::writeFile(
        folder.path() + QStringLiteral("/20230201/deals.csv"),
        "BizIndex,Channel,SecurityID,TickTime,Type,BuyOrderNO,SellOrderNO,Price,Qty,TradeMoney,TickBSFlag\n"
        "1,1,600999,09:30:00.000,A,10,0,10.00,500,0,B\n"
        "2,1,600999,09:30:01.000,A,0,11,10.02,300,0,S\n");
    host::DaySource source;
    source.layout = "auto";
    source.path = folder.path().toStdString() + "/20230201";
    host::DayStore store(source);
    std::string error;
    ASSERT_TRUE(store.open({}, error)) << error;
    ASSERT_EQ(store.instruments().size(), 1U);
    const host::DayPtr day = store.load(0, {}, error);
    ASSERT_TRUE(day);
    EXPECT_EQ(day->orders.size(), 2U);
    EXPECT_EQ(day, store.load(0, {}, error)) << "read once";
}

TEST(DayStore, CompletesWhatARecordDoesNotTell)
{
    testing_support::SmallDay small;
    small.buy(1, 10.00, 100).snapshot();
    feed::InstrumentDay day = small.day;
    day.detail.name.clear();
    day.detail.previousClose = 0;
    day.snapshots.front().previousClose = 0;
    day.snapshots.push_back(day.snapshots.front());
    day.snapshots.back().previousClose = 9.87;
    host::completeDetail(day);
    EXPECT_EQ(day.detail.name, "600999");
    EXPECT_EQ(day.detail.previousClose, 9.87);

    day.detail.previousClose = 9.5;
    day.detail.name = "name";
    host::completeDetail(day);
    EXPECT_EQ(day.detail.previousClose, 9.5);
    EXPECT_EQ(day.detail.name, "name");
}

} // namespace
} // namespace window_tests
