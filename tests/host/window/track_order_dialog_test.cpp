// The question which order to track.

#include "host/window/workspace/TrackOrderDialog.h"

#include "host/window/PaneWindow.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimeEdit>

namespace window_tests {
namespace {

class Question : public ::testing::Test
{
protected:
    /// Types into a field, over what stands there.
    static void type(QAbstractSpinBox& field, const char* text)
    {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, QString::fromLatin1(text));
    }

    QDoubleSpinBox& priceField() { return *dialog.findChild<QDoubleSpinBox*>(); }
    QSpinBox& lotsField() { return *dialog.findChild<QSpinBox*>(); }
    QComboBox& sideField() { return *dialog.findChildren<QComboBox*>().front(); }
    QComboBox& colorField() { return *dialog.findChildren<QComboBox*>().back(); }
    QPushButton& button(QDialogButtonBox::StandardButton which)
    {
        return *dialog.findChild<QDialogButtonBox*>()->button(which);
    }

    host::TrackOrderDialog dialog;
};

TEST_F(Question, BeginsWithTheGivenOrder)
{
    dialog.setOrder(static_cast<int>(timeOfDay(10, 30, 5)), 10.01, 77, 2);
    EXPECT_EQ(dialog.timeMs(), timeOfDay(10, 30, 5));
    EXPECT_EQ(dialog.price(), 10.01);
    EXPECT_EQ(dialog.lots(), 77);
    EXPECT_EQ(dialog.side(), 2);
    EXPECT_EQ(dialog.color(), 0);
    dialog.setOrder(0, 10.01, 77, 1);
    EXPECT_EQ(dialog.side(), 1);
    dialog.setOrder(0, 10.01, 77, 9);
    EXPECT_EQ(dialog.side(), 1) << "no side is shown as a buy";
}

TEST_F(Question, TimesAreWholeSeconds)
{
    dialog.setOrder(static_cast<int>(timeOfDay(10, 30, 5)) + 678, 10.01, 1, 1);
    EXPECT_EQ(dialog.timeMs(), timeOfDay(10, 30, 5));
}

TEST_F(Question, AnUntouchedPriceStaysExact)
{
    dialog.setPriceTick(0.01);
    const double exact = 10.01 + 1e-9; // as a feed may give it
    dialog.setOrder(0, exact, 1, 1);
    EXPECT_EQ(dialog.price(), exact);
    dialog.show();
    type(priceField(), "12.34");
    EXPECT_DOUBLE_EQ(dialog.price(), 12.34);
    type(priceField(), "10.01");
    EXPECT_EQ(dialog.price(), exact) << "typed as it was";
}

TEST_F(Question, ThePriceHasTheDecimalsOfTheTick)
{
    const std::pair<double, int> ticks[] = {{1, 0}, {0.5, 1}, {0.01, 2}, {0.001, 3}, {0.0001, 4}, {0.005, 3}};
    for (const auto& [tick, decimals] : ticks) {
        dialog.setPriceTick(tick);
        EXPECT_EQ(priceField().decimals(), decimals) << tick;
        EXPECT_DOUBLE_EQ(priceField().singleStep(), tick);
    }
    // A step is one tick.
    dialog.setPriceTick(0.001);
    dialog.setOrder(0, 1.234, 1, 1);
    dialog.show();
    priceField().setFocus();
    QTest::keyClick(&priceField(), Qt::Key_Up);
    EXPECT_NEAR(dialog.price(), 1.235, 1e-9);
}

TEST_F(Question, TakesWhatIsTyped)
{
    dialog.show();
    dialog.setOrder(0, 10, 1, 1);
    auto& time = *dialog.findChild<QTimeEdit*>();
    time.setFocus();
    time.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(&time, QStringLiteral("140203"));
    EXPECT_EQ(dialog.timeMs(), timeOfDay(14, 2, 3));
    type(lotsField(), "123456");
    EXPECT_EQ(dialog.lots(), 123456);
    sideField().setFocus();
    QTest::keyClick(&sideField(), Qt::Key_Down);
    EXPECT_EQ(dialog.side(), 2);
    colorField().setFocus();
    for (int color = 1; color <= 3; ++color) {
        QTest::keyClick(&colorField(), Qt::Key_Down);
        EXPECT_EQ(dialog.color(), color);
    }
    QTest::keyClick(&colorField(), Qt::Key_Down);
    EXPECT_EQ(dialog.color(), 3) << "four colours";
}

TEST_F(Question, TheColoursShowWhatTheyAre)
{
    ASSERT_EQ(colorField().count(), 4);
    std::vector<QRgb> seen;
    for (int i = 0; i < 4; ++i) {
        const QImage swatch = colorField().itemIcon(i).pixmap(14, 14).toImage();
        ASSERT_FALSE(swatch.isNull());
        const QRgb color = swatch.pixel(swatch.width() / 2, swatch.height() / 2);
        EXPECT_EQ(std::count(seen.begin(), seen.end(), color), 0) << i;
        seen.push_back(color);
    }
}

TEST_F(Question, LotsAreAtLeastOne)
{
    dialog.setOrder(0, 10, 0, 1);
    EXPECT_EQ(dialog.lots(), 1);
    dialog.setOrder(0, 10, -5, 1);
    EXPECT_EQ(dialog.lots(), 1);
}

TEST_F(Question, IsConfirmedByReturnAndGivenUpByEscape)
{
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.isVisible());
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    dialog.show();
    QTest::mouseClick(&button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    dialog.show();
    QTest::mouseClick(&button(QDialogButtonBox::Cancel), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(button(QDialogButtonBox::Ok).text(), QStringLiteral("跟踪"));
    EXPECT_EQ(button(QDialogButtonBox::Cancel).text(), QStringLiteral("取消"));
}

using QuestionInTheWindow = PaneWindow;

TEST_F(QuestionInTheWindow, BeginsWithTheSelectedOrderElseWithTheMoment)
{
    ASSERT_TRUE(openAt(10, 30));
    QAction* track = window->actions().action(QStringLiteral("track"));
    whenOpen<host::TrackOrderDialog>([this](host::TrackOrderDialog& dialog) {
        EXPECT_EQ(dialog.timeMs(), timeOfDay(10, 30));
        EXPECT_EQ(dialog.price(), window->day()->detail.previousClose);
        EXPECT_EQ(dialog.lots(), 1);
        EXPECT_EQ(dialog.side(), 1);
        dialog.reject();
    });
    track->trigger();
    ASSERT_EQ(dialogs, 1);

    Kel::CDepthOrderWidget& list = *orders().orderList();
    const int row = list.total() - 2;
    QTest::mouseClick(&list, Qt::LeftButton, Qt::NoModifier, ListEyes::middleOf(list, row));
    const auto order = orders().model()->getOrderData(row, false);
    whenOpen<host::TrackOrderDialog>([order](host::TrackOrderDialog& dialog) {
        EXPECT_EQ(dialog.timeMs(), utils::timeOfDayMs(order->time * utils::kMSecPerSecond));
        EXPECT_EQ(dialog.price(), order->price);
        EXPECT_EQ(dialog.lots(), order->lots);
        EXPECT_EQ(dialog.side(), order->side);
        dialog.reject();
    });
    track->trigger();
    EXPECT_EQ(dialogs, 2);
}

TEST_F(QuestionInTheWindow, IsNotAskedWithoutADay)
{
    open();
    whenOpen<host::TrackOrderDialog>([](host::TrackOrderDialog& dialog) { dialog.reject(); });
    window->actions().action(QStringLiteral("track"))->trigger();
    EXPECT_EQ(dialogs, 0);
}

} // namespace
} // namespace window_tests
