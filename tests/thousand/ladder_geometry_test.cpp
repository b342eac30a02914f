// Where rows, columns, distribution and tip of the ladder stand.

#include "thousand/thousand_geometry.h"

#include <gtest/gtest.h>

using Kel::LadderLayout;
using Kel::levelName;

namespace {

/// 300 x 209 pixels: ten rows fit, with nine pixels left.
LadderLayout ladder(int sells, int buys, int scrollTop)
{
    LadderLayout layout;
    layout.clientWidth = 300;
    layout.clientHeight = 209;
    layout.visibleRows = 10;
    layout.sellCount = sells;
    layout.buyCount = buys;
    layout.totalRows = sells + 1 + buys;
    layout.scrollTop = scrollTop;
    layout.priceAreaWidth = 140;
    return layout;
}

} // namespace

TEST(LadderNames, NameTheLevels)
{
    const struct
    {
        int number;
        const char* sell;
        const char* buy;
    } rows[] = {{1, "卖①", "买①"},    {2, "卖②", "买②"},   {9, "卖⑨", "买⑨"},     {10, "卖⑩", "买⑩"},
                {11, "十①", "十①"},   {19, "十⑨", "十⑨"},  {20, "二〇", "二〇"},  {21, "二①", "二①"},
                {30, "三〇", "三〇"}, {45, "四⑤", "四⑤"},  {56, "五⑥", "五⑥"},    {67, "六⑦", "六⑦"},
                {78, "七⑧", "七⑧"},   {89, "八⑨", "八⑨"},  {90, "九〇", "九〇"},  {99, "九⑨", "九⑨"},
                {100, "100", "100"},  {999, "999", "999"}, {1000, "1000", "1000"}};
    for (const auto& row : rows) {
        EXPECT_EQ(levelName(row.number, false), QString::fromUtf8(row.sell));
        EXPECT_EQ(levelName(row.number, true), QString::fromUtf8(row.buy));
    }
}

TEST(LadderRows, BeginAtTheFirstShownAndEndWithTheClient)
{
    const LadderLayout layout = ladder(20, 15, 7);
    EXPECT_EQ(layout.firstRow(), 7);
    EXPECT_EQ(layout.endRow(), 17);
    EXPECT_EQ(layout.top(), 4) << "(209 - 200) / 2, truncated";
    EXPECT_EQ(layout.rowTop(7), 4);
    EXPECT_EQ(layout.rowTop(16), 184);
}

TEST(LadderRows, EndWithTheLastLevel)
{
    const LadderLayout layout = ladder(20, 15, 30);
    EXPECT_EQ(layout.endRow(), 36);
}

TEST(LadderRows, StandInTheMiddleWhenTheyDoNotFillTheClient)
{
    const LadderLayout layout = ladder(2, 1, -3);
    EXPECT_EQ(layout.firstRow(), 0);
    EXPECT_EQ(layout.endRow(), 4);
    EXPECT_EQ(layout.rowTop(0), 4 + 3 * 20);
}

TEST(LadderRows, SellsStandAboveTheLatestPriceAndBuysBelow)
{
    const LadderLayout layout = ladder(3, 2, 0);
    EXPECT_EQ(layout.sellIndex(0), 2);
    EXPECT_EQ(layout.sellIndex(2), 0);
    EXPECT_TRUE(layout.isSell(2));
    EXPECT_TRUE(layout.isLatest(3));
    EXPECT_FALSE(layout.isSell(4));
    EXPECT_EQ(layout.buyIndex(4), 1) << "the best buy stands last in its list";
    EXPECT_EQ(layout.buyIndex(5), 0);
    EXPECT_EQ(layout.levelNumber(0), 3);
    EXPECT_EQ(layout.levelNumber(2), 1);
    EXPECT_EQ(layout.levelNumber(4), 1);
    EXPECT_EQ(layout.levelNumber(5), 2);
}

TEST(LadderRows, OfTheShortFormAreTenASideWhateverThereIsAndWhereverItIsScrolled)
{
    LadderLayout layout = ladder(3, 12, 5);
    layout.displayLevel = 11;
    EXPECT_EQ(layout.sells(), 10);
    EXPECT_EQ(layout.total(), 21);
    EXPECT_EQ(layout.shown(), 21);
    EXPECT_EQ(layout.first(), 0);
    EXPECT_EQ(layout.firstRow(), 0);
    EXPECT_EQ(layout.endRow(), 21);
    EXPECT_EQ(layout.top(), (209 - 420) / 2);
    EXPECT_EQ(layout.sellIndex(9), 0);
    EXPECT_EQ(layout.sellIndex(6), 3) << "outside of the list of three";
    EXPECT_EQ(layout.buyIndex(11), 11) << "the last of twelve";
    EXPECT_EQ(layout.buyIndex(20), 2);
    layout.buyCount = 4;
    EXPECT_EQ(layout.buyIndex(11), 3);
    EXPECT_EQ(layout.buyIndex(15), -1) << "outside of the list of four";
}

