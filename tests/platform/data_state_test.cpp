#include "DataStateFeed.h"

using namespace Kel;
using States = std::vector<int>;

namespace {

class DataState : public DataStateFeed
{
};

} // namespace

TEST_F(DataState, IsEmptyWithoutAnInstrumentAndLoadingFromItsChoiceOn)
{
    EXPECT_EQ(state(), eDataEmpty);
    m_watch.setStock(m_key);
    EXPECT_EQ(state(), eDataLoading);
    m_watch.clear();
    EXPECT_EQ(state(), eDataEmpty);
    m_watch.setStock(m_key);
    m_watch.setStock(QString());
    EXPECT_EQ(state(), eDataEmpty);
}

TEST_F(DataState, IsLoadingUntilALiveBatchOfDealsEndsTheLoad)
{
    m_watch.setStock(m_key);
    deals(0, 0);
    deals(1, kHistory);
    orders(0, 0);
    orders(1, kHistory);
    EXPECT_EQ(state(), eDataLoading);
    deals(2, kLive, 0, 0);
    EXPECT_EQ(state(), eDataLive);
}

TEST_F(DataState, ALiveBatchOfOrdersEndsTheLoadOfTheOrdersOnly)
{
    m_watch.setStock(m_key);
    deals(0, 0);
    orders(0, 0);
    orders(1, kLive);
    EXPECT_EQ(state(), eDataLoading);
    deals(1, 2);
    EXPECT_EQ(state(), eDataLive);
}

TEST_F(DataState, MoreHistoryAfterALiveBatchIsLoadingAgain)
{
    m_watch.setStock(m_key);
    deals(0, kLive);
    EXPECT_EQ(state(), eDataLive);
    orders(0, 0);
    EXPECT_EQ(state(), eDataLoading);
    orders(1, kHistory);
    orders(2, kLive);
    EXPECT_EQ(state(), eDataLive);
    orders(3, kHistory);
    EXPECT_EQ(state(), eDataLoading);
}

TEST_F(DataState, TheHostMayEndTheLoadWhateverCame)
{
    m_watch.setStock(m_key);
    m_watch.loaded();
    EXPECT_EQ(state(), eDataLive);
    deals(0, 0);
    orders(0, 0);
    EXPECT_EQ(state(), eDataLoading);
    m_watch.loaded();
    EXPECT_EQ(state(), eDataLive);
}

TEST_F(DataState, OfAFeedOfQuotesASnapshotOrALiveQueueEndsTheLoadAndHistoryDoesNot)
{
    for (const int status : {-1, 1, 2}) {
        m_watch.setStock(m_key);
        queue(0, 0);
        queue(1, kHistory);
        EXPECT_EQ(state(), eDataLoading);
        queue(2, status);
        EXPECT_EQ(state(), eDataLive) << status;
    }
}

TEST_F(DataState, NothingOfAnotherInstrumentCounts)
{
    m_watch.setStock(m_key);
    const QString other = QStringLiteral("SZ000001");
    m_watch.onEntrustCallback(other, 7, kLive, wrapped({}));
    m_watch.onTransactionCallback(other, 7, kLive, wrapped({}));
    m_watch.onQuoterCallback(other, 7, kSnapshot, records<quoter::QuoterDepthData>(0));
    EXPECT_EQ(state(), eDataLoading);
    EXPECT_TRUE(m_watch.gaps().empty());
    EXPECT_EQ(m_watch.stock(), m_key);
}

TEST_F(DataState, CallsWithoutAnInstrumentDoNotCountForTheNextOne)
{
    m_watch.onEntrustCallback(QString(), 7, kLive, wrapped({}));
    orders(7, kLive);
    EXPECT_EQ(state(), eDataEmpty);
    load();
    EXPECT_EQ(state(), eDataLive);
}

TEST_F(DataState, AJumpOfTheNumbersIsAGapWhicheverChannelItIsIn)
{
    for (const EDataChannel channel : {eDataOrders, eDataDeals, eDataQuotes}) {
        load();
        if (channel == eDataOrders)
            orders(4, kLive, at(10, 1)); // 1 to 3 are missing
        else if (channel == eDataDeals)
            deals(5, kLive, at(10, 1));
        else
            queue(4, kLive, at(10, 1));
        EXPECT_EQ(state(), eDataGap) << channel;
        ASSERT_EQ(m_watch.gaps().size(), 1u);
        EXPECT_EQ(m_watch.gaps()[0].channel, channel);
        EXPECT_EQ(m_watch.gaps()[0].missing, 3);
        EXPECT_EQ(m_watch.gaps()[0].from, at(10, 0));
        EXPECT_EQ(m_watch.gaps()[0].to, at(10, 1));
        EXPECT_FALSE(m_watch.gaps()[0].healed);
        EXPECT_EQ(m_watch.since(), at(10, 0));
    }
}

