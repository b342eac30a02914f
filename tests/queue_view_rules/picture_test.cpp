// The whole picture: ground, lines, clip, and where each level goes.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

const QString kBack = "ic_clr_graph_kline_bg";
const QString kSplit = "kel_clr_depth_module_group_base_widget_split_line";
const QString kSplitRed = "kel_clr_depth_module_group_base_widget_split_line_red";

class Picture : public QueueViewTest
{
protected:
    Picture() { layOut(600, 400); }

    /// Dash patterns of the horizontal or vertical lines in the red split colour that are dashed, by their
    /// number; -1 if one of them is not 1 on, 3 off and 1 wide.
    static int dashed(const Drawing& drawing)
    {
        int count = 0;
        for (const PaintCommand& command : drawing) {
            if (command.kind != PaintCommand::eLine || command.pen.color() != themeColor(kSplitRed))
                continue;
            if (command.pen.style() == Qt::SolidLine)
                continue;
            if (command.pen.dashPattern() != QVector<qreal>{1, 3} || command.pen.width() != 1)
                return -1;
            ++count;
        }
        return count;
    }

    /// The first clip that is not empty.
    static QRectF clip(const Drawing& drawing)
    {
        for (const PaintCommand& command : drawing) {
            if (command.kind == PaintCommand::eSetClip && !command.rect.isEmpty())
                return command.rect;
        }
        return {};
    }
};

} // namespace

TEST_F(Picture, BeginsWithItsGround)
{
    for (const int style : {2, 3, 4, 5}) {
        view.setStyle(style);
        const Drawing drawing = picture();
        ASSERT_FALSE(drawing.empty());
        EXPECT_TRUE(filled({drawing.front()}, QRect(0, 0, 600, 400), kBack));
        EXPECT_TRUE(drawing.front().clip.isNull());
    }
}

TEST_F(Picture, OfAnEmptyEngineHasNoText)
{
    for (const int style : {2, 3, 4, 5}) {
        view.setStyle(style);
        EXPECT_EQ(texts(picture()), "");
    }
}

TEST_F(Picture, HalvesAreSplitByAnUnclippedLineFromTopToBottom)
{
    for (const int style : {2, 4, 5}) {
        view.setStyle(style);
        const Drawing drawing = picture();
        EXPECT_EQ(downLines(drawing, kSplit, 400), "300") << print(drawing);
        for (const PaintCommand& command : drawing) {
            if (command.kind == PaintCommand::eLine) {
                EXPECT_TRUE(command.clip.isNull()) << command;
            }
        }
        EXPECT_EQ(crossLines(drawing, kSplitRed, 600), "");
        EXPECT_EQ(downLines(drawing, kSplitRed, 400), "");
    }
}

TEST_F(Picture, TheSplitLineStandsWhereTheBuySideBegins)
{
    layOut(601, 400);
    EXPECT_EQ(downLines(picture(), kSplit, 400), "300");
}

TEST_F(Picture, HorizontalStyleHasNoSplitLineButACentreAndALineBeforeTheOrders)
{
    view.setStyle(3);
    const Drawing drawing = picture();
    EXPECT_EQ(downLines(drawing, kSplit, 400), "");
    EXPECT_EQ(crossLines(drawing, kSplitRed, 600), "5");  // no rows: centre at 0, and the top space
    EXPECT_EQ(downLines(drawing, kSplitRed, 400), "276"); // 4 * 65 + 10 + 6
    EXPECT_EQ(dashed(drawing), 1);
}

