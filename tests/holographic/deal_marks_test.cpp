// Numbers in the bars, and the marks of orders without a price and of orders that offered more than they got.

#include "Chart.h"

using namespace testing_support;
using namespace Kel;

namespace {

constexpr int kY = 162;

class DealMarks : public testing::TestWithParam<bool>
{
protected:
    static bool isBuy() { return GetParam(); }
    static const char* line() { return isBuy() ? kBuyLine : kSellLine; }

    DealText deal(int orderNo, double price, int lots)
    {
        const int other = 900 + ++m_others;
        return isBuy() ? DealText{orderNo, other, price, lots} : DealText{other, orderNo, price, lots};
    }
    DealText quiet(double price, int lots = 1)
    {
        m_others += 2;
        return {900 + m_others - 1, 900 + m_others, price, lots};
    }

    void show(const std::vector<DealText>& deals, int orderLots, double orderPrice = 10, int kind = 1,
              int unit = 10)
    {
        int extent = 0;
        for (const DealText& text : deals)
            extent += text.lots + 1;
        chart = std::make_unique<Chart>(extent * unit, 325);
        chart->orders({order(1, isBuy() ? 1 : 2, orderPrice, orderLots * 100, at(9, 59, 0), kind)});
        chart->add(deals);
    }

    /// Numbers in the colour of the side.
    std::vector<PaintCommand> numbers()
    {
        std::vector<PaintCommand> found;
        for (const PaintCommand& command : chart->picture()->all(PaintCommand::eText)) {
            if (command.color() == colorOf(line()))
                found.push_back(command);
        }
        return found;
    }

    std::vector<PaintCommand> marks(const char* key)
    {
        std::vector<PaintCommand> found;
        for (const PaintCommand& command : chart->picture()->paths()) {
            if (command.brush.color() == colorOf(key) && command.brush.style() == Qt::SolidPattern)
                found.push_back(command);
        }
        return found;
    }

    static QRect bar(int x, int width, int height, int y = kY)
    {
        return isBuy() ? QRect(x, y + 1, width, height) : QRect(x, y - height, width, height);
    }

    /// The row of the bars from edge to edge.
    QRect wholeChart() const { return bar(0, chart->m_chartWidth, 12); }

    std::unique_ptr<Chart> chart;

private:
    int m_others = 0;
};

INSTANTIATE_TEST_SUITE_P(Sides, DealMarks, testing::Bool(),
                         [](const auto& side) { return side.param ? "Buy" : "Sell"; });

} // namespace

// Numbers
// ------------------------------------------------------------------------------------------------------------

TEST_P(DealMarks, TheNumberStandsOnTheLastPieceOverTheWholeRun)
{
    show({deal(1, 10, 5), deal(1, 10, 5), deal(1, 10, 5)}, 500);
    const auto found = numbers();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].text, QStringLiteral("500"));
    EXPECT_EQ(found[0].font, fontOf("fnt_graph_axis_text"));
    EXPECT_TRUE(found[0].standsIn(QRect(QPoint(0, bar(0, 1, 12).top()), QPoint(179, bar(0, 1, 12).bottom())),
                                  Qt::AlignCenter));
}

TEST_P(DealMarks, TheRunOfTheNumberReachesOverFlatBreaks)
{
    show({deal(1, 10, 5), quiet(10, 10), deal(1, 10, 5)}, 500);
    const auto found = numbers();
    ASSERT_EQ(found.size(), 1u);
    const int right = (2 + 1 + 15) * 10 + 50 - 1;
    EXPECT_TRUE(found[0].standsIn(
        QRect(QPoint(0, bar(0, 1, 12).top()), QPoint(right, bar(0, 1, 12).bottom())), Qt::AlignCenter));
}

TEST_P(DealMarks, TheRunOfTheNumberEndsWhereThePriceChanged)
{
    show({deal(1, 10.01, 20), deal(1, 10, 5), deal(1, 10, 5)}, 500);
    const auto found = numbers();
    ASSERT_EQ(found.size(), 2u) << "one for each run";
    const int left = (1 + 1 + 20) * 10;
    const int right = (2 + 1 + 25) * 10 + 50 - 1;
    EXPECT_TRUE(found[1].standsIn(
        QRect(QPoint(left, bar(0, 1, 12).top()), QPoint(right, bar(0, 1, 12).bottom())), Qt::AlignCenter));
    EXPECT_TRUE(found[0].standsIn(bar(0, 200, 12, 137), Qt::AlignCenter));
}

