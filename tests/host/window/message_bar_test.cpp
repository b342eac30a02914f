// The line of text for what went wrong.

#include "host/window/MessageBar.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

namespace window_tests {
namespace {

class Messages : public ::testing::Test
{
protected:
    Messages()
    {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&bar);
        column->addWidget(&edit);
        window.resize(400, 200);
        window.show();
        window.activateWindow();
        edit.setFocus();
        QTest::qWait(1);
    }
    ~Messages() override
    {
        bar.setParent(nullptr);
        edit.setParent(nullptr);
    }

    QWidget window;
    host::MessageBar bar;
    QLineEdit edit;
};

TEST_F(Messages, IsHiddenUntilThereIsOne)
{
    EXPECT_TRUE(bar.isHidden());
}

TEST_F(Messages, DoesNotTakeTheFocus)
{
    ASSERT_TRUE(edit.hasFocus());
    bar.showError(QStringLiteral("broken"));
    EXPECT_TRUE(bar.isVisible());
    EXPECT_TRUE(edit.hasFocus());
    auto* close = bar.findChild<QToolButton*>();
    QTest::mouseClick(close, Qt::LeftButton);
    EXPECT_TRUE(bar.isHidden());
    EXPECT_TRUE(edit.hasFocus());
    EXPECT_EQ(close->focusPolicy(), Qt::NoFocus);
}

TEST_F(Messages, TheEscapeKeyClosesIt)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    bar.showError(QStringLiteral("broken"));
    QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(bar.isHidden());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Messages, CutsALongTextInTheMiddleAndTellsAllOfItInTheTip)
{
    const QString text = QStringLiteral("/a/very/long/path/") + QString(300, QLatin1Char('x')) +
                         QStringLiteral(": line 7: reason");
    bar.showError(text);
    QTest::qWait(1);
    const QString shown = bar.findChild<QLabel*>()->text();
    EXPECT_LT(shown.size(), text.size());
    EXPECT_TRUE(shown.startsWith(QStringLiteral("/a/very")));
    EXPECT_TRUE(shown.endsWith(QStringLiteral("reason")));
    EXPECT_EQ(bar.toolTip(), text);
    EXPECT_EQ(bar.accessibleName(), text);
    EXPECT_LE(bar.width(), window.width());
}

TEST_F(Messages, AnErrorReplacesANoteAndStays)
{
    bar.showNote(QStringLiteral("note"));
    EXPECT_FALSE(bar.isError());
    EXPECT_FALSE(bar.property("error").toBool());
    bar.showError(QStringLiteral("error"));
    EXPECT_TRUE(bar.isError());
    EXPECT_TRUE(bar.property("error").toBool());
    EXPECT_EQ(bar.text(), QStringLiteral("error"));
}

} // namespace
} // namespace window_tests
