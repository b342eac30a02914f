// What the filter dialog shows, and where.

#include "FilterDialogFixture.h"

using namespace testing_support;
using namespace Kel;

TEST_F(FilterDialog, HasTitleAndSizeOfItsType)
{
    EXPECT_EQ(dialog.title(), QStringLiteral("逐笔委托过滤"));
    EXPECT_EQ(dialog.size(), QSize(500, 300));
    EXPECT_EQ(deals.title(), QStringLiteral("逐笔成交过滤"));
    EXPECT_EQ(deals.size(), QSize(500, 265));
}

TEST_F(FilterDialog, LabelsAreThoseOfItsType)
{
    EXPECT_EQ(
        dialog.labels(),
        (QStringList{QStringLiteral("委托数量标记:"), QStringLiteral("高亮标记此委托量,0表示不标记"),
                     QStringLiteral("逐笔委托过滤:"), QStringLiteral("委托量"), QStringLiteral("委托金额"),
                     QStringLiteral("时间范围:"), QStringLiteral("至"), QStringLiteral("委托类型:")}));
    EXPECT_EQ(deals.labels(),
              (QStringList{QStringLiteral("成交数量标记"), QStringLiteral("高亮标记此委托量,0表示不标记"),
                           QStringLiteral("逐笔成交过滤"), QStringLiteral("成交量"),
                           QStringLiteral("成交金额"), QStringLiteral("时间范围:"), QStringLiteral("至")}));
}

TEST_F(FilterDialog, ControlsHaveIdsSizesAndFirstContents)
{
    dialog.show();
    EXPECT_EQ(dialog.m_markEdit->id(), 0);
    EXPECT_EQ(dialog.m_colorCombo->id(), 1);
    EXPECT_EQ(dialog.m_com1Button->id(), 2);
    EXPECT_EQ(dialog.m_volumeEdit->id(), 3);
    EXPECT_EQ(dialog.m_relateButton->id(), 4);
    EXPECT_EQ(dialog.m_com2Button->id(), 5);
    EXPECT_EQ(dialog.m_amountEdit->id(), 6);
    EXPECT_EQ(dialog.m_buyCheck->id(), 7);
    EXPECT_EQ(dialog.m_sellCheck->id(), 8);
    EXPECT_EQ(dialog.m_unbuyCheck->id(), 9);
    EXPECT_EQ(dialog.m_unsellCheck->id(), 10);
    for (const Zeb::CLineEdit* const edit : {dialog.m_markEdit, dialog.m_volumeEdit, dialog.m_amountEdit}) {
        EXPECT_EQ(edit->text(), QStringLiteral("0"));
        EXPECT_EQ(edit->size(), QSize(80, 24));
    }
    EXPECT_EQ(dialog.m_colorCombo->size(), QSize(70, 24));
    EXPECT_EQ(dialog.m_colorCombo->iconSize(), QSize(35, 12));
    EXPECT_EQ(dialog.m_colorCombo->count(), 4);
    EXPECT_EQ(dialog.m_colorCombo->itemText(2), QString());
    for (const Zeb::CMediumNormalButton* const toggle :
         {dialog.m_com1Button, dialog.m_relateButton, dialog.m_com2Button}) {
        EXPECT_EQ(toggle->size(), QSize(24, 24));
        EXPECT_FALSE(toggle->autoDefault());
    }
    EXPECT_EQ(dialog.m_com1Button->text(), QStringLiteral("≥"));
    EXPECT_EQ(dialog.m_relateButton->text(), QStringLiteral("或"));
    EXPECT_EQ(dialog.m_com2Button->text(), QStringLiteral("≥"));
    for (const Zeb::CCheckBox* const box :
         {dialog.m_buyCheck, dialog.m_sellCheck, dialog.m_unbuyCheck, dialog.m_unsellCheck}) {
        EXPECT_TRUE(box->isChecked());
        EXPECT_EQ(box->size(), QSize(60, 20));
    }
    EXPECT_EQ(dialog.m_startEdit->time(), QTime(9, 15, 0));
    EXPECT_EQ(dialog.m_endEdit->time(), QTime(15, 40, 0));
    EXPECT_EQ(dialog.m_startEdit->displayFormat(), QStringLiteral("hh:mm:ss"));
    EXPECT_EQ(dialog.m_startEdit->size(), QSize(80, 24));
    EXPECT_EQ(dialog.button(eConfirmControl)->text(), QStringLiteral("确定"));
    EXPECT_TRUE(dialog.button(eConfirmControl)->isDefault());
    EXPECT_EQ(dialog.button(eCancelControl)->text(), QStringLiteral("取消"));
    EXPECT_EQ(dialog.button(eCancelControl)->size(), QSize(60, 20));
}

