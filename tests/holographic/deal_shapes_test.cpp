// The bars of the deals: each kind on each side.
//
// The charts here are ten pixels a unit wide. The deals of the other side are whole orders below 42 lots,
// which leave no mark, so that what is drawn is one side alone.

#include "Chart.h"

using namespace testing_support;
using namespace Kel;

namespace {

constexpr int kY = 162; // middle of the only row of a ladder of one price
constexpr int kUpperY = 137;
constexpr int kLowerY = 162; // of two prices
constexpr int kUnit = 10;

std::string lineText(const QPoint& from, const QPoint& to, const char* key)
{
    PaintCommand command;
    command.kind = PaintCommand::eLine;
    command.line = QLineF(from, to);
    command.pen = QPen(colorOf(key));
    return command.toLine();
}

std::string fillText(const QRect& rect)
{
    PaintCommand command;
    command.kind = PaintCommand::eFill;
    command.rect = rect;
    command.brush = colorOf(kActive);
    command.pen = QPen(Qt::NoPen);
    return command.toLine();
}

std::string outlineText(const QRect& rect, const char* key)
{
    PaintCommand command;
    command.kind = PaintCommand::eRect;
    command.rect = rect;
    command.pen = QPen(colorOf(key));
    return command.toLine();
}

using Lines = std::vector<std::string>;

Lines operator+(Lines lines, const Lines& more)
{
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

class DealShapes : public testing::TestWithParam<bool>
{
protected:
    static bool isBuy() { return GetParam(); }
    static const char* line() { return isBuy() ? kBuyLine : kSellLine; }
    static const char* breakLine() { return isBuy() ? kBuyBreak : kSellBreak; }
    static int active() { return isBuy() ? 1 : 2; }

    /// A deal of an order of the side under test; the other side's order is one of its own.
    DealText deal(int orderNo, double price, int lots, int activeSide = 0)
    {
        const int other = 900 + ++m_others;
        return isBuy() ? DealText{orderNo, other, price, lots, activeSide}
                       : DealText{other, orderNo, price, lots, activeSide};
    }

    /// A deal that leaves no mark on either side.
    DealText quiet(double price, int lots = 1)
    {
        m_others += 2;
        return {900 + m_others - 1, 900 + m_others, price, lots};
    }

    /// A chart of these deals, and of orders that make bars of six pixels.
    void show(const std::vector<DealText>& deals, const std::vector<int>& orders = {1}, int orderLots = 250)
    {
        int extent = 0;
        for (const DealText& text : deals)
            extent += text.lots + 1;
        chart = std::make_unique<Chart>(extent * kUnit, 325);
        Batch batch;
        for (const int number : orders)
            batch.push_back(order(number, isBuy() ? 1 : 2, isBuy() ? 9 : 11, orderLots * 100, at(9, 59, 0)));
        chart->orders(batch);
        chart->add(deals);
    }

    /// The rectangle of a bar on the price line at `y`.
    static QRect bar(int x, int width, int height = 6, int y = kY)
    {
        return isBuy() ? QRect(x, y + 1, width, height) : QRect(x, y - height, width, height);
    }

    static Lines topAndBottom(const QRect& rect)
    {
        return {lineText(rect.topLeft(), rect.topRight(), line()),
                lineText(rect.bottomLeft(), rect.bottomRight(), line())};
    }
    static Lines left(const QRect& rect) { return {lineText(rect.topLeft(), rect.bottomLeft(), line())}; }
    static Lines right(const QRect& rect) { return {lineText(rect.topRight(), rect.bottomRight(), line())}; }
    static Lines filled(const QRect& rect) { return {fillText(rect)}; }

    std::unique_ptr<Chart> chart;

private:
    int m_others = 0;
};

INSTANTIATE_TEST_SUITE_P(Sides, DealShapes, testing::Bool(),
                         [](const auto& side) { return side.param ? "Buy" : "Sell"; });

} // namespace

TEST_P(DealShapes, ASmallWholeOrderIsAVerticalLine)
{
    show({deal(1, 10, 41), deal(2, 10, 42), deal(3, 10, 125)}, {});
    const int second = (1 + 1 + 41) * kUnit;
    const int third = (2 + 1 + 41 + 42) * kUnit;
    // 42 lots of 500 are one pixel of 12, 125 are three. The other side has lines of the same orders' sizes.
    const auto lines = chart->dealLines();
    const auto expected = isBuy() ? Lines{lineText({second, kY + 1}, {second, kY + 2}, line()),
                                          lineText({third, kY + 1}, {third, kY + 4}, line())}
                                  : Lines{lineText({second, kY - 1}, {second, kY - 1}, line()),
                                          lineText({third, kY - 1}, {third, kY - 3}, line())};
    Lines ofSide;
    for (const std::string& text : lines) {
        if (text.find(colorOf(line()).name().toStdString()) != std::string::npos)
            ofSide.push_back(text);
    }
    EXPECT_EQ(ofSide.size(), 2u) << "41 lots leave no mark";
    for (std::size_t index = 0; index < std::min(ofSide.size(), expected.size()); ++index) {
        // A line of one pixel may be told as a point.
        if (ofSide[index].rfind("point", 0) != 0) {
            EXPECT_EQ(ofSide[index], expected[index]);
        }
    }
}

TEST_P(DealShapes, AWholeOrderAtTheFullHeightIsStillALine)
{
    show({deal(1, 10, 500)}, {});
    EXPECT_EQ(chart->picture()->all(PaintCommand::eRect).size(), 0u);
    EXPECT_EQ(chart->picture()->texts().filter(QStringLiteral("500")).size(), 0) << "and has no number";
}

TEST_P(DealShapes, AWholeOrderAboveTheFullHeightIsOutlinedFilledAndNumbered)
{
    show({deal(1, 10, 501, active())}, {});
    const QRect rect = bar(0, 5010, 12);
    const Lines lines = chart->dealLines();
    const QRect shrunk = rect.adjusted(0, 0, -1, -1);
    EXPECT_NE(std::find(lines.begin(), lines.end(), fillText(rect)), lines.end());
    EXPECT_NE(std::find(lines.begin(), lines.end(), outlineText(shrunk, line())), lines.end());
    const auto numbers = chart->picture()->textCommands(QStringLiteral("501"));
    ASSERT_EQ(numbers.size(), 2u) << "both sides are whole orders";
    const PaintCommand& number = numbers[isBuy() ? 1 : 0];
    EXPECT_EQ(number.color(), colorOf(line()));
    EXPECT_TRUE(number.standsIn(shrunk, Qt::AlignCenter));
}

TEST_P(DealShapes, TheFirstPieceOfAJoinedRunHasALeftEdge)
{
    show({deal(1, 10, 5), deal(1, 10, 5)});
    const QRect first = bar(0, 50);
    // The second piece reaches back over the gap and one pixel more.
    const QRect second = bar(70 - 11, 61);
    EXPECT_EQ(chart->dealLines(), left(first) + topAndBottom(first) + right(second) + topAndBottom(second));
}

TEST_P(DealShapes, AJoinedPieceBetweenOthersHasNoSideEdge)
{
    show({deal(1, 10, 5), deal(1, 10, 5), deal(1, 10, 5)});
    const QRect first = bar(0, 50);
    const QRect second = bar(70 - 11, 61);
    const QRect third = bar(130 - 11, 61);
    EXPECT_EQ(chart->dealLines(),
              left(first) + topAndBottom(first) + topAndBottom(second) + right(third) + topAndBottom(third));
}

TEST_P(DealShapes, JoinedPiecesOfTheActiveSideAreFilledBeforeTheirEdges)
{
    show({deal(1, 10, 5, active()), deal(1, 10, 5, active())});
    const QRect first = bar(0, 50);
    const QRect second = bar(59, 61);
    EXPECT_EQ(chart->dealLines(), filled(first) + left(first) + topAndBottom(first) + filled(second) +
                                      right(second) + topAndBottom(second));
}

TEST_P(DealShapes, TheOtherSideBeingActiveFillsNothing)
{
    show({deal(1, 10, 5, 3 - active()), deal(1, 10, 5, 3 - active())});
    EXPECT_TRUE(chart->picture()->fillsOf(colorOf(kActive)).empty());
}

TEST_P(DealShapes, AFlatBreakIsJoinedToThePieceBeforeByTwoLines)
{
    show({deal(1, 10, 5, active()), quiet(10, 2), deal(1, 10, 5, active()), quiet(10, 2), deal(1, 10, 5)});
    const QRect first = bar(0, 50);
    const QRect second = bar((2 + 1 + 7) * kUnit, 50);
    const QRect third = bar((4 + 1 + 14) * kUnit, 50);
    const auto breaks = [&](int from, const QRect& to) {
        return Lines{lineText({from, to.top()}, to.topLeft(), breakLine()),
                     lineText({from, to.bottom()}, to.bottomLeft(), breakLine())};
    };
    EXPECT_EQ(chart->dealLines(), filled(first) + topAndBottom(first) + breaks(50, second) + filled(second) +
                                      topAndBottom(second) + breaks(150, third) + topAndBottom(third) +
                                      right(third));
}

TEST_P(DealShapes, AFlatBreakFromOutsideTheViewHasNoBreakLines)
{
    show({deal(1, 10, 5), quiet(10, 2), deal(1, 10, 5)});
    chart->resize(50 + 9 * kUnit, chart->height());
    chart->setViewTimeRange(tag(10, 0, 1), tag(10, 0, 2));
    const QRect rect = bar((1 + 1 + 2) * kUnit, 50);
    EXPECT_EQ(chart->dealLines(), topAndBottom(rect) + right(rect));
}

TEST_P(DealShapes, AJoinedPieceReachesBackEvenWhereThePieceBeforeIsOutsideTheView)
{
    show({deal(1, 10, 5), deal(1, 10, 5)});
    chart->resize(50 + 6 * kUnit, chart->height());
    chart->setViewTimeRange(tag(10, 0, 1), tag(10, 0, 1));
    const QRect rect = bar(-11, 61);
    EXPECT_EQ(chart->dealLines(), right(rect) + topAndBottom(rect));
}

TEST_P(DealShapes, AnOpeningPieceHasNoLeftEdge)
{
    show({deal(1, 10, 5, active()), quiet(10), quiet(10, 2), deal(1, 10, 5)});
    const QRect first = bar(0, 50);
    const Lines lines = chart->dealLines();
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 3), filled(first) + topAndBottom(first));
}