TEST_F(Picture, HorizontalLevelsGoUpAndDownFromTheCentreWithSeparators)
{
    view.setStyle(3);
    setRows({levelWith("sell 10.01 level=1 levelVol=901", 1, 11),
             levelWith("sell 10.02 level=2 levelVol=902", 1, 12)},
            {levelWith("buy 10.00 level=1 levelVol=903", 1, 13),
             levelWith("buy 9.99 level=2 levelVol=904", 1, 14)});
    const Drawing drawing = picture();
    EXPECT_EQ(view.m_centerY, 40);
    EXPECT_EQ(view.m_deltaHeight, 40);
    EXPECT_TRUE(shows(drawing, "901", QRect(135, 25, 60, 20), kRight, "kel_clr_deptch_order_queue_vol"));
    EXPECT_TRUE(shows(drawing, "902", QRect(135, 5, 60, 20), kRight, "kel_clr_deptch_order_queue_vol"));
    EXPECT_TRUE(shows(drawing, "903", QRect(135, 45, 60, 20), kRight, "kel_clr_deptch_order_queue_vol"));
    EXPECT_TRUE(shows(drawing, "904", QRect(135, 65, 60, 20), kRight, "kel_clr_deptch_order_queue_vol"));
    EXPECT_EQ(grid(drawing, QRect(290, 5, 50, 20), 1, 4), "12\n11\n13\n14");
    // Sell 1, buy 1, sell 2, buy 2, then the centre.
    EXPECT_EQ(crossLines(drawing, kSplitRed, 600), "25 65 5 85 45");
    EXPECT_EQ(dashed(drawing), 5); // four separators and the line before the orders
}

TEST_F(Picture, SeparatorsFollowTheScrollOfTheRows)
{
    view.setStyle(3);
    setPlainRows(2);
    picture();
    view.m_scrollTop = 10;
    EXPECT_EQ(crossLines(picture(), kSplitRed, 600), "15 55 -5 75 35");
}

TEST_F(Picture, SeparatorsStandAfterAllRowsOfALevel)
{
    view.setStyle(3); // 6 cells a row
    setRows({levelWith("sell 10.01 level=1", 7), levelWith("sell 10.02 level=2", 1)},
            {levelWith("buy 10.00 level=1", 13)});
    const Drawing drawing = picture();
    EXPECT_EQ(view.m_centerY, 60);
    // Sell 1 ends 40 above the centre, buy 1 60 below, sell 2 60 above.
    EXPECT_EQ(crossLines(drawing, kSplitRed, 600), "25 125 5 65");
}

TEST_F(Picture, TheLastLevelHasNoSeparator)
{
    layOut(600, 900);
    view.setStyle(3);
    setPlainRows(10);
    EXPECT_EQ(dashed(picture()), 19);
    view.setLevels(0);
    EXPECT_EQ(dashed(picture()), 9);
}

TEST_F(Picture, SeparatorsAreClipped)
{
    view.setStyle(3);
    setPlainRows(2);
    for (const PaintCommand& command : picture()) {
        if (command.kind == PaintCommand::eLine) {
            EXPECT_EQ(command.clip, QRectF(0, 2, 600, 396)) << command;
        }
    }
}

TEST_F(Picture, AllButGroundAndSplitLineIsClippedTwoPixelsInside)
{
    view.setStyle(5);
    setPlainRows(2);
    EXPECT_EQ(clip(picture()), QRectF(0, 2, 600, 396));
    for (const PaintCommand& command : picture()) {
        if (command.kind == PaintCommand::eText) {
            EXPECT_EQ(command.clip, QRectF(0, 2, 600, 396)) << command;
        }
    }
}

TEST_F(Picture, TheClipReplacesAnother)
{
    view.setStyle(5);
    setPlainRows(2);
    const Drawing drawing = record(view.size(), [this](QPainter& painter) {
        painter.setClipRect(QRect(0, 0, 10, 10));
        view.drawGraph(painter);
    });
    for (const PaintCommand& command : drawing) {
        if (command.kind == PaintCommand::eText) {
            EXPECT_EQ(command.clip, QRectF(0, 2, 600, 396)) << command;
        }
    }
}

TEST_F(Picture, TheClipLeavesAShownBarFree)
{
    view.setStyle(5);
    setPlainRows(10);
    layOut(600, 100);
    ASSERT_TRUE(barShown());
    EXPECT_EQ(clip(picture()), QRectF(0, 2, 594, 96));
}

TEST_F(Picture, ColumnsAreCountedWithABarOnlyIfItIsShown)
{
    // 542 / 2 - 71 = 200 without a bar, 194 with one.
    view.setStyle(5);
    setRows({levelWith("sell 10.01 level=1", 8, 3)}, {});
    layOut(542, 400);
    EXPECT_EQ(grid(picture(), QRect(70, 5, 50, 20), 5, 3), "3 3 3 3 -\n3 3 3 3 -\n- - - - -");
    layOut(542, 70);
    ASSERT_TRUE(barShown());
    EXPECT_EQ(grid(picture(), QRect(70, 5, 50, 20), 5, 3), "3 3 3 - -\n3 3 3 - -\n3 3 - - -");
}

