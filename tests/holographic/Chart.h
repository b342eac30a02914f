#pragma once

#include "holographic/CDepthHolographicWidget.h"
#include "models/tick/TickRecords.h"
#include "platform/resources/CUiResource.h"
#include "platform/services/CUserConfig.h"
#include "platform/toolkit/CIndexScrollBar.h"
#include "platform/toolkit/CMenu.h"
#include "platform/toolkit/CSimpleInputDialog.h"
#include "platform/utils/CSingletonT.h"
#include "records/QuoterDepthData.h"
#include "support/EventSink.h"
#include "support/PaintRecorder.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

/// The chart for tests, with what it keeps in reach.
namespace testing_support {

inline QColor colorOf(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QLatin1String(key));
}
inline QFont fontOf(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QLatin1String(key));
}

inline const char* const kSellLine = "kel_clr_deptch_holographic_deal_sell_line";
inline const char* const kBuyLine = "kel_clr_deptch_holographic_deal_buy_line";
inline const char* const kSellBreak = "kel_clr_deptch_holographic_deal_sell_break_line";
inline const char* const kBuyBreak = "kel_clr_deptch_holographic_deal_buy_break_line";
inline const char* const kActive = "kel_clr_deptch_holographic_deal_active_deal_bg";
inline const char* const kMarket = "kel_clr_deptch_holographic_deal_special_market_price_triangle";
inline const char* const kUrgent = "kel_clr_deptch_holographic_deal_special_urgent_order_triangle";
inline const char* const kHighlight = "kel_clr_deptch_holographic_deal_highlight_bg";
inline const char* const kGround = "ic_clr_graph_kline_bg";
inline const char* const kAxis = "ic_clr_kline_axis";
inline const char* const kAxisText = "ic_clr_kline_axis_text";

inline boost::shared_ptr<quoter::QuoterDepthData> snapshot(std::int64_t time)
{
    auto record = boost::make_shared<quoter::QuoterDepthData>();
    record->m_time = time;
    return record;
}

/// A deal of a chart in few words.
struct DealText
{
    int buyNo;
    int sellNo;
    double price;
    int lots;
    int activeSide = 0;
    int second = -1; ///< after 10:00:00; -1 is one after the deal before
};

class Chart : public Kel::CDepthHolographicWidget
{
public:
    using CDepthHolographicWidget::calcDrawHeight;
    using CDepthHolographicWidget::calcSizeInfo;
    using CDepthHolographicWidget::detailRect;
    using CDepthHolographicWidget::draging;
    using CDepthHolographicWidget::drawDealDetail;
    using CDepthHolographicWidget::drawGraph;
    using CDepthHolographicWidget::drawOverlays;
    using CDepthHolographicWidget::eDrawAsFits;
    using CDepthHolographicWidget::eDrawByColumns;
    using CDepthHolographicWidget::eDrawPlain;
    using CDepthHolographicWidget::geometry;
    using CDepthHolographicWidget::getSeqByX;
    using CDepthHolographicWidget::m_baseHalfRow;
    using CDepthHolographicWidget::m_canvas;
    using CDepthHolographicWidget::m_chartHeight;
    using CDepthHolographicWidget::m_chartWidth;
    using CDepthHolographicWidget::m_columnMode;
    using CDepthHolographicWidget::m_cursorSeq;
    using CDepthHolographicWidget::m_dealRightX;
    using CDepthHolographicWidget::m_detailSeq;
    using CDepthHolographicWidget::m_detailTimer;
    using CDepthHolographicWidget::m_dragging;
    using CDepthHolographicWidget::m_dragLastX;
    using CDepthHolographicWidget::m_drawing;
    using CDepthHolographicWidget::m_fullHeightDialog;
    using CDepthHolographicWidget::m_halfRow;
    using CDepthHolographicWidget::m_hoverPos;
    using CDepthHolographicWidget::m_inks;
    using CDepthHolographicWidget::m_menu;
    using CDepthHolographicWidget::m_model;
    using CDepthHolographicWidget::m_pageRows;
    using CDepthHolographicWidget::m_priceAxisWidth;
    using CDepthHolographicWidget::m_priceTick;
    using CDepthHolographicWidget::m_refreshTimer;
    using CDepthHolographicWidget::m_rowHeight;
    using CDepthHolographicWidget::m_scrollBar;
    using CDepthHolographicWidget::m_scrollRow;
    using CDepthHolographicWidget::m_selecting;
    using CDepthHolographicWidget::m_selectRect;
    using CDepthHolographicWidget::m_timeAxisHeight;
    using CDepthHolographicWidget::m_timeCellWidth;
    using CDepthHolographicWidget::m_timeSpanX;
    using CDepthHolographicWidget::m_topPadRows;
    using CDepthHolographicWidget::m_totalRows;
    using CDepthHolographicWidget::m_widgetRect;
    using CDepthHolographicWidget::priceToY;

