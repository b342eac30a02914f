// What a panel is when it was made.

#include "QueueViewFixture.h"

#include "platform/resources/CUiResource.h"

#include <QMetaMethod>
#include <QPointer>

#include <limits>
#include <memory>

using namespace queue_view_rules;

using InitialState = QueueViewTest;

TEST(QueueModes, HaveFixedNumbers)
{
    EXPECT_EQ(Kel::eQueueFiveLevels, 0);
    EXPECT_EQ(Kel::eQueueTenLevels, 1);
    EXPECT_EQ(Kel::eQueueDetailFirst, 2);
    EXPECT_EQ(Kel::eQueueDetailHorizontal, 3);
    EXPECT_EQ(Kel::eQueueDetailVertical, 4);
    EXPECT_EQ(Kel::eQueueDetailList, 5);
    EXPECT_EQ(Kel::eQueueExtra6, 6);
    EXPECT_EQ(Kel::eQueueExtra7, 7);
    EXPECT_EQ(Kel::eQueuePanelExtend, 8);
    EXPECT_EQ(Kel::eQueueFilter, 9);
    EXPECT_EQ(Kel::eQueuePanelShrink, 10);
    EXPECT_EQ(Kel::eQueueFull, 11);
    EXPECT_EQ(Kel::eQueueNotFull, 12);
}

TEST_F(InitialState, HasItsObjectName)
{
    EXPECT_EQ(view.objectName(), "CDepthOrderQueueWidget");
}

TEST_F(InitialState, IsAtLeast320PixelsWide)
{
    EXPECT_EQ(view.minimumWidth(), 320);
}

TEST_F(InitialState, HasTheWidthsOfItsColumns)
{
    EXPECT_EQ(view.m_nameWidth, 40);
    EXPECT_EQ(view.m_priceWidth, 65);
    EXPECT_EQ(view.m_volWidth, 60);
    EXPECT_EQ(view.m_cellWidth, 50);
    EXPECT_EQ(view.m_avgWidth, 50);
    EXPECT_EQ(view.m_spareWidth, 42);
    EXPECT_EQ(view.m_rowHeight, 20);
}

TEST_F(InitialState, ShowsTenLevelsInFirstLevelDetailNotFull)
{
    EXPECT_EQ(view.m_queueModeLevel, 1);
    EXPECT_EQ(view.m_queueModeStyle, 2);
    EXPECT_EQ(view.m_queueModeExtra, 6);
    EXPECT_EQ(view.m_queueModeFull, 12);
    EXPECT_EQ(view.getQueueModeLevel(), 1);
    EXPECT_EQ(view.getQueueModeStyle(), 0);
}

TEST_F(InitialState, KeepsItsModesInBytesSideBySide)
{
    const auto* bytes = reinterpret_cast<const char*>(&view.m_queueModeLevel);
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(bytes[1], 2);
    EXPECT_EQ(bytes[2], 6);
    EXPECT_EQ(bytes[3], 12);
    EXPECT_EQ(reinterpret_cast<const char*>(&view.m_queueModeFull), bytes + 3);
}

TEST_F(InitialState, CutsALevelAtFiftyCells)
{
    EXPECT_EQ(view.m_maxShowCount, 50);
}

TEST_F(InitialState, HasScrolledNowhere)
{
    EXPECT_EQ(view.m_centerY, 0);
    EXPECT_EQ(view.m_deltaHeight, 0);
    EXPECT_EQ(view.m_leftRows, 0);
    EXPECT_EQ(view.m_rightRows, 0);
    EXPECT_EQ(view.m_rowCount, 0);
    EXPECT_EQ(view.m_scrollPos, 0);
    EXPECT_EQ(view.m_scrollTop, 0);
    EXPECT_EQ(view.m_centerOffset, 0);
    EXPECT_FALSE(view.m_needCenter);
    EXPECT_TRUE(view.m_userScroll);
    EXPECT_TRUE(view.m_blockExceededWheel);
}

TEST_F(InitialState, HasNoInstrumentNoDateAndNoRequest)
{
    EXPECT_FALSE(view.m_detail);
    EXPECT_TRUE(view.m_currentTradeDateFunc.empty());
    EXPECT_EQ(view.m_subscribeId, -1);
    EXPECT_EQ(view.m_lastClose, std::numeric_limits<double>::max());
}

TEST_F(InitialState, MarksAndTracksNothing)
{
    EXPECT_EQ(view.m_markVolume, 0);
    EXPECT_EQ(view.m_markColor, 0);
    EXPECT_EQ(view.m_trackOrderNo, -1);
    EXPECT_EQ(view.m_trackColor, 0);
}

