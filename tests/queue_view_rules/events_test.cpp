// Which events the panel takes, and its setters that draw.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

using Events = QueueViewTest;

TEST_F(Events, AModeFromAboveIsTakenAndApplied)
{
    EXPECT_TRUE(view.handleEvent(5, 4, 1, QString(), nullptr));
    EXPECT_EQ(view.m_queueModeStyle, 4);
    EXPECT_TRUE(view.handleEvent(5, 0, 1, "the text is ignored", nullptr));
    EXPECT_EQ(view.m_queueModeLevel, 0);
}

TEST_F(Events, AButtonIsTakenAndIgnored)
{
    view.m_centerOffset = 30;
    for (const int second : {0, 2, -1})
        EXPECT_TRUE(view.handleEvent(5, 4, second, QString(), nullptr));
    EXPECT_EQ(view.m_queueModeStyle, 2);
    EXPECT_EQ(view.m_centerOffset, 30);
}

TEST_F(Events, AMovedSliderIsTaken)
{
    EXPECT_TRUE(view.handleEvent(15, 0, 0, QString(), nullptr));
}

TEST_F(Events, OthersAreLeft)
{
    for (const int id : {0, 4, 6, 14, 16, 82, 1395, 1396})
        EXPECT_FALSE(view.handleEvent(id, 4, 1, QString(), nullptr)) << id;
    EXPECT_EQ(view.m_queueModeStyle, 2);
}

TEST_F(Events, SettersOfMarksStoreDrawAndShow)
{
    view.show();
    EXPECT_TRUE(redraws([this] { view.setTrackOrder(77, 3); }));
    EXPECT_EQ(view.m_trackOrderNo, 77);
    EXPECT_EQ(view.m_trackColor, 3);
    EXPECT_TRUE(updates([this] { view.setTrackOrder(78, 3); }));
    EXPECT_TRUE(redraws([this] { view.setVolumeColor(500, 2); }));
    EXPECT_EQ(view.m_markVolume, 500);
    EXPECT_EQ(view.m_markColor, 2);
    EXPECT_TRUE(updates([this] { view.setVolumeColor(501, 2); }));
}

TEST_F(Events, UpdateAllDrawsAndShows)
{
    view.show();
    EXPECT_TRUE(redraws([this] { view.updateAll(); }));
    EXPECT_TRUE(updates([this] { view.updateAll(); }));
}

TEST_F(Events, DrawGraphShowsNothingByItself)
{
    view.show();
    EXPECT_FALSE(updates([this] { view.drawGraph(); }));
}

TEST_F(Events, PaintingCopiesThePicture)
{
    layOut(400, 300);
    view.m_pixmap.fill(Qt::magenta);
    QImage image(400, 300, QImage::Format_RGB32);
    image.fill(Qt::black);
    view.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::magenta));
    EXPECT_EQ(image.pixelColor(399, 299), QColor(Qt::magenta));
}

TEST_F(Events, PaintingPutsThePictureIntoTheClientRectangle)
{
    layOut(400, 300);
    view.m_pixmap.fill(Qt::magenta);
    view.m_clientRect = QRect(0, 0, 200, 150);
    QImage image(400, 300, QImage::Format_RGB32);
    image.fill(Qt::black);
    view.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    EXPECT_EQ(image.pixelColor(199, 149), QColor(Qt::magenta));
    EXPECT_EQ(image.pixelColor(201, 151), QColor(Qt::black));
}

TEST_F(Events, PaintingWithoutAPicturePaintsNothing)
{
    layOut(400, 300);
    view.m_pixmap = QPixmap();
    QImage image(400, 300, QImage::Format_RGB32);
    image.fill(Qt::cyan);
    view.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    EXPECT_EQ(image.pixelColor(200, 150), QColor(Qt::cyan));
    view.drawGraph();
    EXPECT_TRUE(view.m_pixmap.isNull());
}
