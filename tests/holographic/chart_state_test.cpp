// State of the chart: what it starts with, how data reach it, size and rows.

#include "Chart.h"

using namespace testing_support;
using namespace Kel;

namespace {

/// A chart whose timers run, as it is when it is built.
class RunningChart : public CDepthHolographicWidget
{
public:
    using CDepthHolographicWidget::m_canvas;
    using CDepthHolographicWidget::m_chartHeight;
    using CDepthHolographicWidget::m_chartWidth;
    using CDepthHolographicWidget::m_dealRightX;
    using CDepthHolographicWidget::m_detailTimer;
    using CDepthHolographicWidget::m_dragging;
    using CDepthHolographicWidget::m_hoverPos;
    using CDepthHolographicWidget::m_instrument;
    using CDepthHolographicWidget::m_menu;
    using CDepthHolographicWidget::m_pageRows;
    using CDepthHolographicWidget::m_priceTick;
    using CDepthHolographicWidget::m_refreshTimer;
    using CDepthHolographicWidget::m_scrollBar;
    using CDepthHolographicWidget::m_scrollRow;
    using CDepthHolographicWidget::m_selectAnchor;
    using CDepthHolographicWidget::m_selecting;
    using CDepthHolographicWidget::m_selectRect;
    using CDepthHolographicWidget::m_timeSpanX;
    using CDepthHolographicWidget::m_topPadRows;
    using CDepthHolographicWidget::m_totalRows;
    using CDepthHolographicWidget::m_widgetRect;
};

} // namespace

TEST(ChartStart, HasTheValuesThatItIsBuiltWith)
{
    const auto chart = std::make_unique<Chart>();
    EXPECT_EQ(chart->objectName(), QStringLiteral("holographic_deal_line_widget"));
    EXPECT_EQ(chart->focusPolicy(), Qt::WheelFocus);
    EXPECT_TRUE(chart->m_columnMode);
    EXPECT_EQ(chart->m_baseHalfRow, 12);
    EXPECT_EQ(chart->m_halfRow, 12);
    EXPECT_EQ(chart->m_rowHeight, 25);
    EXPECT_EQ(chart->m_priceAxisWidth, 50);
    EXPECT_EQ(chart->m_cursorSeq, -1);
    EXPECT_EQ(chart->m_detailSeq, -1);
    EXPECT_EQ(chart->m_dragLastX, -1);
    EXPECT_EQ(chart->m_fullHeightDialog, nullptr);
    EXPECT_FALSE(chart->m_detailTimer->isActive());
}

TEST(ChartStart, HasNoSizeRowsPictureOrInstrumentYet)
{
    RunningChart chart;
    EXPECT_EQ(chart.m_pageRows, 0);
    EXPECT_EQ(chart.m_totalRows, 0);
    EXPECT_EQ(chart.m_topPadRows, 0);
    EXPECT_EQ(chart.m_scrollRow, 0);
    EXPECT_EQ(chart.m_chartWidth, 0);
    EXPECT_EQ(chart.m_chartHeight, 0);
    EXPECT_DOUBLE_EQ(chart.m_priceTick, 0.01);
    EXPECT_TRUE(chart.m_dealRightX.isEmpty());
    EXPECT_TRUE(chart.m_timeSpanX.isEmpty());
    EXPECT_TRUE(chart.m_selectAnchor.isNull());
    EXPECT_TRUE(chart.m_hoverPos.isNull());
    EXPECT_FALSE(chart.m_selecting);
    EXPECT_FALSE(chart.m_dragging);
    EXPECT_TRUE(chart.m_selectRect.isNull());
    EXPECT_TRUE(chart.m_widgetRect.isNull());
    EXPECT_TRUE(chart.m_canvas.isNull());
    EXPECT_EQ(chart.m_instrument.load(), nullptr);
    EXPECT_NE(chart.model(), nullptr);
    EXPECT_EQ(chart.m_menu->parent(), &chart);
    EXPECT_EQ(chart.m_detailTimer->parent(), &chart);
    EXPECT_EQ(chart.m_refreshTimer->parent(), &chart);
    EXPECT_TRUE(chart.m_scrollBar->isHidden());
}

TEST(ChartStart, ItsScrollBarIsNarrowAndStartsAtZero)
{
    Chart chart;
    EXPECT_EQ(chart.m_scrollBar->orientation(), Qt::Vertical);
    EXPECT_EQ(chart.m_scrollBar->width(), 6);
    EXPECT_EQ(chart.m_scrollBar->singleStep(), 1);
    EXPECT_EQ(chart.m_scrollBar->minimum(), 0);
    EXPECT_TRUE(chart.m_scrollBar->styleSheet().startsWith(
        QStringLiteral("QScrollBar:vertical {border: 0px solid ")));
    EXPECT_EQ(chart.m_scrollBar->geometry(), QRect(chart.width() - 6, 0, 6, chart.height()));
}

