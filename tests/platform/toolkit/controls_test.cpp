// Controls send their event for what a user does, and for nothing else.

#include "platform/toolkit/CCheckBox.h"
#include "platform/toolkit/CComboBox.h"
#include "platform/toolkit/CFrameSplitterLine.h"
#include "platform/toolkit/CImage.h"
#include "platform/toolkit/CIntValidator.h"
#include "platform/toolkit/CLineEdit.h"
#include "platform/toolkit/CMediumNormalButton.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/toolkit/CSimpleTextWidget.h"
#include "platform/toolkit/CSpliter.h"
#include "platform/toolkit/CWidgetList.h"
#include "platform/toolkit/EventLog.h"
#include "platform/toolkit/theme_guard.h"

#include <QApplication>
#include <QPainter>
#include <QShortcut>
#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace {

using test::EventLog;
using test::resource;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Controls : public ::testing::Test
{
protected:
    Controls() { m_owner.resize(300, 100); }

    void show(QWidget* control)
    {
        control->setGeometry(10, 10, 120, 24);
        m_owner.show();
        control->setFocus();
    }

    EventLog m_owner;

private:
    test::ThemeGuard m_guard;
};

TEST_F(Controls, APictureButtonSendsFiveWithItsIdAndZero)
{
    Zeb::CPushButton button("kel_img_depth_filter_first", 9, &m_owner);
    m_owner.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_THAT(m_owner.events, ElementsAre("5 9 0"));
    QTest::mouseClick(&button, Qt::RightButton);
    EXPECT_EQ(m_owner.events.size(), 1U);
}

TEST_F(Controls, APictureButtonIsPressedByTheSpaceKey)
{
    Zeb::CPushButton button("kel_img_depth_filter_first", 9, &m_owner);
    m_owner.show();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_THAT(m_owner.events, ElementsAre("5 9 0"));
}

TEST_F(Controls, AFocusedPictureButtonKeepsItsSpaceKeyFromTheShortcutsOfTheWindow)
{
    Zeb::CPushButton button("kel_img_depth_filter_first", 9, &m_owner);
    QShortcut play(QKeySequence(Qt::Key_Space), &m_owner);
    int played = 0;
    QObject::connect(&play, &QShortcut::activated, &m_owner, [&played] { ++played; });
    m_owner.show();
    m_owner.activateWindow();
    QApplication::setActiveWindow(&m_owner);
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(played, 0);
    EXPECT_THAT(m_owner.events, ElementsAre("5 9 0"));
}

TEST_F(Controls, APictureButtonIsReachedByTabButDoesNotTakeTheFocusByAClick)
{
    const Zeb::CPushButton button("kel_img_depth_filter_first", 9, &m_owner);
    EXPECT_TRUE(button.focusPolicy() & Qt::TabFocus);
    EXPECT_FALSE(button.focusPolicy() & Qt::ClickFocus);
}

TEST_F(Controls, APictureButtonHasTheSizeOfItsPictureAndFitsTheStrip)
{
    constexpr int kStrip = 20;
    for (const char* key :
         {"kel_img_depth_data_five", "kel_img_depth_data_ten", "kel_img_depth_detai_first",
          "kel_img_depth_detail_horizontal", "kel_img_depth_detail_list", "kel_img_depth_detail_vertical",
          "kel_img_depth_filter_first", "kel_img_depth_panel_extend", "kel_img_depth_panel_shrink"}) {
        const Zeb::CPushButton button(key, 0, &m_owner);
        EXPECT_EQ(button.size(), resource().getPixmap(key, 1).size()) << key;
        EXPECT_LE(button.height(), kStrip) << key;
    }
}

TEST_F(Controls, TheTipNamesAPictureButtonForThoseWhoDoNotSeeIt)
{
    Zeb::CPushButton button("kel_img_depth_filter_first", 9, &m_owner);
    button.setToolTip("逐笔成交过滤");
    EXPECT_EQ(button.accessibleName(), "逐笔成交过滤");
}

