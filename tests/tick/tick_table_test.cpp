// The lists as files.

#include "TickPanels.h"

#include "tick/tick_table.h"

#include <QBuffer>

#include <boost/make_shared.hpp>

using namespace testing_support;
using namespace Kel;

namespace {

class TickTables : public testing::Test
{
protected:
    TickTables()
    {
        addInstruments();
        deals->setStock(kStock);
        entrusts->setStock(kStock);
        deals->transactionCallback(
            0, 1, wrap({deal(1, 5, 6, 10.5, 12300, at(10, 0, 7), 1), deal(2, 7, 6, 10, 100, at(9, 25, 0))}));
        entrusts->entrustCallback(0, 1, wrap({order(5, 2, 9.99, 90000, at(10, 0, 1))}));
        entrusts->transactionCallback(
            0, 1, wrap({cancel(1, 5, 5, 5500, at(10, 0, 3)), cancel(2, 9, 0, 5500, at(10, 0, 4))}));
    }

    static QByteArray written(const TickTable& table, ETableEncoding encoding)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        EXPECT_EQ(writeCsv(table, buffer, encoding, {}), ETableResult::eWritten);
        return buffer.data();
    }

    boost::shared_ptr<CModelDepthTransaction> deals = boost::make_shared<CModelDepthTransaction>();
    boost::shared_ptr<CModelDepthEntrust> entrusts = boost::make_shared<CModelDepthEntrust>();
};

} // namespace

TEST_F(TickTables, DealsInUtf8BeginWithTheByteOrderMark)
{
    EXPECT_EQ(written(dealTable(deals), ETableEncoding::eUtf8WithMark).toStdString(),
              "\xEF\xBB\xBF时间,价格(元),成交量(手),主动方,买方委托号,卖方委托号\r\n"
              "09:25:00,10.00,1,,7,6\r\n"
              "10:00:07,10.50,123,买,5,6\r\n");
}

TEST_F(TickTables, GbkHasNoMark)
{
    EXPECT_TRUE(written(dealTable(deals), ETableEncoding::eGbk)
                    .startsWith("\xCA\xB1\xBC\xE4,\xBC\xDB\xB8\xF1(\xD4\xAA),"));
}

TEST_F(TickTables, OrdersAndCancelsHaveTheirColumns)
{
    EXPECT_EQ(written(orderTable(entrusts), ETableEncoding::eUtf8WithMark).mid(3).toStdString(),
              "时间,价格(元),委托量(手),金额(元),方向,类型,委托号\r\n"
              "10:00:01,9.99,900,899100.00,卖,S,5\r\n");
    EXPECT_EQ(written(cancelTable(entrusts), ETableEncoding::eUtf8WithMark).mid(3).toStdString(),
              "时间,价格(元),撤单量(手),金额(元),方向,委托号\r\n"
              "10:00:03,9.99,55,54945.00,卖,5\r\n"
              "10:00:04,0.00,55,,,9\r\n");
}

TEST_F(TickTables, AreThoseOfTheFilteredList)
{
    SDepthFilterParam param;
    param.relate = 1;
    param.volume = 100;
    deals->setFilterParam(param);
    EXPECT_EQ(written(dealTable(deals), ETableEncoding::eUtf8WithMark).count("\r\n"), 2);
}

TEST_F(TickTables, ProgressGoesToTheEndAndMayStopTheWriting)
{
    Batch batch;
    for (int number = 10; number < 12010; ++number)
        batch.push_back(deal(number, 5, 6, 10, 100, at(10, 0, 8)));
    deals->transactionCallback(0, 1, wrap(batch));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    std::vector<int> seen;
    const auto notice = [&](int done, int total) {
        EXPECT_EQ(total, 12002);
        seen.push_back(done);
        return true;
    };
    EXPECT_EQ(writeCsv(dealTable(deals), buffer, ETableEncoding::eUtf8WithMark, notice),
              ETableResult::eWritten);
    EXPECT_EQ(seen, (std::vector<int>{0, 5000, 10000, 12002}));
    EXPECT_EQ(buffer.data().count("\r\n"), 12003);
    EXPECT_EQ(writeCsv(dealTable(deals), buffer, ETableEncoding::eUtf8WithMark,
                       [](int done, int) { return done < 5000; }),
              ETableResult::eStopped);
}

