// Keys, mouse, wheel and menu of the deal chart, and what it tells the host.

#include "holographic/CDepthHolographicWidget.h"
#include "platform/services/CUserConfig.h"
#include "platform/toolkit/CIndexScrollBar.h"
#include "platform/toolkit/CIntValidator.h"
#include "platform/toolkit/CMenu.h"
#include "platform/toolkit/CSimpleInputDialog.h"
#include "records/Tolerance.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace Kel {

namespace {

constexpr int kEventDealSelected = 3224;
constexpr int kEventRangeSelected = 3227;
constexpr int kFromChart = 0; // first number of the first

constexpr int kUsualHoverDelay = 500; // ms; not that of the refresh timer
constexpr int kLeastRangeWidth = 30;  // pixels; a narrower one was no selection
constexpr int kRowGrowth = 2;         // pixels that a selection gives back to low rows

constexpr int kLeastFullHeight = 4; // lots
constexpr int kMostFullHeight = 2000;

} // namespace

void CDepthHolographicWidget::initMenu()
{
    m_menu = new Zeb::CMenu(this);
    m_menu->addAction(QStringLiteral("设置全高手数"), this,
                      &CDepthHolographicWidget::slotSetFullHeightHandle);
    m_menu->addAction(QStringLiteral("放大成交高度  CTRL+↑"), this,
                      &CDepthHolographicWidget::slotAddRowHeight);
    m_menu->addAction(QStringLiteral("减小成交高度  CTRL+↓"), this,
                      &CDepthHolographicWidget::slotReduceRowHeight);
    m_menu->addAction(QStringLiteral("调整成交高度"), this, &CDepthHolographicWidget::slotAdjustHeight);
}

void CDepthHolographicWidget::contextMenuEvent(QContextMenuEvent*)
{
    m_menu->popup(QCursor::pos());
}

void CDepthHolographicWidget::slotAddRowHeight()
{
    setFullHeightChagne(1);
}

void CDepthHolographicWidget::slotReduceRowHeight()
{
    setFullHeightChagne(-1);
}

void CDepthHolographicWidget::slotAdjustHeight()
{
    calcSizeInfo(true);
    drawGraph();
    update();
}

void CDepthHolographicWidget::slotSetFullHeightHandle()
{
    if (m_fullHeightDialog == nullptr) {
        m_fullHeightDialog = new Zeb::CSimpleInputDialog(QStringLiteral("设置全高手数"), QString(), this);
        m_fullHeightDialog->setValidator(
            new Zeb::CIntValidator(kLeastFullHeight, kMostFullHeight, m_fullHeightDialog));
    }
    m_fullHeightDialog->setText(QString::number(m_model->fullHeightHand));
    m_fullHeightDialog->getInput([this](const QString& text) {
        m_model->setFullHeightHandle(text.toInt());
        m_model->dirty = true;
    });
}

// Cursor
// ------------------------------------------------------------------------------------------------------------------------

/// Tells the host where the cursor is, if it is somewhere.
bool CDepthHolographicWidget::sendCursor()
{
    if (m_cursorSeq == -1)
        return true;
    int time = m_columnMode ? m_model->getCurrQuoterTimgtag(m_cursorSeq) : -1;
    if (!m_columnMode) {
        const auto deal = m_model->getData(m_cursorSeq);
        if (!deal)
            return true;
        time = deal->time;
    }
    const QPointer<CDepthHolographicWidget> self = this;
    deliverEvent(kEventDealSelected, kFromChart, m_cursorSeq, QString::number(time), nullptr);
    return self != nullptr;
}

void CDepthHolographicWidget::middleCurrDeal(int seq)
{
    const auto deal = m_totalRows > m_pageRows ? m_model->getData(seq) : nullptr;
    if (!deal)
        return;
    const int row = truncateToInt((m_model->maxPrice - deal->price) / m_priceTick + 0.5);
    if (row >= m_scrollRow && row <= std::int64_t(m_scrollRow) + m_pageRows)
        return;
    m_scrollBar->setValue(clampToInt(std::max<std::int64_t>(0, std::int64_t(row) - m_pageRows / 2)));
    m_scrollRow = m_scrollBar->value(); // a row below the ladder's end is as far as the bar goes
    drawGraph();
    update();
}