TEST_F(Controls, ATabSendsThePageItWasGiven)
{
    Zeb::CPushButton button("", 0, &m_owner);
    button.setText("公告");
    button.setClickEvent(302, 4, 1);
    show(&button);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_THAT(m_owner.events, ElementsAre("302 4 1"));
}

TEST_F(Controls, ADisabledButtonSendsNothing)
{
    Zeb::CPushButton button("kel_img_depth_filter_first", 9, &m_owner);
    button.setEnabled(false);
    m_owner.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_THAT(m_owner.events, IsEmpty());
}

TEST_F(Controls, AButtonWithOwnColoursShowsTheGroundOfItsState)
{
    Zeb::CPushButton button("", 0, &m_owner);
    button.setColorKeys(
        {"ic_clr_mark_yellow", "ic_clr_mark_yellow", "ic_clr_mark_purple", "ic_clr_graph_gray"}, {});
    button.setCheckable(true);
    show(&button);
    const auto ground = [&] { return button.grab().toImage().pixelColor(20, 3); };
    EXPECT_EQ(ground(), *resource().getColor("ic_clr_mark_yellow"));
    button.setChecked(true);
    EXPECT_EQ(ground(), *resource().getColor("ic_clr_mark_purple"));
    button.setEnabled(false);
    EXPECT_EQ(ground(), *resource().getColor("ic_clr_graph_gray"));
}

TEST_F(Controls, ADialogButtonSendsItsEventBeforeItsClickedIsHeard)
{
    Zeb::CMediumNormalButton button("确定", 11, &m_owner);
    QObject::connect(&button, &QPushButton::clicked, &m_owner, [&] { m_owner.events.push_back("clicked"); });
    show(&button);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_THAT(m_owner.events, ElementsAre("5 11 0", "clicked"));
    EXPECT_FALSE(button.autoDefault());
}

TEST_F(Controls, ACheckBoxSendsOnlyForTheUser)
{
    Zeb::CCheckBox box("买入", 7, &m_owner);
    show(&box);
    box.setChecked(true);
    EXPECT_THAT(m_owner.events, IsEmpty());
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_THAT(m_owner.events, ElementsAre("67 7 0"));
    EXPECT_FALSE(box.isChecked());
    QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(6, 12));
    EXPECT_EQ(m_owner.events.size(), 2U);
    EXPECT_TRUE(box.isChecked());
}

TEST_F(Controls, AComboBoxSendsOnlyForTheUser)
{
    Zeb::CComboBox box(1, &m_owner);
    box.addItems({"a", "b", "c"});
    show(&box);
    box.setCurrentIndex(2);
    EXPECT_THAT(m_owner.events, IsEmpty());
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_THAT(m_owner.events, ElementsAre("70 1 0"));
    EXPECT_EQ(box.currentIndex(), 1);
}

TEST_F(Controls, AColourItemIsFilledWithTheColourOfTheThemeInForce)
{
    Zeb::CComboBox box(1, &m_owner);
    box.setIconSize(QSize(35, 12));
    box.addColorItem("ic_clr_mark_yellow", "yellow");
    EXPECT_EQ(box.itemText(0), "");
    EXPECT_EQ(box.itemData(0, Qt::AccessibleTextRole).toString(), "yellow");
    const auto shown = [&] { return box.itemIcon(0).pixmap(35, 12).toImage().pixelColor(17, 6); };
    EXPECT_EQ(shown(), *resource().getColor("ic_clr_mark_yellow"));
    resource().setTheme("light");
    EXPECT_EQ(shown(), *resource().getColor("ic_clr_mark_yellow"));
}

TEST_F(Controls, AnEditorSendsOnlyForTheUser)
{
    Zeb::CLineEdit edit(3, &m_owner);
    show(&edit);
    edit.setInt(12);
    edit.setText("13");
    edit.clear();
    EXPECT_THAT(m_owner.events, IsEmpty());
    QTest::keyClicks(&edit, "45");
    EXPECT_THAT(m_owner.events, ElementsAre("100 3 0", "100 3 0"));
    EXPECT_EQ(edit.toInt(), 45);
}

