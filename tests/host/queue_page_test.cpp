// Pages as lines.

#include "SmallDay.h"

#include "host/DayPlayer.h"
#include "host/QueuePage.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using testing_support::SmallDay;

struct Page
{
    explicit Page(const SmallDay& small)
    {
        EXPECT_TRUE(engine.open(small.day.detail));
        const host::DayTimeline timeline(small.day);
        host::DayPlayer player(timeline, engine, {});
        player.playUntil(small.time());
        player.quiet(3);
        engine.recalculate();
        time = small.time();
    }

    std::string text(const host::PageStyle& style) const
    {
        return host::pageLines(engine, time, style).join(QLatin1Char('\n')).toStdString();
    }

    host::SteppedEngine engine;
    std::int64_t time = 0;
};

SmallDay smallBook()
{
    SmallDay small;
    small.buy(1, 10.00, 300)
        .buy(2, 10.00, 150000)
        .buy(3, 9.99, 500000)
        .sell(4, 10.01, 250)
        .sell(5, 10.01, 700);
    small.sell(6, 10.03, 100).snapshot().at(1);
    small.sell(7, 10.00, 100).deal(1, 7, 10.00, 100).at(3).snapshot();
    return small;
}

TEST(QueuePage, PrintsTheHeaderAndTheRowsOfBothSidesAligned)
{
    host::PageStyle style;
    style.levels = 5;
    EXPECT_EQ(Page(smallBook()).text(style), "SH600999 沪市模拟 2023-02-01 09:30:03 最新 10.00\n"
                                             "委卖队列(共10档,十档内3笔,3.7手/笔)\n"
                                             "委买队列(共10档,十档内3笔,2167.3手/笔)\n"
                                             "档位      价格       手    笔      均  队列\n"
                                             "卖五         -\n"
                                             "卖四         -\n"
                                             "卖三         -\n"
                                             "卖二     10.03        1     1     1.0  1\n"
                                             "卖一     10.01       10     2     5.0  2.5 7\n"
                                             "-------------------------------------\n"
                                             "买一     10.00     1502     2   751.0  2 1500*\n"
                                             "买二      9.99     5000     1  5000.0  5000**\n"
                                             "买三         -\n"
                                             "买四         -\n"
                                             "买五         -");
}

TEST(QueuePage, CountsTheOrdersThatItDoesNotPrint)
{
    SmallDay small;
    for (int number = 1; number <= 9; ++number)
        small.buy(number, 10.00, 100 * number);
    small.sell(20, 10.01, 100).snapshot();
    host::PageStyle style;
    style.levels = 5;
    style.orders = 3;
    const QStringList lines = host::pageLines(Page(small).engine, small.time(), style);
    EXPECT_EQ(lines[10].toStdString(), "买一     10.00       45     9     5.0  1 2 3 ... +6");
    style.orders = 0;
    EXPECT_EQ(host::pageLines(Page(small).engine, small.time(), style)[10].toStdString(),
              "买一     10.00       45     9     5.0  ... +9");
}

TEST(QueuePage, AnOrderOnItsWayOutIsMarked)
{
    SmallDay small = smallBook();
    small.at(3.1).sell(8, 10.03, 400).deal(1, 9, 10.00, 100).cancelSell(6, 100).cancelSell(4, 250);
    host::SteppedEngine engine;
    ASSERT_TRUE(engine.open(small.day.detail));
    const host::DayTimeline timeline(small.day);
    host::DayPlayer player(timeline, engine, {});
    while (player.step()) {
    }
    player.flush();
    engine.refreshTick(); // marks; the next one takes away
    engine.recalculate();
    host::PageStyle style;
    style.levels = 5;
    const std::string page =
        host::pageLines(engine, small.time(), style).join(QLatin1Char('\n')).toStdString();
    EXPECT_NE(page.find("  1(-1) 1500*\n"), std::string::npos) << page;
    EXPECT_NE(page.find("  x1 4\n"), std::string::npos) << page;
    EXPECT_NE(page.find("  x2.5 7\n"), std::string::npos) << page;
}

TEST(QueuePage, ColoursChangeNothingButTheColours)
{
    const Page page(smallBook());
    host::PageStyle plain;
    host::PageStyle colored;
    colored.color = true;
    QString text = QString::fromStdString(page.text(colored));
    EXPECT_TRUE(text.contains(QStringLiteral("\x1b[1;35m5000**\x1b[0m")));
    EXPECT_TRUE(text.contains(QStringLiteral("\x1b[33m1500*\x1b[0m")));
    text.remove(QRegExp(QStringLiteral("\x1b\\[[0-9;]*m")));
    EXPECT_EQ(text.toStdString(), page.text(plain));
}

TEST(QueuePage, AnEngineWithoutRowsPrintsEmptyOnes)
{
    SmallDay small;
    host::SteppedEngine engine;
    ASSERT_TRUE(engine.open(small.day.detail));
    host::PageStyle style;
    style.levels = 99;
    const QStringList lines = host::pageLines(engine, small.time(), style);
    ASSERT_EQ(lines.size(), 23);
    EXPECT_EQ(lines[2].toStdString(), "卖十         -");
    EXPECT_EQ(lines.last().toStdString(), "买十         -");
}

TEST(QueuePage, TheJsonHasTheSameFigures)
{
    host::PageStyle style;
    style.orders = 1;
    const Page page(smallBook());
    const nlohmann::json json = host::pageJson(page.engine, page.time, style);
    EXPECT_EQ(json["header"].size(), 2u);
    EXPECT_EQ(json["rows"].size(), 20u);
    const nlohmann::json& best = json["rows"][10];
    EXPECT_EQ(best["side"], "buy");
    EXPECT_EQ(best["name"], "买一");
    EXPECT_EQ(best["price"], 10.0);
    EXPECT_EQ(best["lots"], 1502);
    EXPECT_EQ(best["count"], 2);
    EXPECT_EQ(best["listed"], 2);
    ASSERT_EQ(best["orders"].size(), 1u);
    EXPECT_EQ(best["orders"][0]["number"], 1);
    EXPECT_EQ(best["orders"][0]["lots"], 2);
    EXPECT_EQ(json["rows"][11]["orders"][0]["type"], "super");
}

TEST(LotsText, HasNoNeedlessZeros)
{
    EXPECT_EQ(host::lotsText(12).toStdString(), "12");
    EXPECT_EQ(host::lotsText(100).toStdString(), "100");
    EXPECT_EQ(host::lotsText(0.5).toStdString(), "0.5");
    EXPECT_EQ(host::lotsText(1234.25).toStdString(), "1234.25");
    EXPECT_EQ(host::lotsText(0).toStdString(), "0");
    EXPECT_EQ(host::lotsText(std::numeric_limits<double>::quiet_NaN()).toStdString(), "-");
}

} // namespace