TEST_F(FilterDialog, ColoursAreThoseOfTheMarks)
{
    const char* const keys[] = {"ic_clr_mark_light_blue", "ic_clr_mark_purple", "ic_clr_mark_dark_blue",
                                "ic_clr_mark_yellow"};
    for (int index = 0; index < 4; ++index) {
        const QImage icon = dialog.m_colorCombo->itemIcon(index).pixmap(35, 12).toImage();
        EXPECT_EQ(icon.pixelColor(10, 6), colorOf(keys[index])) << index;
    }
}

TEST_F(FilterDialog, OrderTypesStandInTheirOrder)
{
    dialog.show();
    const auto left = [&](QWidget* widget) { return widget->mapTo(&dialog, QPoint(0, 0)).x(); };
    const int buy = left(dialog.m_buyCheck);
    EXPECT_EQ(left(dialog.m_sellCheck), buy + 80);
    EXPECT_EQ(left(dialog.m_unsellCheck), buy + 160);
    EXPECT_EQ(left(dialog.m_unbuyCheck), buy + 240);
    EXPECT_EQ(dialog.m_unbuyCheck->text(), QStringLiteral("撤买"));
    EXPECT_EQ(dialog.m_unsellCheck->text(), QStringLiteral("撤卖"));
    EXPECT_EQ(deals.m_buyCheck, nullptr);
    EXPECT_EQ(deals.m_unsellCheck, nullptr);
}

TEST_F(FilterDialog, RowsStandAsLaidOut)
{
    dialog.show();
    QApplication::processEvents();
    const auto place = [&](QWidget* widget) { return widget->mapTo(dialog.innerWidget(), QPoint(0, 0)); };
    EXPECT_EQ(place(dialog.m_markEdit), QPoint(20 + 80 + 5, 10));
    EXPECT_EQ(place(dialog.m_colorCombo), QPoint(105 + 80 + 10, 10));
    const auto* const line = dialog.findChild<Zeb::CFrameSplitterLine*>();
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->height(), 2);
    EXPECT_EQ(line->y(), 10 + 24 + 10);
    const int filterTop = 10 + 24 + 10 + 2 + 10;
    EXPECT_EQ(place(dialog.m_com1Button), QPoint(20 + 80 + 5 + 36 + 2, filterTop));
    EXPECT_EQ(place(dialog.m_volumeEdit).x(), 143 + 24 + 2);
    EXPECT_EQ(place(dialog.m_relateButton).x(), 169 + 80 + 10);
    EXPECT_EQ(place(dialog.m_com2Button).x(), 259 + 24 + 10 + 48 + 2);
    EXPECT_EQ(place(dialog.m_amountEdit).x(), 343 + 24 + 2);
    EXPECT_EQ(place(dialog.m_startEdit), QPoint(20 + 55 + 5, filterTop + 34));
    EXPECT_EQ(place(dialog.m_endEdit).x(), 80 + 80 + 10 + 12 + 10);
    const QPoint cancelPlace = place(dialog.button(eCancelControl));
    EXPECT_EQ(cancelPlace.x(), dialog.innerWidget()->width() - 10 - 60);
    EXPECT_EQ(place(dialog.button(eConfirmControl)).x(), cancelPlace.x() - 20 - 60);
    EXPECT_EQ(cancelPlace.y(), dialog.innerWidget()->height() - 10 - 20) << "at the lower edge";
}
