// The order ticket: what a click on the concise quote panel fills in.

#include "host/window/panes/OrderTicket.h"

#include "host/window/InstrumentList.h"
#include "host/window/PaneWindow.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"

#include <gtest/gtest.h>

#include <QTest>

#include <map>

namespace window_tests {
namespace {

const QString kNothing = QStringLiteral("--");

QString parameters(const char* stock, int type, const char* price, const char* volume)
{
    return QStringLiteral(R"({ "stockcode" : "%1", "pricetype" : "%2", "price" : "%3", "vol" : "%4" })")
        .arg(QString::fromLatin1(stock), QString::number(type), QString::fromLatin1(price),
             QString::fromLatin1(volume));
}

/// All fields in one line.
std::string textOf(const host::OrderTicket& ticket)
{
    return QStringList{ticket.stock(), ticket.priceType(), ticket.price(), ticket.volume()}
        .join(QLatin1Char('|'))
        .toStdString();
}

TEST(OrderTicket, NamesEveryKindOfPrice)
{
    const std::map<int, std::string> words = {
        {0, "卖五"},      {1, "卖四"},    {2, "卖三"},  {3, "卖二"},  {4, "卖一"},  {5, "最新价"},
        {6, "买一"},      {7, "买二"},    {8, "买三"},  {9, "买四"},  {10, "买五"}, {11, "限价"},
        {12, "涨跌停价"}, {14, "对手价"}, {30, "卖六"}, {31, "卖七"}, {32, "卖八"}, {33, "卖九"},
        {34, "卖十"},     {35, "买六"},   {36, "买七"}, {37, "买八"}, {38, "买九"}, {39, "买十"}};
    ASSERT_EQ(words.size(), 24U);
    for (int type = -2; type < 60; ++type) {
        const auto found = words.find(type);
        EXPECT_EQ(host::priceTypeWords(type).toStdString(), found == words.end() ? "" : found->second)
            << type;
        if (found == words.end())
            continue;
        host::OrderTicket ticket;
        ticket.take(parameters("SH600999", type, "10.01", "0"));
        EXPECT_EQ(ticket.priceType().toStdString(), found->second);
    }
}

TEST(OrderTicket, BeginsEmpty)
{
    const host::OrderTicket ticket;
    EXPECT_EQ(textOf(ticket), "--|--|--|--");
}

TEST(OrderTicket, APriceLeavesTheVolumeAndAVolumeThePrice)
{
    host::OrderTicket ticket;
    ticket.take(parameters("SH600999", 4, "10.01", "0"));
    EXPECT_EQ(textOf(ticket), "SH600999|卖一|10.01|--");
    ticket.take(parameters("SH600999", -1, "0", "120"));
    EXPECT_EQ(textOf(ticket), "SH600999|卖一|10.01|120");
    ticket.take(parameters("SH600999", 11, "9.98", "0"));
    EXPECT_EQ(textOf(ticket), "SH600999|限价|9.98|120");
}

TEST(OrderTicket, AnotherStockEmptiesWhatWasTakenBefore)
{
    host::OrderTicket ticket;
    ticket.take(parameters("SH600999", 4, "10.01", "0"));
    ticket.take(parameters("SH600999", -1, "0", "120"));
    ticket.take(parameters("SZ000001", 6, "5.5", "0"));
    EXPECT_EQ(textOf(ticket), "SZ000001|买一|5.5|--");
    ticket.clear(QStringLiteral("SZ000001"));
    EXPECT_EQ(textOf(ticket), "SZ000001|--|--|--");
    ticket.clear({});
    EXPECT_EQ(textOf(ticket), "--|--|--|--");
}

TEST(OrderTicket, AKindWithoutWordsShowsItsNumber)
{
    host::OrderTicket ticket;
    ticket.take(parameters("SH600999", 77, "10.01", "0"));
    EXPECT_EQ(ticket.priceType().toStdString(), "77");
}

TEST(OrderTicket, RubbishChangesNothing)
{
    host::OrderTicket ticket;
    ticket.take(parameters("SH600999", 4, "10.01", "0"));
    const std::string before = textOf(ticket);
    const char* const rubbish[] = {
        "",
        "nonsense",
        "{",
        "[]",
        "[1, 2]",
        "null",
        "\"SH600999\"",
        "{ }",
        R"({ "stockcode" : "SZ000001", "pricetype" : "4", "price" : "1" })",
        R"({ "pricetype" : "4", "price" : "1", "vol" : "1" })",
        R"({ "stockcode" : "SZ000001", "price" : "1", "vol" : "1" })",
        R"({ "stockcode" : "SZ000001", "pricetype" : "4", "vol" : "1" })",
        R"({ "stockcode" : "SZ000001", "pricetype" : 4, "price" : "1", "vol" : "1" })",
        R"({ "stockcode" : "SZ000001", "pricetype" : "4", "price" : 1, "vol" : "1" })",
        R"({ "stockcode" : "SZ000001", "pricetype" : "4", "price" : "1", "vol" : 1 })",
        R"({ "stockcode" : null, "pricetype" : "4", "price" : "1", "vol" : "1" })",
        R"({ "stockcode" : "SZ000001", "pricetype" : "four", "price" : "1", "vol" : "1" })",
        R"({ "stockcode" : "SZ000001", "pricetype" : "", "price" : "1", "vol" : "1" })",
        R"({ "stockcode" : "SZ000001", "pricetype" : "4", "price" : "1", "vol" : "1" } more)",
    };
    for (const char* text : rubbish) {
        ticket.take(QString::fromUtf8(text));
        EXPECT_EQ(textOf(ticket), before) << text;
    }
}

/// The ticket below the quote panel, in the window.
class Ticket : public PaneWindow
{
protected:
    Kel::CDepthConciseStyleEntrustStatusWidget& panel() { return window->ticket().panel(); }
    host::OrderTicket& ticket() { return window->ticket().ticket(); }