TEST_F(TickTables, ADeviceThatTakesNothingIsAFailure)
{
    QBuffer closed;
    closed.open(QIODevice::ReadOnly);
    EXPECT_EQ(writeCsv(dealTable(deals), closed, ETableEncoding::eUtf8WithMark, {}),
              ETableResult::eDeviceFull);
}

namespace {

/// Writes a table of `count` rows and does something once 5000 of them are written; the lines.
QList<QByteArray> writtenWith(const TickTable& table, const std::function<void()>& between,
                              ETableResult expected)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const auto progress = [&](int done, int) {
        if (done == 5000)
            between();
        return true;
    };
    EXPECT_EQ(writeCsv(table, buffer, ETableEncoding::eUtf8WithMark, progress), expected);
    QList<QByteArray> lines = buffer.data().split('\n');
    lines.removeFirst();
    lines.removeLast();
    return lines;
}

Batch manyDeals(int from)
{
    Batch batch;
    for (int number = from; number < from + 8000; ++number)
        batch.push_back(deal(number, number, 6, 10, 100, at(10, 1, 0) + number));
    return batch;
}

} // namespace

TEST_F(TickTables, RowsThatComeMeanwhileNeitherDoubleNorDropOnes)
{
    deals->clear();
    deals->transactionCallback(0, 1, wrap(manyDeals(100)));
    const QList<QByteArray> plain = writtenWith(
        dealTable(deals), [] {}, ETableResult::eWritten);
    ASSERT_EQ(plain.size(), 8000);
    const auto late = [&] {
        deals->transactionCallback(
            0, 1,
            wrap({deal(1, 1, 2, 9, 100, at(10, 1, 0)), deal(2, 1, 2, 9, 100, at(10, 1, 3)),
                  deal(99999, 1, 2, 9, 100, at(14, 0, 0))}));
    };
    QList<QByteArray> grown = plain;
    grown.append("14:00:00,9.00,1,卖,1,2\r");
    EXPECT_EQ(writtenWith(dealTable(deals), late, ETableResult::eWritten), grown)
        << "those that belong before what was written are left out";

    Batch orders;
    for (int number = 100; number < 8100; ++number)
        orders.push_back(order(number, 1, 10, 100, at(10, 1, 0) + number));
    entrusts->clear();
    entrusts->entrustCallback(0, 1, wrap(orders));
    const QList<QByteArray> plainOrders = writtenWith(
        orderTable(entrusts), [] {}, ETableResult::eWritten);
    ASSERT_EQ(plainOrders.size(), 8000);
    const auto lateOrders = [&] {
        entrusts->entrustCallback(0, 1, wrap({order(1, 1, 10, 100, at(10, 1, 0))}));
    };
    EXPECT_EQ(writtenWith(orderTable(entrusts), lateOrders, ETableResult::eWritten), plainOrders);
}

TEST_F(TickTables, ALateRowBehindWhatWasWrittenCutsNoRowAtTheEnd)
{
    deals->clear();
    deals->transactionCallback(0, 1, wrap(manyDeals(100)));
    const auto late = [&] { deals->transactionCallback(0, 1, wrap({deal(7, 1, 2, 9, 100, at(10, 1, 7))})); };
    const QList<QByteArray> lines = writtenWith(dealTable(deals), late, ETableResult::eWritten);
    ASSERT_EQ(lines.size(), 8001);
    EXPECT_EQ(lines.count("10:01:07,9.00,1,卖,1,2\r"), 1);
    EXPECT_EQ(lines.back(), "10:01:08,10.00,1,买,8099,6\r");
}

