// Renders the chart of a simulated and of a real day in both themes, for the eye: DEPTH_PICTURES names the
// folder, else it is the folder of the test. What is asserted is that each picture shows what it is named
// after.

#include "Chart.h"

#include "feed/BusyDay.h"
#include "feed/import/importDay.h"
#include "feed/record_making.h"
#include "support/SharedData.h"
#include "support/picture_folder.h"

#include <boost/make_shared.hpp>

#include <set>

using namespace testing_support;
using namespace Kel;

namespace {

class Pictures : public testing::TestWithParam<const char*>
{
protected:
    Pictures() { utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QLatin1String(GetParam())); }
    ~Pictures() override
    {
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QStringLiteral("dark"));
        addInstruments();
    }

    static void load(Chart& chart, const feed::InstrumentDay& day)
    {
        utils::CSingletonT<CStockManager>::instance().addInstrument(
            boost::make_shared<nelservice::CInstrumentDetail>(day.detail));
        const std::string key = day.detail.market + day.detail.code;
        const QString code = QString::fromStdString(key);
        chart.setStock(code);
        chart.onEntrustCallback(code, 0, 0,
                                wrap(feed::makeOrderBatch(day.orders.data(), day.orders.size()), key));
        chart.onTransactionCallback(code, 0, 0,
                                    wrap(feed::makeDealBatch(day.deals.data(), day.deals.size()), key));
        Batch quotes;
        for (const feed::SnapshotRow& row : day.snapshots)
            quotes.push_back(feed::makeRecord(row, 100));
        chart.slotQuoterCallBack(0, 0, quotes, code, 0);
        chart.slotTimeOut();
    }

    /// Saves what the widget shows; gives its colours.
    std::set<QRgb> save(QWidget& widget, const QString& name)
    {
        const QImage image = widget.grab().toImage();
        EXPECT_TRUE(image.save(QStringLiteral("%1/%2_%3.png")
                                   .arg(pictureFolder(QStringLiteral("holographic_pictures")), name,
                                        QLatin1String(GetParam()))));
        std::set<QRgb> colors;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                colors.insert(image.pixel(x, y));
        }
        return colors;
    }

    void saveDay(const feed::InstrumentDay& day, const QString& name)
    {
        Chart chart(1150, 480);
        load(chart, day);
        EXPECT_TRUE(save(chart, name + "_last").count(colorOf(kBuyLine).rgb()));
        const auto middle = chart.m_model->getData(chart.m_model->lastSeq / 2);
        chart.setViewTimeRange(middle->time, middle->time + 60);
        chart.highlightTransactionTime(middle->time + 20);
        chart.m_model->setFullHeightHandle(name == QStringLiteral("real") ? 4 : 60);
        chart.drawGraph();
        EXPECT_TRUE(save(chart, name + "_column").count(colorOf(kHighlight).rgb()));
        chart.dealMode();
        const int seq = (chart.m_model->getStartIndex() + chart.m_model->getEndIndex()) / 2;
        chart.highlightTransactionSeq(seq);
        chart.m_hoverPos = QPoint(chart.m_dealRightX.value(seq), 100);
        chart.m_detailSeq = seq;
        EXPECT_TRUE(
            save(chart, name + "_detail").count(colorOf("kel_clr_deptch_holographic_deal_detail_bg").rgb()));
        chart.m_detailSeq = -1;
        chart.press(QPoint(200, 60));
        chart.move(QPoint(500, 200));
        EXPECT_TRUE(save(chart, name + "_range").count(colorOf("ic_clr_kline_graph_scale_border").rgb()));
        chart.release(QPoint(500, 200), Qt::RightButton);
        chart.setViewTimeRange(middle->time, middle->time + 1200);
        chart.slotAdjustHeight();
        save(chart, name + "_fit");
        chart.setViewTimeRange(0, std::numeric_limits<int>::max());
        chart.slotAdjustHeight();
        save(chart, name + "_whole_day");
    }
};