TEST_F(Picture, EachStyleHasItsColumns)
{
    const struct
    {
        int style, width, cols;
        QRect first;
    } rows[] = {
        {2, 511, 4, QRect(5, 30, 50, 20)},  {2, 512, 5, QRect(5, 30, 50, 20)},  // 256 - 6 = 250
        {5, 541, 3, QRect(70, 5, 50, 20)},  {5, 542, 4, QRect(70, 5, 50, 20)},  // 271 - 71 = 200
        {4, 741, 2, QRect(225, 5, 50, 20)}, {4, 742, 3, QRect(225, 5, 50, 20)}, // 371 - 221 = 150
        {3, 475, 3, QRect(290, 5, 50, 20)}, {3, 476, 4, QRect(290, 5, 50, 20)}, // 476 - 276 = 200
    };
    for (const auto& row : rows) {
        view.setStyle(row.style);
        view.setLevels(0);
        layOut(row.width, 400);
        if (row.style == 3)
            setRows({}, {levelWith("buy 10.00 level=1", 12, 3)});
        else
            setRows({levelWith("sell 10.01 level=1", 12, 3)}, {});
        std::string full = "3";
        for (int col = 1; col < row.cols; ++col)
            full += " 3";
        EXPECT_EQ(grid(picture(), row.first, row.cols + 1, 2), full + " -\n" + full + " -")
            << "style " << row.style << " width " << row.width;
    }
}

TEST_F(Picture, RowsAreCountedWithOtherColumnsThanTheyAreDrawn)
{
    // 476 wide: counted with 3 columns, drawn with 4.
    view.setStyle(3);
    setRows({levelWith("sell 10.01 level=1", 12, 3)}, {levelWith("buy 10.00 level=1", 12, 4)});
    layOut(476, 400);
    const Drawing drawing = picture();
    EXPECT_EQ(view.m_leftRows, 4);
    EXPECT_EQ(view.m_rowCount, 8);
    EXPECT_EQ(view.m_centerY, 80);
    EXPECT_EQ(grid(drawing, QRect(290, 65, 50, 20), 4, 4, true), "3 3 3 3\n3 3 3 3\n3 3 3 3\n- - - -");
    EXPECT_EQ(crossLines(drawing, kSplitRed, 476), "25 145 85"); // three rows up, three down, the centre
}

TEST_F(Picture, RowTotalIsTheLongerSideAndTheSumInHorizontalStyle)
{
    setRows({levelWith("sell 10.01 level=1", 1), levelWith("sell 10.02 level=2", 1)},
            {levelWith("buy 10.00 level=1", 9)});
    view.setStyle(5); // 4 columns
    picture();
    EXPECT_EQ(view.m_leftRows, 2);
    EXPECT_EQ(view.m_rightRows, 4);
    EXPECT_EQ(view.m_rowCount, 4);
    EXPECT_EQ(view.m_centerY, 0);
    EXPECT_EQ(view.m_deltaHeight, 40);
    view.setStyle(3); // 6 columns
    picture();
    EXPECT_EQ(view.m_rowCount, 4);
    EXPECT_EQ(view.m_leftRows, 2);
    EXPECT_EQ(view.m_rightRows, 2);
    EXPECT_EQ(view.m_centerY, 40);
}

TEST_F(Picture, ANewRowTotalChangesTheScroll)
{
    view.setStyle(5);
    view.setClientRealHeight(7);
    picture();
    EXPECT_EQ(view.m_clientRealHeight, 7) << "no change, no scroll";
    setPlainRows(3);
    picture();
    EXPECT_EQ(view.m_clientRealHeight, 80);
}

TEST_F(Picture, FiveOrTenLevelsAreShown)
{
    setPlainRows(10);
    for (const int style : {2, 3, 4, 5}) {
        layOut(600, 900);
        view.setStyle(style);
        view.setLevels(1);
        EXPECT_EQ(countOf(picture(), "10.06"), 1) << style;
        EXPECT_EQ(countOf(picture(), "9.90"), 1) << style;
        view.setLevels(0);
        EXPECT_EQ(countOf(picture(), "10.05"), 1) << style;
        EXPECT_EQ(countOf(picture(), "10.06"), 0) << style;
    }
}