TEST(ChartStart, TheStripsAreMeasuredByTheAxisFont)
{
    Chart chart;
    const QFontMetrics metrics(fontOf("fnt_kline_graph_axis_text"), &chart);
    EXPECT_EQ(chart.m_timeAxisHeight, int(metrics.height() * 1.5));
    EXPECT_EQ(chart.m_timeCellWidth, std::max(80, int(metrics.horizontalAdvance("09:25:00") * 1.5)));
}

TEST(ChartTimers, RefreshEveryTwoHundredMillisecondsWithoutAConfiguration)
{
    setUserConfig(nullptr);
    RunningChart chart;
    EXPECT_EQ(chart.m_refreshTimer->interval(), 200);
    EXPECT_TRUE(chart.m_refreshTimer->isActive());
    EXPECT_FALSE(chart.m_refreshTimer->isSingleShot());
}

TEST(ChartTimers, FollowTheConfigurationOfTheUser)
{
    CUserConfig config;
    config.setRefreshInterval(0.7519);
    setUserConfig(&config);
    {
        RunningChart chart;
        EXPECT_EQ(chart.m_refreshTimer->interval(), 751) << "truncated to milliseconds";
        config.setRefreshInterval(0.3);
        EXPECT_EQ(chart.m_refreshTimer->interval(), 300);
        EXPECT_TRUE(chart.m_refreshTimer->isActive());
        EXPECT_FALSE(chart.m_detailTimer->isActive()) << "no hover was running";
        chart.m_detailTimer->start(9000);
        config.setRefreshInterval(0.4);
        EXPECT_EQ(chart.m_detailTimer->interval(), 400) << "a hover in progress takes the interval on";
    }
    setUserConfig(nullptr);
}

TEST(ChartTimers, NeverSpin)
{
    RunningChart chart;
    for (const int period : {0, -7}) {
        chart.slotRefreshTimer(period);
        EXPECT_EQ(chart.m_refreshTimer->interval(), 1);
        EXPECT_TRUE(chart.m_refreshTimer->isActive());
    }
}

TEST(ChartSize, IsTheWidgetWithoutTheStrips)
{
    Chart chart(600, 325);
    EXPECT_EQ(chart.m_chartWidth, 600);
    EXPECT_EQ(chart.m_chartHeight, 325);
    EXPECT_EQ(chart.m_widgetRect, QRect(0, 0, 650, 325 + chart.m_timeAxisHeight));
    EXPECT_EQ(chart.m_canvas.size(), chart.m_widgetRect.size() * chart.devicePixelRatioF());
    EXPECT_EQ(chart.m_pageRows, 13);
    EXPECT_EQ(chart.m_scrollBar->pageStep(), 13);
}

TEST(ChartSize, NothingKeepsTheOldPicture)
{
    Chart chart(600, 325);
    const QSize before = chart.m_canvas.size();
    chart.resize(0, 0);
    EXPECT_EQ(chart.m_canvas.size(), before);
    EXPECT_EQ(chart.m_chartWidth, 600);
    EXPECT_EQ(chart.m_widgetRect.size(), QSize(0, 0)) << "the rectangle is taken all the same";
}

TEST(ChartSize, AWidthOfZeroDoesNotStopTheLayout)
{
    Chart chart(600, 325);
    chart.resize(0, 200);
    EXPECT_EQ(chart.m_chartWidth, -50);
    EXPECT_EQ(chart.m_chartHeight, 200 - chart.m_timeAxisHeight);
    EXPECT_TRUE(chart.m_canvas.isNull());
    chart.add({{1, 2, 10, 5}});
    chart.resize(600, 200);
    EXPECT_FALSE(chart.m_canvas.isNull());
}

TEST(ChartSize, OnAScreenOfAnotherScaleThePictureIsDrawnForThatOne)
{
    Chart chart(600, 325);
    chart.fill(20);
    const QImage before = chart.grab().toImage();
    for (const qreal ratio : {1.5, 3.0}) {
        QPixmap other(100, 100);
        other.setDevicePixelRatio(ratio);
        other.fill(Qt::magenta);
        chart.m_canvas = other;
        const QImage image = chart.grab().toImage();
        EXPECT_EQ(chart.m_canvas.devicePixelRatioF(), chart.devicePixelRatioF());
        EXPECT_EQ(chart.m_canvas.size(), chart.m_widgetRect.size() * chart.devicePixelRatioF());
        EXPECT_EQ(image, before);
    }
}

