// Drawing by columns gives the picture that drawing shape by shape gives, pixel by pixel, on random days.

#include "Chart.h"

#include "feed/simulation/Random.h"

using namespace testing_support;
using namespace Kel;

namespace {

/// A day of orders that deal with one another in runs, jumps and repeats.
void fillAtRandom(Chart& chart, feed::Random& random, int count, int lots, int ticks)
{
    Batch orders;
    Batch deals;
    double price = 10;
    const auto number = [&](int base) { return base + static_cast<int>(random.below(60)) * 2; };
    for (int index = 0; index < count; ++index) {
        if (random.chance(0.3))
            price = 10 + static_cast<int>(random.below(static_cast<std::uint32_t>(ticks))) * 0.01;
        const int base = 1 + index / 40 * 80;
        const int buyNo = random.chance(0.02) ? 0 : number(base);
        const int sellNo = random.chance(0.02) ? 0 : number(base + 1);
        const int volume = 1 + static_cast<int>(random.below(
                                   static_cast<std::uint32_t>(random.chance(0.02) ? lots * 40 : lots)));
        deals.push_back(deal(index + 1, buyNo, sellNo, price, volume * 100, at(10, 0, 0) + index * 300,
                             static_cast<int>(random.below(3))));
        for (const int side : {1, 2}) {
            const int order = side == 1 ? buyNo : sellNo;
            if (random.chance(0.6))
                orders.push_back(testing_support::order(
                    order, side, price + (random.chance(0.5) ? 0.02 : -0.02), 100 * (1 + random.below(1200)),
                    at(9, 59, 0), random.chance(0.1) ? 2 : 1));
        }
    }
    chart.onEntrustCallback(kStock, 0, 0, wrap(orders));
    chart.addDeals(deals, 0);
}

QImage pictureOf(Chart& chart, decltype(Chart::m_drawing) drawing, qreal ratio = 1)
{
    chart.m_drawing = drawing;
    QImage image((QSizeF(chart.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    QPainter painter(&image);
    chart.drawGraph(painter);
    return image;
}

int differingPixels(const QImage& left, const QImage& right)
{
    int count = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x)
            count += left.pixel(x, y) != right.pixel(x, y) ? 1 : 0;
    }
    return count;
}

/// The first pixel that differs, with its neighbours, in the plain picture and in the other.
std::string whereTheyDiffer(const QImage& plain, const QImage& columns)
{
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            if (plain.pixel(x, y) == columns.pixel(x, y))
                continue;
            std::string text = " at " + std::to_string(x) + "," + std::to_string(y) + "\n";
            for (const QImage* const image : {&plain, &columns}) {
                for (int row = y - 4; row <= y + 4; ++row) {
                    for (int column = x - 4; column <= x + 4; ++column)
                        text +=
                            (image->valid(column, row) ? image->pixelColor(column, row).name().toStdString()
                                                       : std::string("-------")) +
                            " ";
                    text += "\n";
                }
                text += "\n";
            }
            return text;
        }
    }
    return {};
}

class SamePicture : public testing::TestWithParam<std::uint64_t>
{
};

INSTANTIATE_TEST_SUITE_P(Seeds, SamePicture, testing::Range<std::uint64_t>(1, 21));

} // namespace

TEST_P(SamePicture, IsDrawnByColumnsAndShapeByShape)
{
    const std::uint64_t seed = GetParam();
    SCOPED_TRACE("seed " + std::to_string(seed));
    feed::Random random(seed);
    Chart chart(300 + static_cast<int>(random.below(900)), 100 + static_cast<int>(random.below(500)));
    const int count = random.chance(0.5) ? 60 + static_cast<int>(random.below(300)) : 3000;
    fillAtRandom(chart, random, count, random.chance(0.5) ? 5 : 200, 1 + static_cast<int>(random.below(40)));
    chart.setViewTimeRange(tag(10, 0, 0), tag(11, 0, 0));
    ASSERT_EQ(chart.m_model->getEndIndex(), count - 1);
    chart.m_model->setFullHeightHandle(4 + static_cast<int>(random.below(600)));
    for (int round = 0; round < 6; ++round) {
        const QImage plain = pictureOf(chart, Chart::eDrawPlain);
        const QMap<int, int> ends = chart.m_dealRightX;
        const auto spans = chart.m_timeSpanX;
        const QImage columns = pictureOf(chart, Chart::eDrawByColumns);
        if (plain != columns) {
            plain.save(QStringLiteral("same_picture_%1_plain.png").arg(seed));
            columns.save(QStringLiteral("same_picture_%1_columns.png").arg(seed));
        }
        ASSERT_EQ(differingPixels(plain, columns), 0) << "round " << round << whereTheyDiffer(plain, columns);
        ASSERT_EQ(chart.m_dealRightX, ends);
        ASSERT_EQ(chart.m_timeSpanX, spans);
        chart.setFullHeightChagne(static_cast<int>(random.below(9)) - 4);
        chart.m_scrollBar->setValue(static_cast<int>(random.below(40)));
        const int start = static_cast<int>(random.below(200));
        if (random.chance(0.5))
            chart.setViewTimeRange(tag(10, 0, 0) + start,
                                   tag(10, 0, 0) + start + 10 + static_cast<int>(random.below(800)));
        if (random.chance(0.3))
            chart.slotAdjustHeight();
    }
}

TEST(SamePictures, AManyDealsAreDrawnByColumnsAndAFewShapeByShape)
{
    feed::Random random(3);
    Chart chart(600, 300);
    fillAtRandom(chart, random, 3000, 5, 5);
    chart.m_drawing = Chart::eDrawAsFits;
    EXPECT_TRUE(chart.picture()->all(PaintCommand::ePixmap).empty());
    chart.setViewTimeRange(tag(10, 0, 0), tag(11, 0, 0));
    EXPECT_EQ(chart.picture()->all(PaintCommand::ePixmap).size(), 1u);
    chart.m_inks[eInkBuy].setAlpha(100);
    EXPECT_TRUE(chart.picture()->all(PaintCommand::ePixmap).empty()) << "what shows through has to be drawn";
}

TEST(SamePictures, OnAFineScreenManyDealsAreDrawnAsFineAsAFew)
{
    feed::Random random(4);
    Chart chart(600, 300);
    fillAtRandom(chart, random, 3000, 5, 5);
    chart.setViewTimeRange(tag(10, 0, 0), tag(11, 0, 0));
    for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
        const QImage plain = pictureOf(chart, Chart::eDrawPlain, ratio);
        const QImage fits = pictureOf(chart, Chart::eDrawAsFits, ratio);
        const QImage columns = pictureOf(chart, Chart::eDrawByColumns, ratio);
        EXPECT_EQ(differingPixels(plain, fits), 0) << ratio << whereTheyDiffer(plain, fits);
        EXPECT_EQ(differingPixels(plain, columns), 0) << ratio << whereTheyDiffer(plain, columns);
    }
}
