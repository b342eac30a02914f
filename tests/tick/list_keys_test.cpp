// The keyboard reaches what the mouse does in the lists.

#include "TickPanels.h"

using namespace testing_support;
using namespace Kel;

TEST(ListKeys, MoveTheSelectionAndTellTheHost)
{
    DealPanel panel; // two groups of five rows
    panel.fill(8);
    QTest::keyClick(&panel, Qt::Key_Down);
    EXPECT_EQ(panel.m_selectedIndex, 0);
    QTest::keyClick(&panel, Qt::Key_Right);
    EXPECT_EQ(panel.m_selectedIndex, 5);
    QTest::keyClick(&panel, Qt::Key_Up);
    EXPECT_EQ(panel.m_selectedIndex, 4);
    QTest::keyClick(&panel, Qt::Key_Left);
    EXPECT_EQ(panel.m_selectedIndex, 0) << "stops at the first row";
    QTest::keyClick(&panel, Qt::Key_End);
    EXPECT_EQ(panel.m_selectedIndex, 7);
    QTest::keyClick(&panel, Qt::Key_Home);
    EXPECT_EQ(panel.m_selectedIndex, 0);
    EXPECT_EQ(panel.sink.events.size(), 6u);
    EXPECT_EQ(panel.sink.events.back().second, 0);
}

TEST(ListKeys, BringTheSelectedRowIntoView)
{
    DealPanel panel;
    panel.fill(40);
    QTest::keyClick(&panel, Qt::Key_Home);
    EXPECT_EQ(panel.m_firstIndex, 0);
    EXPECT_FALSE(panel.m_followTail);
    QTest::keyClick(&panel, Qt::Key_PageDown);
    EXPECT_EQ(panel.m_selectedIndex, 10);
    EXPECT_EQ(panel.m_firstIndex, 1);
    QTest::keyClick(&panel, Qt::Key_PageUp);
    EXPECT_EQ(panel.m_selectedIndex, 0);
    EXPECT_EQ(panel.m_firstIndex, 0);
    QTest::keyClick(&panel, Qt::Key_End);
    EXPECT_EQ(panel.m_firstIndex, 30);
    EXPECT_TRUE(panel.m_followTail);
    EXPECT_EQ(panel.m_scrollBar->value(), 30);
}

TEST(ListKeys, BringARowIntoViewOfAListThatShrankOutOfIt)
{
    DealPanel panel;
    panel.fill(60); // the view stands at row 50
    SDepthFilterParam param;
    param.relate = 1;
    param.volume = 54; // 7 rows pass
    panel.m_model->setFilterParam(param);
    panel.slotTimeout();
    ASSERT_EQ(panel.m_total, 7);
    ASSERT_EQ(panel.m_firstIndex, 50);
    QTest::keyClick(&panel, Qt::Key_Home);
    EXPECT_EQ(panel.m_selectedIndex, 0);
    EXPECT_EQ(panel.m_firstIndex, 0);
    EXPECT_EQ(panel.m_scrollBar->value(), 0);
    EXPECT_EQ(panel.m_buffer.toImage(), panel.pictureAsImage()) << "and draws it";
    EXPECT_TRUE(panel.m_followTail) << "all of the list is shown, its tail too";
    panel.fill(30, 61);
    EXPECT_EQ(panel.m_firstIndex, 27);
}

TEST(ListKeys, ThatMoveTheViewDrawIt)
{
    DealPanel panel;
    panel.fill(40);
    QTest::keyClick(&panel, Qt::Key_Home);
    EXPECT_EQ(panel.m_buffer.toImage(), panel.pictureAsImage());
}

TEST(ListKeys, EscapeDropsTheSelection)
{
    DealPanel panel;
    panel.fill(8);
    QTest::keyClick(&panel, Qt::Key_End);
    panel.sink.events.clear();
    QTest::keyClick(&panel, Qt::Key_Escape);
    EXPECT_EQ(panel.m_selectedIndex, -1);
    EXPECT_TRUE(panel.sink.events.empty());
}

TEST(ListKeys, TheFirstKeyStartsAtTheViewsEnd)
{
    DealPanel panel;
    panel.fill(40);
    QTest::keyClick(&panel, Qt::Key_Up);
    EXPECT_EQ(panel.m_selectedIndex, 39);
    QTest::keyClick(&panel, Qt::Key_Escape);
    QTest::keyClick(&panel, Qt::Key_Down);
    EXPECT_EQ(panel.m_selectedIndex, 30);
}

TEST(ListKeys, DoNothingInAnEmptyList)
{
    DealPanel panel;
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_Return, Qt::Key_Escape})
        QTest::keyClick(&panel, key);
    EXPECT_EQ(panel.m_selectedIndex, -1);
    EXPECT_TRUE(panel.sink.events.empty());
}

TEST(ListKeys, ADoubleClickOnADealIsASecondClick)
{
    DealPanel panel;
    panel.fill(8);
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(2));
    for (const int selected : {-1, 2}) {
        QMouseEvent twice(QEvent::MouseButtonDblClick, panel.middleOf(2), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&panel, &twice);
        EXPECT_EQ(panel.m_selectedIndex, selected);
    }
    EXPECT_EQ(panel.sink.events.size(), 2u);
}