TEST(LadderRows, AreFoundUnderAPoint)
{
    const LadderLayout layout = ladder(20, 15, 7);
    EXPECT_EQ(layout.rowAt(4), 7);
    EXPECT_EQ(layout.rowAt(23), 7);
    EXPECT_EQ(layout.rowAt(24), 8);
    EXPECT_EQ(layout.rowAt(0), 7) << "divisions truncate toward zero";
    EXPECT_EQ(layout.rowAt(203), 16);
    const LadderLayout atEnd = ladder(20, 15, 30);
    EXPECT_EQ(atEnd.rowAt(4 + 6 * 20), -1);
    EXPECT_EQ(atEnd.rowAt(4 + 6 * 20 - 1), 35);
    const LadderLayout few = ladder(2, 1, -3);
    EXPECT_EQ(few.rowAt(4), -1);
    EXPECT_EQ(few.rowAt(4 + 59), -1);
    EXPECT_EQ(few.rowAt(4 + 60), 0);
    EXPECT_EQ(few.rowAt(4 + 60 + 79), 3);
    EXPECT_EQ(few.rowAt(4 + 60 + 80), -1);
}

TEST(LadderRows, TellTheTopOfAPopUpByTheRowsThatFit)
{
    LadderLayout layout = ladder(20, 15, 7);
    EXPECT_EQ(layout.clickedTop(4), 4);
    EXPECT_EQ(layout.clickedTop(23), 4);
    EXPECT_EQ(layout.clickedTop(24), 24);
    layout.displayLevel = 11;
    EXPECT_EQ(layout.clickedTop(30), 24) << "also in the short form, whose own rows stand elsewhere";
}

TEST(LadderColumns, StandSideBySide)
{
    const LadderLayout layout = ladder(20, 15, 7);
    const int price = 30 + 3 + 5 + (140 - 50) / 2;
    EXPECT_EQ(layout.priceLeft(), price);
    EXPECT_EQ(layout.nameCell(100), QRect(3, 100, 30, 20));
    EXPECT_EQ(layout.priceCell(100), QRect(price, 100, 50, 20));
    EXPECT_EQ(layout.countCell(100), QRect(price + 50, 100, 30, 20));
    const int volume = price + 140 - (140 - 50) / 2 + 5;
    EXPECT_EQ(layout.volumeCell(100), QRect(volume, 100, 55, 20));
    EXPECT_EQ(layout.lastVolumeLabel(100), QRect(5 + 8 + (140 - 50) / 2 + 50 + 30, 100, 50, 20));
    EXPECT_EQ(layout.selection(100), QRect(1, 100, 298, 20));
    EXPECT_EQ(LadderLayout::hoverBox(layout.priceCell(100)), QRect(price, 101, 50, 18));
    EXPECT_EQ(layout.volumeHoverBox(100, 21), QRect(volume + 55 - 21 - 1, 101, 23, 18));
}

TEST(LadderColumns, LeaveRoomForTheBarWhenTheRowsExceedTheClient)
{
    LadderLayout layout = ladder(20, 15, 7);
    EXPECT_TRUE(layout.exceeds());
    EXPECT_EQ(layout.changeCell(0).width(), 40 - 6);
    EXPECT_EQ(layout.lastVolumeCell(0), QRect(180, 0, 114, 20));
    EXPECT_EQ(layout.distributionRight(), 293);
    layout = ladder(5, 4, 0);
    EXPECT_FALSE(layout.exceeds()) << "ten rows fit";
    EXPECT_EQ(layout.changeCell(0), QRect(layout.volumeLeft() + 55 + 5, 0, 40, 20));
    EXPECT_EQ(layout.lastVolumeCell(0), QRect(180, 0, 120, 20));
    EXPECT_EQ(layout.distributionRight(), 299);
}

