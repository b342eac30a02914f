// The table and the delegate that draws a column of it.

#include "platform/toolkit/CBaseTableColumnSimpleTextDelegate.h"
#include "platform/toolkit/CStandardTable.h"
#include "platform/toolkit/theme_guard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace {

using test::resource;
using Zeb::CBaseTableColumnSimpleTextDelegate;
using Zeb::CStandardTable;

class Table : public ::testing::Test
{
protected:
    Table() : m_table(3)
    {
        m_delegate = new CBaseTableColumnSimpleTextDelegate("fnt_default_normal_fix");
        m_table.setColumnDelegate(1, m_delegate);
        m_table.resize(500, 200);
    }

    void addRow(const QString& date, const QString& title)
    {
        const int row = m_table.appendRow();
        m_table.setText(row, 0, date);
        m_delegate->setItemText(QString::number(row), title);
        m_table.setText(row, 2, "600519");
    }

    QPoint middleOf(int row, int column) const
    {
        return m_table.visualRect(m_table.model()->index(row, column)).center();
    }

    CStandardTable m_table;
    CBaseTableColumnSimpleTextDelegate* m_delegate;

private:
    test::ThemeGuard m_guard;
};

TEST_F(Table, RowsAreAppendedAtTheEnd)
{
    EXPECT_EQ(m_table.appendRow(), 0);
    EXPECT_EQ(m_table.appendRow(), 1);
    EXPECT_EQ(m_table.rowCount(), 2);
    EXPECT_EQ(m_table.columnCount(), 3);
}

TEST_F(Table, ManyRowsAreAppendedAsOne)
{
    addRow("a", "b");
    QSignalSpy inserted(m_table.model(), &QAbstractItemModel::rowsInserted);
    QSignalSpy changed(m_table.model(), &QAbstractItemModel::dataChanged);
    EXPECT_EQ(m_table.appendRows({{"c", "d", "e", "beyond"}, {"f"}, {}}), 1);
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(changed.count(), 0);
    ASSERT_EQ(m_table.rowCount(), 4);
    EXPECT_EQ(m_table.text(1, 0) + m_table.text(1, 1) + m_table.text(1, 2), "cde");
    EXPECT_EQ(m_table.text(2, 0) + m_table.text(2, 1) + m_table.text(2, 2), "f");
    EXPECT_EQ(m_table.text(3, 0), "");
    EXPECT_EQ(m_table.model()->index(1, 0).data(Qt::ForegroundRole).value<QBrush>().color(),
              *resource().getColor("ic_clr_table_text_default"));
    EXPECT_EQ(m_table.appendRows({}), 4);
    EXPECT_EQ(inserted.count(), 1);
}

TEST_F(Table, ATextThatIsThereAlreadyIsNoNews)
{
    addRow("a", "b");
    QSignalSpy changed(m_table.model(), &QAbstractItemModel::dataChanged);
    m_delegate->setItemText("0", "b");
    EXPECT_EQ(changed.count(), 0);
    m_delegate->setItemText("0", "c");
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(Table, AnEditedCellKeepsItsColour)
{
    addRow("a", "b");
    m_table.setText(0, 0, "a", "ic_clr_mark_yellow");
    const QModelIndex cell = m_table.model()->index(0, 0);
    EXPECT_TRUE(cell.flags() & Qt::ItemIsEditable);
    EXPECT_TRUE(m_table.model()->setData(cell, "typed"));
    EXPECT_EQ(m_table.text(0, 0), "typed");
    EXPECT_EQ(cell.data(Qt::EditRole).toString(), "typed");
    EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QBrush>().color(),
              *resource().getColor("ic_clr_mark_yellow"));
    EXPECT_FALSE(m_table.model()->setData(QModelIndex(), "nowhere"));
}

TEST_F(Table, ColumnsWithoutATitleAndRowsAreNumbered)
{
    m_table.appendRows({{}, {}});
    EXPECT_EQ(m_table.headerText(1), "2");
    EXPECT_EQ(m_table.model()->headerData(1, Qt::Vertical).toInt(), 2);
}

