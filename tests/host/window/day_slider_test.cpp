// The line of the day to seek on.

#include "host/window/DaySlider.h"

#include "host/window/WindowFixture.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace window_tests {
namespace {

class Slider : public ::testing::Test
{
protected:
    Slider()
    {
        slider.setDay(range);
        slider.resize(628, 40);
        slider.show();
    }

    const host::DayRange range{utils::exchangeTime(20230201, 9, 0, 0, 0),
                               utils::exchangeTime(20230201, 15, 0, 0, 0)};
    const std::int64_t noon = utils::exchangeTime(20230201, 12, 0, 0, 0);
    host::DaySlider slider;
};

TEST_F(Slider, MapsMomentsToPixelsAndBack)
{
    EXPECT_EQ(slider.xOf(range.begin), 14);
    EXPECT_EQ(slider.xOf(range.end), 614);
    EXPECT_EQ(slider.xOf(noon), 314);
    EXPECT_EQ(slider.momentAt(314), noon);
    EXPECT_EQ(slider.momentAt(-50), range.begin);
    EXPECT_EQ(slider.momentAt(5000), range.end);
    EXPECT_EQ(slider.xOf(range.begin - 1000), 14);
    EXPECT_EQ(slider.xOf(range.end + 1000), 614);
}

TEST_F(Slider, WithoutADayStandsAtItsBegin)
{
    slider.setDay({});
    EXPECT_EQ(slider.xOf(noon), 14);
    EXPECT_EQ(slider.momentAt(314), 0);
    slider.grab();
}

TEST_F(Slider, FollowsTheReplay)
{
    QSignalSpy sought(&slider, &host::DaySlider::sought);
    slider.follow(noon);
    EXPECT_EQ(slider.moment(), noon);
    letRun(300);
    EXPECT_EQ(sought.count(), 0);
}

TEST_F(Slider, AClickSeeksToWhereItFalls)
{
    QSignalSpy sought(&slider, &host::DaySlider::sought);
    QTest::mouseClick(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(314, 13));
    ASSERT_EQ(sought.count(), 1);
    EXPECT_EQ(sought[0][0].toLongLong(), noon);
}

TEST_F(Slider, DraggingLooksAndTheReleaseSeeks)
{
    QSignalSpy looked(&slider, &host::DaySlider::looked);
    QSignalSpy sought(&slider, &host::DaySlider::sought);
    QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(100, 13));
    QMouseEvent move(QEvent::MouseMove, QPointF(314, 13), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&slider, &move);
    EXPECT_TRUE(slider.inHand());
    slider.follow(range.begin);
    EXPECT_EQ(slider.moment(), noon) << "the replay does not pull it away";
    EXPECT_EQ(sought.count(), 0);
    EXPECT_EQ(looked.back()[0].toLongLong(), noon);
    QTest::mouseRelease(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(314, 13));
    ASSERT_EQ(sought.count(), 1);
    EXPECT_EQ(sought[0][0].toLongLong(), noon);
    EXPECT_FALSE(slider.inHand());
}

TEST_F(Slider, KeysSeekOnceWhenTheyRest)
{
    slider.follow(noon);
    QSignalSpy sought(&slider, &host::DaySlider::sought);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&slider, Qt::Key_PageUp);
    EXPECT_TRUE(slider.inHand());
    EXPECT_EQ(sought.count(), 0);
    ASSERT_TRUE(waitUntil([&] { return sought.count() > 0; }));
    EXPECT_EQ(sought[0][0].toLongLong(), noon + 15 * 60 * 1000);
    EXPECT_FALSE(slider.inHand());
}

TEST_F(Slider, OtherButtonsDoNothing)
{
    QSignalSpy sought(&slider, &host::DaySlider::sought);
    QTest::mouseClick(&slider, Qt::RightButton, Qt::NoModifier, QPoint(314, 13));
    EXPECT_EQ(sought.count(), 0);
    EXPECT_EQ(slider.moment(), range.begin);
}

} // namespace
} // namespace window_tests