TEST_F(DataState, NumbersThatGoBackWithoutAReloadAreAGapToo)
{
    load();
    orders(1, kLive);
    orders(1, kLive);
    EXPECT_EQ(state(), eDataGap);
    ASSERT_EQ(m_watch.gaps().size(), 1u);
    EXPECT_EQ(m_watch.gaps()[0].missing, 0);
    load();
    orders(1, kLive);
    orders(0, kLive);
    EXPECT_EQ(state(), eDataGap);
}

TEST_F(DataState, TheFirstCallOfAChannelIsNumberZero)
{
    m_watch.setStock(m_key);
    deals(1, kLive);
    EXPECT_EQ(state(), eDataGap);
    ASSERT_EQ(m_watch.gaps().size(), 1u);
    EXPECT_EQ(m_watch.gaps()[0].missing, 1);
    EXPECT_EQ(m_watch.gaps()[0].from, 0);
}

TEST_F(DataState, AReloadMayHaveAnyNumberAndTheQuotesAfterItToo)
{
    load();
    deals(7, 0);
    orders(3, 0);
    deals(8, kLive);
    snapshot(0);
    snapshot(1);
    orders(4, kLive);
    EXPECT_EQ(state(), eDataLive);
    EXPECT_TRUE(m_watch.gaps().empty());
    snapshot(3);
    EXPECT_EQ(m_watch.gaps().size(), 0u); // told by check
    m_watch.check();
    EXPECT_EQ(m_watch.gaps().size(), 1u);
}

TEST_F(DataState, TheNextSnapshotMakesAGapOfTicksRebuiltUntilItsChannelIsReloaded)
{
    load();
    deals(3, kLive, at(10, 0, 5));
    EXPECT_EQ(state(), eDataGap);
    snapshot(1, at(10, 0, 6));
    EXPECT_EQ(state(), eDataRebuilt);
    EXPECT_TRUE(m_watch.gaps()[0].healed);
    EXPECT_FALSE(m_watch.gaps()[0].reloaded);
    deals(4, kLive);
    orders(1, kLive);
    snapshot(2, at(10, 0, 9));
    EXPECT_EQ(state(), eDataRebuilt);
    orders(2, 0);
    orders(3, kLive);
    EXPECT_EQ(state(), eDataRebuilt); // the deals are as they were
    deals(5, 0);
    EXPECT_EQ(state(), eDataLoading);
    deals(6, kLive);
    EXPECT_EQ(state(), eDataLive);
    EXPECT_TRUE(m_watch.gaps()[0].reloaded);
}

TEST_F(DataState, AReloadOfItsChannelEndsAGap)
{
    load();
    orders(3, kLive);
    deals(2, 0);
    deals(3, kLive);
    EXPECT_EQ(state(), eDataGap);
    orders(4, 0);
    EXPECT_EQ(state(), eDataLoading);
    orders(5, kLive);
    EXPECT_EQ(state(), eDataLive);
    EXPECT_TRUE(m_watch.gaps()[0].healed);
    EXPECT_TRUE(m_watch.gaps()[0].reloaded);
}

TEST_F(DataState, ASnapshotFromBeforeTheLostCallsHealsNothing)
{
    load();
    orders(3, kLive, at(10, 0, 5, 500));
    snapshot(1, at(10, 0, 5));
    EXPECT_EQ(state(), eDataGap);
    snapshot(2, at(10, 0, 5, 500));
    EXPECT_EQ(state(), eDataRebuilt);
}

TEST_F(DataState, OnlyADepthSnapshotThatIsNoHistoryHeals)
{
    load();
    orders(3, kLive);
    queue(1, kLive);
    m_watch.onQuoterCallback(m_key, 2, kSnapshot, {});
    m_watch.onQuoterCallback(m_key, 3, kSnapshot, {nullptr});
    m_watch.onQuoterCallback(m_key, 4, kHistory, records<quoter::QuoterDepthData>(0));
    m_watch.onQuoterCallback(m_key, 5, 0, records<quoter::QuoterDepthData>(0));
    EXPECT_EQ(state(), eDataGap);
    m_watch.onQuoterCallback(m_key, 6, kLive, records<quoter::QuoterDepthData>(0));
    EXPECT_EQ(state(), eDataRebuilt);
}

