// What is selected is a record, wherever its row goes.

#include "TickPanels.h"

#include "tick/CDepthEntrustTrackDialog.h"
#include "tick/CEntrustTitleWidget.h"
#include "tick/RowIdentity.h"

#include <boost/make_shared.hpp>

using namespace testing_support;
using namespace Kel;

namespace {

RowIdentity rowOfTime(int time, int number)
{
    return {true, time, number, 0, 1, 10};
}

/// A list by times and numbers of its rows that counts how often it is asked.
struct List
{
    std::vector<std::pair<int, int>> rows;
    mutable int asked = 0;

    int find(const RowIdentity& wanted, int expected) const
    {
        return rowOf(wanted, expected, static_cast<int>(rows.size()), [this](int row) {
            ++asked;
            const auto& [time, number] = rows.at(static_cast<std::size_t>(row));
            return rowOfTime(time, number);
        });
    }
};

} // namespace

TEST(RowIdentity, IsAllThatARowShows)
{
    const RowIdentity row{true, 1, 2, 3, 4, 5};
    EXPECT_TRUE(isSameRow(row, row));
    for (const RowIdentity& other : {RowIdentity{true, 9, 2, 3, 4, 5}, RowIdentity{true, 1, 9, 3, 4, 5},
                                     RowIdentity{true, 1, 2, 9, 4, 5}, RowIdentity{true, 1, 2, 3, 9, 5},
                                     RowIdentity{true, 1, 2, 3, 4, 9}, RowIdentity{false, 1, 2, 3, 4, 5}})
        EXPECT_FALSE(isSameRow(row, other));
    EXPECT_FALSE(isSameRow(RowIdentity(), RowIdentity()));
}

TEST(RowIdentity, IsFoundWhereverTheRowWent)
{
    const List list{{{1, 1}, {2, 2}, {2, 3}, {2, 4}, {2, 5}, {3, 6}}};
    for (int row = 0; row < 6; ++row) {
        const auto& [time, number] = list.rows[static_cast<std::size_t>(row)];
        for (const int expected : {-5, 0, 1, 2, 3, 4, 5, 6, 99})
            EXPECT_EQ(list.find(rowOfTime(time, number), expected), row) << expected;
    }
    EXPECT_EQ(list.find(rowOfTime(2, 6), 2), -1);
    EXPECT_EQ(list.find(rowOfTime(0, 1), 2), -1);
    EXPECT_EQ(list.find(rowOfTime(9, 1), 2), -1);
    EXPECT_EQ(list.find(RowIdentity(), 2), -1);
    EXPECT_EQ(List().find(rowOfTime(1, 1), 0), -1);
}

TEST(RowIdentity, OfRowsThatAreAlikeIsThatOfTheNearest)
{
    const List list{{{2, 7}, {2, 1}, {2, 2}, {2, 3}, {2, 7}}};
    EXPECT_EQ(list.find(rowOfTime(2, 7), 1), 0);
    EXPECT_EQ(list.find(rowOfTime(2, 7), 3), 4);
}

TEST(RowIdentity, IsFoundByFewLooks)
{
    List list;
    for (int row = 0; row < 1000000; ++row)
        list.rows.emplace_back(row / 1000, row);
    EXPECT_EQ(list.find(rowOfTime(500, 500500), 500500), 500500);
    EXPECT_EQ(list.asked, 1) << "where it stood";
    list.asked = 0;
    EXPECT_EQ(list.find(rowOfTime(500, 500500), 500498), 500500);
    EXPECT_LT(list.asked, 60) << "near to where it stood";
}

TEST(SelectedDeal, GoesWithItsRow)
{
    DealPanel panel;
    panel.fill(8);
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(6));
    const QString text = panel.rowText(panel.selectedRow());
    panel.deals({deal(90, 900, 901, 10, 100, at(9, 50, 0)), deal(91, 902, 903, 10, 100, at(14, 50, 0))});
    EXPECT_EQ(panel.m_selectedIndex, 7);
    EXPECT_EQ(panel.rowText(panel.selectedRow()), text);
    const QColor outline = colorOf("ic_clr_entrust_amount");
    const QImage image = panel.grab().toImage();
    EXPECT_EQ(image.pixelColor(panel.m_layout.rowRect(7).bottomLeft() + QPoint(3, 1)), outline);
    EXPECT_NE(image.pixelColor(panel.m_layout.rowRect(6).topLeft() + QPoint(3, 0)), outline);
}