TEST_F(Picture, ListAndVerticalLevelsTakeARowEachAfterTheFirst)
{
    setRows(
        {levelWith("sell 10.01 level=1", 9, 3), levelWith("sell 10.02 level=2", 9, 3), "sell 10.03 level=3"},
        {levelWith("buy 10.00 level=1", 1, 4), levelWith("buy 9.99 level=2", 9, 4)});
    view.setStyle(5); // 4 columns
    const Drawing drawing = picture();
    const QString reversed = "kel_clr_depth_module_group_base_widget_bg";
    EXPECT_TRUE(shows(drawing, "10.01", QRect(5, 5, 65, 20), kRight, reversed));
    EXPECT_EQ(grid(drawing, QRect(70, 5, 50, 20), 4, 4), "3 3 3 3\n3 3 3 3\n3 - - -\n- - - -");
    EXPECT_TRUE(shows(drawing, "10.02", QRect(5, 65, 65, 20), kRight, reversed));
    EXPECT_TRUE(shows(drawing, "10.03", QRect(5, 85, 65, 20), kRight, reversed));
    EXPECT_TRUE(shows(drawing, "10.00", QRect(305, 5, 65, 20), kRight, reversed));
    EXPECT_TRUE(shows(drawing, "9.99", QRect(305, 25, 65, 20), kRight, reversed));
}

TEST_F(Picture, ALevelWithoutAPriceLeavesItsSideWhereItWas)
{
    view.setStyle(5);
    setRows({"sell 0 level=1; 1 3 normal", "sell 10.02 level=2"}, {"buy 10.00 level=1", "buy 9.99 level=2"});
    const Drawing drawing = picture();
    const QString reversed = "kel_clr_depth_module_group_base_widget_bg";
    EXPECT_TRUE(shows(drawing, "10.02", QRect(5, 5, 65, 20), kRight, reversed));
    EXPECT_TRUE(shows(drawing, "9.99", QRect(305, 25, 65, 20), kRight, reversed));
}

TEST_F(Picture, ALevelWithoutAPriceIsSeparatedOnTheOtherSideAlone)
{
    view.setStyle(3);
    setRows({"sell 0 level=1"}, {levelWith("buy 10.00 level=1", 1)});
    // Both rows count: centre at 20.
    EXPECT_EQ(crossLines(picture(), kSplitRed, 600), "45 25");
}

TEST_F(Picture, TooNarrowForOneColumnStopsAtTheFirstLevelWithAPrice)
{
    view.setStyle(3);
    layOut(320, 400); // 320 - 276 below 50
    setPlainRows(3);
    const Drawing drawing = picture();
    EXPECT_TRUE(filled(drawing, QRect(0, 0, 320, 400), kBack));
    EXPECT_EQ(texts(drawing), "");
    EXPECT_EQ(crossLines(drawing, kSplitRed, 320), "");
    EXPECT_EQ(downLines(drawing, kSplitRed, 400), "");
}

TEST_F(Picture, TooNarrowWithoutAPriceGoesOnToTheLines)
{
    view.setStyle(3);
    layOut(320, 400);
    setRows({"sell 0 level=1"}, {});
    EXPECT_EQ(crossLines(picture(), kSplitRed, 320), "5");
    EXPECT_EQ(downLines(picture(), kSplitRed, 400), "276");
}

TEST_F(Picture, TooNarrowKeepsWhatStandsBeforeTheLevel)
{
    layOut(111, 400); // 55 - 6 below 50
    setRows({"", "sell 10.02 level=2"}, {"", "buy 9.99 level=2 levelVol=77"});
    const Drawing drawing = picture();
    EXPECT_EQ(downLines(drawing, kSplit, 400), "55");
    EXPECT_EQ(countOf(drawing, "卖二"), 1) << "its summary row";
    setRows({levelWith("sell 10.01 level=1 levelVol=55", 3, 9), "sell 10.02 level=2"}, {});
    const Drawing first = picture();
    EXPECT_EQ(countOf(first, "卖一"), 1);
    EXPECT_EQ(countOf(first, "9"), 0);
    EXPECT_EQ(countOf(first, "卖二"), 0) << "stopped at the first level";
}

