// The panel of orders and cancels as a whole.

#include "TickPanels.h"

#include "platform/toolkit/CMediumNormalButton.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/toolkit/CSpliter.h"
#include "tick/CDepthEntrustTrackDialog.h"
#include "tick/CDepthFilterSettingDialog.h"
#include "tick/CEntrustTitleWidget.h"
#include "tick/CGraphWidget.h"
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

namespace {

/// Total, filled, queueing and cancelled lots as the open track dialog shows them.
QStringList trackedLots(const EntrustPanel& panel)
{
    auto* const graph = panel.m_trackDialog->findChild<CGraphWidget*>();
    PaintRecorder recorder(graph->width(), graph->height());
    QPainter painter(&recorder);
    graph->draw(painter);
    painter.end();
    return recorder.texts().filter(QStringLiteral("手"));
}

QStringList lots(const char* total, const char* filled, const char* queueing, const char* cancelled)
{
    return {QString::fromUtf8(total), QString::fromUtf8(filled), QString::fromUtf8(queueing),
            QString::fromUtf8(cancelled)};
}

/// Double-clicks the first row.
void openFirst(QWidget* list)
{
    QTest::mouseDClick(list, Qt::LeftButton, Qt::NoModifier, QPoint(30, list->height() % 18 / 2 + 9));
}

} // namespace

TEST(EntrustPanelTrack, ADoubleClickPassesOrderAndRecordsOnce)
{
    EntrustPanel panel;
    panel.orders({order(5, 1, 10, 5500, at(10, 0, 1))});
    panel.deals({deal(1, 5, 6, 10, 2500, at(10, 0, 2)), cancel(2, 5, 0, 1000, at(10, 0, 3))});
    openFirst(panel.orderList());
    ASSERT_TRUE(panel.m_trackDialog->isVisible());
    EXPECT_EQ(trackedLots(panel), lots("55手", "25手", "30手", "10手"));
    panel.deals({deal(3, 5, 7, 10, 2000, at(10, 0, 2))});
    EXPECT_EQ(trackedLots(panel), lots("55手", "25手", "30手", "10手")) << "what comes later is not shown";
    openFirst(panel.cancelList());
    EXPECT_EQ(trackedLots(panel), lots("55手", "45手", "10手", "10手"));
}

TEST(EntrustPanelTrack, TheDialogKnowsTheInstrument)
{
    EntrustPanel panel;
    panel.setStock(kBond);
    panel.entrustCallback(kBond, 0, 1, wrap({order(5, 1, 10, 5500, at(10, 0, 1))}, kBond));
    panel.slotTimeout();
    openFirst(panel.orderList());
    ASSERT_TRUE(panel.m_trackDialog->isVisible());
    EXPECT_EQ(trackedLots(panel), lots("550手", "0手", "550手", "0手")) << "ten a lot";
}

namespace {

/// Notes whether its panel was whole yet when the dialog was hidden.
class HideWatch : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && !wasHidden) {
            wasHidden = true;
            byPanel = dynamic_cast<CDepthEntrustWidget*>(watched->parent()) != nullptr;
        }
        return false;
    }

    bool wasHidden = false;
    bool byPanel = false;
};

} // namespace

TEST(EntrustPanelTrack, TheEndOfThePanelHidesTheDialog)
{
    HideWatch watch;
    auto panel = std::make_unique<EntrustPanel>();
    panel->orders({order(5, 1, 10, 5500, at(10, 0, 1))});
    openFirst(panel->orderList());
    ASSERT_TRUE(panel->m_trackDialog->isVisible());
    panel->m_trackDialog->installEventFilter(&watch);
    panel.reset();
    EXPECT_TRUE(watch.wasHidden);
    EXPECT_TRUE(watch.byPanel) << "before its parts go";
}

TEST(EntrustPanelPaint, HiddenListsAndTitlesPaintNothing)
{
    EntrustPanel panel;
    panel.orders({order(5, 1, 10, 5500, at(10, 0, 1))});
    panel.deals({cancel(1, 5, 0, 5500, at(10, 0, 2))});
    const QColor ground = colorOf("ic_clr_graph_kline_bg");
    for (QWidget* const part :
         {static_cast<QWidget*>(panel.orderList()), static_cast<QWidget*>(panel.cancelList()),
          static_cast<QWidget*>(panel.m_orderTitle), static_cast<QWidget*>(panel.m_cancelTitle)}) {
        EXPECT_EQ(part->grab().toImage().pixelColor(2, 0), ground);
        part->hide();
        EXPECT_NE(part->grab().toImage().pixelColor(2, 0), ground);
    }
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