TEST_F(InitialState, HasItsFonts)
{
    EXPECT_EQ(view.m_fontText, "ic_fnt_index_modulegroup_entruststatus_text");
    EXPECT_EQ(view.m_fontVol, "ic_fnt_index_modulegroup_transaction");
}

TEST_F(InitialState, HasItsColourKeys)
{
    EXPECT_EQ(view.m_clrText, "kel_clr_deptch_order_queue_txt");
    EXPECT_EQ(view.m_clrVol, "kel_clr_deptch_order_queue_vol");
    EXPECT_EQ(view.m_clrDefault, "ic_clr_entrust_default_text");
    EXPECT_EQ(view.m_clrRise, "ic_clr_entrust_text_rise");
    EXPECT_EQ(view.m_clrFall, "ic_clr_entrust_text_fall");
}

TEST_F(InitialState, HasAPictureOfItsOwnSize)
{
    EXPECT_TRUE(view.m_layoutDone);
    EXPECT_EQ(view.m_clientRect, view.rect());
    ASSERT_FALSE(view.m_pixmap.isNull());
    EXPECT_EQ(view.m_pixmap.size(), view.rect().size() * view.m_pixmap.devicePixelRatio());
    EXPECT_EQ(view.m_visibleRows, view.height() / 20);
}

TEST_F(InitialState, HasAHiddenVerticalBarOfWidthSix)
{
    ASSERT_NE(view.m_scrollBar, nullptr);
    EXPECT_EQ(view.m_scrollBar->parentWidget(), &view);
    EXPECT_EQ(view.m_scrollBar->orientation(), Qt::Vertical);
    EXPECT_EQ(view.m_scrollBar->id(), 0);
    EXPECT_EQ(view.m_scrollBar->minimumWidth(), 6);
    EXPECT_EQ(view.m_scrollBar->maximumWidth(), 6);
    EXPECT_TRUE(view.m_scrollBar->isHidden());
    EXPECT_EQ(view.m_scrollBar->minimum(), 0);
    EXPECT_EQ(view.m_scrollBar->maximum(), 0);
    EXPECT_EQ(view.m_scrollBar->value(), 0);
}

TEST_F(InitialState, GivesTheBarItsSheetFromTheTheme)
{
    const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QString sheet =
        QString("QScrollBar:vertical {border: 0px solid %1;background: %3;width: %4px;margin: 2px 2px 2px "
                "2px;}QScrollBar::handle:vertical {background: %2 ;min-height: "
                "20px;}QScrollBar::add-page:vertical,QScrollBar::sub-page:vertical {background: "
                "none;}QScrollBar::add-line:vertical {border: 0px solid %1;background: none;height: "
                "0px;subcontrol-position: right;subcontrol-origin: margin;}QScrollBar::sub-line:vertical "
                "{border: 0px solid %1;background: none;height: 0px;subcontrol-position: "
                "left;subcontrol-origin: margin;}")
            .arg(resource.getColorSheetByKey("clr_scrollbar_background_new"),
                 resource.getColorSheetByKey("clr_scrollbar_slider_new"),
                 resource.getColorSheetByKey("clr_scrollbar_background_new"),
                 QString::number(resource.getSize("siz_scroll_bar_width")));
    EXPECT_EQ(view.m_scrollBar->styleSheet(), sheet);
}

TEST_F(InitialState, ListsItsSlotsInTheirOrder)
{
    const QMetaObject& meta = Kel::CDepthOrderQueueWidget::staticMetaObject;
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 3);
    EXPECT_EQ(meta.method(meta.methodOffset()).name(), "slotQueueCallBack");
    EXPECT_EQ(meta.method(meta.methodOffset() + 1).name(), "slotTimeout");
    EXPECT_EQ(meta.method(meta.methodOffset() + 2).name(), "slotRefreshTimer");
}

TEST_F(InitialState, EndsWithItsTimerAndBar)
{
    auto panel = std::make_unique<QueueViewProbe>();
    const QPointer<QTimer> timer = panel->m_timer;
    const QPointer<Kel::CIndexScrollBar> bar = panel->m_scrollBar;
    timer->start(1);
    EXPECT_EQ(timer->parent(), panel.get());
    panel.reset();
    QApplication::processEvents();
    EXPECT_TRUE(timer.isNull());
    EXPECT_TRUE(bar.isNull());
}
