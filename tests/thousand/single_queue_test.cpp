// The panel of the orders of one price.

#include "LadderFixture.h"
#include "thousand/CSingleQueueWidget.h"
#include "thousand/single_queue_geometry.h"

#include <limits>

using namespace thousand_tests;
using Kel::SingleQueueLayout;

namespace {

class QueueProbe : public Kel::CSingleQueueWidget
{
public:
    using CSingleQueueWidget::CSingleQueueWidget;
    using CSingleQueueWidget::drawQueue;
    using CSingleQueueWidget::getVolumeColor;
    using CSingleQueueWidget::layout;
    using CSingleQueueWidget::m_cellPitch;
    using CSingleQueueWidget::m_columns;
    using CSingleQueueWidget::m_price;
    using CSingleQueueWidget::m_quotes;
    using CSingleQueueWidget::m_scrollBar;
    using CSingleQueueWidget::m_scrollTop;
    using CSingleQueueWidget::m_title;
    using CSingleQueueWidget::m_totalRows;
    using CSingleQueueWidget::m_visibleRows;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        CSingleQueueWidget::paintEvent(event);
    }
};

class SingleQueuePanel : public ::testing::Test
{
protected:
    SingleQueuePanel()
    {
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QStringLiteral("dark"));
        panel.resize(290, 200);
        panel.show();
        QApplication::processEvents();
    }

    /// A level of `count` orders of `lots` each; the numbers begin with 100.
    static std::shared_ptr<Kel::SingleQueue> level(double price, int count, int lots = 3, bool isBuy = true)
    {
        const auto queue = std::make_shared<Kel::SingleQueue>();
        queue->isBuy = isBuy ? 1 : 0;
        queue->price = price;
        queue->time = 100000;
        queue->orderCount = count;
        queue->totalVolume = 100 * lots * count;
        for (int i = 0; i < count; ++i) {
            const auto quote = std::make_shared<Kel::SingleQuote>();
            quote->volume = 100 * lots;
            quote->state = 1;
            queue->quotes.emplace_back(100 + i, quote);
        }
        return queue;
    }

    void set(const std::shared_ptr<Kel::SingleQueue>& queue) { panel.setSingleQueue(queue, 0.01, 100); }

    PaintRecorder& picture()
    {
        recorder = std::make_unique<PaintRecorder>(panel.width(), panel.height());
        QPainter painter(recorder.get());
        panel.drawQueue(painter);
        return *recorder;
    }

    bool wheel(int delta)
    {
        const QPointF at(50, 50);
        QWheelEvent event(at, panel.mapToGlobal(at.toPoint()), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&panel, &event);
        return event.isAccepted();
    }

    int painted()
    {
        panel.paints = 0;
        QApplication::processEvents();
        return panel.paints;
    }

    QueueProbe panel{nullptr};
    std::unique_ptr<PaintRecorder> recorder;
};

} // namespace

TEST(SingleQueueGeometry, AsManyColumnsAsFitButOneAtLeast)
{
    SingleQueueLayout layout;
    const struct
    {
        int width;
        int columns;
        int pitch;
    } rows[] = {{0, 1, -10},  {54, 1, 44},  {55, 1, 45},  {109, 1, 99},  {110, 2, 45},
                {275, 5, 45}, {274, 4, 58}, {290, 5, 48}, {1000, 18, 45}};
    for (const auto& row : rows) {
        layout.clientWidth = row.width;
        EXPECT_EQ(layout.fittingColumns(), row.columns) << row.width;
        layout.columns = row.columns;
        EXPECT_EQ(layout.pitch(), row.pitch) << row.width;
    }
}

