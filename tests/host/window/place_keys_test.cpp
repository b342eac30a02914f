// Shortcuts by the place of a key, on keyboards whose layout has other letters or digits there.

#include "host/window/keys/PlaceShortcuts.h"
#include "host/window/keys/place_keys.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>

namespace window_tests {
namespace {

// Numbers of places as X11 gives them.
constexpr unsigned kPlaceOf1 = 10;
constexpr unsigned kPlaceOf4 = 13;
constexpr unsigned kPlaceOfQ = 24;
constexpr unsigned kPlaceOfT = 28;
constexpr unsigned kPlaceOfBracket = 34;
constexpr unsigned kPlaceOfSpace = 65;
constexpr unsigned kPlaceOfComma = 59;
constexpr unsigned kPlaceOfDot = 60;

QKeyEvent press(int key, Qt::KeyboardModifiers modifiers, unsigned place, const QString& text = QString())
{
    return QKeyEvent(QEvent::KeyPress, key, modifiers, place, 0, 0, text);
}

TEST(PlaceOfAKey, IsNamedAsAUsKeyboardDoes)
{
    const std::pair<unsigned, int> places[] = {
        {kPlaceOf1, Qt::Key_1},
        {18, Qt::Key_9},
        {19, Qt::Key_0},
        {20, Qt::Key_Minus},
        {21, Qt::Key_Equal},
        {kPlaceOfQ, Qt::Key_Q},
        {33, Qt::Key_P},
        {kPlaceOfBracket, Qt::Key_BracketLeft},
        {35, Qt::Key_BracketRight},
        {38, Qt::Key_A},
        {46, Qt::Key_L},
        {47, Qt::Key_Semicolon},
        {48, Qt::Key_Apostrophe},
        {49, Qt::Key_QuoteLeft},
        {51, Qt::Key_Backslash},
        {52, Qt::Key_Z},
        {58, Qt::Key_M},
        {kPlaceOfComma, Qt::Key_Comma},
        {kPlaceOfDot, Qt::Key_Period},
        {61, Qt::Key_Slash},
    };
    for (const auto& place : places)
        EXPECT_EQ(host::keyOfPlace(place.first), place.second) << place.first;
    for (const unsigned other :
         {0u, 7u, 8u, 9u, 22u, 23u, 36u, 37u, 50u, 62u, 64u, kPlaceOfSpace, 79u, 1000u})
        EXPECT_EQ(host::keyOfPlace(other), 0) << other;
}

TEST(ShortcutOfAPlace, StandsForLettersOfOtherScripts)
{
    const int cyrillicE = 0x0415; // where T is
    EXPECT_EQ(host::shortcutOfPlace(press(cyrillicE, Qt::ControlModifier, kPlaceOfT)),
              int(Qt::CTRL) + Qt::Key_T);
    const int greekTau = 0x03A4;
    EXPECT_EQ(host::shortcutOfPlace(press(greekTau, Qt::ControlModifier | Qt::ShiftModifier, kPlaceOfT)),
              int(Qt::CTRL) + int(Qt::SHIFT) + Qt::Key_T);
    const int cyrillicYu = 0x042E; // where the dot is
    EXPECT_EQ(host::shortcutOfPlace(press(cyrillicYu, Qt::NoModifier, kPlaceOfDot)), int(Qt::Key_Period));
}

TEST(ShortcutOfAPlace, StandsForDigitsThatWantShift)
{
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_Ampersand, Qt::ControlModifier, kPlaceOf1)),
              int(Qt::CTRL) + Qt::Key_1);
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_Apostrophe, Qt::AltModifier, kPlaceOf4)),
              int(Qt::ALT) + Qt::Key_4);
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_Eacute, Qt::ControlModifier, kPlaceOf1 + 1)),
              int(Qt::CTRL) + Qt::Key_2);
}

TEST(ShortcutOfAPlace, StandsForSignsWhereAnAccentedLetterIs)
{
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_Udiaeresis, Qt::NoModifier, kPlaceOfBracket)),
              int(Qt::Key_BracketLeft));
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_Dead_Circumflex, Qt::NoModifier, kPlaceOfBracket)),
              int(Qt::Key_BracketLeft));
}

