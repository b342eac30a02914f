// The summary row that every level has in the first-level detail.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

const QString kText = "kel_clr_deptch_order_queue_txt";
const QString kVolume = "kel_clr_deptch_order_queue_vol";
const QString kFall = "ic_clr_entrust_text_fall";
const QString kTextFont = "ic_fnt_index_modulegroup_entruststatus_text";
const QString kVolumeFont = "ic_fnt_index_modulegroup_transaction";

class Summary : public QueueViewTest
{
protected:
    Summary() { layOut(800, 400); }
};

} // namespace

TEST_F(Summary, ShowsItsColumnsForTheSellSide)
{
    setRows({"sell 10.01 level=1 levelVol=1234.9 count=37 avg=33.36; 1 5 normal"}, {});
    const Drawing drawing = picture();
    EXPECT_TRUE(shows(drawing, "卖一", QRect(5, 10, 40, 20), kLeft, kText, kTextFont));
    EXPECT_TRUE(shows(drawing, "10.01", QRect(45, 10, 65, 20), kRight, kFall, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "1234", QRect(120, 10, 60, 20), kRight, kVolume, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "笔", QRect(180, 10, 60, 20), kRight, kText, kTextFont));
    EXPECT_TRUE(shows(drawing, "37", QRect(180, 10, 60 - textWidth("笔", kTextFont), 20), kRight, kText,
                      kVolumeFont));
    EXPECT_TRUE(shows(drawing, "33.4", QRect(280, 10, 50, 20), kRight, kVolume, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "手/笔", QRect(330, 10, 50, 20), kLeft, kText, kTextFont));
}

TEST_F(Summary, ShowsItsColumnsForTheBuySideFromTheMiddle)
{
    setRows({}, {"buy 10.00 level=1 levelVol=1234.9 count=37 avg=33.36; 1 5 normal"});
    const Drawing drawing = picture();
    EXPECT_TRUE(shows(drawing, "买一", QRect(405, 10, 40, 20), kLeft, kText, kTextFont));
    EXPECT_TRUE(shows(drawing, "10.00", QRect(445, 10, 65, 20), kRight, kFall, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "1234", QRect(520, 10, 60, 20), kRight, kVolume, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "笔", QRect(580, 10, 60, 20), kRight, kText, kTextFont));
    EXPECT_TRUE(shows(drawing, "37", QRect(580, 10, 60 - textWidth("笔", kTextFont), 20), kRight, kText,
                      kVolumeFont));
    EXPECT_TRUE(shows(drawing, "33.4", QRect(680, 10, 50, 20), kRight, kVolume, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "手/笔", QRect(730, 10, 50, 20), kLeft, kText, kTextFont));
}

TEST_F(Summary, ColoursThePriceByTheLastClose)
{
    view.m_lastClose = 10.01;
    setRows({"sell 10.02 level=1", "sell 10.01 level=2"}, {"buy 10.00 level=1"});
    const Drawing drawing = picture();
    EXPECT_TRUE(shows(drawing, "10.02", QRect(45, 10, 65, 20), kRight, "ic_clr_entrust_text_rise"));
    EXPECT_TRUE(shows(drawing, "10.01", QRect(45, 30, 65, 20), kRight, "ic_clr_entrust_default_text"));
    EXPECT_TRUE(shows(drawing, "10.00", QRect(445, 10, 65, 20), kRight, kFall));
}

TEST_F(Summary, NeedsAPrice)
{
    setRows({"sell 0 level=1 levelVol=55 avg=5; 1 5 normal"}, {});
    EXPECT_EQ(texts(picture()), "");
}

TEST_F(Summary, LeavesCountAndAverageToTheFirstLevelUnlessFull)
{
    const std::string second = "buy 9.99 level=2 levelVol=55 count=3 avg=5.5; 1 7 normal";
    setRows({}, {"", second});
    Drawing drawing = picture();
    EXPECT_EQ(texts(drawing), "买二 9.99 55");
    view.setQueueFull(true);
    drawing = picture();
    EXPECT_EQ(countOf(drawing, "笔"), 1);
    EXPECT_EQ(countOf(drawing, "3"), 1);
    EXPECT_EQ(countOf(drawing, "5.5"), 1);
    EXPECT_EQ(countOf(drawing, "手/笔"), 1);
}

TEST_F(Summary, HasNeitherCountNorAverageWithoutOrders)
{
    setRows({}, {"buy 10.00 level=1 levelVol=55 count=3 avg=5.5"});
    EXPECT_EQ(texts(picture()), "买一 10.00 55");
}

TEST_F(Summary, HasNoAverageWithinTheToleranceOfNone)
{
    setRows({}, {"buy 10.00 level=1 avg=0.00001; 1 7 normal"});
    Drawing drawing = picture();
    EXPECT_EQ(countOf(drawing, "笔"), 1);
    EXPECT_EQ(countOf(drawing, "手/笔"), 0);
    EXPECT_EQ(countOf(drawing, "0.0"), 0);
    setRows({}, {"buy 10.00 level=1 avg=0.000011; 1 7 normal"});
    drawing = picture();
    EXPECT_EQ(countOf(drawing, "手/笔"), 1);
    EXPECT_EQ(countOf(drawing, "0.0"), 1);
}

TEST_F(Summary, ShowsANegativeCountAsZero)
{
    setRows({}, {"buy 10.00 level=1 levelVol=55 count=-4; 1 7 normal"});
    const Drawing drawing = picture();
    EXPECT_TRUE(shows(drawing, "0", QRect(580, 10, 60 - textWidth("笔", kTextFont), 20), kRight, kText));
}