TEST(LadderColumns, AreHalfOpen)
{
    const LadderLayout layout = ladder(20, 15, 7);
    const int price = layout.priceLeft();
    const int volume = layout.volumeLeft();
    EXPECT_EQ(layout.columnAt(price - 1, true), LadderLayout::eNoColumn);
    EXPECT_EQ(layout.columnAt(price, true), LadderLayout::ePrice);
    EXPECT_EQ(layout.columnAt(price + 49, true), LadderLayout::ePrice);
    EXPECT_EQ(layout.columnAt(price + 50, true), LadderLayout::eCount);
    EXPECT_EQ(layout.columnAt(price + 50, false), LadderLayout::eNoColumn);
    EXPECT_EQ(layout.columnAt(price + 79, true), LadderLayout::eCount);
    EXPECT_EQ(layout.columnAt(price + 80, true), LadderLayout::eNoColumn);
    EXPECT_EQ(layout.columnAt(volume - 1, true), LadderLayout::eNoColumn);
    EXPECT_EQ(layout.columnAt(volume, true), LadderLayout::eVolume);
    EXPECT_EQ(layout.columnAt(volume + 54, true), LadderLayout::eVolume);
    EXPECT_EQ(layout.columnAt(volume + 55, true), LadderLayout::eNoColumn);
}

TEST(LadderColumns, AreTestedInOrderWhereANarrowPanelLetsThemOverlap)
{
    LadderLayout layout = ladder(20, 15, 7);
    layout.priceAreaWidth = layout.priceWidth;
    EXPECT_LT(layout.volumeLeft(), layout.priceLeft() + 80);
    EXPECT_EQ(layout.columnAt(layout.volumeLeft(), true), LadderLayout::eCount);
    EXPECT_EQ(layout.columnAt(layout.volumeLeft(), false), LadderLayout::eVolume);
}

TEST(LadderColumns, PriceAndCountShareWhatIsLeftOfTheWidth)
{
    LadderLayout layout = ladder(20, 15, 7);
    layout.changeWidth = 45;
    EXPECT_EQ(Kel::priceAreaWidth(layout), 300 - 20 - 55 - 30 - 45);
    layout.clientWidth = 100;
    EXPECT_EQ(Kel::priceAreaWidth(layout), 50) << "never below the price";
}

TEST(LadderDistribution, AmountsAreRoundedToPixelsAndNeverNone)
{
    EXPECT_EQ(Kel::distributionLength(100, 50, 100), 50);
    EXPECT_EQ(Kel::distributionLength(100, 100, 100), 100);
    EXPECT_EQ(Kel::distributionLength(100, 50.4, 100), 50);
    EXPECT_EQ(Kel::distributionLength(100, 50.5, 100), 51);
    EXPECT_EQ(Kel::distributionLength(100, 0.1, 100), 1);
    EXPECT_EQ(Kel::distributionLength(100, 5, 0), 1);
    EXPECT_EQ(Kel::distributionLength(100, 5, 0.00001), 1);
}

TEST(LadderDistribution, PricesRunOverTheWholeHeight)
{
    EXPECT_EQ(Kel::distributionY(12, 10, 12, 200), 0);
    EXPECT_EQ(Kel::distributionY(10, 10, 12, 200), 200);
    EXPECT_EQ(Kel::distributionY(11, 10, 12, 200), 100);
    EXPECT_EQ(Kel::distributionY(11.0051, 10, 12, 200), 99);
    EXPECT_EQ(Kel::distributionY(10, 10, 10, 200), 0) << "one price alone stands at the top";
    EXPECT_EQ(Kel::distributionY(10, 10, 10.00001, 200), 0);
}

TEST(LadderTip, StandsRightOfTheCursorOrAgainstTheEdge)
{
    EXPECT_EQ(Kel::tipBox({50, 100}, 80, {300, 200}), QRect(51, 79, 90, 20));
    EXPECT_EQ(Kel::tipBox({207, 100}, 80, {300, 200}), QRect(208, 79, 90, 20)) << "208 + 90 is below 299";
    EXPECT_EQ(Kel::tipBox({208, 100}, 80, {300, 200}), QRect(209, 79, 90, 20));
    EXPECT_EQ(Kel::tipBox({209, 100}, 80, {300, 200}), QRect(209, 79, 90, 20));
    EXPECT_EQ(Kel::tipBox({290, 100}, 80, {300, 200}), QRect(209, 79, 90, 20));
    EXPECT_EQ(Kel::tipBox({50, 100}, 80, {1, 200}).right(), 49) << "a client without width";
}
