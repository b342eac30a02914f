#pragma once

#include "queue_engine/EngineProbe.h"
#include "queue_view/CDepthOrderQueueWidget.h"

#include <cstdint>

namespace queue_view_rules {

/// The order queue panel with its inside open to tests.
class QueueViewProbe : public Kel::CDepthOrderQueueWidget
{
public:
    explicit QueueViewProbe(QWidget* parent = nullptr) : CDepthOrderQueueWidget(parent)
    {
        m_timer->stop();
        engine(&testing_support::EngineProbe::m_refreshTimer)->stop();
        engine(&testing_support::EngineProbe::m_shangHaiTimer)->stop();
    }

    /// A member of the engine inside.
    template <class Member>
    Member& engine(Member Kel::CDepthModelOrderQueue::*member)
    {
        return m_model.*member;
    }

    void setStyle(int style) { m_queueModeStyle = static_cast<decltype(m_queueModeStyle)>(style); }
    void setLevels(int mode) { m_queueModeLevel = static_cast<decltype(m_queueModeLevel)>(mode); }

    int paints = 0; ///< paint events so far

    using CDepthOrderQueueWidget::calcDelta;
    using CDepthOrderQueueWidget::drawGraph;
    using CDepthOrderQueueWidget::drawOrderVol;
    using CDepthOrderQueueWidget::drawPartDealVol;
    using CDepthOrderQueueWidget::getBackColorByQueueTye;
    using CDepthOrderQueueWidget::getColor;
    using CDepthOrderQueueWidget::getCurTop;
    using CDepthOrderQueueWidget::getLastClosePrice;
    using CDepthOrderQueueWidget::getPriceColor;
    using CDepthOrderQueueWidget::getStoreyNum;
    using CDepthOrderQueueWidget::getTabLen;
    using CDepthOrderQueueWidget::getTopSpace;
    using CDepthOrderQueueWidget::getTotalVolSpace;
    using CDepthOrderQueueWidget::getVolumeColor;
    using CDepthOrderQueueWidget::initDraw;
    using CDepthOrderQueueWidget::isDrawRectValid;
    using CDepthOrderQueueWidget::isDrawVolSum;
    using CDepthOrderQueueWidget::isShowDetailOrderQueue;
    using CDepthOrderQueueWidget::isUseOrderDealData;
    using CDepthOrderQueueWidget::postQuoterDepthCallBack;
    using CDepthOrderQueueWidget::postTradeQuoterCallBack;
    using CDepthOrderQueueWidget::resetLayout;
    using CDepthOrderQueueWidget::setScrollCenter;
    using CDepthOrderQueueWidget::slotQueueCallBack;
    using CDepthOrderQueueWidget::slotRefreshTimer;
    using CDepthOrderQueueWidget::slotTimeout;
    using CDepthOrderQueueWidget::themeChanged;
    using CDepthOrderQueueWidget::updateScroll;
    using CDepthOrderQueueWidget::wheelEvent;

    using CDepthOrderQueueWidget::m_avgWidth;
    using CDepthOrderQueueWidget::m_blockExceededWheel;
    using CDepthOrderQueueWidget::m_cellWidth;
    using CDepthOrderQueueWidget::m_centerOffset;
    using CDepthOrderQueueWidget::m_centerY;
    using CDepthOrderQueueWidget::m_clientRealHeight;
    using CDepthOrderQueueWidget::m_clientRect;
    using CDepthOrderQueueWidget::m_clrDefault;
    using CDepthOrderQueueWidget::m_clrFall;
    using CDepthOrderQueueWidget::m_clrRise;
    using CDepthOrderQueueWidget::m_clrText;
    using CDepthOrderQueueWidget::m_clrVol;
    using CDepthOrderQueueWidget::m_currentTradeDateFunc;
    using CDepthOrderQueueWidget::m_deltaHeight;
    using CDepthOrderQueueWidget::m_detail;
    using CDepthOrderQueueWidget::m_fontText;
    using CDepthOrderQueueWidget::m_fontVol;
    using CDepthOrderQueueWidget::m_lastClose;
    using CDepthOrderQueueWidget::m_layoutDone;
    using CDepthOrderQueueWidget::m_leftRows;
    using CDepthOrderQueueWidget::m_markColor;
    using CDepthOrderQueueWidget::m_markVolume;
    using CDepthOrderQueueWidget::m_maxShowCount;
    using CDepthOrderQueueWidget::m_model;
    using CDepthOrderQueueWidget::m_nameWidth;
    using CDepthOrderQueueWidget::m_needCenter;
    using CDepthOrderQueueWidget::m_pixmap;
    using CDepthOrderQueueWidget::m_priceWidth;
    using CDepthOrderQueueWidget::m_queueModeExtra;
    using CDepthOrderQueueWidget::m_queueModeFull;
    using CDepthOrderQueueWidget::m_queueModeLevel;
    using CDepthOrderQueueWidget::m_queueModeStyle;
    using CDepthOrderQueueWidget::m_rightRows;
    using CDepthOrderQueueWidget::m_rowCount;
    using CDepthOrderQueueWidget::m_rowHeight;
    using CDepthOrderQueueWidget::m_scrollBar;
    using CDepthOrderQueueWidget::m_scrollPos;
    using CDepthOrderQueueWidget::m_scrollTop;
    using CDepthOrderQueueWidget::m_spareWidth;
    using CDepthOrderQueueWidget::m_subscribeId;
    using CDepthOrderQueueWidget::m_timer;
    using CDepthOrderQueueWidget::m_trackColor;
    using CDepthOrderQueueWidget::m_trackOrderNo;
    using CDepthOrderQueueWidget::m_userScroll;
    using CDepthOrderQueueWidget::m_visibleRows;
    using CDepthOrderQueueWidget::m_volWidth;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        CDepthOrderQueueWidget::paintEvent(event);
    }
};

} // namespace queue_view_rules
