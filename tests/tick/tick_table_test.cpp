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
        EXPECT_TRUE(writeCsv(table, buffer, encoding, {}));
        return buffer.data();
    }

    boost::shared_ptr<CModelDepthTransaction> deals = boost::make_shared<CModelDepthTransaction>();
    boost::shared_ptr<CModelDepthEntrust> entrusts = boost::make_shared<CModelDepthEntrust>();
};

} // namespace

TEST_F(TickTables, DealsInUtf8BeginWithTheByteOrderMark)
{
    EXPECT_EQ(written(dealTable(deals), ETableEncoding::eUtf8WithMark).toStdString(),
              "\xEF\xBB\xBF时间,价格,成交量(手),主动方,买方委托号,卖方委托号\r\n"
              "09:25:00,10.00,1,,7,6\r\n"
              "10:00:07,10.50,123,买,5,6\r\n");
}

TEST_F(TickTables, GbkHasNoMark)
{
    EXPECT_TRUE(
        written(dealTable(deals), ETableEncoding::eGbk).startsWith("\xCA\xB1\xBC\xE4,\xBC\xDB\xB8\xF1,"));
}

TEST_F(TickTables, OrdersAndCancelsHaveTheirColumns)
{
    EXPECT_EQ(written(orderTable(entrusts), ETableEncoding::eUtf8WithMark).mid(3).toStdString(),
              "时间,价格,委托量(手),金额(元),方向,类型,委托号\r\n"
              "10:00:01,9.99,900,899100.00,卖,S,5\r\n");
    EXPECT_EQ(written(cancelTable(entrusts), ETableEncoding::eUtf8WithMark).mid(3).toStdString(),
              "时间,价格,撤单量(手),金额(元),方向,委托号\r\n"
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
    EXPECT_TRUE(writeCsv(dealTable(deals), buffer, ETableEncoding::eUtf8WithMark, [&](int done, int total) {
        EXPECT_EQ(total, 12002);
        seen.push_back(done);
        return true;
    }));
    EXPECT_EQ(seen, (std::vector<int>{0, 5000, 10000, 12002}));
    EXPECT_EQ(buffer.data().count("\r\n"), 12003);
    EXPECT_FALSE(writeCsv(dealTable(deals), buffer, ETableEncoding::eUtf8WithMark,
                          [](int done, int) { return done < 5000; }));
}

TEST_F(TickTables, ADeviceThatTakesNothingIsAFailure)
{
    QBuffer closed;
    closed.open(QIODevice::ReadOnly);
    EXPECT_FALSE(writeCsv(dealTable(deals), closed, ETableEncoding::eUtf8WithMark, {}));
}

TEST(CsvCell, IsQuotedOnlyWhereItMust)
{
    EXPECT_EQ(csvCell(QStringLiteral("10.50")), QStringLiteral("10.50"));
    EXPECT_EQ(csvCell(QStringLiteral("a,b")), QStringLiteral("\"a,b\""));
    EXPECT_EQ(csvCell(QStringLiteral("a\"b")), QStringLiteral("\"a\"\"b\""));
    EXPECT_EQ(csvCell(QStringLiteral("a\nb")), QStringLiteral("\"a\nb\""));
}
