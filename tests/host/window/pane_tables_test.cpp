// Tables of what ladder and quote panels show, and the texts that all tables are made of.

#include "host/window/tables/book_tables.h"
#include "host/window/tables/text_tables.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <QStandardItemModel>

#include <limits>

namespace window_tests {
namespace {

constexpr double kTick = 0.01;

std::vector<QStringList> rowsOf(const Kel::TickTable& table, int most = 100)
{
    std::vector<QStringList> all;
    std::vector<QStringList> rows;
    const Kel::TickTableWalk walk = table.walk();
    while (walk(most, rows) && !rows.empty())
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char('|'));
}

boost::shared_ptr<Kel::EntrustData> entry(double price, int volume, int orders, int change)
{
    auto data = boost::make_shared<Kel::EntrustData>();
    data->price = price;
    data->volume = volume;
    data->orderCount = orders;
    data->change = change;
    return data;
}

TEST(TextTables, RowsAreWalkedInPiecesOfAnySizeAndEachWalkBeginsAnew)
{
    std::vector<QStringList> rows;
    for (int i = 0; i < 7; ++i)
        rows.push_back({QString::number(i)});
    const Kel::TickTable table = host::fixedTable({QStringLiteral("n")}, rows);
    EXPECT_EQ(table.rowCount(), 7);
    for (const int most : {1, 3, 7, 100})
        EXPECT_EQ(rowsOf(table, most), rows) << most;
}

TEST(TextTables, ATextHasALineForTheNamesAndOneForEachRow)
{
    const Kel::TickTable table = host::fixedTable(words("a|b"), {words("1|2"), words("3|")});
    EXPECT_EQ(host::tableText(table, 2), QStringLiteral("a\tb\n1\t2\n3\t\n"));
}

TEST(TextTables, ATextOfTooManyRowsIsNoneRatherThanAPart)
{
    const Kel::TickTable table = host::fixedTable(words("a"), {words("1"), words("2")});
    EXPECT_EQ(host::tableText(table, 1), QString());
}

TEST(TextTables, ATextOfAListThatChangedMeanwhileIsNone)
{
    Kel::TickTable table = host::fixedTable(words("a"), {words("1")});
    table.walk = [] { return [](int, std::vector<QStringList>&) { return false; }; };
    EXPECT_EQ(host::tableText(table, 10), QString());
}

TEST(TextTables, TabsAndLineEndsInACellDoNotMakeOtherCells)
{
    EXPECT_EQ(host::rowText({QStringLiteral("a\tb"), QStringLiteral("c\nd\re")}),
              QStringLiteral("a b\tc d e"));
}

TEST(TextTables, NumbersAreBare)
{
    EXPECT_EQ(host::plainLots(1234567), QStringLiteral("1234567"));
    EXPECT_EQ(host::plainLots(0.5), QStringLiteral("0.5"));
    EXPECT_EQ(host::plainLots(100), QStringLiteral("100"));
    EXPECT_EQ(host::plainLots(0), QStringLiteral("0"));
    EXPECT_EQ(host::plainLots(std::numeric_limits<double>::infinity()), QString());
    EXPECT_EQ(host::plainPrice(1234.5, kTick), QStringLiteral("1234.50"));
    EXPECT_EQ(host::plainPrice(1.005, 0.001), QStringLiteral("1.005"));
    for (const double none :
         {0.0, std::numeric_limits<double>::max(), std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(host::plainPrice(none, kTick), QString()) << none;
}

TEST(TextTables, OfAModelTheWantedColumnsAreTaken)
{
    QStandardItemModel model(2, 3);
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column)
            model.setItem(row, column, new QStandardItem(QString::number(row * 10 + column)));
    }
    const Kel::TickTable table = host::modelTable(model, {2, 0}, words("x|y"));
    model.clear();
    EXPECT_EQ(table.columns, words("x|y"));
    EXPECT_EQ(rowsOf(table), (std::vector<QStringList>{words("2|0"), words("12|10")}));
}

class Ladder : public ::testing::Test
{
protected:
    const host::LadderRows::Levels sells{entry(10.01, 300, 4, 20), entry(10.03, 12345, 99, -5)};
    const host::LadderRows::Levels buys{entry(9.98, 50, 1, 0), entry(10.00, 700, 8, 1)};
    const host::LadderRows ladder{sells, buys, 10.005, 12, kTick};
};

TEST_F(Ladder, GoesFromTheHighestPriceToTheLowestWithTheLatestBetween)
{
    const Kel::TickTable table = host::ladderTable(ladder);
    EXPECT_EQ(table.columns, words("方向|档位|价格(元)|量(手)|笔数|变化(手)"));
    EXPECT_EQ(rowsOf(table),
              (std::vector<QStringList>{words("卖|2|10.03|12345|99|-5"), words("卖|1|10.01|300|4|20"),
                                        words("最新||10.01|12||"), words("买|1|10.00|700|8|1"),
                                        words("买|2|9.98|50|1|0")}));
}

TEST_F(Ladder, WithoutADealHasNoLatestRow)
{
    const host::LadderRows quiet{sells, buys, std::numeric_limits<double>::max(), -1, kTick};
    EXPECT_EQ(rowsOf(host::ladderTable(quiet)).size(), 4U);
}

TEST_F(Ladder, GivesOnePriceOfItsSide)
{
    EXPECT_EQ(host::ladderCells(ladder, false, 10.03), words("卖|2|10.03|12345|99|-5"));
    EXPECT_EQ(host::ladderCells(ladder, true, 9.98), words("买|2|9.98|50|1|0"));
    EXPECT_EQ(host::ladderCells(ladder, true, 10.03), QStringList());
}

TEST(PriceOrders, StandInOrderOfArrivalWithTheirRestInLots)
{
    Kel::SingleQueue queue;
    queue.isBuy = 1;
    queue.price = 10;
    const auto add = [&queue](long long number, std::int64_t time, int shares, int dealt, int state) {
        auto quote = std::make_shared<Kel::SingleQuote>();
        quote->time = time;
        quote->volume = shares;
        quote->dealtVolume = dealt;
        quote->state = state;
        queue.quotes.emplace_back(number, quote);
    };
    constexpr std::int64_t kHalfPastNine = 1675215000123; // 2023-02-01 at the exchange
    add(17, kHalfPastNine, 1000, 300, 2);
    add(9000000001, kHalfPastNine + 1000, 250, 0, 1);
    const Kel::TickTable table = host::priceOrderTable(queue, kTick, 100);
    EXPECT_EQ(table.columns, words("方向|价格(元)|排位|委托号|时间|剩余(手)|已成交(手)|状态"));
    EXPECT_EQ(rowsOf(table),
              (std::vector<QStringList>{words("买|10.00|1|17|09:30:00.123|7|3|部成"),
                                        words("买|10.00|2|9000000001|09:30:01.123|2.5|0|新")}));
}

class Quote : public ::testing::Test
{
protected:
    Quote()
    {
        quote.bidLevels.resize(10);
        quote.askLevels.resize(10);
        quote.askLevels[9] = {true, 10.01, 300, 20};
        quote.askLevels[8] = {true, 10.02, 12345, 0};
        quote.bidLevels[0] = {true, 10.00, 7, -3};
        quote.lastPrice = 10.01;
        quote.newVolume = 4;
    }