TEST(SingleQueueGeometry, PlacesCellsBarAndRows)
{
    SingleQueueLayout layout;
    layout.clientWidth = 290;
    layout.clientHeight = 200;
    layout.cellPitch = 48;
    EXPECT_EQ(layout.cell(0), QRect(5, 24, 45, 20));
    EXPECT_EQ(layout.cell(4), QRect(5 + 4 * 58, 24, 45, 20));
    EXPECT_EQ(layout.cell(5), QRect(5, 44, 45, 20));
    layout.scrollTop = 2;
    EXPECT_EQ(layout.cell(10), QRect(5, 24, 45, 20));
    EXPECT_EQ(layout.barGeometry(6), QRect(290 - 2 - 6, 27, 6, 200 - 5 - 24));
    EXPECT_EQ(layout.fittingRows(), 8);
    EXPECT_EQ(layout.rowsFor(0), 0);
    EXPECT_EQ(layout.rowsFor(1), 1);
    EXPECT_EQ(layout.rowsFor(5), 1);
    EXPECT_EQ(layout.rowsFor(6), 2);
    EXPECT_EQ(layout.rowsFor(std::numeric_limits<int>::max()), std::numeric_limits<int>::max() / 5 + 1);
    EXPECT_EQ(layout.heightFor(3), 24 + 2 + 60);
    EXPECT_EQ(Kel::openingRows(0), 3);
    EXPECT_EQ(Kel::openingRows(4), 4);
    EXPECT_EQ(Kel::openingRows(21), 20);
}

TEST(SingleQueueGeometry, RestsAreRoundedToLotsAndNeverBelowOne)
{
    Kel::SingleQuote quote;
    const auto lots = [&](int volume, int dealt, int unit = 100) {
        quote.volume = volume;
        quote.dealtVolume = dealt;
        return Kel::restInLots(quote, unit);
    };
    EXPECT_EQ(lots(300, 0), 3);
    EXPECT_EQ(lots(300, 100), 2);
    EXPECT_EQ(lots(99, 0), 1) << "less than a lot";
    EXPECT_EQ(lots(149, 0), 1);
    EXPECT_EQ(lots(150, 0), 2);
    EXPECT_EQ(lots(100, 300), 1);
    EXPECT_EQ(lots(25, 0, 10), 3);
    EXPECT_EQ(lots(5, 0, 0), 5) << "a unit of none counts as one";
    EXPECT_EQ(lots(std::numeric_limits<int>::max(), std::numeric_limits<int>::min(), 1),
              std::numeric_limits<int>::max());
}

TEST(SingleQueueGeometry, AnOrderIsFreshForThreeSecondsUnlessItWasDealt)
{
    Kel::SingleQuote quote;
    quote.time = 10000;
    quote.state = 1;
    EXPECT_TRUE(Kel::isFresh(quote, 10000));
    EXPECT_TRUE(Kel::isFresh(quote, 12999));
    EXPECT_FALSE(Kel::isFresh(quote, 13000));
    EXPECT_TRUE(Kel::isFresh(quote, 9000));
    quote.state = 2;
    EXPECT_FALSE(Kel::isFresh(quote, 10000));
    quote.state = 1;
    quote.time = std::numeric_limits<std::int64_t>::min();
    EXPECT_FALSE(Kel::isFresh(quote, std::numeric_limits<std::int64_t>::max()));
}

TEST_F(SingleQueuePanel, StartsEmpty)
{
    EXPECT_EQ(panel.objectName(), "single_queue_widget");
    EXPECT_EQ(panel.m_scrollBar->width(), 6);
    EXPECT_TRUE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(picture().texts(), QStringList());
}

TEST_F(SingleQueuePanel, TheTitleTellsSidePriceOrdersAndTotal)
{
    set(level(9.99, 7));
    EXPECT_EQ(panel.m_title, "买入 9.99 共 7 笔 总量 21");
    set(level(10.5, 2, 4, false));
    EXPECT_EQ(panel.m_title, "卖出 10.50 共 2 笔 总量 8");
    panel.setSingleQueue(level(3.995, 2, 4, false), 0.001, 10);
    EXPECT_EQ(panel.m_title, "卖出 3.995 共 2 笔 总量 80");
}

TEST_F(SingleQueuePanel, ATotalBelowTheUnitShowsOne)
{
    auto queue = level(9.99, 1);
    queue->totalVolume = 99;
    set(queue);
    EXPECT_EQ(panel.m_title, "买入 9.99 共 1 笔 总量 1");
    queue->totalVolume = 399;
    set(queue);
    EXPECT_EQ(panel.m_title, "买入 9.99 共 1 笔 总量 3");
    panel.setSingleQueue(queue, 0.01, 0);
    EXPECT_EQ(panel.m_title, "买入 9.99 共 1 笔 总量 399") << "a unit of none counts as one";
}

