// The hologram strip: brackets around runs, the order's lots and triangles beside them.

#include "TickPanels.h"

using namespace testing_support;
using namespace Kel;

namespace {

/// Deals of the sell orders in `sellers`, one a second, each with a buy order of its own.
void sellersDeal(DealPanel& panel, const std::vector<int>& sellers)
{
    Batch batch;
    int number = 0;
    for (const int seller : sellers) {
        ++number;
        batch.push_back(deal(number, 1000 + number, seller, 10, 5500, at(10, 0, 0) + number * 1000));
    }
    panel.deals(batch);
}

/// The same with buy orders.
void buyersDeal(DealPanel& panel, const std::vector<int>& buyers)
{
    Batch batch;
    int number = 0;
    for (const int buyer : buyers) {
        ++number;
        batch.push_back(deal(number, buyer, 1000 + number, 10, 5500, at(10, 0, 0) + number * 1000));
    }
    panel.deals(batch);
}

/// Whether the lots of order 7 stand in the sell half at this height.
bool lotsStandAt(DealPanel& panel, int group, int y)
{
    const int right = group * panel.m_layout.groupWidth + panel.stripOffset() + 1 + 44 - 8;
    return panel.picture()->text(QStringLiteral("777")).standsIn(QRect(right - 40, y, 40, 18), kRight);
}

std::vector<PaintCommand> brackets(const PaintRecorder& picture)
{
    return picture.all(PaintCommand::eRect);
}

int sellLeft(const DealPanel& panel)
{
    return panel.stripOffset() + 1;
}

int buyLeft(const DealPanel& panel)
{
    return panel.stripOffset() + 46;
}

constexpr int kHalf = 44; // width of one side of the strip

const char* const kRise = "ic_clr_entrust_text_rise";
const char* const kFall = "ic_clr_entrust_text_fall";

} // namespace

TEST(DealRuns, ARunHasADottedBracketOfItsRows)
{
    DealPanel panel;
    sellersDeal(panel, {1, 7, 7, 7, 2});
    const auto picture = panel.picture();
    ASSERT_EQ(brackets(*picture).size(), 1u);
    const PaintCommand bracket = brackets(*picture)[0];
    EXPECT_EQ(bracket.rect, QRectF(sellLeft(panel), panel.m_layout.lineTop(1), kHalf, 3 * 18));
    EXPECT_EQ(bracket.pen.color(), colorOf(kFall));
    EXPECT_EQ(bracket.pen.dashPattern(), (QVector<qreal>{1, 1}));
    EXPECT_EQ(bracket.brush.style(), Qt::NoBrush);
}

TEST(DealRuns, OfBuyOrdersStandInTheRightHalf)
{
    DealPanel panel;
    panel.deals({deal(1, 5, 11, 10, 5500, at(10, 0, 1)), deal(2, 5, 12, 10, 5500, at(10, 0, 2)),
                 deal(3, 6, 13, 10, 5500, at(10, 0, 3))});
    const auto picture = panel.picture();
    ASSERT_EQ(brackets(*picture).size(), 1u);
    EXPECT_EQ(brackets(*picture)[0].rect, QRectF(buyLeft(panel), panel.m_layout.lineTop(0), kHalf, 2 * 18));
    EXPECT_EQ(brackets(*picture)[0].pen.color(), colorOf(kRise));
}

TEST(DealRuns, TheOrdersLotsStandInTheMiddleOfTheRun)
{
    DealPanel panel;
    panel.orders({order(7, 2, 10, 77700, at(9, 59, 0))});
    sellersDeal(panel, {1, 7, 7, 7, 2});
    const auto picture = panel.picture();
    const PaintCommand text = picture->text(QStringLiteral("777"));
    const int right = sellLeft(panel) + kHalf - 4 - 4;
    EXPECT_TRUE(text.standsIn(QRect(right - 40, panel.m_layout.lineTop(2), 40, 18), kRight)) << text;
    EXPECT_EQ(text.color(), colorOf(kFall));
}