TEST_F(Controls, ATextThatIsNoNumberReadsAsZero)
{
    Zeb::CLineEdit edit(3, &m_owner);
    EXPECT_EQ(edit.toInt(), 0);
    edit.setText("abc");
    EXPECT_EQ(edit.toInt(), 0);
    edit.setText("99999999999");
    EXPECT_EQ(edit.toInt(), 0);
}

struct ValidatorCase
{
    int least;
    int most;
    const char* text;
    QValidator::State state;
};

class IntValidator : public ::testing::TestWithParam<ValidatorCase>
{
};

TEST_P(IntValidator, JudgesTheText)
{
    const ValidatorCase& given = GetParam();
    const Zeb::CIntValidator validator(given.least, given.most, nullptr);
    QString text = given.text;
    int position = text.size();
    EXPECT_EQ(validator.validate(text, position), given.state) << given.text;
}

INSTANTIATE_TEST_SUITE_P(Table, IntValidator,
                         ::testing::Values(ValidatorCase{4, 2000, "", QValidator::Intermediate},
                                           ValidatorCase{4, 2000, "3", QValidator::Intermediate},
                                           ValidatorCase{4, 2000, "4", QValidator::Acceptable},
                                           ValidatorCase{4, 2000, "2000", QValidator::Acceptable},
                                           ValidatorCase{4, 2000, "2001", QValidator::Invalid},
                                           ValidatorCase{4, 2000, "-4", QValidator::Invalid},
                                           ValidatorCase{4, 2000, "1 0", QValidator::Invalid},
                                           ValidatorCase{4, 2000, "1,000", QValidator::Invalid},
                                           ValidatorCase{4, 2000, "１００", QValidator::Invalid},
                                           ValidatorCase{4, 2000, "0100", QValidator::Acceptable},
                                           ValidatorCase{0, 2147483647, "2147483647", QValidator::Acceptable},
                                           ValidatorCase{0, 2147483647, "2147483648", QValidator::Invalid},
                                           ValidatorCase{0, 1000000, "99999999999999999999",
                                                         QValidator::Invalid},
                                           ValidatorCase{-20, -5, "-", QValidator::Intermediate},
                                           ValidatorCase{-20, -5, "-1", QValidator::Intermediate},
                                           ValidatorCase{-20, -5, "-20", QValidator::Acceptable},
                                           ValidatorCase{-20, -5, "-21", QValidator::Invalid}));

TEST_F(Controls, WhatTheValidatorForbidsCannotBeTyped)
{
    Zeb::CLineEdit edit(3, &m_owner);
    edit.setValidator(new Zeb::CIntValidator(4, 2000, &edit));
    show(&edit);
    QTest::keyClicks(&edit, "2001x");
    EXPECT_EQ(edit.text(), "200");
    edit.setText("3");
    EXPECT_FALSE(edit.hasAcceptableInput());
}