void CDepthHolographicWidget::highlightTransactionSeq(int seq)
{
    if (seq != m_cursorSeq) {
        const int before = m_cursorSeq;
        m_cursorSeq = seq;
        if (m_columnMode) {
            m_cursorSeq = m_model->getCurrSeqPair(m_cursorSeq).first;
            if (m_cursorSeq != before)
                drawGraph();
        }
        update();
    }
    middleCurrDeal(m_cursorSeq);
}

void CDepthHolographicWidget::highlightTransactionTime(int time)
{
    const int before = m_cursorSeq;
    m_cursorSeq = m_model->find(time).first;
    if (m_cursorSeq == -1)
        m_cursorSeq = m_model->find(time, false);
    if (m_columnMode) {
        m_cursorSeq = m_model->getCurrSeqPair(m_cursorSeq).first;
        if (m_cursorSeq != before)
            drawGraph();
    }
    update();
    middleCurrDeal(m_cursorSeq);
}

// Keys
// --------------------------------------------------------------------------------------------------------------------------

void CDepthHolographicWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        moveCursorByKey(event->key() == Qt::Key_Left);
        return;
    }
    // Arrow keys of the number pad are arrow keys.
    if ((event->modifiers() & ~Qt::KeypadModifier) != Qt::ControlModifier) {
        CBaseWidget::keyPressEvent(event);
        return;
    }
    if (event->key() == Qt::Key_Up)
        setFullHeightChagne(1);
    else if (event->key() == Qt::Key_Down)
        setFullHeightChagne(-1);
}

void CDepthHolographicWidget::moveCursorByKey(bool left)
{
    // Without intervals there is nothing that a column could be.
    if (m_cursorSeq == -1)
        m_cursorSeq = !m_columnMode || m_model->hasIntervals() ? getSeqByX(left ? m_chartWidth : 0) : -1;
    else if (m_columnMode)
        m_cursorSeq =
            left ? m_model->getPreSeqPair(m_cursorSeq).first : m_model->getNextSeqPair(m_cursorSeq).first;
    else
        m_cursorSeq = left ? std::max(m_cursorSeq, 1) - 1 : std::min(m_cursorSeq, m_model->lastSeq - 1) + 1;

    if (m_columnMode) {
        if (!sendCursor())
            return;
        drawGraph();
        update();
    } else {
        update();
        if (sendCursor())
            middleCurrDeal(m_cursorSeq);
    }
}

// Mouse
// ------------------------------------------------------------------------------------------------------------------------

void CDepthHolographicWidget::mousePressEvent(QMouseEvent* event)
{
    CBaseWidget::mousePressEvent(event);
    m_detailTimer->stop();
    m_detailSeq = -1;
    if (event->button() == Qt::LeftButton) {
        event->accept(); // whatever lies below the chart has no use for it
        if (m_columnMode) {
            m_dragLastX = event->x();
            m_dragging = true;
        } else {
            m_selecting = true;
            m_selectAnchor = event->pos();
            m_selectRect = QRect(); // one that was given up may be left
        }
    }
    update();
}

void CDepthHolographicWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (m_columnMode) {
        if (m_dragging)
            draging(event->x());
        return;
    }
    const int before = m_detailSeq;
    m_hoverPos = event->pos();
    const int seq = getSeqByX(m_hoverPos.x());
    m_detailSeq = -1;
    if (before != -1 && seq == -1)
        m_detailTimer->stop();
    else if (seq != -1)
        m_detailTimer->start(hoverDelay());
    if (m_selecting) {
        const QPoint& anchor = m_selectAnchor;
        m_selectRect = QRect(std::min(anchor.x(), m_hoverPos.x()), std::min(anchor.y(), m_hoverPos.y()),
                             std::abs(m_hoverPos.x() - anchor.x()), std::abs(m_hoverPos.y() - anchor.y()));
    }
    update();
}

