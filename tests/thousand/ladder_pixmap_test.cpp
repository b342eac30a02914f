// When the pixmap of names, lines and selection is drawn anew.

#include "LadderFixture.h"

using namespace thousand_tests;

namespace {

class LadderPixmap : public LadderTest
{
protected:
    QImage pixmap() const { return panel->m_pixmap.toImage(); }

    /// Whether the row stands on the selection's ground.
    bool isMarked(int row) const
    {
        return pixmap().pixelColor(panel->width() - 10, panel->layout().rowTop(row) + 10) ==
               QColor(0, 0, 128);
    }
};

} // namespace

TEST_F(LadderPixmap, FollowsTheSlider)
{
    feedDeep(60, 60);
    const QImage before = pixmap();
    EXPECT_EQ(before, drawnBackground());
    panel->m_scrollBar->setValue(panel->m_scrollBar->value() - 7);
    EXPECT_NE(pixmap(), before);
    EXPECT_EQ(pixmap(), drawnBackground());
    const QImage scrolled = pixmap();
    wheel(-120);
    EXPECT_NE(pixmap(), scrolled);
    EXPECT_EQ(pixmap(), drawnBackground());
    panel->handleEvent(82, 0, 0, QString(), nullptr);
    EXPECT_EQ(pixmap(), before) << "back at the latest price";
}

TEST_F(LadderPixmap, ShowsAClickedLevelAndItsEndAtOnce)
{
    feedSmall();
    const QImage plain = pixmap();
    click(countAt(0));
    EXPECT_TRUE(isMarked(0));
    EXPECT_EQ(pixmap(), drawnBackground());
    click(countAt(4));
    EXPECT_FALSE(isMarked(0));
    EXPECT_TRUE(isMarked(4));
    click(priceAt(2));
    EXPECT_EQ(pixmap(), plain);
}

TEST_F(LadderPixmap, LosesTheMarkOfALevelThatLeftTheBookWithNewsOfRowsAlone)
{
    feedSmall();
    click(countAt(3));
    ASSERT_TRUE(isMarked(3));
    feed({"B 30 9.97 100"});
    cancel({1}); // as many levels as before
    panel->slotTimeout();
    ASSERT_EQ(panel->m_totalRows, 5);
    ASSERT_FALSE(panel->m_selected);
    EXPECT_FALSE(isMarked(3));
    EXPECT_EQ(pixmap(), drawnBackground());
}

TEST_F(LadderPixmap, FollowsNewLevelsAndAReload)
{
    feedSmall();
    const QImage small = pixmap();
    feed({"S 30 10.03 100", "B 31 9.97 100"});
    panel->slotTimeout();
    EXPECT_NE(pixmap(), small) << "two levels more";
    EXPECT_EQ(pixmap(), drawnBackground());
    const QImage more = pixmap();
    panel->transactionCallback(0, 0, deals({}));
    panel->entrustCallback(0, 0, orders({"B 1 9.99 300"}));
    panel->slotTimeout();
    ASSERT_EQ(panel->m_totalRows, 2);
    EXPECT_NE(pixmap(), more) << "another book";
    EXPECT_EQ(pixmap(), drawnBackground());
}

TEST_F(LadderPixmap, OfAClearedLadderIsDrawnWhenAskedFor)
{
    feedSmall();
    const QImage small = pixmap();
    panel->clear(false);
    EXPECT_EQ(pixmap(), small);
    panel->clear(true);
    EXPECT_NE(pixmap(), small);
    EXPECT_EQ(pixmap(), drawnBackground());
}

TEST_F(LadderPixmap, FollowsSizeAndTheme)
{
    feedSmall();
    place(300, 260);
    EXPECT_EQ(pixmap(), drawnBackground());
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QImage dark = pixmap();
    resource.setTheme(QStringLiteral("light"));
    EXPECT_NE(pixmap(), dark);
    EXPECT_EQ(pixmap(), drawnBackground());
    resource.setTheme(QStringLiteral("dark"));
}
