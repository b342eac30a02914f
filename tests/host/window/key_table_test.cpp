// The sheet of keys: what it lists, the search, and how a person gives a command another key.

#include "host/window/keys/KeyTable.h"

#include "host/window/TerminalActions.h"
#include "host/window/keys/KeySheet.h"
#include "host/window/language/TerminalLanguage.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace window_tests {
namespace {

QString name(const char* id)
{
    return QString::fromLatin1(id);
}

class Sheet : public ::testing::Test
{
protected:
    Sheet() : actions(new host::TerminalActions(&window)), sheet(actions, &window)
    {
        sheet.show();
        sheet.activateWindow();
        QApplication::processEvents();
    }

    ~Sheet() override { host::TerminalLanguage::instance().setLanguage(name("zh")); }

    host::KeyTable& table() { return sheet.table(); }
    QKeySequence keyOf(const char* id) { return actions->action(name(id))->shortcut(); }
    QKeySequenceEdit* editor() { return table().findChild<QKeySequenceEdit*>(); }

    /// What a person presses; the editor's own answer comes later.
    void press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyPress(widget, key, modifiers);
        QApplication::processEvents();
    }

    QMainWindow window;
    host::TerminalActions* actions;
    host::KeySheet sheet;
};

TEST_F(Sheet, ListsEveryCommandOfTheTable)
{
    ASSERT_EQ(table().shown().size(), static_cast<int>(host::commands().size()));
    for (const host::Command& command : host::commands())
        EXPECT_TRUE(table().shown().contains(name(command.id))) << command.id;
}

TEST_F(Sheet, ShowsWhatTheSearchFindsInTitlesAndKeys)
{
    auto* line = table().findChild<QLineEdit*>(name("KeySearch"));
    ASSERT_NE(line, nullptr);
    line->setText(QStringLiteral("快照"));
    EXPECT_EQ(table().shown(), (QStringList{name("stepSnapshot"), name("backSnapshot")}));
    line->setText(name("ctrl+shift+e"));
    EXPECT_EQ(table().shown(), QStringList{name("csvGbk")});
    line->setText(name("no such thing"));
    EXPECT_TRUE(table().shown().isEmpty());
    line->clear();
    EXPECT_EQ(table().shown().size(), static_cast<int>(host::commands().size()));
}

TEST_F(Sheet, TakesThePressedKeyAtOnceAfterADoubleClick)
{
    QTest::mouseDClick(table().row(name("jump")), Qt::LeftButton);
    ASSERT_NE(editor(), nullptr);
    press(editor(), Qt::Key_J, Qt::ControlModifier);
    EXPECT_EQ(keyOf("jump"), QKeySequence(int(Qt::CTRL) + Qt::Key_J));
    EXPECT_TRUE(table().note().contains(QStringLiteral("跳到时间")));
}