TEST(DealRuns, BetweenTwoRowsTheLotsStandHalfARowLower)
{
    DealPanel panel;
    panel.orders({order(7, 2, 10, 77700, at(9, 59, 0))});
    sellersDeal(panel, {7, 7, 2});
    const int right = sellLeft(panel) + kHalf - 8;
    const PaintCommand text = panel.picture()->text(QStringLiteral("777"));
    EXPECT_TRUE(text.standsIn(QRect(right - 40, panel.m_layout.lineTop(0) + 9, 40, 18), kRight)) << text;
}

TEST(DealRuns, ADealOutsideARunShowsItsOrdersLotsWithoutABracket)
{
    DealPanel panel;
    panel.orders({order(7, 2, 10, 77700, at(9, 59, 0))});
    sellersDeal(panel, {1, 7, 2});
    const auto picture = panel.picture();
    EXPECT_TRUE(brackets(*picture).empty());
    const int right = sellLeft(panel) + kHalf - 8;
    EXPECT_TRUE(picture->text(QStringLiteral("777"))
                    .standsIn(QRect(right - 40, panel.m_layout.lineTop(1), 40, 18), kRight));
}

TEST(DealRuns, NumbersOfFourDigitsHaveTheSmallerFont)
{
    DealPanel panel;
    panel.orders({order(7, 2, 10, 999 * 100, at(9, 59, 0)), order(8, 2, 10, 1000 * 100, at(9, 59, 0))});
    sellersDeal(panel, {7, 8});
    const auto picture = panel.picture();
    EXPECT_EQ(picture->text(QStringLiteral("999")).font.pixelSize(),
              themeFont("ic_fnt_index_modulegroup_transaction")->pixelSize());
    EXPECT_EQ(picture->text(QStringLiteral("1000")).font.pixelSize(),
              themeFont("ic_fnt_index_modulegroup_transaction_big_number")->pixelSize());
}

TEST(DealRuns, TrianglesPointToDealsOfTheOrderOutsideTheRun)
{
    DealPanel panel;
    sellersDeal(panel, {7, 7, 3, 7, 7, 4, 7, 7});
    // The first run of order 7 has later deals, the second earlier and later ones, the third earlier ones.
    const auto points = panel.picture()->all(PaintCommand::ePoint);
    const int tip = sellLeft(panel) + kHalf - 4;
    std::vector<int> rightOnes, leftOnes;
    for (const PaintCommand& point : points) {
        const int x = static_cast<int>(point.line.x1());
        (x % panel.m_layout.groupWidth == tip ? rightOnes : leftOnes)
            .push_back(static_cast<int>(point.line.y1()));
    }
    const auto middle = [&](int place) { return panel.m_layout.lineTop(place) + 9 + 9; };
    EXPECT_EQ(rightOnes, (std::vector<int>{middle(0), middle(3)}));
    EXPECT_EQ(leftOnes.size(), 2u);
}

TEST(DealRuns, OfBuyOrdersHaveTheirTrianglesAsWell)
{
    DealPanel panel;
    panel.orders({order(7, 1, 10, 77700, at(9, 59, 0))});
    buyersDeal(panel, {7, 3, 7, 7, 4, 7});
    const auto picture = panel.picture();
    const int tip = buyLeft(panel) + kHalf - 4;
    const auto lots = picture->textCommands(QStringLiteral("777"));
    ASSERT_EQ(lots.size(), 3u);
    const auto middle = [&](int place) { return panel.m_layout.lineTop(place) + 9; };
    std::vector<QPointF> expected;
    expected.emplace_back(tip, middle(0)); // later deals alone
    expected.emplace_back(tip, middle(2) + 9);
    expected.emplace_back(static_cast<int>(lots[1].baseline.x()) - 5, middle(2) + 9); // and earlier ones
    expected.emplace_back(static_cast<int>(lots[2].baseline.x()) - 5, middle(5));     // earlier ones alone
    std::vector<QPointF> points;
    for (const PaintCommand& point : picture->all(PaintCommand::ePoint))
        points.push_back(point.line.p1());
    EXPECT_EQ(points, expected);
    int columns = 0;
    for (const PaintCommand& line : picture->lineCommands()) {
        const int y = middle(0);
        if (line.line == QLineF(tip - 1, y - 1, tip - 1, y + 1) ||
            line.line == QLineF(tip - 2, y - 2, tip - 2, y + 2)) {
            EXPECT_EQ(line.color(), colorOf(kRise));
            ++columns;
        }
    }
    EXPECT_EQ(columns, 2);
}