TEST_F(Picture, IsNotDrawnWithoutAPixmap)
{
    view.m_pixmap = QPixmap();
    setPlainRows(3);
    view.drawGraph();
    EXPECT_TRUE(view.m_pixmap.isNull());
    EXPECT_EQ(view.m_rowCount, 0);
}

TEST_F(Picture, IsNotDrawnWhileItIsBeingPainted)
{
    setPlainRows(3);
    view.m_pixmap.fill(Qt::magenta);
    {
        QPainter painter(&view.m_pixmap);
        view.drawGraph();
        EXPECT_EQ(view.m_rowCount, 0);
    }
    EXPECT_EQ(view.m_pixmap.toImage().pixelColor(5, 5), QColor(Qt::magenta));
    view.drawGraph();
    EXPECT_NE(view.m_pixmap.toImage().pixelColor(5, 5), QColor(Qt::magenta));
}

TEST_F(Picture, IsWhatThePixmapHolds)
{
    view.setStyle(5);
    setRows({levelWith("sell 10.01 level=1", 1, 9000)}, {});
    view.m_model.at(0, Kel::OQT_SELL)->m_orders[0].m_type = Kel::OQT_SUPER;
    view.drawGraph();
    const QImage image = view.m_pixmap.toImage();
    EXPECT_EQ(image.pixelColor(500, 300), themeColor(kBack));
    EXPECT_EQ(image.pixelColor(300, 1), themeColor(kSplit));
    EXPECT_EQ(image.pixelColor(6, 7), themeColor("kel_clr_deptch_order_queue_price_fall"));
    EXPECT_EQ(image.pixelColor(74, 7), themeColor("ic_clr_depth_queue_super_sell"));
}

TEST_F(Picture, NothingIsPaintedBesideTheClip)
{
    view.setStyle(5);
    setRows({levelWith("sell 10.01 level=1", 1)}, {});
    view.m_scrollTop = 5; // head at 0, its ground from 1 on
    view.m_rowCount = 1;
    view.drawGraph();
    const QImage image = view.m_pixmap.toImage();
    EXPECT_EQ(image.pixelColor(6, 1), themeColor(kBack));
    EXPECT_EQ(image.pixelColor(6, 2), themeColor("kel_clr_deptch_order_queue_price_fall"));
}

TEST_F(Picture, WhenTheBarAppearsThePictureIsDrawnForIt)
{
    // 542 wide: four columns without the bar, three with it.
    view.setStyle(5);
    setRows({levelWith("sell 10.01 level=1", 1)}, {});
    layOut(542, 70);
    ASSERT_FALSE(barShown());
    setRows(
        {"sell 10.01 level=1; 1 9 super; 2 9 super; 3 9 super; 4 9 super; 5 9 super; 6 9 super; 7 9 super"},
        {});
    view.updateAll();
    ASSERT_TRUE(barShown());
    const QImage image = view.m_pixmap.toImage();
    const QColor super = themeColor("ic_clr_depth_queue_super_sell");
    EXPECT_EQ(image.pixelColor(174, 7), super) << "third column";
    EXPECT_EQ(image.pixelColor(224, 7), themeColor(kBack)) << "no fourth one";
}

TEST_F(Picture, ThePixmapIsNotReplacedWhileItIsBeingPainted)
{
    {
        QPainter painter(&view.m_pixmap);
        view.resize(500, 300);
        view.resetLayout();
        EXPECT_EQ(view.m_pixmap.size(), QSize(600, 400) * view.m_pixmap.devicePixelRatio());
        EXPECT_TRUE(painter.isActive());
    }
    view.resetLayout();
    EXPECT_EQ(view.m_pixmap.size(), QSize(500, 300) * view.m_pixmap.devicePixelRatio());
}

TEST_F(Picture, LinesOfTheHorizontalStyleRunUnderAShownBar)
{
    view.setStyle(3);
    setPlainRows(10);
    layOut(600, 200); // centre at 200, scrolled by 100
    ASSERT_TRUE(barShown());
    const Drawing drawing = picture();
    EXPECT_EQ(crossLines(drawing, kSplitRed, 600),
              "85 125 65 145 45 165 25 185 5 205 -15 225 -35 245 -55 265 -75 285 105");
    EXPECT_EQ(downLines(drawing, kSplitRed, 200), "276");
}