TEST_F(Sheet, RefusesTheKeyOfAnotherCommandWithItsName)
{
    press(table().row(name("jump")), Qt::Key_Return);
    ASSERT_NE(editor(), nullptr);
    press(editor(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(keyOf("jump"), QKeySequence(int(Qt::CTRL) + Qt::Key_G));
    EXPECT_TRUE(table().note().contains(QStringLiteral("打开日档案"))) << table().note().toStdString();
}

TEST_F(Sheet, RefusesAKeyThatPanesNeed)
{
    press(table().row(name("jump")), Qt::Key_Return);
    press(editor(), Qt::Key_Down);
    EXPECT_EQ(keyOf("jump"), QKeySequence(int(Qt::CTRL) + Qt::Key_G));
    EXPECT_TRUE(table().note().contains(QStringLiteral("窗格")));
}

TEST_F(Sheet, EscapeLeavesTheKeyAsItWasAndTheSheetOpen)
{
    press(table().row(name("jump")), Qt::Key_Return);
    QPointer<QKeySequenceEdit> first = editor();
    press(first, Qt::Key_Escape);
    EXPECT_TRUE(!first || first->isHidden());
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(keyOf("jump"), QKeySequence(int(Qt::CTRL) + Qt::Key_G));
}

TEST_F(Sheet, DeleteTakesTheKeyAwayAndTheButtonsBringItBack)
{
    QWidget* row = table().row(name("jump"));
    row->setFocus();
    press(row, Qt::Key_Delete);
    EXPECT_TRUE(keyOf("jump").isEmpty());
    const auto buttons = table().findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 2);
    buttons[0]->click();
    EXPECT_EQ(keyOf("jump"), QKeySequence(int(Qt::CTRL) + Qt::Key_G));
    table().take(name("jump"), QKeySequence(Qt::Key_F7));
    table().take(name("play"), QKeySequence(Qt::Key_F8));
    buttons[1]->click();
    EXPECT_EQ(keyOf("jump"), QKeySequence(int(Qt::CTRL) + Qt::Key_G));
    EXPECT_EQ(keyOf("play"), QKeySequence(Qt::Key_Space));
}

TEST_F(Sheet, ArrowsGoFromCommandToCommandPastHiddenOnes)
{
    table().search(QStringLiteral("快照"));
    QWidget* first = table().row(name("stepSnapshot"));
    first->setFocus();
    press(first, Qt::Key_Down);
    EXPECT_TRUE(table().row(name("backSnapshot"))->hasFocus());
    press(table().row(name("backSnapshot")), Qt::Key_Down);
    EXPECT_TRUE(table().row(name("backSnapshot"))->hasFocus()) << "the last one";
    press(table().row(name("backSnapshot")), Qt::Key_Up);
    EXPECT_TRUE(first->hasFocus());
}

TEST_F(Sheet, SpeaksTheLanguageInForce)
{
    host::TerminalLanguage::instance().setLanguage(name("en"));
    EXPECT_EQ(sheet.windowTitle(), name("Keyboard shortcuts"));
    table().search(name("snapshot"));
    EXPECT_EQ(table().shown(), (QStringList{name("stepSnapshot"), name("backSnapshot")}));
}

TEST_F(Sheet, ListsKindsOfPanesOnceThereAreAny)
{
    actions->addPaneKinds({{name("chart"), QStringLiteral("全息成交图")}});
    const host::KeySheet later(actions, &window);
    const_cast<host::KeySheet&>(later).table().search(QStringLiteral("全息成交图"));
    EXPECT_EQ(const_cast<host::KeySheet&>(later).table().shown(), QStringList{name("addPane_chart")});
}

class Actions : public ::testing::Test
{
protected:
    Actions() : actions(new host::TerminalActions(&window)) {}
    ~Actions() override { host::TerminalLanguage::instance().setLanguage(name("zh")); }

    QMainWindow window;
    host::TerminalActions* actions;
};

TEST_F(Actions, AreThereForEveryCommandWithItsKey)
{
    for (const host::Command& command : host::commands()) {
        const QAction* action = actions->action(name(command.id));
        ASSERT_NE(action, nullptr) << command.id;
        EXPECT_EQ(action->shortcut(), QKeySequence(name(command.keys))) << command.id;
        EXPECT_EQ(action->isCheckable(), command.choice != nullptr) << command.id;
    }
}

TEST_F(Actions, WithoutASignalOfTheirOwnAreToldById)
{
    QSignalSpy asked(actions, &host::TerminalActions::commandAsked);
    const QStringList ids{
        name("stepOrder"),    name("backOrder"),     name("stepDeal"),     name("backDeal"),
        name("stepSnapshot"), name("backSnapshot"),  name("stepSeconds"),  name("backSeconds"),
        name("nextPhase"),    name("previousPhase"), name("phaseAuction"), name("phaseOpen"),
        name("phaseLunch"),   name("phaseClose"),    name("fastest"),      name("center"),
        name("newWindow"),    name("group1"),        name("group4"),       name("settings"),
        name("keys"),         name("about")};
    for (const QString& id : ids) {
        actions->action(id)->trigger();
        ASSERT_FALSE(asked.isEmpty()) << id.toStdString();
        EXPECT_EQ(asked.takeFirst()[0].toString(), id);
    }
}

TEST_F(Actions, WithASignalOfTheirOwnUseItAlone)
{
    QSignalSpy asked(actions, &host::TerminalActions::commandAsked);
    QSignalSpy jump(actions, &host::TerminalActions::jumpAsked);
    QSignalSpy table(actions, &host::TerminalActions::tableAsked);
    actions->action(name("jump"))->trigger();
    actions->action(name("csvGbk"))->trigger();
    EXPECT_EQ(jump.size(), 1);
    ASSERT_EQ(table.size(), 1);
    EXPECT_TRUE(table[0][0].toBool());
    EXPECT_TRUE(asked.isEmpty());
}

TEST_F(Actions, OfNewPanesAskForTheirKind)
{
    QSignalSpy asked(actions, &host::TerminalActions::commandAsked);
    actions->addPaneKinds({{name("queue"), QStringLiteral("委托队列")}});
    actions->addPaneKinds({{name("queue"), QStringLiteral("委托队列")}});
    EXPECT_EQ(actions->idsOf(host::EMenu::eNewPane), QStringList{name("addPane_queue")});
    actions->action(name("addPane_queue"))->trigger();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toString(), name("addPane_queue"));
}

TEST_F(Actions, ShowTheGroupOfThePaneOrNone)
{
    actions->showGroup(2);
    EXPECT_TRUE(actions->action(name("group2"))->isChecked());
    actions->showGroup(3);
    EXPECT_FALSE(actions->action(name("group2"))->isChecked());
    actions->showGroup(0);
    EXPECT_FALSE(actions->action(name("group3"))->isChecked());
}

TEST_F(Actions, SpeakTheLanguageInForce)
{
    host::TerminalLanguage::instance().setLanguage(name("en"));
    EXPECT_EQ(actions->action(name("jump"))->text(), QStringLiteral("Jump to time…"));
    EXPECT_EQ(actions->action(name("jump"))->toolTip(), QStringLiteral("Jump to time (Ctrl+G)"));
    actions->showPlaying(true);
    EXPECT_EQ(actions->action(name("play"))->text(), QStringLiteral("Pause"));
    host::TerminalLanguage::instance().setLanguage(name("zh"));
    EXPECT_EQ(actions->action(name("play"))->text(), QStringLiteral("暂停"));
    EXPECT_FALSE(host::TerminalLanguage::instance().setLanguage(name("tlh")));
    EXPECT_EQ(host::TerminalLanguage::instance().language(), name("zh"));
}

TEST_F(Actions, WorkInAFurtherWindowToo)
{
    QWidget further;
    actions->serve(&further);
    EXPECT_TRUE(further.actions().contains(actions->action(name("play"))));
}

} // namespace
} // namespace window_tests