TEST_F(Summary, DropsColumnsOfTheSellSideThatDoNotFit)
{
    const std::string tail = " level=1 levelVol=77 count=3 avg=5.5; 1 7 normal";
    const struct
    {
        int width;
        bool volume, count, average, unit;
    } rows[] = {
        {360, false, false, false, false}, // 120 + 60 is not below 180
        {362, true, false, false, false},  {480, true, false, false, false}, {482, true, true, false, false},
        {680, true, true, false, false},   {682, true, true, true, false},   {780, true, true, true, false},
        {782, true, true, true, true},
    };
    for (const auto& row : rows) {
        layOut(row.width, 400);
        setRows({"sell 10.01" + tail}, {});
        const Drawing drawing = picture();
        EXPECT_EQ(countOf(drawing, "卖一"), 1) << row.width;
        EXPECT_EQ(countOf(drawing, "10.01"), 1) << row.width;
        EXPECT_EQ(countOf(drawing, "77"), row.volume ? 1 : 0) << row.width;
        EXPECT_EQ(countOf(drawing, "笔"), row.count ? 1 : 0) << row.width;
        EXPECT_EQ(countOf(drawing, "3"), row.count ? 1 : 0) << row.width;
        EXPECT_EQ(countOf(drawing, "5.5"), row.average ? 1 : 0) << row.width;
        EXPECT_EQ(countOf(drawing, "手/笔"), row.unit ? 1 : 0) << row.width;
    }
}

TEST_F(Summary, KeepsAllColumnsOfTheBuySide)
{
    layOut(360, 400);
    setRows({}, {"buy 10.00 level=1 levelVol=77 count=3 avg=5.5; 1 7 normal"});
    const Drawing drawing = picture();
    EXPECT_TRUE(shows(drawing, "77", QRect(300, 10, 60, 20), kRight, kVolume));
    EXPECT_TRUE(shows(drawing, "笔", QRect(360, 10, 60, 20), kRight, kText));
    EXPECT_TRUE(shows(drawing, "5.5", QRect(460, 10, 50, 20), kRight, kVolume));
    EXPECT_TRUE(shows(drawing, "手/笔", QRect(510, 10, 50, 20), kLeft, kText));
}

TEST_F(Summary, StandsAboveTheOrdersOfItsLevel)
{
    // Sells: summary, two rows of orders (7 cells a row), summary. Buys: summary, no order, summary.
    setRows({levelWith("sell 10.01 level=1 levelVol=901", 9, 3), "sell 10.02 level=2 levelVol=902"},
            {"buy 10.00 level=1 levelVol=903", "buy 9.99 level=2 levelVol=904"});
    const Drawing drawing = picture();
    EXPECT_TRUE(shows(drawing, "901", QRect(120, 10, 60, 20), kRight, kVolume));
    EXPECT_EQ(grid(drawing, QRect(5, 30, 50, 20), 8, 2), "3 3 3 3 3 3 3 -\n3 3 - - - - - -");
    EXPECT_TRUE(shows(drawing, "902", QRect(120, 70, 60, 20), kRight, kVolume));
    EXPECT_TRUE(shows(drawing, "903", QRect(520, 10, 60, 20), kRight, kVolume));
    EXPECT_TRUE(shows(drawing, "904", QRect(520, 30, 60, 20), kRight, kVolume));
}

TEST_F(Summary, AdvancesBothSidesAlsoWhenOneIsMissing)
{
    setRows({"", "sell 10.02 level=2 levelVol=902"},
            {"buy 10.00 level=1 levelVol=903", "buy 9.99 level=2 levelVol=904"});
    const Drawing drawing = picture();
    EXPECT_TRUE(shows(drawing, "902", QRect(120, 30, 60, 20), kRight, kVolume));
    EXPECT_TRUE(shows(drawing, "904", QRect(520, 30, 60, 20), kRight, kVolume));
}

TEST_F(Summary, IsDrawnWhereItsTopIsInView)
{
    setRows({"sell 10.01 level=1 levelVol=901", "sell 10.02 level=2 levelVol=902"},
            {"buy 10.00 level=1 levelVol=903"});
    picture();
    view.m_scrollTop = 10; // tops at 0 and 20
    EXPECT_EQ(countOf(picture(), "901"), 1);
    view.m_scrollTop = 11; // at -1 and 19
    EXPECT_EQ(countOf(picture(), "901"), 0);
    EXPECT_EQ(countOf(picture(), "903"), 0);
    EXPECT_EQ(countOf(picture(), "902"), 1);
    view.m_scrollTop = -390; // at 400 and 420
    EXPECT_EQ(countOf(picture(), "901"), 1);
    EXPECT_EQ(countOf(picture(), "902"), 0);
    view.m_scrollTop = -391;
    EXPECT_EQ(countOf(picture(), "901"), 0);
}

TEST_F(Summary, NamesItsLevels)
{
    setPlainRows(10);
    const Drawing drawing = picture();
    for (const char* name : {"卖一", "卖二", "卖十", "买一", "买九", "买十"})
        EXPECT_EQ(countOf(drawing, name), 1) << name;
}

TEST_F(Summary, BelongsToTheFirstLevelDetailAlone)
{
    setRows({"sell 10.01 level=2 levelVol=901 avg=5; 1 5 normal"}, {});
    for (const int style : {3, 4, 5}) {
        view.setStyle(style);
        EXPECT_EQ(countOf(picture(), "手/笔"), 0) << style;
    }
}