TEST_F(TickTables, ProgressCountsRowsThatComeMeanwhile)
{
    deals->clear();
    deals->transactionCallback(0, 1, wrap(manyDeals(100)));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    std::vector<std::pair<int, int>> seen;
    const auto progress = [&](int done, int total) {
        if (done == 0)
            deals->transactionCallback(0, 1, wrap({deal(99999, 1, 2, 9, 100, at(14, 0, 0))}));
        seen.emplace_back(done, total);
        return true;
    };
    EXPECT_EQ(writeCsv(dealTable(deals), buffer, ETableEncoding::eUtf8WithMark, progress),
              ETableResult::eWritten);
    EXPECT_EQ(seen, (std::vector<std::pair<int, int>>{{0, 8000}, {5000, 8001}, {8001, 8001}}));
}

TEST_F(TickTables, CancelsThatAreJudgedAgainMeanwhileNeitherDoubleNorDropOthers)
{
    SDepthFilterParam param;
    param.unsell = false;
    entrusts->clear();
    entrusts->setFilterParam(param);
    Batch batch;
    for (int number = 1; number <= 8000; ++number)
        batch.push_back(cancel(number, number, 0, 100, at(10, 1, 0)));
    entrusts->transactionCallback(0, 1, wrap(batch));
    const auto sold =
        [&] { // three of the written ones turn out to be of sell orders, the last one among them
            entrusts->entrustCallback(
                0, 1,
                wrap({order(10, 2, 10, 100, at(9, 1, 0)), order(20, 2, 10, 100, at(9, 1, 0)),
                      order(5000, 2, 10, 100, at(9, 1, 0))}));
        };
    const QList<QByteArray> lines = writtenWith(cancelTable(entrusts), sold, ETableResult::eWritten);
    EXPECT_EQ(entrusts->cancelCount, 7997);
    ASSERT_EQ(lines.size(), 8000) << "those that were written stay";
    for (int line = 0; line < lines.size(); ++line)
        ASSERT_TRUE(lines[line].endsWith("," + QByteArray::number(line + 1) + "\r")) << line;
}

TEST_F(TickTables, OfAListThatBecomesAnotherOneAreNotWrittenOn)
{
    for (const int change : {0, 1, 2}) {
        deals->transactionCallback(0, 0, wrap(manyDeals(100)));
        const auto become = [&] {
            SDepthFilterParam param;
            param.volume = change;
            if (change == 0)
                deals->clear();
            else if (change == 1)
                deals->setFilterParam(param);
            else
                deals->transactionCallback(0, 0, wrap(manyDeals(100)));
        };
        EXPECT_EQ(writtenWith(dealTable(deals), become, ETableResult::eListChanged).size(), 5000) << change;
    }
}

TEST(WriteCsv, GivesUpAWalkThatDoesNotEnd)
{
    TickTable table;
    table.rowCount = [] { return 3; };
    table.walk = [] {
        return [asked = 0](int most, std::vector<QStringList>& rows) mutable {
            ++asked;
            EXPECT_LT(asked, 20) << "it goes on";
            rows.assign(asked < 20 ? static_cast<std::size_t>(most) : 0, QStringList{QStringLiteral("x")});
            return true;
        };
    };
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_EQ(writeCsv(table, buffer, ETableEncoding::eUtf8WithMark, {}), ETableResult::eListChanged);
}

TEST(CsvCell, IsQuotedOnlyWhereItMust)
{
    EXPECT_EQ(csvCell(QStringLiteral("10.50")), QStringLiteral("10.50"));
    EXPECT_EQ(csvCell(QStringLiteral("a,b")), QStringLiteral("\"a,b\""));
    EXPECT_EQ(csvCell(QStringLiteral("a\"b")), QStringLiteral("\"a\"\"b\""));
    EXPECT_EQ(csvCell(QStringLiteral("a\nb")), QStringLiteral("\"a\nb\""));
}