TEST_P(DealShapes, ADealWithoutAnOrderIsAnOpeningPieceWithARightEdge)
{
    show({deal(0, 10, 250, active())}, {});
    const QRect rect = bar(0, 2500);
    Lines ofSide;
    for (const std::string& text : chart->dealLines()) {
        if (text.find(colorOf(isBuy() ? kSellLine : kBuyLine).name().toStdString()) == std::string::npos)
            ofSide.push_back(text);
    }
    EXPECT_EQ(ofSide, filled(rect) + topAndBottom(rect) + right(rect));
}

TEST_P(DealShapes, ASlantedBreakFromAHigherPriceComesFromAbove)
{
    show({deal(1, 10.01, 5), deal(1, 10, 5, active())});
    const QRect first = bar(0, 50, 6, kUpperY);
    const QRect second = bar(70, 50, 6, kLowerY);
    const QPoint from(70 - 10, isBuy() ? kUpperY + 12 + 1 : kUpperY - 1);
    EXPECT_EQ(chart->dealLines(), topAndBottom(first) + filled(second) +
                                      Lines{lineText(from, second.topLeft(), breakLine())} + filled(second) +
                                      topAndBottom(second) + right(second));
}

TEST_P(DealShapes, ASlantedBreakFromALowerPriceComesFromBelow)
{
    show({deal(1, 10, 5), deal(1, 10.01, 5)});
    const QRect first = bar(0, 50, 6, kLowerY);
    const QRect second = bar(70, 50, 6, kUpperY);
    const QPoint from(70 - 10, isBuy() ? kLowerY + 1 : kLowerY - 6 - 1);
    EXPECT_EQ(chart->dealLines(), topAndBottom(first) +
                                      Lines{lineText(from, second.bottomLeft(), breakLine())} +
                                      topAndBottom(second) + right(second));
}