TEST(DealRuns, TheRightTriangleHasThreeColumns)
{
    DealPanel panel;
    sellersDeal(panel, {7, 3, 7});
    const int tip = sellLeft(panel) + kHalf - 4;
    const int y = panel.m_layout.lineTop(0) + 9;
    const auto picture = panel.picture();
    int found = 0;
    for (const PaintCommand& line : picture->lineCommands()) {
        if (line.line == QLineF(tip - 1, y - 1, tip - 1, y + 1) ||
            line.line == QLineF(tip - 2, y - 2, tip - 2, y + 2))
            ++found;
    }
    EXPECT_EQ(found, 2);
}

TEST(DealRuns, TheLeftTriangleStandsBesideTheNumber)
{
    DealPanel panel;
    sellersDeal(panel, {7, 3, 7});
    const auto picture = panel.picture();
    const PaintCommand text = picture->textCommands(QStringLiteral("110")).back();
    const int left = static_cast<int>(text.baseline.x());
    const int y = panel.m_layout.lineTop(2) + 9;
    bool point = false;
    for (const PaintCommand& command : picture->all(PaintCommand::ePoint))
        point = point || command.line.p1() == QPointF(left - 5, y);
    EXPECT_TRUE(point);
}

TEST(DealRuns, ARunAcrossGroupsHasABracketInEachAndLosesTheSmallOffset)
{
    DealPanel panel; // two groups of five rows, the first at y 2
    panel.orders({order(7, 2, 10, 77700, at(9, 59, 0))});
    sellersDeal(panel, {1, 2, 3, 7, 7, 7, 7, 4});
    const auto picture = panel.picture();
    ASSERT_EQ(brackets(*picture).size(), 2u);
    EXPECT_EQ(brackets(*picture)[0].rect, QRectF(sellLeft(panel), panel.m_layout.lineTop(3), kHalf, 2 * 18));
    EXPECT_EQ(brackets(*picture)[1].rect,
              QRectF(panel.m_layout.groupWidth + sellLeft(panel), panel.m_layout.lineTop(5), kHalf, 2 * 18));
    const int right = sellLeft(panel) + kHalf - 8;
    ASSERT_EQ(panel.m_layout.top(), 2);
    // The middle of rows 3 to 6 is row 4, without the offset of the rows from the top.
    EXPECT_TRUE(picture->text(QStringLiteral("777")).standsIn(QRect(right - 40, 4 * 18, 40, 18), kRight));
}

TEST(DealRuns, ARunThatCrossesTheBottomIsClosedInTheView)
{
    DealPanel panel(280, 94); // one group of five rows
    ASSERT_EQ(panel.m_layout.capacity(), 5);
    sellersDeal(panel, {1, 2, 3, 7, 7, 7, 7, 7, 7, 4});
    panel.m_scrollBar->setValue(0);
    const auto picture = panel.picture();
    ASSERT_EQ(brackets(*picture).size(), 1u);
    EXPECT_EQ(brackets(*picture)[0].rect, QRectF(sellLeft(panel), panel.m_layout.lineTop(3), kHalf, 2 * 18))
        << "as far as the last group goes";
}