TEST(ShortcutOfAPlace, IsNoneWhereTheLayoutSaysWhatIsMeant)
{
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_A, Qt::ControlModifier, kPlaceOfQ)), 0)
        << "a keyboard with A where US keyboards have Q: not to quit";
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_1, Qt::ControlModifier | Qt::ShiftModifier, kPlaceOf1)), 0);
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_Semicolon, Qt::NoModifier, kPlaceOfComma)), 0);
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_Space, Qt::NoModifier, kPlaceOfSpace)), 0);
    EXPECT_EQ(host::shortcutOfPlace(press(Qt::Key_F1, Qt::NoModifier, kPlaceOfT)), 0);
    EXPECT_EQ(host::shortcutOfPlace(press(0x0415, Qt::ControlModifier, 0)), 0) << "the place is not known";
}

TEST(ShortcutMeant, IsThatOfThePlaceOrWhatTheLayoutSays)
{
    EXPECT_EQ(host::shortcutMeant(press(0x0415, Qt::ControlModifier, kPlaceOfT)), int(Qt::CTRL) + Qt::Key_T);
    EXPECT_EQ(host::shortcutMeant(press(Qt::Key_Exclam, Qt::ControlModifier | Qt::ShiftModifier, kPlaceOf1)),
              int(Qt::CTRL) + int(Qt::SHIFT) + Qt::Key_1);
    EXPECT_EQ(host::shortcutMeant(press(Qt::Key_Question, Qt::ShiftModifier, 61)), int(Qt::Key_Question));
    EXPECT_EQ(host::shortcutMeant(press(Qt::Key_A, Qt::ShiftModifier, kPlaceOfQ)),
              int(Qt::SHIFT) + Qt::Key_A);
    EXPECT_EQ(host::shortcutMeant(press(Qt::Key_Shift, Qt::ShiftModifier, 50)), 0);
    EXPECT_EQ(host::shortcutMeant(press(Qt::Key_F5, Qt::KeypadModifier, 71)), int(Qt::Key_F5));
}

class PlaceShortcut : public ::testing::Test
{
protected:
    PlaceShortcut()
        : editor(new QLineEdit(&window)), number(new QSpinBox(&window)), pane(new QWidget(&window))
    {
        pane->setFocusPolicy(Qt::StrongFocus);
        auto* column = new QVBoxLayout(&window);
        for (QWidget* widget : {static_cast<QWidget*>(editor), static_cast<QWidget*>(number), pane})
            column->addWidget(widget);
        QObject::connect(&theme, &QAction::triggered, &theme, [this] { ++triggered; });
        new host::PlaceShortcuts(&window, [this](const QKeySequence& key) {
            return key == QKeySequence(int(Qt::CTRL) + Qt::Key_T) ? &theme : nullptr;
        });
        window.show();
        window.activateWindow();
        pane->setFocus();
        QApplication::processEvents();
    }

    bool pressOn(QWidget* widget, int key = 0x0415)
    {
        QKeyEvent event = press(key, Qt::ControlModifier, kPlaceOfT, QStringLiteral("е"));
        return QApplication::sendEvent(widget, &event) && event.isAccepted();
    }

    QWidget window;
    QLineEdit* editor;
    QSpinBox* number;
    QWidget* pane;
    QAction theme;
    int triggered = 0;
};

TEST_F(PlaceShortcut, TriggersTheCommandOfThePlaceOnce)
{
    EXPECT_TRUE(pressOn(pane));
    EXPECT_EQ(triggered, 1);
    pressOn(pane, Qt::Key_Y); // a Latin letter is what it is
    EXPECT_EQ(triggered, 1);
}

TEST_F(PlaceShortcut, LeavesEditorsTheirPresses)
{
    for (QWidget* widget : {static_cast<QWidget*>(editor), static_cast<QWidget*>(number)}) {
        widget->setFocus();
        pressOn(widget);
        pressOn(&window); // what the editor passes on
        EXPECT_EQ(triggered, 0);
    }
}

TEST_F(PlaceShortcut, RestsUnderADialogWhileDisabledAndInOtherWindows)
{
    QWidget other;
    pressOn(&other);
    EXPECT_EQ(triggered, 0);
    theme.setEnabled(false);
    pressOn(pane);
    EXPECT_EQ(triggered, 0);
    theme.setEnabled(true);
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    pressOn(pane);
    EXPECT_EQ(triggered, 0);
    dialog.hide();
    pressOn(pane);
    EXPECT_EQ(triggered, 1);
}

TEST_F(PlaceShortcut, WorksInWindowsThatBelongToTheWindow)
{
    QWidget floating(&window, Qt::Tool);
    pressOn(&floating);
    EXPECT_EQ(triggered, 1);
    QDialog dialog(&window);
    pressOn(&dialog);
    EXPECT_EQ(triggered, 1) << "a dialog has keys of its own";
}

} // namespace
} // namespace window_tests