TEST_F(Controls, ATextTakesItsColourAndFontFromTheTheme)
{
    Zeb::CSimpleTextWidget text("委托", &m_owner);
    text.setFontKey("ic_fnt_index_modulegroup_entruststatus_text");
    text.setColorKey("ic_clr_mark_yellow");
    EXPECT_EQ(text.font().pixelSize(),
              resource().getFont("ic_fnt_index_modulegroup_entruststatus_text")->pixelSize());
    EXPECT_TRUE(text.styleSheet().contains(resource().getColorSheetByKey("ic_clr_mark_yellow")));
    resource().setTheme("light");
    EXPECT_TRUE(text.styleSheet().contains(resource().getColorSheetByKey("ic_clr_mark_yellow")));
    EXPECT_EQ(text.alignment(), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(Controls, ASplitterLineIsFilledAndFollowsTheTheme)
{
    Zeb::CFrameSplitterLine line("clr_table_split_line_header", 2, &m_owner);
    EXPECT_EQ(line.height(), 2);
    line.resize(50, 2);
    EXPECT_EQ(line.grab().toImage().pixelColor(25, 1), *resource().getColor("clr_table_split_line_header"));
    resource().setTheme("light");
    EXPECT_EQ(line.grab().toImage().pixelColor(25, 1), *resource().getColor("clr_table_split_line_header"));
}

TEST_F(Controls, AnImageHasItsOwnSizeAndIsStretchedOverARectangle)
{
    const Zeb::CImage image("img_thousand_up_arrow");
    EXPECT_EQ(image.size(), QSize(24, 24));
    QImage picture(60, 60, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    image.draw(painter, QRect(0, 0, 48, 48));
    painter.end();
    EXPECT_EQ(picture.pixelColor(24, 4).alpha(), 255);
    EXPECT_EQ(picture.pixelColor(55, 55).alpha(), 0);
}

TEST_F(Controls, PanesOfASplitterCannotBeCollapsed)
{
    Zeb::CSpliter splitter("ic_clr_modulegroup_spliter", Qt::Horizontal, &m_owner);
    auto* left = new QWidget(&splitter);
    auto* right = new QWidget(&splitter);
    right->setMinimumWidth(320);
    EXPECT_FALSE(splitter.childrenCollapsible());
    splitter.resize(1000, 100);
    splitter.show();
    splitter.setSizes({1000, 320});
    EXPECT_GE(right->width(), 320);
    splitter.setSizes({1000, 0});
    EXPECT_GE(right->width(), 320);
    EXPECT_GT(left->width(), 0);
}

TEST_F(Controls, TheBarOfASplitterHasItsColourInTheThemeInForce)
{
    Zeb::CSpliter splitter("ic_clr_mark_yellow", Qt::Horizontal, nullptr);
    splitter.addWidget(new QWidget);
    splitter.addWidget(new QWidget);
    splitter.resize(203, 50);
    resource().setTheme("light");
    splitter.show();
    splitter.setSizes({100, 100});
    EXPECT_EQ(splitter.grab().toImage().pixelColor(101, 25), *resource().getColor("ic_clr_mark_yellow"));
}

TEST(WidgetList, PlacesWidgetsInARowWithSpacesAndStretch)
{
    Zeb::CWidgetList list(Qt::Horizontal);
    auto* first = new QWidget;
    first->setFixedSize(30, 24);
    auto* rest = new QWidget;
    list.addSpace(20);
    list.addWidget(first);
    list.addSpace(5);
    list.addWidget(rest, 1);
    list.resize(200, 24);
    list.show();
    EXPECT_EQ(first->geometry(), QRect(20, 0, 30, 24));
    EXPECT_EQ(rest->geometry(), QRect(55, 0, 145, 24));
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.orientation(), Qt::Horizontal);
}

TEST(WidgetList, MarginAndSpacingAreZeroUntilSet)
{
    Zeb::CWidgetList list(Qt::Vertical);
    auto* top = new QWidget;
    auto* bottom = new QWidget;
    top->setFixedHeight(10);
    list.addWidget(top);
    list.addWidget(bottom, 1);
    list.resize(50, 100);
    list.show();
    EXPECT_EQ(top->geometry(), QRect(0, 0, 50, 10));
    EXPECT_EQ(bottom->geometry(), QRect(0, 10, 50, 90));
    list.setMargins(2, 3, 4, 5);
    list.setSpacing(6);
    list.updateWidgetLength();
    EXPECT_EQ(top->geometry(), QRect(2, 3, 44, 10));
    EXPECT_EQ(bottom->geometry(), QRect(2, 19, 44, 76));
}

TEST(WidgetList, AHiddenWidgetTakesNoRoomOnceTheLengthIsUpdated)
{
    Zeb::CWidgetList list(Qt::Vertical);
    auto* first = new QWidget;
    auto* second = new QWidget;
    list.addWidget(first, 1);
    list.addWidget(second, 1);
    list.resize(50, 100);
    list.show();
    EXPECT_EQ(second->geometry(), QRect(0, 50, 50, 50));
    first->hide();
    list.updateWidgetLength();
    EXPECT_EQ(second->geometry(), QRect(0, 0, 50, 100));
}

} // namespace