TEST_F(DataState, AGapOfAWrongTimeHealsOnceTheClockHasPassed)
{
    load();
    orders(3, kLive, at(23, 59));
    snapshot(1, at(10, 1));
    EXPECT_EQ(state(), eDataGap);
    m_watch.setClock(at(10, 1));
    snapshot(2, at(10, 1));
    EXPECT_EQ(state(), eDataRebuilt);
}

TEST_F(DataState, AGapOfTheQuotesLeavesNothingBehind)
{
    load();
    queue(3, kLive, at(10, 1));
    EXPECT_EQ(state(), eDataGap);
    snapshot(4, at(10, 1, 3));
    EXPECT_EQ(state(), eDataLive);
    snapshot(9, at(10, 1, 6)); // shows a gap and heals it
    EXPECT_EQ(state(), eDataLive);
    ASSERT_EQ(m_watch.gaps().size(), 2u);
    EXPECT_TRUE(m_watch.gaps()[1].healed);
    queue(11, kLive);
    EXPECT_EQ(state(), eDataGap);
    queue(12, 0);
    EXPECT_EQ(state(), eDataLive);
}

TEST_F(DataState, AGapIsToldBeforeALoad)
{
    m_watch.setStock(m_key);
    deals(0, 0);
    deals(2, kHistory);
    EXPECT_EQ(state(), eDataGap);
    snapshot(0);
    EXPECT_EQ(state(), eDataLoading);
    deals(3, kLive);
    EXPECT_EQ(state(), eDataRebuilt);
}

TEST_F(DataState, AnEmptyCallThatShowsAGapWaitsForASnapshotAsLateAsTheTicks)
{
    m_watch.setStock(m_key);
    deals(0, 0, at(10, 0, 2));
    orders(0, 0, at(10, 0, 7));
    m_watch.onTransactionCallback(m_key, 2, kLive, nullptr);
    snapshot(0, at(10, 0, 6));
    EXPECT_EQ(state(), eDataGap);
    snapshot(1, at(10, 0, 9));
    EXPECT_EQ(state(), eDataRebuilt);
}

TEST_F(DataState, GoesStaleAfterNinetySecondsOfASessionWithoutARecord)
{
    load();
    m_watch.setClock(at(10, 1, 30));
    EXPECT_EQ(state(), eDataLive);
    m_watch.setClock(at(10, 1, 30, 1));
    EXPECT_EQ(state(), eDataStale);
    EXPECT_EQ(m_watch.since(), at(10, 0));
    deals(2, kLive, 0, 0); // no record in it
    EXPECT_EQ(state(), eDataStale);
    deals(3, kLive);
    EXPECT_EQ(state(), eDataLive);
    m_watch.setClock(at(10, 1, 40));
    EXPECT_EQ(state(), eDataLive);
    m_watch.setClock(at(10, 3, 10, 1));
    EXPECT_EQ(state(), eDataStale);
}

TEST_F(DataState, ARebuiltFeedThatWentStaleIsRebuiltAgainWithItsNextRecord)
{
    load();
    deals(3, kLive);
    snapshot(1);
    m_watch.setClock(at(10, 1));
    m_watch.setClock(at(10, 5));
    EXPECT_EQ(state(), eDataStale);
    orders(1, kLive);
    EXPECT_EQ(state(), eDataRebuilt);
}

TEST_F(DataState, AGapStaysAGapHoweverSilentTheFeed)
{
    load();
    deals(3, kLive);
    m_watch.setClock(at(10, 1));
    m_watch.setClock(at(10, 30));
    EXPECT_EQ(state(), eDataGap);
}

TEST_F(DataState, TheLimitOfSilenceCanBeSetButNotToNothing)
{
    EXPECT_FALSE(m_watch.setStaleLimit(0));
    EXPECT_FALSE(m_watch.setStaleLimit(-1));
    EXPECT_TRUE(m_watch.setStaleLimit(2000));
    load();
    m_watch.setClock(at(10, 0, 2));
    EXPECT_EQ(state(), eDataLive);
    m_watch.setClock(at(10, 0, 3));
    EXPECT_EQ(state(), eDataStale);
}

TEST_F(DataState, IsNeverStaleAtLunchAndOutsideOfSessions)
{
    load();
    snapshot(1);
    m_watch.setClock(at(11, 29));
    for (const auto& moment : {at(11, 30), at(12, 59, 59), at(13, 0), at(13, 1, 30), at(15, 0), at(20, 0)}) {
        m_watch.setClock(moment);
        EXPECT_NE(state(), eDataStale) << utils::clockText(moment, false).toStdString();
    }
    m_watch.setClock(at(13, 1, 31));
    EXPECT_EQ(state(), eDataStale);
    m_watch.setClock(at(9, 29));
    EXPECT_EQ(state(), eDataLive);
}

