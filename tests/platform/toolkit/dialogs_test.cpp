// Dialogs end once, by one road, and keep their events to themselves.

#include "platform/toolkit/CCommonDialog.h"
#include "platform/toolkit/CIntValidator.h"
#include "platform/toolkit/CLineEdit.h"
#include "platform/toolkit/CMediumNormalButton.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/toolkit/CSimpleInputDialog.h"
#include "platform/toolkit/EventLog.h"
#include "platform/toolkit/theme_guard.h"

#include <QSignalSpy>
#include <QTimeEdit>
#include <QTimer>
#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace {

using test::EventLog;
using test::resource;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Keeps what it is asked; confirm and cancel end it, as in a dialog of the panels.
class Recorder : public Zeb::CCommonDialog
{
public:
    explicit Recorder(QWidget* parent = nullptr) : Zeb::CCommonDialog("title", parent)
    {
        auto* inner = new QWidget;
        confirm = new Zeb::CMediumNormalButton("确定", 11, inner);
        cancel = new Zeb::CMediumNormalButton("取消", 12, inner);
        connect(confirm, &QPushButton::clicked, this, &QDialog::accept);
        connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
        setInnerWidget(inner);
        resize(300, 200);
    }

    bool handleEvent(int id, int first, int second, QString text, void* payload) override
    {
        events.push_back(std::to_string(id) + ' ' + std::to_string(first));
        if (id == 5 && first == 11) {
            done(1);
            return true;
        }
        if (id == 5 && first == 12) {
            done(0);
            return true;
        }
        return Zeb::CCommonDialog::handleEvent(id, first, second, text, payload);
    }

    Zeb::CMediumNormalButton* confirm;
    Zeb::CMediumNormalButton* cancel;
    std::vector<std::string> events;
};

Zeb::CPushButton* closeButton(const QWidget& dialog)
{
    return dialog.findChild<Zeb::CPushButton*>();
}

class Dialogs : public ::testing::Test
{
private:
    test::ThemeGuard m_guard;
};

TEST_F(Dialogs, TheFramesCloseButtonIsEventFiveWith101AndResultZero)
{
    Recorder dialog;
    QSignalSpy finished(&dialog, &QDialog::finished);
    dialog.show();
    QTest::mouseClick(closeButton(dialog), Qt::LeftButton);
    EXPECT_THAT(dialog.events, ElementsAre("5 101"));
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_EQ(finished.count(), 1);
}