    /// Clicks on the row of a level: 1 for buy one, -1 for sell one, 0 for the row in the middle.
    void click(int x, int level)
    {
        const int row = panel().getShelves() + level + 1;
        const int height = ConciseEyes::rowHeight(panel());
        QTest::mouseClick(&panel(), Qt::LeftButton, Qt::NoModifier, QPoint(x, row * height + height / 2));
    }

    int labelX() { return 15; }
    int priceX() { return ConciseEyes::columns(panel()).priceCell(0, 10).center().x(); }
    int volumeX() { return ConciseEyes::columns(panel()).volumeCell(0, 10).center().x(); }

    Kel::EntrustStatusData quote() { return ConciseEyes::quote(panel()); }
    static std::string price(double yuan) { return QString::number(yuan).toStdString(); }
};

TEST_F(Ticket, AClickOnALabelFillsInTheLevelAndItsPrice)
{
    ASSERT_TRUE(openAt(10, 30));
    const char* const sells[] = {"卖一", "卖二", "卖三", "卖四", "卖五",
                                 "卖六", "卖七", "卖八", "卖九", "卖十"};
    const char* const buys[] = {"买一", "买二", "买三", "买四", "买五",
                                "买六", "买七", "买八", "买九", "买十"};
    for (int level = 1; level <= 10; ++level) {
        const Kel::EntrustLevel bid = quote().bidLevels[level - 1];
        const Kel::EntrustLevel ask = quote().askLevels[10 - level];
        ASSERT_TRUE(bid.valid && ask.valid) << level;
        click(labelX(), level);
        EXPECT_EQ(ticket().priceType().toStdString(), buys[level - 1]);
        EXPECT_EQ(ticket().price().toStdString(), price(bid.price)) << level;
        click(labelX(), -level);
        EXPECT_EQ(ticket().priceType().toStdString(), sells[level - 1]);
        EXPECT_EQ(ticket().price().toStdString(), price(ask.price)) << level;
    }
    click(labelX(), 0);
    EXPECT_EQ(ticket().priceType().toStdString(), "最新价");
    EXPECT_EQ(ticket().price().toStdString(), price(quote().lastPrice));
    EXPECT_EQ(ticket().volume(), kNothing);
    EXPECT_EQ(ticket().stock().toStdString(), "SH600999");
}

TEST_F(Ticket, AClickOnAPriceFillsInALimit)
{
    ASSERT_TRUE(openAt(10, 30));
    ASSERT_LT(priceX(), panel().width() / 2) << "the half of the panel that gives prices";
    click(priceX(), -2);
    EXPECT_EQ(ticket().priceType().toStdString(), "限价");
    EXPECT_EQ(ticket().price().toStdString(), price(quote().askLevels[8].price));
    EXPECT_EQ(ticket().volume(), kNothing);
}

TEST_F(Ticket, AClickOnAVolumeFillsInTheVolumeAlone)
{
    ASSERT_TRUE(openAt(10, 30));
    click(labelX(), 1);
    const QString taken = ticket().price();
    click(volumeX(), 2);
    EXPECT_EQ(ticket().volume().toInt(), quote().bidLevels[1].volume);
    EXPECT_EQ(ticket().price(), taken);
    EXPECT_EQ(ticket().priceType().toStdString(), "买一");
}

TEST_F(Ticket, ASeekKeepsWhatWasFilledInAndAnotherInstrumentEmptiesIt)
{
    ASSERT_TRUE(openAt(10, 30));
    EXPECT_EQ(textOf(ticket()), "SH600999|--|--|--");
    click(labelX(), 1);
    click(volumeX(), 1);
    const std::string before = textOf(ticket());
    ASSERT_NE(before, "SH600999|--|--|--");
    ASSERT_TRUE(seek(timeOfDay(10, 0)));
    EXPECT_EQ(textOf(ticket()), before);
    window->list().setFocus();
    QTest::keyClick(&window->list(), Qt::Key_Down);
    ASSERT_TRUE(waitForDay(3));
    EXPECT_EQ(textOf(ticket()), "SZ" + window->day()->detail.code + "|--|--|--");
}

TEST_F(Ticket, BeforeTheFirstQuoteAClickFillsNothingIn)
{
    ASSERT_TRUE(openAt(8, 0));
    for (const int level : {-10, -1, 0, 1, 10}) {
        click(labelX(), level);
        click(volumeX(), level);
    }
    EXPECT_EQ(textOf(ticket()), "SH600999|--|--|--");
}

} // namespace
} // namespace window_tests
