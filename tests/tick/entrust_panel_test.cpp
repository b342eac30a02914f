// The panel of orders and cancels as a whole.

#include "TickPanels.h"

#include "platform/toolkit/CMediumNormalButton.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/toolkit/CSpliter.h"
#include "tick/CDepthEntrustTrackDialog.h"
#include "tick/CDepthFilterSettingDialog.h"
#include "tick/CEntrustTitleWidget.h"
#include "tick/filter_dialog_ids.h"

#include <QTimer>

using namespace testing_support;
using namespace Kel;

namespace {

Zeb::CMediumNormalButton* buttonIn(const QWidget& dialog, int id)
{
    for (auto* const found : dialog.findChildren<Zeb::CMediumNormalButton*>()) {
        if (found->id() == id)
            return found;
    }
    return nullptr;
}

SDepthFilterParam onlyBuys()
{
    SDepthFilterParam param;
    param.mark = 55;
    param.color = 2;
    param.sell = false;
    param.unsell = false;
    return param;
}

} // namespace

TEST(EntrustPanelLife, HasNameAndTimer)
{
    setUserConfig(nullptr);
    CDepthEntrustWidget panel;
    EXPECT_EQ(panel.objectName(), QStringLiteral("depth_entrust_widget"));
    EXPECT_EQ(panel.findChild<QTimer*>()->interval(), 200);
}

TEST(EntrustPanelLife, EndsWithAnEmptyModel)
{
    auto panel = std::make_unique<EntrustPanel>();
    panel->orders({order(5, 1, 10, 100, at(10, 0, 0))});
    panel->deals({cancel(1, 5, 0, 100, at(10, 0, 1))});
    const auto model = panel->model();
    panel.reset();
    EXPECT_EQ(model->orderCount, 0);
    EXPECT_EQ(model->cancelCount, 0);
}

TEST(EntrustPanelLife, TheTimerHasTheUsersPeriodAndFollowsIt)
{
    CUserConfig config;
    config.setRefreshInterval(0.3219);
    setUserConfig(&config);
    {
        CDepthEntrustWidget panel;
        EXPECT_EQ(panel.findChild<QTimer*>()->interval(), 321);
        config.setRefreshInterval(1);
        EXPECT_EQ(panel.findChild<QTimer*>()->interval(), 1000);
    }
    setUserConfig(nullptr);
}

TEST(EntrustPanelLayout, TheCancelSideKeeps320Pixels)
{
    EntrustPanel panel(900, 300);
    for (const int width : {900, 1200, 700}) {
        panel.resize(width, 300);
        EXPECT_NEAR(panel.cancelList()->width(), 320, 3) << width;
        EXPECT_EQ(panel.m_splitter->geometry(), panel.rect());
        EXPECT_GT(panel.orderList()->width(), width - 330);
    }
    EXPECT_FALSE(panel.m_splitter->childrenCollapsible());
    EXPECT_EQ(panel.cancelList()->y(), 22);
}

TEST(EntrustPanelFeed, BatchesOfAnotherKeyAreDropped)
{
    EntrustPanel panel;
    panel.entrustCallback(kOther, 0, 1, wrap({order(5, 1, 10, 100, at(10, 0, 0))}));
    panel.transactionCallback(kOther, 0, 1, wrap({cancel(5, 1, 0, 100, at(10, 0, 0))}));
    EXPECT_EQ(panel.m_model->orderCount, 0);
    EXPECT_EQ(panel.m_model->cancelCount, 0);
    panel.setStock(QStringLiteral("SH999999"));
    panel.entrustCallback(QString(), 0, 1, wrap({order(5, 1, 10, 100, at(10, 0, 0))}));
    EXPECT_EQ(panel.m_model->orderCount, 0);
}