TEST_F(Dialogs, EscapeAndTheWindowsCloseActLikeTheCloseButton)
{
    Recorder dialog;
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_THAT(dialog.events, ElementsAre("5 101"));
    EXPECT_FALSE(dialog.isVisible());
    dialog.show();
    dialog.close();
    EXPECT_THAT(dialog.events, ElementsAre("5 101", "5 101"));
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(Dialogs, ConfirmComesAsEventAndAsClickedButEndsOnce)
{
    Recorder dialog;
    QSignalSpy finished(&dialog, &QDialog::finished);
    dialog.show();
    QTest::mouseClick(dialog.confirm, Qt::LeftButton);
    EXPECT_THAT(dialog.events, ElementsAre("5 11"));
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_EQ(finished.count(), 1);
}

TEST_F(Dialogs, CancelDoesNotComeASecondTimeAsTheCloseButton)
{
    Recorder dialog;
    QSignalSpy finished(&dialog, &QDialog::finished);
    dialog.show();
    QTest::mouseClick(dialog.cancel, Qt::LeftButton);
    EXPECT_THAT(dialog.events, ElementsAre("5 12"));
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_EQ(finished.count(), 1);
}

TEST_F(Dialogs, ADialogShownAgainEndsAgain)
{
    Recorder dialog;
    dialog.show();
    dialog.done(1);
    dialog.done(0);
    EXPECT_EQ(dialog.result(), 1);
    dialog.show();
    dialog.done(0);
    EXPECT_EQ(dialog.result(), 0);
}

TEST_F(Dialogs, EventsInsideADialogDoNotReachThePanelBelow)
{
    EventLog panel;
    Zeb::CCommonDialog dialog("title", &panel);
    auto* inner = new QWidget;
    auto* button = new Zeb::CPushButton("kel_img_depth_filter_first", 9, inner);
    dialog.setInnerWidget(inner);
    dialog.show();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_THAT(panel.events, IsEmpty());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(Dialogs, TakeNothingButTheCloseButton)
{
    Zeb::CCommonDialog dialog;
    EXPECT_FALSE(dialog.handleEvent(5, 11, 0, "", nullptr));
    EXPECT_FALSE(dialog.handleEvent(67, 101, 0, "", nullptr));
    EXPECT_TRUE(dialog.handleEvent(5, 101, 0, "", nullptr));
}

TEST_F(Dialogs, TheTitleStandsInTheWindowList)
{
    Zeb::CCommonDialog dialog("委托追踪");
    EXPECT_EQ(dialog.windowTitle(), "委托追踪");
    dialog.setTitle("资讯信息");
    EXPECT_EQ(dialog.title(), "资讯信息");
}

TEST_F(Dialogs, TheInnerWidgetFillsWhatTheFrameLeaves)
{
    Zeb::CCommonDialog dialog("title");
    dialog.setFixedSize(290, 530);
    auto* inner = new QWidget;
    dialog.setInnerWidget(inner);
    dialog.show();
    const int strip = resource().getSize("siz_dialog_title_height");
    EXPECT_EQ(inner->geometry(), QRect(1, 1 + strip, 288, 528 - strip));
    EXPECT_EQ(dialog.innerRect(), inner->geometry());
    dialog.setFixedSize(300, 200);
    EXPECT_EQ(inner->width(), 298);
}

TEST_F(Dialogs, ANewInnerWidgetReplacesTheOneBefore)
{
    Zeb::CCommonDialog dialog;
    QPointer<QWidget> first = new QWidget;
    dialog.setInnerWidget(first);
    auto* second = new QWidget;
    dialog.setInnerWidget(second);
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(dialog.innerWidget(), second);
    dialog.setInnerWidget(second);
    EXPECT_EQ(dialog.innerWidget(), second);
    dialog.setInnerWidget(nullptr);
    EXPECT_EQ(dialog.innerWidget(), nullptr);
}

TEST_F(Dialogs, WithoutTheCloseButtonEscapeStillCloses)
{
    Recorder dialog;
    dialog.setCloseButtonEnabled(false);
    dialog.show();
    EXPECT_FALSE(closeButton(dialog)->isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(Dialogs, TheCloseButtonNeverHasTheFocus)
{
    Recorder dialog;
    EXPECT_EQ(closeButton(dialog)->focusPolicy(), Qt::NoFocus);
}

TEST_F(Dialogs, EditorsOfQtTakeTheFontOfTheTheme)
{
    Zeb::CCommonDialog dialog;
    auto* edit = new QTimeEdit;
    dialog.setInnerWidget(edit);
    dialog.show();
    EXPECT_EQ(edit->font().pixelSize(), resource().getFont("fnt_default_normal")->pixelSize());
}

TEST_F(Dialogs, FollowTheTheme)
{
    Zeb::CCommonDialog dialog;
    dialog.resize(100, 100);
    dialog.show();
    EXPECT_EQ(dialog.grab().toImage().pixelColor(50, 80), *resource().getColor("clr_dialog_background"));
    resource().setTheme("light");
    EXPECT_EQ(dialog.grab().toImage().pixelColor(50, 80), *resource().getColor("clr_dialog_background"));
}

TEST_F(Dialogs, ShowTheThemeThatWasSwitchedToBeforeTheyWereShown)
{
    Zeb::CCommonDialog dialog;
    dialog.resize(200, 100);
    auto* edit = new QTimeEdit;
    dialog.setInnerWidget(edit);
    resource().setTheme("light");
    dialog.show();
    EXPECT_EQ(edit->grab().toImage().pixelColor(edit->width() / 2, 5),
              *resource().getColor("clr_edit_background"));
}

class InputDialog : public Dialogs
{
protected:
    InputDialog() : m_dialog("设置全高手数", "", nullptr)
    {
        m_dialog.setValidator(new Zeb::CIntValidator(4, 2000, nullptr));
        m_dialog.setText("500");
    }

    Zeb::CLineEdit* edit() { return m_dialog.findChild<Zeb::CLineEdit*>(); }

    Zeb::CMediumNormalButton* button(const QString& text)
    {
        for (auto* found : m_dialog.findChildren<Zeb::CMediumNormalButton*>()) {
            if (found->text() == text)
                return found;
        }
        return nullptr;
    }

    /// Runs the dialog, does `act` in it, and gives the confirmed text; "none" without one.
    template <class Act>
    std::string run(Act act)
    {
        std::string confirmed = "none";
        QTimer::singleShot(0, &m_dialog, [&] {
            act();
            m_dialog.done(0); // so that a failing test does not hang
        });
        m_dialog.getInput([&](const QString& text) { confirmed = text.toStdString(); });
        return confirmed;
    }

    Zeb::CSimpleInputDialog m_dialog;
};

TEST_F(InputDialog, GivesTheConfirmedTextToItsCallback)
{
    EXPECT_EQ(run([&] {
                  edit()->selectAll();
                  QTest::keyClicks(edit(), "77");
                  QTest::keyClick(edit(), Qt::Key_Return);
              }),
              "77");
    EXPECT_EQ(m_dialog.text(), "77");
}

TEST_F(InputDialog, IsConfirmedByItsButton)
{
    EXPECT_EQ(run([&] { QTest::mouseClick(button("确定"), Qt::LeftButton); }), "500");
}

TEST_F(InputDialog, CancelEscapeAndTheFrameGiveNothing)
{
    EXPECT_EQ(run([&] { QTest::mouseClick(button("取消"), Qt::LeftButton); }), "none");
    EXPECT_EQ(run([&] { QTest::keyClick(&m_dialog, Qt::Key_Escape); }), "none");
    EXPECT_EQ(run([&] { QTest::mouseClick(closeButton(m_dialog), Qt::LeftButton); }), "none");
}

TEST_F(InputDialog, CannotBeConfirmedWithATextOutsideItsRange)
{
    for (const char* text : {"", "3", "2001"}) {
        EXPECT_EQ(run([&] {
                      m_dialog.setText(text);
                      QTest::keyClick(edit(), Qt::Key_Return);
                      m_dialog.handleEvent(5, 11, 0, "", nullptr);
                      QTest::mouseClick(button("确定"), Qt::LeftButton);
                  }),
                  "none")
            << text;
        EXPECT_FALSE(button("确定")->isEnabled());
    }
    m_dialog.setText("4");
    EXPECT_TRUE(button("确定")->isEnabled());
}

TEST_F(InputDialog, IsOpenOnlyOnce)
{
    bool second = true;
    run([&] { second = m_dialog.getInput(nullptr); });
    EXPECT_FALSE(second);
}

TEST_F(InputDialog, MayDieWhileItIsOpen)
{
    auto* owner = new QWidget;
    auto* dialog = new Zeb::CSimpleInputDialog("title", "label", owner);
    QTimer::singleShot(0, owner, [&] { delete owner; });
    bool called = false;
    EXPECT_FALSE(dialog->getInput([&](const QString&) { called = true; }));
    EXPECT_FALSE(called);
}

TEST_F(InputDialog, NamesItsEditorForThoseWhoDoNotSeeTheTitle)
{
    EXPECT_EQ(edit()->accessibleName(), "设置全高手数");
}

} // namespace