TEST(ChartSize, TinyChartsDrawWithoutHarm)
{
    Chart chart;
    chart.fill(50, 30, 700);
    for (const QSize size : {QSize(1, 1), QSize(50, 10), QSize(51, 24), QSize(52, 400), QSize(400, 3)}) {
        chart.resize(size);
        chart.slotAdjustHeight();
        EXPECT_EQ(chart.grab().size(), size * chart.devicePixelRatioF());
    }
}

// Data flow
// ------------------------------------------------------------------------------------------------------------

TEST(ChartFeed, BeforeTheFirstStockNothingIsTaken)
{
    addInstruments();
    CDepthHolographicWidget widget;
    widget.slotQuoterCallBack(0, 1, {snapshot(at(10, 0, 0))}, kStock, 0);
    widget.onTransactionCallback(kStock, 0, 1, wrap({deal(1, 1, 2, 10, 100, at(10, 0, 0))}));
    EXPECT_FALSE(widget.model()->hasIntervals());
    EXPECT_EQ(widget.model()->count, 0);
}

TEST(ChartFeed, SnapshotsOfAnotherInstrumentAreDropped)
{
    Chart chart;
    chart.slotQuoterCallBack(0, 1, {snapshot(at(10, 0, 0))}, kOther, 0);
    chart.slotQuoterCallBack(0, 1, {snapshot(at(10, 0, 0))}, QStringLiteral("SH.600519"), 0);
    chart.slotQuoterCallBack(0, 1, {snapshot(at(10, 0, 0))}, QString(), 0);
    EXPECT_FALSE(chart.m_model->hasIntervals());
    EXPECT_FALSE(chart.m_model->needRecalc);
    chart.slotQuoterCallBack(0, 1, {snapshot(at(10, 0, 0))}, kStock, 0);
    EXPECT_TRUE(chart.m_model->hasIntervals());
}

TEST(ChartFeed, TheKeyOfDealsAndOrdersIsNotLookedAt)
{
    Chart chart;
    chart.onTransactionCallback(QStringLiteral("whatever"), 0, 1,
                                wrap({deal(1, 1, 2, 10, 100, at(10, 0, 0))}));
    chart.onEntrustCallback(QString(), 0, 1, wrap({order(1, 1, 10, 100, at(9, 59, 0))}));
    EXPECT_EQ(chart.m_model->count, 1);
    EXPECT_TRUE(chart.m_model->getOrder(1));
}

TEST(ChartFeed, ATickFoldsAllNewDataIntoOnePicture)
{
    Chart chart;
    chart.onTransactionCallback(kStock, 0, 1, wrap({deal(1, 1, 2, 10, 100, at(10, 0, 0))}));
    chart.onTransactionCallback(kStock, 0, 1, wrap({deal(2, 1, 2, 10, 100, at(10, 0, 1))}));
    EXPECT_TRUE(chart.m_dealRightX.isEmpty()) << "nothing is painted from the feed";
    chart.slotTimeOut();
    EXPECT_EQ(chart.m_dealRightX.keys(), (QList<int>{0, 1}));
    EXPECT_FALSE(chart.m_model->needRecalc);
    EXPECT_FALSE(chart.m_model->dirty);
}

TEST(ChartFeed, ATickWithoutNewsPaintsNothing)
{
    Chart chart;
    chart.add({{1, 2, 10, 5}});
    chart.m_dealRightX.clear();
    chart.slotTimeOut();
    EXPECT_TRUE(chart.m_dealRightX.isEmpty());
    chart.m_model->dirty = true;
    chart.slotTimeOut();
    EXPECT_FALSE(chart.m_dealRightX.isEmpty());
}

TEST(ChartFeed, ARecalculationThatChangesNothingLaysOutNothing)
{
    Chart chart;
    chart.add({{1, 2, 10, 5}});
    chart.m_pageRows = 77;
    chart.m_model->dirty = false;
    chart.m_model->needRecalc = true;
    chart.slotTimeOut();
    EXPECT_FALSE(chart.m_model->needRecalc);
    EXPECT_EQ(chart.m_pageRows, 77);
    chart.add({{3, 4, 10.05, 5}});
    EXPECT_EQ(chart.m_pageRows, 13);
    EXPECT_EQ(chart.m_totalRows, 6);
}