TEST(SelectedDeal, IsCopiedThoughThePanelHasNotLookedYet)
{
    DealPanel panel;
    panel.fill(8);
    panel.highlightTransaction(6);
    const QString text = panel.rowText(panel.selectedRow());
    panel.transactionCallback(0, 1, wrap({deal(90, 900, 901, 10, 100, at(9, 50, 0))}));
    EXPECT_EQ(panel.selectedRow(), 7);
    EXPECT_EQ(panel.rowText(panel.selectedRow()), text);
}

TEST(SelectedDeal, StaysInAReloadThatHasItAndGoesWithOneThatHasNot)
{
    DealPanel panel;
    panel.fill(8);
    QTest::keyClick(&panel, Qt::Key_End);
    Batch batch;
    for (const int number : {5, 8, 9})
        batch.push_back(
            deal(number, number * 2, number * 2 + 1, 10, 100 * number, at(10, 0, 0) + number * 1000));
    panel.deals(batch, 0);
    EXPECT_EQ(panel.m_selectedIndex, 1);
    batch.erase(batch.begin() + 1);
    panel.deals(batch, 0);
    EXPECT_EQ(panel.m_selectedIndex, -1);
    EXPECT_EQ(panel.selectedRow(), -1);
    batch.clear();
    panel.fill(8);
    EXPECT_EQ(panel.m_selectedIndex, -1) << "once gone it does not come back";
}

TEST(SelectedDeal, MayBeSelectedAgainByItsNewPlace)
{
    DealPanel panel;
    panel.fill(8);
    panel.highlightTransaction(6);
    panel.deals({deal(90, 900, 901, 10, 100, at(9, 50, 0))});
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(7));
    EXPECT_EQ(panel.m_selectedIndex, -1) << "the second click on it";
}

TEST(SelectedOrder, GoesWithItsRow)
{
    EntrustPanel panel;
    panel.orders({order(5, 1, 10, 100, at(10, 0, 1)), order(6, 1, 10, 100, at(10, 0, 1))});
    QTest::keyClick(panel.orderList(), Qt::Key_End);
    panel.orders({order(1, 1, 10, 100, at(9, 30, 1)), order(7, 1, 10, 100, at(10, 0, 1))});
    EXPECT_EQ(panel.orderList()->selectedRow(), 2);
    EXPECT_TRUE(panel.orderList()->rowText(2).endsWith(QStringLiteral("\t6")));
    panel.orders({order(6, 1, 10, 100, at(10, 0, 1))}, 0);
    EXPECT_EQ(panel.orderList()->selectedRow(), 0);
    panel.orders({order(7, 1, 10, 100, at(10, 0, 1))}, 0);
    EXPECT_EQ(panel.orderList()->selectedRow(), -1);
}

TEST(SelectedCancel, GoesWithItsRowWhenCancelsAreJudgedAgain)
{
    EntrustPanel panel;
    SDepthFilterParam param;
    param.unsell = false;
    panel.setFilterParam(param);
    panel.deals({cancel(1, 5, 0, 100, at(10, 0, 1)), cancel(2, 6, 0, 100, at(10, 0, 1)),
                 cancel(3, 7, 0, 100, at(10, 0, 2))});
    ASSERT_EQ(panel.cancelList()->total(), 3);
    QTest::keyClick(panel.cancelList(), Qt::Key_Down);
    QTest::keyClick(panel.cancelList(), Qt::Key_Down);
    ASSERT_EQ(panel.cancelList()->selectedRow(), 1);
    panel.orders({order(5, 2, 10, 100, at(9, 59, 0))}); // a sell order after all
    ASSERT_EQ(panel.cancelList()->total(), 2);
    EXPECT_EQ(panel.cancelList()->selectedRow(), 0);
    EXPECT_TRUE(panel.cancelList()->rowText(0).endsWith(QStringLiteral("\t6")));
    panel.orders({order(6, 2, 10, 100, at(9, 59, 0))});
    EXPECT_EQ(panel.cancelList()->total(), 1);
    EXPECT_EQ(panel.cancelList()->selectedRow(), -1) << "the selected one went itself";
}

TEST(DealSelection, OtherButtonsThanTheLeftLeaveItAlone)
{
    DealPanel panel;
    panel.fill(8);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mouseClick(&panel, button, Qt::NoModifier, panel.middleOf(3));
        QTest::mouseDClick(&panel, button, Qt::NoModifier, panel.middleOf(3));
        EXPECT_EQ(panel.m_selectedIndex, -1);
    }
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(3));
    for (const int place : {3, 4, 9})
        QTest::mouseClick(&panel, Qt::RightButton, Qt::NoModifier, panel.middleOf(place));
    EXPECT_EQ(panel.m_selectedIndex, 3);
    EXPECT_EQ(panel.sink.events.size(), 1u);
}