    Kel::EntrustStatusData quote;
};

TEST_F(Quote, HasItsRowsAsTheyStandOneBelowTheOther)
{
    const Kel::TickTable table = host::quoteTable(quote, 5);
    EXPECT_EQ(table.columns, words("方向|档位|价格(元)|量(手)|变化(手)"));
    const std::vector<QStringList> rows = rowsOf(table);
    ASSERT_EQ(rows.size(), 11U);
    EXPECT_EQ(rows[0], words("卖|5|||"));
    EXPECT_EQ(rows[3], words("卖|2|10.02|12345|0"));
    EXPECT_EQ(rows[4], words("卖|1|10.01|300|20"));
    EXPECT_EQ(rows[5], words("最新||10.01|4|"));
    EXPECT_EQ(rows[6], words("买|1|10.00|7|-3"));
    EXPECT_EQ(rows[10], words("买|5|||"));
    EXPECT_EQ(rowsOf(host::quoteTable(quote, 10)).size(), 21U);
    EXPECT_EQ(host::quoteCells(quote, 10, 9), rows[4]);
}

TEST_F(Quote, HasNoRowOutside)
{
    EXPECT_EQ(host::quoteCells(quote, 5, -1), QStringList());
    EXPECT_EQ(host::quoteCells(quote, 5, 11), QStringList());
}

} // namespace
} // namespace window_tests