TEST(ChartFeed, ARangeOfTimeIsShownAtOnce)
{
    Chart chart;
    chart.fill(20, 10);
    chart.setViewTimeRange(tag(10, 0, 3), tag(10, 0, 5));
    EXPECT_EQ(chart.m_dealRightX.keys(), (QList<int>{3, 4, 5}));
    EXPECT_EQ(chart.m_totalRows, 3);
    chart.m_dealRightX.clear();
    chart.setViewTimeRange(tag(10, 0, 3), tag(10, 0, 5));
    EXPECT_TRUE(chart.m_dealRightX.isEmpty()) << "the same range again paints nothing";
}

// Instrument
// -----------------------------------------------------------------------------------------------------------

namespace {

/// Takes the chart away from all that it starts with.
void disturb(Chart& chart)
{
    chart.fill(20, 10);
    chart.quotes({5});
    chart.m_cursorSeq = 3;
    chart.m_detailSeq = 4;
    chart.setFullHeightChagne(-4);
    chart.m_model->dirty = false;
}

void expectDropped(const Chart& chart)
{
    EXPECT_EQ(chart.m_model->count, 0);
    EXPECT_FALSE(chart.m_model->hasIntervals());
    EXPECT_EQ(chart.m_detailSeq, -1);
    EXPECT_TRUE(chart.m_model->dirty);
    EXPECT_EQ(chart.m_halfRow, 12);
    EXPECT_EQ(chart.m_rowHeight, 25);
    EXPECT_EQ(chart.m_topPadRows, 0);
}

} // namespace

TEST(ChartStock, AnotherStockDropsTheCursor)
{
    Chart chart;
    disturb(chart);
    chart.m_columnMode = false;
    chart.setStock(kOther);
    expectDropped(chart);
    EXPECT_EQ(chart.m_cursorSeq, -1);
    EXPECT_FALSE(chart.m_columnMode) << "the mode stays";
    chart.slotTimeOut();
    EXPECT_TRUE(chart.picture()->fillsOf(colorOf(kActive)).empty());
}

TEST(ChartStock, ClearKeepsTheCursor)
{
    Chart chart;
    disturb(chart);
    chart.clear();
    expectDropped(chart);
    EXPECT_EQ(chart.m_cursorSeq, 3);
}

TEST(ChartStock, ThePriceTickIsThatOfTheInstrument)
{
    auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
    detail->market = "SH";
    detail->code = "510050";
    detail->priceTick = 0.001;
    utils::CSingletonT<CStockManager>::instance().addInstrument(detail);
    Chart chart;
    EXPECT_DOUBLE_EQ(chart.m_priceTick, 0.01);
    chart.setStock(QStringLiteral("SH510050"));
    EXPECT_DOUBLE_EQ(chart.m_priceTick, 0.001);
}

TEST(ChartStock, AnUnknownStockLeavesTheChartEmpty)
{
    Chart chart;
    chart.setStock(QStringLiteral("XX1"));
    chart.slotQuoterCallBack(0, 1, {snapshot(at(10, 0, 0))}, QStringLiteral("XX1"), 0);
    chart.add({{1, 2, 10, 5}});
    EXPECT_EQ(chart.m_model->count, 0);
    EXPECT_FALSE(chart.m_model->hasIntervals());
}

// Rows
// -----------------------------------------------------------------------------------------------------------------

TEST(ChartRows, AShortLadderIsCentredAndNeedsNoScrollBar)
{
    Chart chart(600, 325);
    chart.fill(20, 5);
    EXPECT_EQ(chart.m_totalRows, 5);
    EXPECT_EQ(chart.m_topPadRows, 4);
    EXPECT_TRUE(chart.m_scrollBar->isHidden());
    EXPECT_EQ(chart.priceToY(10.04), 12 + 4 * 25);
}

TEST(ChartRows, ALongLadderScrolls)
{
    Chart chart(600, 325);
    chart.fill(60, 30);
    EXPECT_FALSE(chart.m_scrollBar->isHidden());
    EXPECT_EQ(chart.m_scrollBar->maximum(), 30 - 13);
    chart.m_scrollBar->setValue(4);
    EXPECT_EQ(chart.m_scrollRow, 4);
    EXPECT_EQ(chart.priceToY(10.29), 12 - 4 * 25);
    chart.resize(650, 1000);
    EXPECT_TRUE(chart.m_scrollBar->isHidden());
    EXPECT_EQ(chart.m_scrollRow, 0);
    EXPECT_EQ(chart.m_scrollBar->value(), 4) << "the bar's value is not touched";
}

