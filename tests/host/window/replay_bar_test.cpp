// Play, speed, time, seek.

#include "host/window/ReplayBar.h"

#include "host/window/DaySlider.h"
#include "host/window/WindowFixture.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace window_tests {
namespace {

class Bar : public ::testing::Test
{
protected:
    Bar()
    {
        bar.resize(900, 48);
        bar.show();
    }

    QString time() const { return bar.findChild<QLabel*>(QStringLiteral("ReplayTime"))->text(); }
    QLineEdit* jump() const { return bar.findChild<QLineEdit*>(QStringLiteral("ReplayJump")); }

    const host::DayRange range{utils::exchangeTime(20230201, 9, 15, 0, 0),
                               utils::exchangeTime(20230201, 15, 0, 0, 0)};
    host::ReplayBar bar;
};

TEST_F(Bar, OffersSpeedsFromATenthToAThousandAndAsFastAsPossible)
{
    const auto& speeds = host::ReplayBar::speeds();
    EXPECT_EQ(speeds.front(), 0.1);
    EXPECT_EQ(speeds[speeds.size() - 2], 1000);
    EXPECT_EQ(speeds.back(), 0) << "as fast as possible";
    EXPECT_NE(std::find(speeds.begin(), speeds.end(), 60), speeds.end());
    EXPECT_EQ(bar.speed(), 1);
}

TEST_F(Bar, ShowsTheSpeedInForceThoughItCannotBeChosen)
{
    QSignalSpy spy(&bar, &host::ReplayBar::speedChosen);
    const auto* choice = bar.findChild<QComboBox*>();
    const int choices = static_cast<int>(host::ReplayBar::speeds().size());
    struct Row
    {
        double speed;
        const char* text;
        int place;
        int entries;
    };
    for (const Row& row :
         {Row{60, "60×", 8, choices}, Row{0.1, "0.1×", 0, choices}, Row{30, "30×", 8, choices + 1},
          Row{31, "31×", 8, choices + 1}, Row{31, "31×", 8, choices + 1}, Row{0.15, "0.15×", 1, choices + 1},
          Row{100, "100×", 9, choices}, Row{150, "150×", 10, choices + 1}, Row{0, "最快", 13, choices},
          Row{-1, "最快", 13, choices}}) {
        bar.setSpeed(row.speed);
        EXPECT_EQ(bar.speed(), std::max(0.0, row.speed)) << row.text;
        EXPECT_EQ(choice->currentText().toStdString(), row.text);
        EXPECT_EQ(choice->currentIndex(), row.place) << row.text;
        EXPECT_EQ(choice->count(), row.entries) << row.text;
    }
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(Bar, KnowsTheSpeedsNextToAnother)
{
    using host::ReplayBar;
    EXPECT_EQ(ReplayBar::nextSpeed(1, 1), 2);
    EXPECT_EQ(ReplayBar::nextSpeed(1, -1), 0.5);
    EXPECT_EQ(ReplayBar::nextSpeed(30, 1), 60);
    EXPECT_EQ(ReplayBar::nextSpeed(30, -1), 20);
    EXPECT_EQ(ReplayBar::nextSpeed(0.1, -1), 0.1);
    EXPECT_EQ(ReplayBar::nextSpeed(100, 1), 200);
    EXPECT_EQ(ReplayBar::nextSpeed(1000, 1), 0);
    EXPECT_EQ(ReplayBar::nextSpeed(0, 1), 0);
    EXPECT_EQ(ReplayBar::nextSpeed(0, -1), 1000);
}

TEST_F(Bar, TellsOfAChosenSpeed)
{
    QSignalSpy spy(&bar, &host::ReplayBar::speedChosen);
    auto* choice = bar.findChild<QComboBox*>();
    choice->setFocus();
    QTest::keyClick(choice, Qt::Key_Down);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].toDouble(), 2);
}

TEST_F(Bar, ShowsTheTimeOfDay)
{
    EXPECT_EQ(time().toStdString(), "--:--:--");
    bar.setDay(range);
    bar.setMoment(utils::exchangeTime(20230201, 9, 30, 5, 500));
    EXPECT_EQ(time().toStdString(), "09:30:05");
}

TEST_F(Bar, JumpsToATypedTime)
{
    bar.setDay(range);
    QSignalSpy asked(&bar, &host::ReplayBar::seekAsked);
    QSignalSpy refused(&bar, &host::ReplayBar::timeRefused);
    bar.focusJump();
    QTest::keyClicks(jump(), QStringLiteral("10:30"));
    QTest::keyClick(jump(), Qt::Key_Return);
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked[0][0].toLongLong(), utils::exchangeTime(20230201, 10, 30, 0, 0));
    EXPECT_TRUE(jump()->text().isEmpty());

    QTest::keyClicks(jump(), QStringLiteral("23:00"));
    QTest::keyClick(jump(), Qt::Key_Return);
    EXPECT_EQ(asked[1][0].toLongLong(), range.end) << "cut to the day";
    EXPECT_EQ(refused.count(), 0);
}

TEST_F(Bar, RefusesWhatIsNoTimeAndLeavesItToBeMended)
{
    bar.setDay(range);
    QSignalSpy asked(&bar, &host::ReplayBar::seekAsked);
    QSignalSpy refused(&bar, &host::ReplayBar::timeRefused);
    QTest::keyClicks(jump(), QStringLiteral("25:00"));
    QTest::keyClick(jump(), Qt::Key_Return);
    EXPECT_EQ(asked.count(), 0);
    ASSERT_EQ(refused.count(), 1);
    EXPECT_EQ(refused[0][0].toString().toStdString(), "25:00");
    EXPECT_EQ(jump()->text().toStdString(), "25:00");
}

TEST_F(Bar, ShowsHowFarALoadIsAndOffersToGiveItUp)
{
    auto* progress = bar.findChild<QProgressBar*>();
    EXPECT_FALSE(progress->isVisible());
    bar.setLoading(0, 0);
    EXPECT_TRUE(progress->isVisible());
    EXPECT_EQ(progress->maximum(), 0) << "length unknown";
    bar.setLoading(25, 100);
    EXPECT_EQ(progress->value() * 4, progress->maximum());
    QSignalSpy cancel(&bar, &host::ReplayBar::cancelAsked);
    QTest::mouseClick(bar.findChild<QToolButton*>(QStringLiteral("CancelLoading")), Qt::LeftButton);
    EXPECT_EQ(cancel.count(), 1);
    bar.setLoaded();
    EXPECT_FALSE(progress->isVisible());
    EXPECT_TRUE(bar.findChild<host::DaySlider*>()->isVisible());
}

TEST_F(Bar, NamesThePlayButtonByWhatItDoes)
{
    auto* play = bar.findChildren<QToolButton*>().first();
    bar.setPlaying(false);
    const QString paused = play->accessibleName();
    const qint64 icon = play->icon().cacheKey();
    bar.setPlaying(true);
    EXPECT_EQ(paused.toStdString(), "播放");
    EXPECT_EQ(play->accessibleName().toStdString(), "暂停");
    EXPECT_NE(play->icon().cacheKey(), icon);
}

} // namespace
} // namespace window_tests