INSTANTIATE_TEST_SUITE_P(Themes, Pictures, testing::Values("dark", "light"),
                         [](const auto& theme) { return std::string(theme.param); });

} // namespace

TEST_P(Pictures, ShowAnEmptyChart)
{
    Chart chart(1150, 480);
    EXPECT_FALSE(save(chart, "empty").count(colorOf(kBuyLine).rgb()));
}

TEST_P(Pictures, ShowASimulatedDay)
{
    saveDay(busyShenzhenDay(), "simulated");
}

TEST_P(Pictures, OfASimulatedDayHaveBothMarksOnBothSides)
{
    Chart chart(1150, 480);
    load(chart, busyShenzhenDay());
    chart.m_model->setFullHeightHandle(20);
    const int first = chart.m_model->getData(0)->time;
    const int last = chart.m_model->getData(chart.m_model->lastSeq)->time;
    std::set<std::pair<QRgb, bool>> seen; // colour of the mark and whether it is one of a buy order
    for (int begin = first; begin <= last && seen.size() < 4; begin += 120) {
        chart.setViewTimeRange(begin, begin + 119);
        bool hasMarks = false;
        for (const PaintCommand& path : chart.picture()->paths()) {
            if (path.path.elementCount() < 3)
                continue;
            const bool isBuy = path.path.elementAt(2).y > path.path.elementAt(0).y;
            hasMarks = seen.insert({path.brush.color().rgb(), isBuy}).second || hasMarks;
        }
        if (hasMarks)
            save(chart, QStringLiteral("marks_%1").arg(begin - first));
    }
    const QRgb market = colorOf(kMarket).rgb();
    const QRgb urgent = colorOf(kUrgent).rgb();
    EXPECT_EQ(seen, (std::set<std::pair<QRgb, bool>>{
                        {market, true}, {market, false}, {urgent, true}, {urgent, false}}));
}

TEST_P(Pictures, ShowEveryKindWithMarks)
{
    Chart chart(1150, 325);
    chart.orders({order(1, 1, 10.05, 60000, at(9, 59, 0)), order(2, 2, 9.95, 45000, at(9, 59, 0)),
                  order(3, 1, 0, 52000, at(9, 59, 0), 2), order(4, 2, 9.99, 70000, at(9, 59, 0)),
                  order(5, 1, 10.03, 90000, at(9, 59, 0))});
    chart.add({{1, 101, 10.00, 40, 1},
               {1, 102, 10.00, 60, 1},
               {5, 2, 10.01, 50, 2},
               {5, 2, 10.01, 70, 2},
               {1, 103, 10.00, 45, 1},
               {3, 4, 10.00, 30, 1},
               {3, 4, 9.99, 35, 2},
               {3, 104, 10.02, 50, 1},
               {5, 105, 10.01, 60, 1},
               {106, 4, 10.01, 40, 2},
               {107, 108, 10.0, 600, 1}});
    const std::set<QRgb> colors = save(chart, "kinds");
    EXPECT_TRUE(colors.count(colorOf(kMarket).rgb()));
    EXPECT_TRUE(colors.count(colorOf(kUrgent).rgb()));
    EXPECT_TRUE(colors.count(colorOf(kSellBreak).rgb()));
    EXPECT_TRUE(colors.count(colorOf(kBuyBreak).rgb()));
    EXPECT_TRUE(colors.count(colorOf(kActive).rgb()));
}

TEST_P(Pictures, ShowTinyCharts)
{
    Chart chart(1150, 480);
    load(chart, busyShenzhenDay());
    for (const QSize& size : {QSize(220, 120), QSize(90, 60), QSize(40, 15)}) {
        chart.resize(size);
        EXPECT_FALSE(save(chart, QStringLiteral("tiny_%1").arg(size.width())).empty());
    }
}

TEST_P(Pictures, ShowARealDay)
{
    REQUIRE_SHARED_DAY(path, "600519-20230201");
    static const feed::ImportResult result = feed::importDay(path, feed::ImportOptions());
    ASSERT_EQ(result.days.size(), 1u) << result.error.text();
    saveDay(result.days[0], "real");
}
