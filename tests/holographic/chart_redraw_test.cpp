// What draws the chart anew: the pixmap is looked at before anything else draws, and the widget is painted.

#include "Chart.h"

#include <functional>

using namespace testing_support;
using namespace Kel;

namespace {

struct Change
{
    const char* name;
    std::function<void(Chart&)> make;
    bool isDrawn = true; ///< into the pixmap; else only the widget is painted
};

std::ostream& operator<<(std::ostream& out, const Change& change)
{
    return out << change.name;
}

const Change kChanges[] = {
    {"Theme", [](Chart& chart) { chart.themeChanged(); }},
    {"ScrollBar",
     [](Chart& chart) {
         chart.m_scrollBar->blockSignals(true);
         chart.m_scrollBar->setValue(7);
         chart.m_scrollBar->blockSignals(false);
         chart.handleEvent(15, 0, 0, QString(), nullptr);
     }},
    {"Fit", [](Chart& chart) { chart.slotAdjustHeight(); }},
    {"Size", [](Chart& chart) { chart.resize(500, 300); }},
    {"RowHeight", [](Chart& chart) { chart.setFullHeightChagne(-1); }},
    {"MenuUp", [](Chart& chart) { chart.slotAddRowHeight(); }},
    {"MenuDown", [](Chart& chart) { chart.slotReduceRowHeight(); }},
    {"Range", [](Chart& chart) { chart.setViewTimeRange(tag(10, 0, 3), tag(10, 0, 9)); }},
    {"Tick",
     [](Chart& chart) {
         chart.m_model->dirty = true;
         chart.slotTimeOut();
     }},
    {"ColumnKey", [](Chart& chart) { QTest::keyClick(&chart, Qt::Key_Right); }},
    {"ColumnRelease", [](Chart& chart) { chart.release(QPoint(100, 100)); }},
    {"Mode", [](Chart& chart) { chart.mouse(QEvent::MouseButtonDblClick, QPoint(9, 9), Qt::LeftButton); }},
    {"SelectedDeal", [](Chart& chart) { chart.highlightTransactionSeq(4); }},
    {"SelectedTime", [](Chart& chart) { chart.highlightTransactionTime(tag(10, 0, 4)); }},
    {"Middle", [](Chart& chart) { chart.middleCurrDeal(0); }},
    {"Press", [](Chart& chart) { chart.press(QPoint(100, 100)); }, false},
    {"OtherRelease", [](Chart& chart) { chart.release(QPoint(100, 100), Qt::RightButton); }, false},
    {"HoverMove",
     [](Chart& chart) {
         chart.m_columnMode = false;
         chart.move(QPoint(100, 100));
     },
     false},
    {"DetailBox", [](Chart& chart) { chart.slotShowDealDetail(); }, false},
    {"LeaveWithTheBox",
     [](Chart& chart) {
         chart.m_detailSeq = 4;
         QEvent leave(QEvent::Leave);
         QApplication::sendEvent(&chart, &leave);
     },
     false},
};

class ChartRedraw : public testing::TestWithParam<Change>
{
};

INSTANTIATE_TEST_SUITE_P(Changes, ChartRedraw, testing::ValuesIn(kChanges),
                         [](const auto& change) { return std::string(change.param.name); });

} // namespace

TEST_P(ChartRedraw, DrawsThePictureAndPaintsTheWidget)
{
    Chart chart(600, 325);
    chart.fill(60, 30);
    chart.quotes({2, 5});
    QApplication::processEvents();
    chart.m_canvas.fill(Qt::magenta);
    const QImage spoilt = chart.canvas();
    chart.paints = 0;
    GetParam().make(chart);
    const QImage canvas = chart.canvas();
    EXPECT_EQ(canvas, GetParam().isDrawn ? chart.drawnNow() : spoilt);
    QApplication::processEvents();
    EXPECT_GT(chart.paints, 0);
}

TEST(ChartRedraws, NothingIsPaintedWithoutNews)
{
    Chart chart(600, 325);
    chart.fill(60, 30);
    QApplication::processEvents();
    chart.paints = 0;
    chart.slotTimeOut();
    chart.setFullHeightChagne(0);
    chart.move(QPoint(100, 100));
    QApplication::processEvents();
    EXPECT_EQ(chart.paints, 0);
}
