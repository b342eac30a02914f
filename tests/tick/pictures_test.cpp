// Renders the panels of a simulated day in both themes, for the eye: DEPTH_PICTURES names the folder, else it
// is the folder of the test. What is asserted is that each picture shows what it is named after.

#include "TickPanels.h"

#include "feed/BusyDay.h"
#include "feed/import/importDay.h"
#include "feed/record_making.h"
#include "support/SharedData.h"
#include "support/picture_folder.h"
#include "tick/CDepthEntrustTrackDialog.h"
#include "tick/CDepthFilterSettingDialog.h"

#include <boost/make_shared.hpp>

#include <QHelpEvent>
#include <QSet>

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
    }

    std::string key() const { return busyShenzhenDay().detail.market + busyShenzhenDay().detail.code; }

    boost::shared_ptr<MetaCacheDataWrapper> allOrders() const
    {
        const auto& rows = busyShenzhenDay().orders;
        return wrap(feed::makeOrderBatch(rows.data(), rows.size()), key());
    }
    boost::shared_ptr<MetaCacheDataWrapper> allDeals() const
    {
        const auto& rows = busyShenzhenDay().deals;
        return wrap(feed::makeDealBatch(rows.data(), rows.size()), key());
    }

    /// Enters the instrument for a panel.
    void enter()
    {
        utils::CSingletonT<CStockManager>::instance().addInstrument(
            boost::make_shared<nelservice::CInstrumentDetail>(busyShenzhenDay().detail));
    }

    int save(QWidget& widget, const char* name)
    {
        const QImage image = widget.grab().toImage();
        EXPECT_TRUE(image.save(QStringLiteral("%1/%2_%3.png")
                                   .arg(pictureFolder(QStringLiteral("tick_pictures")), QLatin1String(name),
                                        QLatin1String(GetParam()))));
        QSet<QRgb> colors;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                colors.insert(image.pixel(x, y));
        }
        return colors.size();
    }
};

INSTANTIATE_TEST_SUITE_P(Themes, Pictures, testing::Values("dark", "light"),
                         [](const auto& theme) { return std::string(theme.param); });

} // namespace

TEST_P(Pictures, ShowTheDealsOfADayWithTipHighlightAndSelection)
{
    DealPanel panel(1200, 900);
    EXPECT_LE(save(panel, "deals_empty"), 3);
    enter();
    panel.setStock(QString::fromStdString(key()));
    panel.entrustCallback(0, 0, allOrders());
    panel.transactionCallback(0, 0, allDeals());
    panel.slotTimeout();
    EXPECT_GT(save(panel, "deals_tail"), 20);
    panel.m_filterParam.mark = 2;
    panel.m_filterParam.color = 3;
    panel.m_scrollBar->setValue(panel.m_total / 3);
    TransData second;
    second.time = panel.m_model->getData(panel.m_total / 3 + 60)->time;
    panel.highlightTransaction(&second, true);
    QTest::keyClick(&panel, Qt::Key_Down);
    QTest::keyClick(&panel, Qt::Key_Right);
    QTest::keyClick(&panel, Qt::Key_Space);
    EXPECT_NE(panel.m_tipSide, -1);
    EXPECT_GT(save(panel, "deals_marked"), 20);
    panel.setShowHoloGraph(false);
    panel.slotTimeout();
    save(panel, "deals_without_strip");
    panel.setShowHoloGraph(true);
    panel.resize(240, 300);
    save(panel, "deals_narrow");
    EXPECT_EQ(panel.m_layout.groupCount, 1);
}

TEST_P(Pictures, ShowOrdersCancelsAndTheTrackOfAnOrder)
{
    EntrustPanel panel(1200, 600);
    EXPECT_LT(save(panel, "entrusts_empty"), 200);
    enter();
    panel.setStock(QString::fromStdString(key()));
    panel.entrustCallback(QString::fromStdString(key()), 0, 0, allOrders());
    panel.transactionCallback(QString::fromStdString(key()), 0, 0, allDeals());
    panel.slotTimeout();
    EXPECT_GT(save(panel, "entrusts"), 20);
    // The order with the most deals among the first thousand.
    int best = 0;
    std::size_t most = 0;
    for (int row = 0; row < 1000; ++row) {
        std::list<boost::shared_ptr<quoter::TransactionData>> records;
        panel.m_model->getTransactionData(panel.m_model->getOrderData(row, false)->orderNo, records);
        if (records.size() > most) {
            most = records.size();
            best = row;
        }
    }
    const auto order = panel.m_model->getOrderData(best, false);
    std::list<boost::shared_ptr<quoter::TransactionData>> records;
    panel.m_model->getTransactionData(order->orderNo, records);
    CDepthEntrustTrackDialog dialog(nullptr);
    dialog.setStock(QString::fromStdString(key()));
    dialog.setEntrustData(order);
    dialog.setTransactionData(records);
    dialog.show();
    EXPECT_GT(save(dialog, "track"), 20);
}

TEST_P(Pictures, ShowBothFilterDialogs)
{
    for (const eDepthFilterType type : {eDepthFilterEntrust, eDepthFilterTransaction}) {
        CDepthFilterSettingDialog dialog(type, nullptr);
        dialog.show();
        EXPECT_GT(save(dialog, type == eDepthFilterEntrust ? "filter_orders" : "filter_deals"), 10);
    }
}

TEST_P(Pictures, ShowARealDay)
{
    REQUIRE_SHARED_DAY(path, "600519-20230201");
    static const feed::ImportResult result = feed::importDay(path, feed::ImportOptions());
    ASSERT_EQ(result.days.size(), 1u) << result.error.text();
    const feed::InstrumentDay& day = result.days[0];
    const auto enterReal = [&day] {
        utils::CSingletonT<CStockManager>::instance().addInstrument(
            boost::make_shared<nelservice::CInstrumentDetail>(day.detail));
    };
    const auto orders = wrap(feed::makeOrderBatch(day.orders.data(), day.orders.size()), kStock);
    const auto dealBatch = wrap(feed::makeDealBatch(day.deals.data(), day.deals.size()), kStock);
    DealPanel deals(1200, 700);
    enterReal();
    deals.setStock(kStock);
    deals.entrustCallback(0, 0, orders);
    deals.transactionCallback(0, 0, dealBatch);
    deals.slotTimeout();
    deals.m_scrollBar->setValue(deals.m_total / 2);
    EXPECT_GT(save(deals, "real_deals"), 20);
    EntrustPanel entrusts(1200, 500);
    enterReal();
    entrusts.setStock(kStock);
    entrusts.entrustCallback(kStock, 0, 0, orders);
    entrusts.transactionCallback(kStock, 0, 0, dealBatch);
    entrusts.slotTimeout();
    EXPECT_GT(save(entrusts, "real_entrusts"), 20);
    addInstruments();
}