    /// `width` and `height` are those of the chart proper, without the strips.
    explicit Chart(int width = 600, int height = 325)
    {
        addInstruments();
        setStock(kStock);
        m_refreshTimer->stop();
        addReceiver(&sink);
        resize(width + m_priceAxisWidth, height + m_timeAxisHeight);
        show();
        slotTimeOut();
    }

    void addDeals(Batch batch, int status = 1)
    {
        onTransactionCallback(kStock, 0, status, wrap(std::move(batch)));
        slotTimeOut();
    }

    void add(const std::vector<DealText>& deals)
    {
        Batch batch;
        for (const DealText& text : deals) {
            m_second = text.second >= 0 ? text.second : m_second + 1;
            batch.push_back(deal(++m_number, text.buyNo, text.sellNo, text.price, text.lots * 100,
                                 at(10, 0, 0) + m_second * 1000, text.activeSide));
        }
        addDeals(std::move(batch));
    }

    /// So many deals, one a second, each of its own orders: 10.00 to 10.00 and `prices - 1` ticks in turn.
    void fill(int count, int prices = 1, int lots = 1)
    {
        std::vector<DealText> deals;
        for (int index = 0; index < count; ++index)
            deals.push_back(
                {1000 + 2 * index, 1001 + 2 * index, 10 + (index % prices) * 0.01, lots, 1 + index % 2});
        add(deals);
    }

    void orders(Batch batch)
    {
        onEntrustCallback(kStock, 0, 1, wrap(std::move(batch)));
        slotTimeOut();
    }

    /// Snapshots at these seconds after 10:00:00.
    void quotes(const std::vector<int>& seconds)
    {
        Batch batch;
        for (const int second : seconds)
            batch.push_back(snapshot(at(10, 0, 0) + second * 1000));
        slotQuoterCallBack(0, 1, batch, kStock, 0);
        slotTimeOut();
    }

    /// What the chart draws into its pixmap.
    std::unique_ptr<PaintRecorder> picture()
    {
        auto recorder = std::make_unique<PaintRecorder>(width(), height());
        QPainter painter(recorder.get());
        drawGraph(painter);
        return recorder;
    }

    /// The pixmap as it is.
    QImage canvas() const { return m_canvas.toImage().convertToFormat(QImage::Format_RGB32); }

    /// The pixmap as it would be if it were drawn now.
    QImage drawnNow()
    {
        QImage image(m_canvas.size(), QImage::Format_RGB32);
        image.setDevicePixelRatio(m_canvas.devicePixelRatioF());
        QPainter painter(&image);
        drawGraph(painter);
        return image;
    }

    /// What it draws over it.
    std::unique_ptr<PaintRecorder> overlays()
    {
        auto recorder = std::make_unique<PaintRecorder>(width(), height());
        QPainter painter(recorder.get());
        drawOverlays(painter);
        return recorder;
    }

    /// Commands of the deals: what is drawn between the setting of the clip and its end.
    std::vector<std::string> dealLines()
    {
        std::vector<std::string> lines;
        bool inside = false;
        const auto recorder = picture();
        const QRectF chart(0, 0, m_chartWidth, m_chartHeight);
        for (const PaintCommand& command : recorder->commands()) {
            if (command.kind == PaintCommand::eSetClip)
                inside = command.rect == chart;
            else if (inside)
                lines.push_back(command.toLine());
        }
        return lines;
    }

    void mouse(QEvent::Type type, const QPoint& point, Qt::MouseButton button = Qt::NoButton)
    {
        const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
        QMouseEvent event(type, point, mapToGlobal(point), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(this, &event);
    }
    void press(const QPoint& point, Qt::MouseButton button = Qt::LeftButton)
    {
        mouse(QEvent::MouseButtonPress, point, button);
    }
    void move(const QPoint& point) { mouse(QEvent::MouseMove, point); }
    void release(const QPoint& point, Qt::MouseButton button = Qt::LeftButton)
    {
        mouse(QEvent::MouseButtonRelease, point, button);
    }

    /// Turns the mode over as a trader does.
    void doubleClick(const QPoint& point = QPoint(1, 1))
    {
        press(point);
        release(point);
        mouse(QEvent::MouseButtonDblClick, point, Qt::LeftButton);
        release(point);
    }
    void dealMode()
    {
        doubleClick();
        m_cursorSeq = -1;
        sink.take();
    }

    /// True if the wheel event was accepted.
    bool wheel(int delta, int across = 0)
    {
        const QPointF point(10, 10);
        QWheelEvent event(point, mapToGlobal(point.toPoint()), QPoint(), QPoint(across, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(this, &event);
        return event.isAccepted();
    }

    EventSink sink;
    int paints = 0; ///< how often the whole widget was painted

protected:
    void paintEvent(QPaintEvent* event) override
    {
        // A part of it is painted where the scroll bar changed.
        paints += event->rect() == rect() ? 1 : 0;
        CDepthHolographicWidget::paintEvent(event);
    }

private:
    int m_number = 0;
    int m_second = -1;
};

} // namespace testing_support