TEST_F(SingleQueuePanel, FewOrdersOpenThePanelWithThreeRows)
{
    set(level(9.99, 2));
    EXPECT_EQ(panel.size(), QSize(290, 24 + 2 + 60));
    EXPECT_EQ(panel.m_visibleRows, 3);
    EXPECT_EQ(panel.m_totalRows, 1);
    EXPECT_TRUE(panel.m_scrollBar->isHidden());
}

TEST_F(SingleQueuePanel, ManyOrdersOpenItWithTwentyRowsAndABar)
{
    set(level(9.99, 101));
    EXPECT_EQ(panel.height(), 24 + 2 + 400);
    EXPECT_EQ(panel.m_totalRows, 21);
    EXPECT_EQ(panel.m_visibleRows, 20);
    EXPECT_FALSE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.m_scrollBar->maximum(), 1);
    EXPECT_EQ(panel.m_scrollBar->geometry(), QRect(282, 27, 6, 426 - 29));
    EXPECT_EQ(panel.m_scrollBar->pageStep(), 20);
    EXPECT_EQ(panel.m_scrollBar->singleStep(), 1);
    set(level(9.99, 100));
    EXPECT_TRUE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.m_scrollTop, 0);
}

TEST_F(SingleQueuePanel, GrowsWithTheQueueAndShrinksOnlyForAnotherPrice)
{
    set(level(9.99, 20));
    EXPECT_EQ(panel.height(), 24 + 2 + 80);
    set(level(9.99, 40));
    EXPECT_EQ(panel.height(), 24 + 2 + 160);
    set(level(9.99, 5));
    EXPECT_EQ(panel.height(), 24 + 2 + 160) << "the same price";
    set(level(9.990005, 5));
    EXPECT_EQ(panel.height(), 24 + 2 + 160) << "the same price within the tolerance";
    set(level(9.98, 5));
    EXPECT_EQ(panel.height(), 24 + 2 + 60);
}

TEST_F(SingleQueuePanel, ARefreshKeepsTheScrollAndAnotherPriceGoesBackToTheTop)
{
    set(level(9.99, 200));
    panel.m_scrollBar->setValue(15);
    EXPECT_EQ(panel.m_scrollTop, 15);
    set(level(9.99, 210));
    EXPECT_EQ(panel.m_scrollTop, 15);
    EXPECT_EQ(panel.m_scrollBar->maximum(), 22);
    set(level(9.99, 160));
    EXPECT_EQ(panel.m_scrollTop, 12) << "cut to what is left";
    EXPECT_EQ(panel.m_scrollBar->value(), 12);
    set(level(9.98, 200));
    EXPECT_EQ(panel.m_scrollTop, 0);
    EXPECT_EQ(panel.m_scrollBar->value(), 0);
    EXPECT_EQ(panel.m_scrollBar->maximum(), 20);
}

TEST_F(SingleQueuePanel, NullEmptiesItWithoutARepaint)
{
    set(level(9.99, 7));
    painted();
    set(nullptr);
    EXPECT_EQ(painted(), 0);
    EXPECT_TRUE(panel.m_quotes.empty());
    EXPECT_EQ(panel.m_title, "");
    EXPECT_EQ(panel.m_price, 0);
    EXPECT_EQ(panel.m_totalRows, 0);
    EXPECT_EQ(picture().texts(), QStringList());
    set(level(9.99, 2));
    EXPECT_EQ(panel.height(), 24 + 2 + 60) << "any price is another one now";
}

TEST_F(SingleQueuePanel, ASetterRepaints)
{
    painted();
    set(level(9.99, 7));
    EXPECT_GE(painted(), 1);
    panel.setTrackOrder(100, 1);
    EXPECT_EQ(painted(), 1);
    panel.setVolumeColor(3, 1);
    EXPECT_EQ(painted(), 1);
}

TEST_F(SingleQueuePanel, AResizeSharesTheWidthAmongTheColumns)
{
    panel.resize(400, 300);
    EXPECT_EQ(panel.m_columns, 7);
    EXPECT_EQ(panel.m_cellPitch, (400 - 60 - 10) / 7);
    EXPECT_EQ(panel.m_visibleRows, (300 - 24) / 20);
    panel.resize(0, 300);
    EXPECT_EQ(panel.m_columns, 7) << "nothing is ignored";
    panel.resize(20, 20);
    EXPECT_EQ(panel.m_columns, 1);
    EXPECT_EQ(panel.m_visibleRows, 0);
    set(level(9.99, 2));
    picture();
    panel.grab();
}

