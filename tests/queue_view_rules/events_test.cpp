// Which events the panel takes, and its setters that draw.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

class Events : public QueueViewTest
{
protected:
    /// Shows the panel, whose picture is then replaced by magenta, and renders it on `ground`.
    void prepare()
    {
        view.setMinimumSize(0, 0);
        view.resize(400, 300);
        view.show();
        QApplication::processEvents();
        view.m_pixmap.fill(Qt::magenta);
    }

    QImage rendered(const QColor& ground)
    {
        QImage image(400, 300, QImage::Format_RGB32);
        image.fill(ground);
        view.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }
};

} // namespace

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
    prepare();
    const QImage image = rendered(Qt::black);
    EXPECT_EQ(image.pixelColor(0, 0).name(), "#ff00ff");
    EXPECT_EQ(image.pixelColor(399, 299).name(), "#ff00ff");
}

TEST_F(Events, PaintingPutsThePictureIntoTheClientRectangle)
{
    prepare();
    view.m_clientRect = QRect(0, 0, 200, 150);
    const QImage image = rendered(Qt::black);
    EXPECT_EQ(image.pixelColor(199, 149).name(), "#ff00ff");
    EXPECT_EQ(image.pixelColor(201, 151).name(), "#000000");
}

TEST_F(Events, PaintingWithoutAPicturePaintsNothing)
{
    prepare();
    view.m_pixmap = QPixmap();
    const QImage image = rendered(Qt::cyan);
    EXPECT_EQ(image.pixelColor(200, 150).name(), "#00ffff");
}