TEST_P(DealShapes, TheSlantedLineSetsOutBesideItsOwnDealWhereverTheOtherIs)
{
    show({deal(1, 10.01, 5), quiet(10), quiet(10), deal(1, 10, 5)});
    const auto lines = chart->picture()->lineCommands();
    const auto slanted = std::find_if(lines.begin(), lines.end(), [](const PaintCommand& command) {
        return command.color() == colorOf(breakLine());
    });
    ASSERT_NE(slanted, lines.end());
    EXPECT_EQ(slanted->line.x2() - slanted->line.x1(), kUnit);
}

TEST_P(DealShapes, ASlantedBreakFromOutsideTheViewHasNoLine)
{
    show({deal(1, 10.01, 5), deal(1, 10, 5)});
    chart->setViewTimeRange(tag(10, 0, 1), tag(10, 0, 1));
    for (const PaintCommand& command : chart->picture()->lineCommands())
        EXPECT_NE(command.color(), colorOf(breakLine()));
}

TEST_P(DealShapes, APieceWithALaterDealHasNoRightEdge)
{
    show({deal(1, 10.01, 5), deal(1, 10, 5), quiet(10), deal(1, 10.01, 5)});
    const QRect second = bar(70, 50, 6, kLowerY);
    const Lines lines = chart->dealLines();
    const std::string edge = lineText(second.topRight(), second.bottomRight(), line());
    EXPECT_EQ(std::find(lines.begin(), lines.end(), edge), lines.end());
}

TEST_P(DealShapes, BarsAreAsHighAsTheWholeOrderIsLarge)
{
    show({deal(1, 10, 5), deal(1, 10, 5)}, {1}, 375);
    const QRect first = bar(0, 50, 9);
    const Lines lines = chart->dealLines();
    EXPECT_EQ(lines.at(0), left(first).at(0));
    chart->m_model->setFullHeightHandle(375);
    const QRect full = bar(0, 50, 12);
    EXPECT_EQ(chart->dealLines().at(0), left(full).at(0));
}

TEST_P(DealShapes, AnUnknownOrderIsAsLargeAsWhatItHasDealt)
{
    show({deal(1, 10, 60), deal(1, 10, 65)}, {});
    const QRect first = bar(0, 600, 3);
    const Lines lines = chart->dealLines();
    EXPECT_NE(std::find(lines.begin(), lines.end(), left(first).at(0)), lines.end());
}

TEST(DealSides, SellIsDrawnBeforeBuy)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 299}, {1, 2, 10, 299}});
    const auto lines = chart.picture()->lineCommands();
    const auto isInk = [](const char* key) {
        return [key](const PaintCommand& command) { return command.color() == colorOf(key); };
    };
    const auto sell = std::find_if(lines.begin(), lines.end(), isInk(kSellLine));
    const auto buy = std::find_if(lines.begin(), lines.end(), isInk(kBuyLine));
    ASSERT_NE(sell, lines.end());
    EXPECT_LT(sell, buy);
}