TEST_P(DealMarks, TheNumberStandsOnTheLastPieceInView)
{
    show({deal(1, 10, 5), deal(1, 10, 5), deal(1, 10, 5)}, 500);
    chart->setViewTimeRange(tag(10, 0, 0), tag(10, 0, 1));
    const auto found = numbers();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].standsIn(wholeChart(), Qt::AlignCenter)) << "over both";
}

TEST_P(DealMarks, TheRunOfTheNumberEndsAtTheViewsEdge)
{
    show({deal(1, 10, 5), deal(1, 10, 5), deal(1, 10, 5)}, 500);
    chart->setViewTimeRange(tag(10, 0, 1), tag(10, 0, 2));
    const auto found = numbers();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].standsIn(wholeChart(), Qt::AlignCenter)) << "and begins there";
}

TEST_P(DealMarks, AFlatBarHasNoNumber)
{
    show({deal(1, 10, 25), deal(1, 10, 5)}, 416); // nine pixels high
    EXPECT_TRUE(numbers().empty());
    show({deal(1, 10, 25), deal(1, 10, 5)}, 417); // ten
    EXPECT_EQ(numbers().size(), 1u);
}

TEST_P(DealMarks, LowRowsHaveNoNumbersHoweverLargeTheOrders)
{
    show({deal(1, 10, 25), deal(1, 10, 5)}, 900);
    EXPECT_EQ(numbers().size(), 1u);
    chart->setFullHeightChagne(-2);
    EXPECT_EQ(numbers().size(), 1u) << "ten pixels, measured by the usual row";
    chart->setFullHeightChagne(-1);
    EXPECT_TRUE(numbers().empty());
}

TEST_P(DealMarks, ABarHasToBeWiderThanItsNumberAndTwoPixels)
{
    Chart probe;
    const int text =
        QFontMetrics(fontOf("fnt_graph_axis_text"), &probe).horizontalAdvance(QStringLiteral("500"));
    // A slanted piece of so many lots, a pixel a lot.
    show({deal(1, 10.01, 1), deal(1, 10, text + 2)}, 500, 10, 1, 1);
    EXPECT_TRUE(numbers().empty());
    show({deal(1, 10.01, 1), deal(1, 10, text + 3)}, 500, 10, 1, 1);
    EXPECT_EQ(numbers().size(), 1u);
}

TEST_P(DealMarks, APieceWhoseNextIsAtAnotherPriceHasItsOwnNumber)
{
    show({deal(1, 10.01, 10), deal(1, 10, 10), deal(1, 10.01, 10)}, 500);
    EXPECT_EQ(numbers().size(), 3u);
}

// Marks
// --------------------------------------------------------------------------------------------------------------

TEST_P(DealMarks, AnOrderWithoutAPriceIsMarkedInTheOuterCorner)
{
    show({deal(1, 10, 5), deal(1, 10, 5)}, 250, 0, 2);
    const auto found = marks(kMarket);
    ASSERT_EQ(found.size(), 2u) << "every piece of it";
    const QRect rect = bar(0, 50, 6);
    const QPoint corner = isBuy() ? rect.topRight() : rect.bottomRight();
    const int down = isBuy() ? 4 : -4;
    QPainterPath path;
    path.moveTo(corner);
    path.lineTo(corner + QPoint(-4, 0));
    path.lineTo(corner + QPoint(0, down));
    path.lineTo(corner);
    EXPECT_EQ(found[0].path, path);
    EXPECT_TRUE(marks(kUrgent).empty()) << "never the other mark";
}

TEST_P(DealMarks, AnOrderThatOfferedMoreThanItGotIsUrgentOnItsLastPiece)
{
    const double beyond = isBuy() ? 10.02 : 9.98;
    show({deal(1, 10, 5), deal(1, 10, 5)}, 250, beyond);
    const auto found = marks(kUrgent);
    ASSERT_EQ(found.size(), 1u);
    const QRect rect = bar(59, 61, 6);
    const QPoint corner = isBuy() ? rect.topRight() : rect.bottomRight();
    const QRect box =
        isBuy() ? QRect(corner + QPoint(-4, 0), QSize(4, 4)) : QRect(corner + QPoint(-4, -4), QSize(4, 4));
    EXPECT_EQ(found[0].path.boundingRect(), QRectF(box));
    EXPECT_TRUE(marks(kMarket).empty());
}