TEST(DealRuns, ARunThatBeginsAboveTheViewIsCutByTheClip)
{
    DealPanel panel(280, 94);
    sellersDeal(panel, {7, 7, 7, 7, 7, 4, 5, 6, 8, 9});
    panel.m_scrollBar->setValue(3);
    const auto picture = panel.picture();
    ASSERT_EQ(brackets(*picture).size(), 1u);
    const int top = panel.m_layout.top();
    EXPECT_EQ(brackets(*picture)[0].rect, QRectF(sellLeft(panel), top - 3 * 18, kHalf, 5 * 18));
}

TEST(DealRuns, ThatBeganMoreThanAGroupAboveHasItsBracketFromTheFirstLine)
{
    DealPanel panel(280, 94); // one group of five rows
    panel.orders({order(7, 2, 10, 77700, at(9, 59, 0))});
    sellersDeal(panel, {7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 4, 5, 6, 8, 9});
    panel.m_scrollBar->setValue(8); // two rows of the run are left
    const auto picture = panel.picture();
    ASSERT_EQ(brackets(*picture).size(), 1u);
    EXPECT_EQ(brackets(*picture)[0].rect, QRectF(sellLeft(panel), panel.m_layout.top(), kHalf, 2 * 18));
    EXPECT_TRUE(lotsStandAt(panel, 0, panel.m_layout.lineTop(0) + 9));
}

TEST(DealRuns, TheLotsStandInTheMiddleOfWhatIsSeenOfARun)
{
    DealPanel panel(280, 94);
    panel.orders({order(7, 2, 10, 77700, at(9, 59, 0))});
    sellersDeal(panel, {7, 7, 7, 7, 7, 7, 4, 5, 6, 7, 7, 7, 7, 7, 7, 7});
    panel.m_scrollBar->setValue(3); // three rows of the first run
    EXPECT_TRUE(lotsStandAt(panel, 0, panel.m_layout.lineTop(1)));
    panel.m_scrollBar->setValue(4); // two rows
    EXPECT_TRUE(lotsStandAt(panel, 0, panel.m_layout.lineTop(0) + 9));
    panel.m_scrollBar->setValue(7); // three rows of the second run, which goes on below
    EXPECT_TRUE(lotsStandAt(panel, 0, panel.m_layout.lineTop(3)));
    panel.m_scrollBar->setValue(8); // four rows
    EXPECT_TRUE(lotsStandAt(panel, 0, panel.m_layout.lineTop(2) + 9));
}

TEST(DealRuns, TheLotsOfARunOverAllGroupsStandWhereItsMiddleIs)
{
    DealPanel panel; // two groups of five rows, the first at y 2
    panel.orders({order(7, 2, 10, 77700, at(9, 59, 0))});
    sellersDeal(panel, {7, 7, 7, 7, 7, 7, 7, 7, 7, 4, 5, 6, 8, 9, 10});
    panel.m_scrollBar->setValue(2); // seven rows, the middle one in the first group
    ASSERT_EQ(panel.m_layout.top(), 2);
    EXPECT_TRUE(lotsStandAt(panel, 0, 3 * 18)) << "without the offset of the rows from the top";
}

TEST(DealRuns, TheLastDealOfTheListIsClosedAsWell)
{
    DealPanel panel;
    panel.orders({order(7, 2, 10, 77700, at(9, 59, 0)), order(9, 1, 10, 88800, at(9, 59, 0))});
    panel.deals({deal(1, 9, 7, 10, 5500, at(10, 0, 1))});
    EXPECT_EQ(panel.picture()->count(QStringLiteral("777")), 1);
    EXPECT_EQ(panel.picture()->count(QStringLiteral("888")), 1);
}

TEST(DealRuns, AreNotDrawnWithTheStripOff)
{
    DealPanel panel(540, 94, false);
    panel.orders({order(7, 2, 10, 77700, at(9, 59, 0))});
    sellersDeal(panel, {1, 7, 7, 7, 2});
    const auto picture = panel.picture();
    EXPECT_TRUE(brackets(*picture).empty());
    EXPECT_EQ(picture->count(QStringLiteral("777")), 0);
    EXPECT_TRUE(picture->fillsOf(QColor(Qt::darkBlue)).empty());
}