int CDepthHolographicWidget::hoverDelay() const
{
    const CUserConfig* const config = getUserConfig();
    return config != nullptr ? static_cast<int>(config->refreshInterval() * 1000) : kUsualHoverDelay;
}

void CDepthHolographicWidget::slotShowDealDetail()
{
    m_detailSeq = getSeqByX(m_hoverPos.x());
    update();
}

void CDepthHolographicWidget::draging(int x)
{
    const int start = m_model->getStartIndex();
    const int end = m_model->getEndIndex();
    const std::int64_t dx = std::int64_t(m_dragLastX) - x;
    const std::int64_t deals = m_chartWidth > 0 ? (std::int64_t(end) - start) * dx / m_chartWidth : 0;
    setCursor(Qt::ClosedHandCursor);
    const int before = m_cursorSeq;
    if (std::abs(deals) >= 1 && m_model->hasIntervals()) {
        m_dragLastX = x;
        // Counts from the ends of the view, not from where the cursor is.
        m_cursorSeq = std::max(0, clampToInt(deals + (dx < 1 ? start : end)));
    }
    if (m_cursorSeq != before && m_model->getCurrQuoterTimgtag(m_cursorSeq) != -1)
        sendCursor();
}

void CDepthHolographicWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        m_dragging = false;
        m_selecting = false;
        setCursor(Qt::ArrowCursor);
        update();
        return;
    }
    m_cursorSeq = getSeqByX(event->x());
    if (m_columnMode)
        m_cursorSeq = m_model->getCurrSeqPair(m_cursorSeq).first;
    if (m_dragging) {
        m_dragging = false;
        setCursor(Qt::ArrowCursor);
    } else if (m_selecting && !endSelection()) {
        return;
    }
    if (!sendCursor())
        return;
    if (m_columnMode)
        drawGraph();
    update();
}

bool CDepthHolographicWidget::endSelection()
{
    if (m_selectRect.width() > kLeastRangeWidth) {
        const QPointer<CDepthHolographicWidget> self = this;
        sendSelectedRange();
        if (!self)
            return false;
        if (m_halfRow < m_baseHalfRow)
            setFullHeightChagne(std::min(m_baseHalfRow - m_halfRow, kRowGrowth));
    }
    m_selecting = false;
    m_selectRect = QRect();
    return true;
}

void CDepthHolographicWidget::sendSelectedRange()
{
    const auto first = m_model->getData(getSeqByX(m_selectRect.left()));
    const auto last = m_model->getData(getSeqByX(m_selectRect.right()));
    if (first && last)
        deliverEvent(kEventRangeSelected, first->time, last->time, QString(), nullptr);
}

void CDepthHolographicWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    CBaseWidget::mouseDoubleClickEvent(event);
    m_columnMode = !m_columnMode;
    drawGraph();
    update();
}

void CDepthHolographicWidget::leaveEvent(QEvent*)
{
    if (m_dragging)
        setCursor(Qt::ArrowCursor);
    m_dragging = false;
    m_selecting = false;
    m_detailTimer->stop();
    if (m_detailSeq == -1)
        return;
    m_detailSeq = -1;
    update();
}

void CDepthHolographicWidget::wheelEvent(QWheelEvent* event)
{
    if (m_forwardingWheel) {
        event->accept();
        return;
    }
    const int delta = event->angleDelta().y();
    if (delta > 0 && m_halfRow < m_baseHalfRow) {
        setFullHeightChagne(1);
        event->accept();
        return;
    }
    if (m_pageRows >= m_totalRows) {
        event->accept();
        return;
    }
    const bool atEnd = m_scrollBar->value() == m_scrollBar->maximum() && delta < 0;
    const bool atStart = m_scrollBar->value() == m_scrollBar->minimum() && delta >= 1;
    m_forwardingWheel = true;
    QCoreApplication::sendEvent(m_scrollBar, event);
    m_forwardingWheel = false;
    if (atEnd || atStart)
        event->accept(); // what the bar leaves is not for the host to scroll by
}

} // namespace Kel