TEST_P(DealMarks, AnOrderThatGotItsPriceOrABetterOneIsNotUrgent)
{
    show({deal(1, 10, 5), deal(1, 10, 5)}, 250, 10);
    EXPECT_TRUE(marks(kUrgent).empty());
    show({deal(1, 10, 5), deal(1, 10, 5)}, 250, isBuy() ? 9.98 : 10.02);
    EXPECT_TRUE(marks(kUrgent).empty());
    show({deal(1, 10, 5), deal(1, 10, 5)}, 250, isBuy() ? 10.000009 : 9.999991);
    EXPECT_TRUE(marks(kUrgent).empty()) << "equal within the tolerance";
}

TEST_P(DealMarks, AFlatBreakIsUrgentWhereverItIs)
{
    show({deal(1, 10, 5), quiet(10), deal(1, 10, 5), quiet(10), deal(1, 10, 5)}, 250, isBuy() ? 10.02 : 9.98);
    EXPECT_EQ(marks(kUrgent).size(), 2u) << "the second and third piece";
}

TEST_P(DealMarks, ASlantedOrOpeningPieceIsUrgentOnlyAtTheEnd)
{
    show({deal(1, 10.01, 5), deal(1, 10, 5), deal(1, 10.01, 5)}, 250, isBuy() ? 10.05 : 9.95);
    EXPECT_EQ(marks(kUrgent).size(), 1u);
}

TEST_P(DealMarks, AWholeOrderIsUrgentOnlyAboveTheFullHeight)
{
    show({deal(1, 10, 500)}, 500, isBuy() ? 10.02 : 9.98);
    EXPECT_TRUE(marks(kUrgent).empty());
    show({deal(1, 10, 501)}, 501, isBuy() ? 10.02 : 9.98);
    EXPECT_EQ(marks(kUrgent).size(), 1u);
}

TEST_P(DealMarks, TheLineOfASmallWholeOrderCanHaveTheMarketMark)
{
    show({deal(1, 10, 400)}, 400, 0, 2);
    EXPECT_EQ(marks(kMarket).size(), 1u);
    EXPECT_TRUE(numbers().empty());
}

TEST_P(DealMarks, AWholeOrderOfWhichTooLittleWasDealtForALineHasNumberAndMarketMark)
{
    const double beyond = isBuy() ? 10.02 : 9.98;
    for (const int kind : {1, 2}) {
        show({deal(1, 10, 30)}, 500, beyond, kind); // 12 * 30 / 500 is no pixel
        for (const PaintCommand& command : chart->picture()->lineCommands())
            EXPECT_NE(command.color(), colorOf(line()));
        const auto found = numbers();
        ASSERT_EQ(found.size(), 1u);
        EXPECT_EQ(found[0].text, QStringLiteral("500"));
        EXPECT_TRUE(found[0].standsIn(bar(0, 300, 12), Qt::AlignCenter));
        EXPECT_EQ(marks(kMarket).size(), kind == 2 ? 1u : 0u);
        EXPECT_TRUE(marks(kUrgent).empty());
    }
}

TEST_P(DealMarks, NeedABarOfFourByFour)
{
    show({deal(1, 10, 5), deal(1, 10, 5)}, 125, 0, 2); // three pixels high
    EXPECT_TRUE(marks(kMarket).empty());
    show({deal(1, 10, 5), deal(1, 10, 5)}, 167, 0, 2); // four
    EXPECT_EQ(marks(kMarket).size(), 2u);
    show({deal(1, 10, 3), quiet(10), deal(1, 10, 3)}, 250, 0, 2, 1); // three pixels wide
    EXPECT_TRUE(marks(kMarket).empty());
    show({deal(1, 10, 4), quiet(10), deal(1, 10, 4)}, 250, 0, 2, 1);
    EXPECT_EQ(marks(kMarket).size(), 2u);
}

TEST_P(DealMarks, AnUnknownOrderHasNone)
{
    show({deal(7, 10, 400), deal(7, 10, 400)}, 1);
    EXPECT_TRUE(marks(kMarket).empty());
    EXPECT_TRUE(marks(kUrgent).empty());
}
