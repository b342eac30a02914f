// What the line of the replay shows besides the moment, and what the bar tells of a lag.

#include "host/window/DaySlider.h"
#include "host/window/ReplayBar.h"

#include "host/window/WindowFixture.h"
#include "host/window/window_style.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "support/picture_folder.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace window_tests {
namespace {

std::int64_t at(int hour, int minute, int second = 0)
{
    return utils::exchangeTime(20230201, hour, minute, second, 0);
}

const host::DayRange kRange{at(9, 15), at(15, 0)};

std::vector<host::PhaseMark> phases()
{
    return host::phasesOf(kRange, {{at(9, 30), at(11, 30)}, {at(13, 0), at(15, 0)}}, "SH");
}

QColor themeColor(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QString::fromLatin1(key));
}

/// Columns in which a picture shows a colour.
std::vector<int> columnsOf(const QImage& picture, const QColor& color)
{
    std::vector<int> columns;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (picture.pixelColor(x, y) == color) {
                columns.push_back(x);
                break;
            }
        }
    }
    return columns;
}

class MarkedSlider : public ::testing::Test
{
protected:
    MarkedSlider()
    {
        slider.setDay(kRange);
        slider.resize(14 + 345 * 2 + 14, slider.sizeHint().height()); // two pixels a minute
        slider.setPhases(phases());
    }

    QImage picture() { return slider.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    host::DaySlider slider;
};

TEST_F(MarkedSlider, TellsPhaseGapAndTimeOfAPlace)
{
    EXPECT_EQ(slider.tipAt(slider.xOf(at(11, 30))), QStringLiteral("午间休市 11:30:00"));
    EXPECT_EQ(slider.tipAt(slider.xOf(at(9, 15)) + 3), QStringLiteral("开盘集合竞价 09:15:00"));
    EXPECT_EQ(slider.tipAt(slider.xOf(at(14, 59))), QStringLiteral("收盘 15:00:00")) << "the nearest";
    EXPECT_EQ(slider.tipAt(slider.xOf(at(10, 30))), QStringLiteral("10:30:00"));
    slider.setGaps({{at(10, 29), at(10, 31)}});
    EXPECT_EQ(slider.tipAt(slider.xOf(at(10, 30))), QStringLiteral("10:30:00")) << "not known yet";
    slider.follow(at(12, 0));
    EXPECT_EQ(slider.tipAt(slider.xOf(at(10, 30))), QStringLiteral("数据缺口 10:29:00 – 10:31:00"));
    slider.setDay({});
    EXPECT_EQ(slider.tipAt(50), QString());
}

TEST_F(MarkedSlider, ShowsGapsUpToTheMoment)
{
    slider.setGaps({{at(10, 0), at(10, 10)}, {at(11, 0), at(11, 20)}, {at(14, 0), at(14, 10)}});
    slider.follow(at(9, 59));
    EXPECT_TRUE(slider.gapsShown().empty());
    slider.follow(at(11, 10));
    ASSERT_EQ(slider.gapsShown().size(), 2U);
    EXPECT_EQ(slider.gapsShown()[0].end, at(10, 10));
    EXPECT_EQ(slider.gapsShown()[1].begin, at(11, 0));
    EXPECT_EQ(slider.gapsShown()[1].end, at(11, 10)) << "what is to come is not known yet";
    slider.follow(at(15, 0));
    EXPECT_EQ(slider.gapsShown().size(), 3U);
}

TEST_F(MarkedSlider, PaintsGapsOverTheLineAndAShortOneSoThatItIsSeen)
{
    slider.setGaps({{at(10, 0), at(10, 10)}, {at(11, 0), at(11, 0, 1)}});
    slider.follow(at(9, 30));
    EXPECT_TRUE(columnsOf(picture(), themeColor("clr_state_gap")).empty());
    slider.follow(at(14, 0));
    const int left = slider.xOf(at(10, 0));
    const int other = slider.xOf(at(11, 0));
    std::vector<int> expected;
    for (int x = left; x < left + 20; ++x)
        expected.push_back(x);
    expected.push_back(other);
    expected.push_back(other + 1);
    EXPECT_EQ(columnsOf(picture(), themeColor("clr_state_gap")), expected);
}

TEST_F(MarkedSlider, AnotherDayHasNoPhasesAndGapsOfTheOneBefore)
{
    slider.setGaps({{at(9, 15), at(9, 20)}});
    slider.follow(at(14, 0));
    slider.setDay(kRange);
    slider.follow(at(14, 0));
    EXPECT_TRUE(slider.gapsShown().empty());
    EXPECT_EQ(slider.tipAt(slider.xOf(at(11, 30))), QStringLiteral("11:30:00"));
}

class MarkedBar : public ::testing::Test
{
protected:
    MarkedBar()
    {
        bar.setDay(kRange);
        bar.resize(1280, bar.sizeHint().height());
        bar.show();
    }
    ~MarkedBar() override
    {
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QStringLiteral("dark"));
    }

    QLabel* lag() const { return bar.findChild<QLabel*>(QStringLiteral("ReplayLag")); }

    host::ReplayBar bar;
};

TEST_F(MarkedBar, TellsALagInWords)
{
    EXPECT_FALSE(lag()->isVisible());
    bar.setLag(412.4);
    EXPECT_TRUE(lag()->isVisible());
    EXPECT_EQ(lag()->text(), QStringLiteral("滞后，实际 412 倍"));
    bar.setLag(0.42);
    EXPECT_EQ(lag()->text(), QStringLiteral("滞后，实际 0.4 倍"));
    bar.setLag(0);
    EXPECT_FALSE(lag()->isVisible());
}

TEST_F(MarkedBar, TheLineKeepsItsPlaceWhenALagComes)
{
    letRun(10);
    const QRect before = bar.findChild<host::DaySlider*>()->geometry();
    bar.setLag(999);
    letRun(10);
    EXPECT_EQ(bar.findChild<host::DaySlider*>()->geometry(), before);
    EXPECT_GE(lag()->width(), lag()->fontMetrics().horizontalAdvance(lag()->text())) << "nothing is cut";
}

TEST_F(MarkedBar, LooksAsItShould)
{
    bar.setPhases(phases());
    bar.setGaps({{at(9, 40), at(9, 52)}, {at(14, 30), at(14, 40)}});
    bar.setLag(412);
    bar.setMoment(at(13, 40));
    for (const char* theme : {"dark", "light"}) {
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QString::fromLatin1(theme));
        bar.setStyleSheet(host::windowStyleSheet());
        for (const int width : {1280, 1920}) {
            bar.resize(width, bar.sizeHint().height());
            letRun(10);
            const QString file = QStringLiteral("%1/replay_bar_%2_%3.png")
                                     .arg(testing_support::pictureFolder(QStringLiteral("pictures")),
                                          QString::fromLatin1(theme))
                                     .arg(width);
            EXPECT_TRUE(bar.grab().save(file));
            const QImage picture = bar.grab().toImage().convertToFormat(QImage::Format_RGB32);
            EXPECT_FALSE(columnsOf(picture, themeColor("clr_state_gap")).empty());
        }
    }
}

} // namespace
} // namespace window_tests
