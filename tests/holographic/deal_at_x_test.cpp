// Which deal is drawn at a place of the mouse.

#include "Chart.h"

using namespace testing_support;
using namespace Kel;

TEST(DealAtX, IsTheFirstThatEndsBeyond)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 9}, {3, 4, 10, 19}, {5, 6, 10, 29}}); // an extent of 60: ten pixels a unit
    EXPECT_EQ(chart.m_dealRightX.value(0), 90);
    EXPECT_EQ(chart.m_dealRightX.value(1), 300);
    EXPECT_EQ(chart.m_dealRightX.value(2), 600);
    EXPECT_EQ(chart.getSeqByX(0), 0);
    EXPECT_EQ(chart.getSeqByX(89), 0);
    EXPECT_EQ(chart.getSeqByX(90), 1) << "the gap belongs to the next deal";
    EXPECT_EQ(chart.getSeqByX(299), 1);
    EXPECT_EQ(chart.getSeqByX(300), 2);
    EXPECT_EQ(chart.getSeqByX(599), 2);
    EXPECT_EQ(chart.getSeqByX(600), -1) << "beyond the last";
    EXPECT_EQ(chart.getSeqByX(-5), 0);
}

TEST(DealAtX, OfNoDealIsNone)
{
    Chart chart;
    EXPECT_EQ(chart.getSeqByX(0), -1);
}

TEST(DealAtX, IsWhatAWalkFindsWhereManyDealsShareAColumn)
{
    Chart chart(97, 100);
    chart.fill(300, 7);
    for (int x = -2; x < 100; ++x) {
        int walked = -1;
        for (auto entry = chart.m_dealRightX.cbegin(); entry != chart.m_dealRightX.cend() && walked < 0;
             ++entry)
            walked = entry.value() > x ? entry.key() : -1;
        EXPECT_EQ(chart.getSeqByX(x), walked) << x;
    }
}

TEST(DealAtX, MapsAreRebuiltByEveryPicture)
{
    Chart chart;
    chart.fill(20);
    const QMap<int, int> all = chart.m_dealRightX;
    const auto spans = chart.m_timeSpanX;
    chart.setViewTimeRange(tag(10, 0, 5), tag(10, 0, 8));
    EXPECT_EQ(chart.m_dealRightX.keys(), (QList<int>{5, 6, 7, 8}));
    EXPECT_EQ(chart.m_timeSpanX.size(), 4);
    chart.setViewTimeRange(-1, -1);
    EXPECT_EQ(chart.m_dealRightX, all);
    EXPECT_EQ(chart.m_timeSpanX, spans);
    chart.setViewTimeRange(tag(10, 0, 7), tag(10, 0, 12));
    EXPECT_EQ(chart.m_dealRightX.keys(), (QList<int>{7, 8, 9, 10, 11, 12}));
}