TEST_F(SingleQueuePanel, TakesTheEventOfItsBarOnly)
{
    set(level(9.99, 200));
    painted();
    EXPECT_TRUE(panel.handleEvent(15, 0, 0, QString(), nullptr));
    EXPECT_EQ(painted(), 0) << "where the slider was already";
    panel.m_scrollBar->setValue(4);
    EXPECT_EQ(panel.m_scrollTop, 4);
    EXPECT_GE(painted(), 1);
    EXPECT_FALSE(panel.handleEvent(82, 0, 0, QString(), nullptr));
    EXPECT_FALSE(panel.handleEvent(5, 0, 0, QString(), nullptr));
}

TEST_F(SingleQueuePanel, TheWheelScrollsAndStopsAtBothEnds)
{
    set(level(9.99, 7));
    EXPECT_TRUE(wheel(-120));
    EXPECT_EQ(panel.m_scrollTop, 0) << "nothing to scroll";
    set(level(9.99, 200));
    EXPECT_TRUE(wheel(120));
    EXPECT_EQ(panel.m_scrollTop, 0);
    EXPECT_TRUE(wheel(-120));
    EXPECT_GT(panel.m_scrollTop, 0);
    panel.m_scrollBar->setValue(20);
    EXPECT_TRUE(wheel(-120));
    EXPECT_EQ(panel.m_scrollTop, 20);
    EXPECT_TRUE(wheel(120));
    EXPECT_LT(panel.m_scrollTop, 20);
}

TEST_F(SingleQueuePanel, FrameAndTitleAreDrawn)
{
    set(level(9.99, 2));
    const auto& drawn = picture();
    const QColor frame(240, 192, 16, 255);
    ASSERT_GE(drawn.fills().size(), 2u);
    EXPECT_EQ(drawn.fills()[0].rect, QRectF(0, 0, 290, 86));
    EXPECT_EQ(drawn.fills()[0].color(), themeColor("ic_clr_graph_kline_bg"));
    EXPECT_EQ(drawn.fills()[1].rect, QRectF(1, 1, 288, 24));
    EXPECT_EQ(drawn.fills()[1].color(), themeColor("kel_clr_depth_module_group_base_widget_header_bg"));
    const auto rects = drawn.all(PaintCommand::eRect);
    ASSERT_EQ(rects.size(), 1u);
    EXPECT_EQ(rects[0].rect, QRectF(1, 1, 287, 83));
    EXPECT_EQ(rects[0].color(), frame);
    ASSERT_EQ(drawn.lineCommands().size(), 1u);
    EXPECT_EQ(drawn.lineCommands()[0].line, QLineF(1, 25, 288, 25));
    EXPECT_EQ(drawn.lineCommands()[0].color(), frame);
    const auto title = drawn.text(panel.m_title);
    EXPECT_EQ(title.color(), QColor(Qt::white));
    EXPECT_EQ(title.font, themeFont("fnt_index_title_text"));
    EXPECT_TRUE(title.standsIn(QRect(1, 1, 288, 24), Qt::AlignCenter));
    ASSERT_FALSE(drawn.all(PaintCommand::eSetClip).empty());
    EXPECT_EQ(drawn.all(PaintCommand::eSetClip).front().rect, QRectF(1, 2, 288, 82));
}

TEST_F(SingleQueuePanel, OrdersStandInCellsByNumber)
{
    auto queue = level(9.99, 7);
    for (int i = 0; i < 7; ++i)
        queue->quotes[static_cast<std::size_t>(i)].second->volume = 100 * (i + 1);
    queue->quotes[3].second->dealtVolume = 250;
    set(queue);
    const auto& drawn = picture();
    EXPECT_EQ(drawn.texts(), (QStringList{panel.m_title, "1", "2", "3", "2", "5", "6", "7"}));
    const auto text = drawn.text("7");
    EXPECT_EQ(text.font, themeFont("ic_fnt_index_modulegroup_entruststatus_amount"));
    EXPECT_EQ(text.color(), themeColor("ic_clr_entrust_text_rise"));
    EXPECT_TRUE(text.standsIn(QRect(5 + 58, 45, 45, 20), Qt::AlignRight | Qt::AlignVCenter));
    queue->isBuy = 0;
    set(queue);
    EXPECT_EQ(picture().text("7").color(), themeColor("ic_clr_entrust_text_fall"));
}

