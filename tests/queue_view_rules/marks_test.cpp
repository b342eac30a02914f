// The tracked order and the marked volume.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

const QString kSellPrice = "kel_clr_deptch_order_queue_price_fall";
const QString kTrack = "ic_clr_mark_purple";   ///< index 1
const QString kMark = "ic_clr_mark_dark_blue"; ///< index 2

class Marks : public QueueViewTest
{
protected:
    Marks()
    {
        layOut(600, 400);
        view.setStyle(5);
        view.m_trackColor = 1;
        view.m_markColor = 2;
    }

    /// Colours of the first cells of a sell level: t tracked, m marked, s the side's, d default, ? another.
    std::string colors(const std::string& tail, int count)
    {
        const Drawing drawing = cells("sell 10.01 level=1" + tail, 8);
        std::string letters;
        for (int col = 0; col < count; ++col) {
            const QColor color = cellColor(drawing, QRect(70 + 50 * col, 5, 50, 20));
            letters += color == themeColor(kTrack)                          ? 't'
                       : color == themeColor(kMark)                         ? 'm'
                       : color == themeColor(kSellPrice)                    ? 's'
                       : color == themeColor("ic_clr_entrust_default_text") ? 'd'
                                                                            : '?';
        }
        return letters;
    }
};

} // namespace

TEST_F(Marks, NoneAreSetAtFirst)
{
    EXPECT_EQ(colors("; 1 10 normal; 2 0 normal; 3 0.2 normal; 0 10 normal", 4), "ssss");
}

TEST_F(Marks, ATrackedOrderIsFoundByItsNumber)
{
    view.m_trackOrderNo = 2;
    EXPECT_EQ(colors("; 1 10 normal; 2 10 normal; 3 2 normal", 3), "sts");
}

TEST_F(Marks, NumbersAreComparedInFull)
{
    view.m_trackOrderNo = 2;
    EXPECT_EQ(colors("; 4294967298 10 normal; 2 10 normal", 2), "st");
}

TEST_F(Marks, AVolumeIsFoundByItsText)
{
    view.m_markVolume = 10;
    EXPECT_EQ(colors("; 1 10 normal; 2 9.5 normal; 3 10.5 normal; 4 100 normal", 4), "mmss");
}

TEST_F(Marks, AMarkOfZeroFindsNoCell)
{
    view.m_markVolume = 0;
    EXPECT_EQ(colors("; 1 0 normal; 2 0.1 normal", 2), "ss");
}

TEST_F(Marks, LargeVolumesAreComparedAsPlainDigits)
{
    view.m_markVolume = 1234567;
    EXPECT_EQ(colors("; 1 1234567 super", 1), "m");
}

TEST_F(Marks, TheTrackedOrderGoesBeforeTheMarkedVolume)
{
    view.m_trackOrderNo = 1;
    view.m_markVolume = 10;
    EXPECT_EQ(colors("; 1 10 normal; 2 10 normal", 2), "tm");
}

TEST_F(Marks, EveryTypeOfCellIsMarked)
{
    view.m_trackOrderNo = 1;
    view.m_markVolume = 20;
    for (const char* type : {"cancelled", "normal", "unknown", "big", "super", "dealt"}) {
        EXPECT_EQ(colors(std::string("; 1 10 ") + type + "; 2 20 " + type, 2), "tm") << type;
    }
}

TEST_F(Marks, UnmarkedDealtOrdersKeepTheDefaultColour)
{
    view.m_markVolume = 20;
    EXPECT_EQ(colors("; 1 10 dealt; 2 20 dealt; 3 10 normal", 3), "dms");
}

TEST_F(Marks, APartDealtOrderThatIsNotTheLastIsMarked)
{
    view.m_trackOrderNo = 1;
    view.m_markVolume = 20;
    EXPECT_EQ(colors("; 1 10 part 5; 2 20 part 5; 3 30 part 5; 4 10 normal", 2), "tm");
}

TEST_F(Marks, TheFinishedPartDealtOrderIsNot)
{
    view.m_trackOrderNo = 1;
    EXPECT_EQ(colors("; 1 10 part 0", 1), "s");
    const Drawing drawing = cells("sell 10.01 level=1; 1 10 part 5", 8);
    EXPECT_EQ(cellColor(drawing, QRect(70, 5, 50, 20)), themeColor("ic_clr_graph_gray"));
}

TEST_F(Marks, AnEllipsisIsMarkedByItsNumberAndNeverByItsVolume)
{
    view.m_maxShowCount = 1;
    view.m_markVolume = 20;
    EXPECT_EQ(colors("; 1 10 normal; 2 20 normal; 3 30 normal", 2), "ss");
    view.m_trackOrderNo = 2;
    EXPECT_EQ(colors("; 1 10 normal; 2 20 normal; 3 30 normal", 2), "st");
}

TEST_F(Marks, FillerIsMarkedByItsVolumeAndAsNumberZero)
{
    view.m_markVolume = 1000;
    EXPECT_EQ(colors(" unknown=2500; 1 10 normal", 4), "smms");
    view.m_trackOrderNo = 0;
    EXPECT_EQ(colors(" unknown=2500; 1 10 normal; 0 20 normal", 5), "stttt");
}

TEST_F(Marks, AShortenedFirstOrderIsComparedAsItIsShown)
{
    view.m_markVolume = 70;
    EXPECT_EQ(colors(" unknown=-30; 1 100 normal; 2 70 normal", 2), "mm");
    view.m_markVolume = 100;
    EXPECT_EQ(colors(" unknown=-30; 1 100 normal; 2 100 normal", 2), "sm");
}

TEST_F(Marks, ATrackColourOfMinusOneIsThatOfTheMark)
{
    view.m_trackOrderNo = 1;
    view.m_trackColor = -1;
    EXPECT_EQ(colors("; 1 10 normal", 1), "m");
}

TEST_F(Marks, AnUnknownColourIsTheDefaultText)
{
    view.m_trackOrderNo = 1;
    view.m_trackColor = 7;
    view.m_markVolume = 20;
    view.m_markColor = 4;
    EXPECT_EQ(colors("; 1 10 normal; 2 20 normal; 3 30 normal", 3), "dds");
}

TEST_F(Marks, EachIndexHasItsColour)
{
    const char* keys[] = {"ic_clr_mark_light_blue", "ic_clr_mark_purple", "ic_clr_mark_dark_blue",
                          "ic_clr_mark_yellow"};
    for (int index = 0; index < 4; ++index) {
        view.setVolumeColor(10, index);
        view.setTrackOrder(2, 3 - index);
        const Drawing drawing = cells("sell 10.01 level=1; 1 10 normal; 2 20 normal", 8);
        EXPECT_EQ(cellColor(drawing, QRect(70, 5, 50, 20)), themeColor(keys[index])) << index;
        EXPECT_EQ(cellColor(drawing, QRect(120, 5, 50, 20)), themeColor(keys[3 - index])) << index;
    }
}