TEST(EntrustPanelRefresh, TitlesFollowTheListsOneByOne)
{
    EntrustPanel panel;
    EXPECT_EQ(panel.m_orderTitle->count(), 0);
    EXPECT_EQ(panel.m_cancelTitle->count(), 0);
    panel.orders({order(5, 1, 10, 100, at(10, 0, 0)), order(6, 1, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(panel.m_orderTitle->count(), 2);
    EXPECT_EQ(panel.m_cancelTitle->count(), 0);
    panel.deals({cancel(1, 5, 0, 100, at(10, 0, 1))});
    EXPECT_EQ(panel.m_cancelTitle->count(), 1);
    EXPECT_FALSE(panel.m_model->orderDirty);
    EXPECT_FALSE(panel.m_model->cancelDirty);
}

TEST(EntrustPanelRefresh, AHiddenListKeepsItsFlag)
{
    EntrustPanel panel;
    panel.orderList()->hide();
    panel.orders({order(5, 1, 10, 100, at(10, 0, 0))});
    panel.deals({cancel(1, 5, 0, 100, at(10, 0, 1))});
    EXPECT_TRUE(panel.m_model->orderDirty);
    EXPECT_FALSE(panel.m_model->cancelDirty);
    panel.orderList()->show();
    panel.slotTimeout();
    EXPECT_FALSE(panel.m_model->orderDirty);
    EXPECT_EQ(panel.orderList()->total(), 1);
}

TEST(EntrustPanelClear, DropsRowsAndTheDialogButTitlesKeepTheirCounts)
{
    EntrustPanel panel;
    panel.orders({order(5, 1, 10, 100, at(10, 0, 0))});
    QTest::keyClick(panel.orderList(), Qt::Key_Home);
    QTest::keyClick(panel.orderList(), Qt::Key_Return);
    EXPECT_TRUE(panel.m_trackDialog->isVisible());
    panel.clear(true);
    EXPECT_FALSE(panel.m_trackDialog->isVisible());
    EXPECT_EQ(panel.orderList()->total(), 0);
    EXPECT_EQ(panel.orderList()->selectedRow(), -1);
    EXPECT_EQ(panel.m_orderTitle->count(), 1);
    panel.slotTimeout();
    EXPECT_EQ(panel.m_orderTitle->count(), 0);
}

TEST(EntrustPanelClear, TheTrackedNumberIsKept)
{
    EntrustPanel panel;
    panel.orderList()->addReceiver(&panel.sink);
    panel.orders({order(5, 1, 10, 5500, at(10, 0, 1))});
    panel.setTrackOrderParam((10 * 3600 + 1) * 1000, 10, 55, 1, 9);
    EXPECT_EQ(panel.sink.events, (std::vector<SentEvent>{{3225, 5, 9, {}}}));
    panel.clear(true);
    panel.orders({order(5, 1, 10, 5500, at(11, 0, 1))});
    const QImage image = panel.orderList()->grab().toImage();
    const QColor mark = colorOf("ic_clr_mark_light_blue");
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            pixels += image.pixelColor(x, y) == mark ? 1 : 0;
    }
    EXPECT_GT(pixels, 3);
}

TEST(EntrustPanelFilter, SetFilterParamNarrowsBothListsAndTellsTheMark)
{
    EntrustPanel panel;
    panel.orders({order(5, 1, 10, 100, at(10, 0, 0)), order(6, 2, 10, 100, at(10, 0, 0))});
    panel.deals({cancel(1, 5, 0, 100, at(10, 0, 1)), cancel(2, 6, 6, 100, at(10, 0, 1))});
    SDepthFilterParam param = onlyBuys();
    QTest::keyClick(panel.orderList(), Qt::Key_Home);
    ASSERT_EQ(panel.orderList()->selectedRow(), 0);
    panel.setFilterParam(param);
    EXPECT_EQ(panel.orderList()->selectedRow(), -1) << "another order may have its row now";
    EXPECT_EQ(panel.orderList()->total(), 1);
    EXPECT_EQ(panel.cancelList()->total(), 1);
    EXPECT_EQ(panel.m_orderTitle->count(), 1);
    EXPECT_EQ(panel.m_cancelTitle->count(), 1);
    EXPECT_EQ(panel.sink.events, (std::vector<SentEvent>{{3226, 55, 2, {}}}));
    EXPECT_TRUE(panel.m_model->orderDirty) << "the next tick mends tail and title";
    panel.clear(false);
    panel.orders({order(7, 1, 10, 100, at(10, 0, 0)), order(8, 2, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(panel.orderList()->total(), 1) << "the filter survives";
}

TEST(EntrustPanelFilter, ATitlesButtonOpensTheDialog)
{
    EntrustPanel panel;
    panel.orders({order(5, 1, 10, 100, at(10, 0, 0))});
    for (CEntrustTitleWidget* const title : {panel.m_orderTitle, panel.m_cancelTitle}) {
        for (const bool confirm : {false, true}) {
            panel.sink.events.clear();
            QTimer::singleShot(0, &panel, [&panel, confirm] {
                const auto* const dialog = panel.findChild<CDepthFilterSettingDialog*>();
                ASSERT_NE(dialog, nullptr);
                QTest::mouseClick(buttonIn(*dialog, confirm ? eConfirmControl : eCancelControl),
                                  Qt::LeftButton);
            });
            QTest::mouseClick(title->findChild<Zeb::CPushButton*>(), Qt::LeftButton);
            EXPECT_EQ(panel.sink.events.size(), confirm ? 1u : 0u);
        }
    }
    EXPECT_EQ(panel.findChildren<CDepthFilterSettingDialog*>().size(), 1) << "one dialog, made once";
}

TEST(EntrustPanelFilter, EventsOtherThanTheButtonsAreNotTaken)
{
    EntrustPanel panel;
    for (const int id : {15, 67, 1395, 3226})
        EXPECT_FALSE(panel.handleEvent(id, 0, 0, QString(), nullptr)) << id;
}

TEST(EntrustPanelFilter, TheCloseButtonOfTheTrackDialogOpensNoFilter)
{
    EntrustPanel panel;
    panel.orders({order(5, 1, 10, 100, at(10, 0, 0))});
    QTest::keyClick(panel.orderList(), Qt::Key_Home);
    QTest::keyClick(panel.orderList(), Qt::Key_Return);
    QTest::mouseClick(panel.m_trackDialog->findChild<Zeb::CPushButton*>(), Qt::LeftButton);
    EXPECT_FALSE(panel.m_trackDialog->isVisible());
    EXPECT_EQ(panel.m_filterDialog, nullptr);
}

TEST(EntrustPanelLife, GetParamsTellsTheInstrument)
{
    EntrustPanel panel;
    CFormulaParam param;
    panel.getParams(param);
    EXPECT_EQ(param.values["code"], kStock);
}