TEST(ChartRows, EventsOfTheScrollBarMoveTheLadder)
{
    Chart chart(600, 325);
    chart.fill(60, 30);
    chart.m_scrollBar->blockSignals(true);
    chart.m_scrollBar->setValue(7);
    chart.m_scrollBar->blockSignals(false);
    EXPECT_EQ(chart.m_scrollRow, 0);
    EXPECT_TRUE(chart.handleEvent(15, 0, 0, QString(), nullptr));
    EXPECT_EQ(chart.m_scrollRow, 7);
    EXPECT_FALSE(chart.handleEvent(14, 0, 0, QString(), nullptr)) << "others are the base's";
}

TEST(ChartRows, TheHeightStaysWithinItsBounds)
{
    Chart chart;
    chart.setFullHeightChagne(3);
    EXPECT_EQ(chart.m_halfRow, 15);
    EXPECT_EQ(chart.m_rowHeight, 31);
    EXPECT_EQ(chart.calcDrawHeight(250), 7);
    EXPECT_EQ(chart.calcDrawHeight(501), 15);
    EXPECT_EQ(chart.m_pageRows, chart.m_chartHeight / 31);
    chart.setFullHeightChagne(std::numeric_limits<int>::max());
    EXPECT_EQ(chart.m_halfRow, 16);
    chart.setFullHeightChagne(std::numeric_limits<int>::min());
    EXPECT_EQ(chart.m_halfRow, 1);
    EXPECT_EQ(chart.m_rowHeight, 3);
}

TEST(ChartRows, AHeightAtItsBoundIsNotPaintedAgain)
{
    Chart chart;
    chart.add({{1, 2, 10, 5}});
    for (const int delta : {1, -1}) {
        chart.setFullHeightChagne(delta * 100);
        chart.m_dealRightX.clear();
        chart.setFullHeightChagne(delta);
        EXPECT_TRUE(chart.m_dealRightX.isEmpty()) << delta;
        chart.setFullHeightChagne(-delta);
        EXPECT_FALSE(chart.m_dealRightX.isEmpty()) << delta;
    }
}

TEST(ChartRows, FitShowsTheWholeLadderOrGoesBackToUsualRows)
{
    Chart chart(600, 325);
    chart.fill(60, 30);
    chart.slotAdjustHeight();
    EXPECT_EQ(chart.m_rowHeight, 10);
    EXPECT_EQ(chart.m_halfRow, 5);
    EXPECT_EQ(chart.m_pageRows, 32);
    EXPECT_TRUE(chart.m_scrollBar->isHidden());
    chart.setViewTimeRange(tag(10, 0, 0), tag(10, 0, 3));
    chart.slotAdjustHeight();
    EXPECT_EQ(chart.m_rowHeight, 25);
}

TEST(ChartRows, FitOfALadderThatIsTooLongEvenForLowRowsStartsAtTheTop)
{
    Chart chart(600, 325);
    chart.fill(300, 200);
    chart.m_scrollBar->setValue(chart.m_scrollBar->maximum());
    chart.slotAdjustHeight();
    EXPECT_EQ(chart.m_rowHeight, 3);
    EXPECT_EQ(chart.m_pageRows, 108);
    EXPECT_EQ(chart.m_scrollBar->maximum(), 200 - 108);
    EXPECT_EQ(chart.m_scrollRow, 0);
    EXPECT_EQ(chart.m_scrollBar->value(), 0);
}

TEST(ChartRows, FitOfAShortLadderLeavesNoOldPlaceInTheBar)
{
    Chart chart(600, 325);
    chart.fill(60, 30);
    chart.m_scrollBar->setValue(9);
    chart.slotAdjustHeight();
    EXPECT_EQ(chart.m_scrollRow, 0);
    EXPECT_EQ(chart.m_scrollBar->value(), 0);
}

TEST(ChartTheme, ResetsTheRowsButNotThePage)
{
    Chart chart(600, 325);
    chart.fill(60, 30);
    chart.slotAdjustHeight();
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    resource.setTheme(QStringLiteral("light"));
    EXPECT_EQ(chart.m_rowHeight, 25);
    EXPECT_EQ(chart.m_halfRow, 12);
    EXPECT_EQ(chart.m_pageRows, 32) << "until the rows are laid out again";
    EXPECT_EQ(chart.m_inks[eInkSell], colorOf(kSellLine));
    EXPECT_EQ(chart.picture()->fills().at(0).color(), colorOf(kGround));
    resource.setTheme(QStringLiteral("dark"));
    EXPECT_EQ(chart.picture()->fills().at(0).color(), colorOf(kGround));
}