TEST_F(DataState, AnUnknownInstrumentAndAFeedWithoutAClockAreNeverStale)
{
    load();
    m_watch.setStock(QStringLiteral("SH600000"));
    m_watch.loaded();
    m_watch.setClock(at(10, 0));
    m_watch.setClock(at(10, 30));
    EXPECT_EQ(state(), eDataLive);
    m_watch.setStock(m_key);
    m_watch.loaded();
    EXPECT_EQ(state(), eDataLive);
}

TEST_F(DataState, WhatComesBetweenTwoSettingsOfTheClockHasComeAtTheSecond)
{
    load();
    orders(1, kLive);
    m_watch.setClock(at(10, 20)); // a fast replay: one step
    EXPECT_EQ(state(), eDataLive);
    m_watch.setClock(at(10, 21, 30));
    EXPECT_EQ(state(), eDataLive);
    m_watch.setClock(at(10, 21, 31));
    EXPECT_EQ(state(), eDataStale);
}

TEST_F(DataState, AClockThatGoesBackDoesNotKeepTheSilenceFromBeingSeen)
{
    load();
    m_watch.setClock(at(14, 0));
    EXPECT_EQ(state(), eDataStale);
    m_watch.setClock(at(9, 40));
    EXPECT_EQ(state(), eDataLive);
    m_watch.setClock(at(9, 42));
    EXPECT_EQ(state(), eDataStale);
}

TEST_F(DataState, TheStateIsToldByCheckOnceAndWithTheGapsFirst)
{
    int gapsBefore = -1;
    QObject::connect(&m_watch, &CDataStateWatch::sigDataStateChanged, &m_watch,
                     [&](int) { gapsBefore = m_gapsTold; });
    load();
    EXPECT_TRUE(m_told.empty());
    m_watch.check();
    m_watch.check();
    EXPECT_EQ(m_told, States({eDataLive}));
    EXPECT_EQ(m_gapsTold, 0);
    orders(2, kLive);
    m_watch.check();
    EXPECT_EQ(gapsBefore, 1);
    m_watch.check();
    EXPECT_EQ(m_gapsTold, 1);
    snapshot(1);
    m_watch.check();
    EXPECT_EQ(m_gapsTold, 2);
    EXPECT_EQ(m_told, States({eDataLive, eDataGap, eDataRebuilt}));
}

TEST_F(DataState, ANewInstrumentForgetsGapsAndNumbersOfTheOneBefore)
{
    load();
    orders(5, kLive);
    EXPECT_EQ(state(), eDataGap);
    load();
    EXPECT_EQ(state(), eDataLive);
    EXPECT_TRUE(m_watch.gaps().empty());
    EXPECT_EQ(m_gapsTold, 2);
}

TEST_F(DataState, OfEndlessGapsTheLatestAreKeptAndTheStateHolds)
{
    load();
    const auto most = static_cast<int>(CDataStateWatch::kMostGaps);
    for (int i = 0; i < most + 10; ++i)
        orders(2 * i + 2, kLive);
    EXPECT_EQ(state(), eDataGap);
    ASSERT_EQ(m_watch.gaps().size(), CDataStateWatch::kMostGaps);
    EXPECT_EQ(m_watch.gaps()[0].missing, 1);
    snapshot(1);
    EXPECT_EQ(state(), eDataRebuilt);
}

TEST_F(DataState, AStateBeganAtTheClockOfItsFirstCheck)
{
    load();
    m_watch.check();
    EXPECT_EQ(m_watch.since(), at(10, 0));
    m_watch.setClock(at(10, 1));
    m_watch.check();
    EXPECT_EQ(m_watch.since(), at(10, 0));
}

TEST_F(DataState, AGapBeginsWithTheFirstOfItsJumps)
{
    load();
    orders(3, kLive, at(10, 0, 5));
    orders(6, kLive, at(10, 0, 7));
    EXPECT_EQ(state(), eDataGap);
    EXPECT_EQ(m_watch.since(), at(10, 0));
    ASSERT_EQ(m_watch.gaps().size(), 2u);
    EXPECT_EQ(m_watch.gaps()[1].from, at(10, 0, 5));
    snapshot(1, at(10, 0, 9));
    orders(9, kLive, at(10, 0, 10));
    EXPECT_EQ(state(), eDataGap);
    EXPECT_EQ(m_watch.since(), at(10, 0, 7));
}