TEST_F(Table, AThemeTellsTheViewOfNewColours)
{
    addRow("a", "b");
    QSignalSpy changed(m_table.model(), &QAbstractItemModel::dataChanged);
    resource().setTheme("light");
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex(), m_table.model()->index(0, 2));
}

TEST_F(Table, KeepsTextsAndHeaders)
{
    addRow("2023-02-01", "title");
    m_table.setHeaderText(0, "公告日期");
    EXPECT_EQ(m_table.headerText(0), "公告日期");
    EXPECT_EQ(m_table.text(0, 0), "2023-02-01");
}

TEST_F(Table, ACellThatIsNotThereIsIgnored)
{
    addRow("a", "b");
    m_table.setText(1, 0, "x");
    m_table.setText(-1, 0, "x");
    m_table.setText(0, 3, "x");
    m_table.setHeaderText(3, "x");
    m_table.setColumnDelegate(3, nullptr);
    EXPECT_EQ(m_table.rowCount(), 1);
    EXPECT_EQ(m_table.columnCount(), 3);
    EXPECT_EQ(m_table.text(1, 0), "");
    EXPECT_EQ(m_table.text(0, 7), "");
}

TEST_F(Table, ATextOfTheDelegateCanBeReadFromTheTableAsWell)
{
    addRow("2023-02-01", "关于2022年度业绩预告的公告");
    EXPECT_EQ(m_table.text(0, 1), "关于2022年度业绩预告的公告");
    m_delegate->setItemText("no row", "x");
    m_delegate->setItemText("5", "y");
    EXPECT_EQ(m_table.rowCount(), 1);
    EXPECT_EQ(m_delegate->itemText("5"), "y");
}

TEST_F(Table, TheColourOfACellFollowsTheTheme)
{
    addRow("2023-02-01", "title");
    m_table.setText(0, 0, "2023-02-01", "ic_clr_mark_yellow");
    const auto shown = [&] {
        return m_table.model()->index(0, 0).data(Qt::ForegroundRole).value<QBrush>().color();
    };
    EXPECT_EQ(shown(), *resource().getColor("ic_clr_mark_yellow"));
    resource().setTheme("light");
    EXPECT_EQ(shown(), *resource().getColor("ic_clr_mark_yellow"));
}

TEST_F(Table, GroundsAreThoseOfTheirKeys)
{
    m_table.setBackgroundKeys("ic_clr_mark_yellow", "ic_clr_mark_purple");
    m_table.show();
    const QImage picture = m_table.grab().toImage();
    EXPECT_EQ(picture.pixelColor(450, 150), *resource().getColor("ic_clr_mark_yellow"));
    EXPECT_EQ(picture.pixelColor(480, 5), *resource().getColor("ic_clr_mark_purple"));
}

TEST_F(Table, RowsAreTwentyPixelsHigh)
{
    addRow("a", "b");
    EXPECT_EQ(m_table.rowHeight(0), 20);
}