TEST_F(SingleQueuePanel, OnlyTheVisibleRowsArePainted)
{
    auto queue = level(9.99, 200);
    for (int i = 0; i < 200; ++i)
        queue->quotes[static_cast<std::size_t>(i)].second->volume = 100 * (i + 1);
    set(queue);
    QStringList texts = picture().texts();
    EXPECT_EQ(texts.size(), 1 + 100);
    EXPECT_EQ(texts[1], "1");
    EXPECT_EQ(texts.back(), "100");
    panel.m_scrollBar->setValue(7);
    texts = picture().texts();
    EXPECT_EQ(texts.size(), 1 + 100);
    EXPECT_EQ(texts[1], "36");
    EXPECT_EQ(texts.back(), "135");
}

TEST_F(SingleQueuePanel, AFreshOrderStandsOnNavy)
{
    auto queue = level(9.99, 3);
    queue->quotes[1].second->time = queue->time - 2999;
    set(queue);
    auto fills = picture().fillsOf(QColor(0, 0, 128));
    ASSERT_EQ(fills.size(), 1u);
    EXPECT_EQ(fills[0].rect, QRectF(5 + 58 + 1, 26, 44, 18));
    queue->quotes[1].second->state = 2;
    set(queue);
    EXPECT_TRUE(picture().fillsOf(QColor(0, 0, 128)).empty());
}

TEST_F(SingleQueuePanel, TheTrackedOrderAndTheMarkedVolumeHaveTheirColours)
{
    auto queue = level(9.99, 3);
    queue->quotes[2].second->volume = 800;
    queue->quotes[1].second->volume = 500;
    set(queue);
    panel.setVolumeColor(8, 1);
    EXPECT_EQ(picture().text("8").color(), themeColor("ic_clr_mark_purple"));
    EXPECT_EQ(picture().text("5").color(), themeColor("ic_clr_entrust_text_rise"));
    panel.setTrackOrder(101, 3);
    EXPECT_EQ(picture().text("5").color(), themeColor("ic_clr_mark_yellow"));
    panel.setTrackOrder(102, 2);
    EXPECT_EQ(picture().text("8").color(), themeColor("ic_clr_mark_dark_blue"))
        << "tracked goes before marked";
    panel.setTrackOrder(102, -1);
    EXPECT_EQ(picture().text("8").color(), themeColor("ic_clr_mark_purple")) << "the index of the mark";
}

TEST_F(SingleQueuePanel, MarksHaveFiveColours)
{
    const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    panel.setVolumeColor(0, 2);
    EXPECT_EQ(panel.getVolumeColor(-1), resource.getColor("ic_clr_mark_dark_blue"));
    EXPECT_EQ(panel.getVolumeColor(0), resource.getColor("ic_clr_mark_light_blue"));
    EXPECT_EQ(panel.getVolumeColor(1), resource.getColor("ic_clr_mark_purple"));
    EXPECT_EQ(panel.getVolumeColor(2), resource.getColor("ic_clr_mark_dark_blue"));
    EXPECT_EQ(panel.getVolumeColor(3), resource.getColor("ic_clr_mark_yellow"));
    for (const int index : {4, 100, -2})
        EXPECT_EQ(panel.getVolumeColor(index), resource.getColor("ic_clr_entrust_default_text")) << index;
    panel.setVolumeColor(0, -1);
    EXPECT_EQ(panel.getVolumeColor(-1), resource.getColor("ic_clr_entrust_default_text"));
}

TEST_F(SingleQueuePanel, FollowsTheTheme)
{
    set(level(9.99, 1));
    utils::CSingletonT<Zeb::CUiResource>::instance().setTheme("light");
    EXPECT_EQ(picture().fills()[0].color(), themeColor("ic_clr_graph_kline_bg"));
    EXPECT_GE(painted(), 1);
    utils::CSingletonT<Zeb::CUiResource>::instance().setTheme("dark");
}

TEST_F(SingleQueuePanel, ANullOrderIsAnEmptyCell)
{
    auto queue = level(9.99, 3);
    queue->quotes[1].second.reset();
    set(queue);
    EXPECT_EQ(picture().texts().size(), 3);
}