TEST_F(Table, FlagsOfAPlainListHaveNoLinesNumbersOrEditing)
{
    EXPECT_EQ(m_table.flags(), 43U);
    EXPECT_TRUE(m_table.showGrid());
    m_table.setFlags((m_table.flags() | 0x204004U) & ~43U);
    EXPECT_EQ(m_table.flags(), 0x204004U);
    EXPECT_FALSE(m_table.showGrid());
    EXPECT_TRUE(m_table.verticalHeader()->isHidden());
    EXPECT_EQ(m_table.editTriggers(), QAbstractItemView::NoEditTriggers);
    EXPECT_EQ(m_table.selectionBehavior(), QAbstractItemView::SelectRows);
    EXPECT_EQ(m_table.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
}

TEST_F(Table, FlagsWithoutAMeaningAreKept)
{
    m_table.setFlags(0x80000000U);
    EXPECT_EQ(m_table.flags(), 0x80000000U);
}

TEST_F(Table, TheDelegatePrefersTheWidthOfItsWidestText)
{
    EXPECT_EQ(m_delegate->preferredWidth(), 0);
    addRow("", "iiiiiiiiiiii");
    addRow("", "WWWWWWWWWW");
    addRow("", "短");
    const QFontMetrics metrics(*resource().getFont("fnt_default_normal_fix"));
    EXPECT_EQ(m_delegate->preferredWidth(), metrics.horizontalAdvance("WWWWWWWWWW") + 8);
}

TEST_F(Table, TheWidestOfManyTextsIsFoundWhereverItStands)
{
    for (int i = 0; i < 200; ++i)
        addRow("", i == 150 ? "WWWWWWWWWWWW" : "iiiiiiiiiiiiiiiiiiii");
    const QFontMetrics metrics(*resource().getFont("fnt_default_normal_fix"));
    const int widest =
        qMax(metrics.horizontalAdvance("WWWWWWWWWWWW"), metrics.horizontalAdvance("iiiiiiiiiiiiiiiiiiii"));
    EXPECT_EQ(m_delegate->preferredWidth(), widest + 8);
}

TEST_F(Table, AClickOnAClickableTextTellsItsKey)
{
    addRow("2023-02-01", "one");
    addRow("2023-02-02", "two");
    m_delegate->setItemClickable("1", true);
    QSignalSpy clicked(m_delegate, &CBaseTableColumnSimpleTextDelegate::itemClicked);
    m_table.show();
    QTest::mouseClick(m_table.viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(0, 1));
    QTest::mouseClick(m_table.viewport(), Qt::RightButton, Qt::NoModifier, middleOf(1, 1));
    QCoreApplication::processEvents();
    EXPECT_EQ(clicked.count(), 0);
    QTest::mouseClick(m_table.viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(1, 1));
    EXPECT_EQ(clicked.count(), 0) << "the view is still in the middle of the click";
    QCoreApplication::processEvents();
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked[0][0].toString(), "1");
    EXPECT_TRUE(m_delegate->isItemClickable("1"));
    EXPECT_FALSE(m_delegate->isItemClickable("0"));
}

TEST_F(Table, TheReturnKeyClicksInItsRow)
{
    addRow("2023-02-01", "one");
    addRow("2023-02-02", "two");
    m_delegate->setItemClickable("1", true);
    QSignalSpy clicked(m_delegate, &CBaseTableColumnSimpleTextDelegate::itemClicked);
    m_table.show();
    m_table.setCurrentIndex(m_table.model()->index(1, 0));
    QTest::keyClick(&m_table, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(Table, CopyTakesTheShownColumnsOfTheSelection)
{
    addRow("2023-02-01", "one");
    addRow("2023-02-02", "two");
    m_table.setFlags(m_table.flags() | CStandardTable::eTableWholeRows);
    m_table.setColumnHidden(2, true);
    m_table.show();
    m_table.selectAll();
    QTest::keySequence(&m_table, QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2023-02-01\tone\n2023-02-02\ttwo");
}

TEST_F(Table, ClearedRowsAreForgottenByTheDelegateToo)
{
    addRow("2023-02-01", "one");
    m_table.setHeaderText(0, "公告日期");
    m_table.clearRows();
    EXPECT_EQ(m_table.rowCount(), 0);
    EXPECT_EQ(m_delegate->itemText("0"), "");
    EXPECT_EQ(m_table.headerText(0), "公告日期");
}

TEST_F(Table, ADelegateThatIsReplacedNoLongerWritesIntoTheTable)
{
    addRow("a", "one");
    auto* other = new CBaseTableColumnSimpleTextDelegate("fnt_default_normal");
    m_table.setColumnDelegate(1, other);
    m_delegate->setItemText("0", "stale");
    EXPECT_EQ(m_table.text(0, 1), "one");
    other->setItemText("0", "fresh");
    EXPECT_EQ(m_table.text(0, 1), "fresh");
}

} // namespace
