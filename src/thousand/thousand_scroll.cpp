// Size, first row and scroll bar of the ladder.

#include "thousand/CDepthThousandDataWidget.h"

#include "platform/models/ladder_units.h"

#include <QCoreApplication>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QWheelEvent>

#include <cmath>

namespace Kel {

namespace {

constexpr int kChangeWidth = 40;        // pixels
constexpr int kChangeWidthWithBar = 45; // the bar takes six of them

// Distance of the arrows from the edges, pixels
constexpr int kArrowRight = 10;
constexpr int kArrowTop = 4;
constexpr int kArrowBottom = 5;

constexpr int kFullLadder = 1000; // the display level that scrolls

} // namespace

LadderLayout CDepthThousandDataWidget::layout() const
{
    LadderLayout layout;
    layout.clientWidth = m_clientRect.width();
    layout.clientHeight = m_clientRect.height();
    layout.rowHeight = m_rowHeight;
    layout.indexWidth = m_indexWidth;
    layout.priceWidth = m_priceWidth;
    layout.countWidth = m_countWidth;
    layout.volWidth = m_volWidth;
    layout.changeWidth = m_changeWidth;
    layout.gap = m_gap;
    layout.priceAreaWidth = m_priceAreaWidth;
    layout.displayLevel = m_displayLevel;
    layout.visibleRows = m_visibleRows;
    layout.sellCount = m_sellCount;
    layout.buyCount = m_buyCount;
    layout.totalRows = m_totalRows;
    layout.scrollTop = m_scrollTop;
    return layout;
}

void CDepthThousandDataWidget::newPixmap()
{
    const qreal ratio = devicePixelRatioF();
    const QSizeF size = QSizeF(m_clientRect.size()) * ratio;
    m_pixmap = QPixmap(static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height())));
    m_pixmap.setDevicePixelRatio(ratio);
}

void CDepthThousandDataWidget::resizeEvent(QResizeEvent* event)
{
    Zeb::CBaseWidget::resizeEvent(event);
    if (width() <= 0 || height() <= 0 || size() == m_clientRect.size())
        return;
    m_clientRect = rect();
    m_visibleRows = m_clientRect.height() / m_rowHeight;
    newPixmap();
    drawBackground(m_clientRect);
    m_resetTop->move(width() - kArrowRight - m_resetTop->width(), kArrowTop);
    m_resetBottom->move(width() - kArrowRight - m_resetBottom->width(),
                        height() - m_resetBottom->height() - kArrowBottom);
    m_scrollBar->setGeometry(width() - m_scrollBar->width(), 0, m_scrollBar->width(), height());
    m_scrollBar->setPageStep(m_visibleRows);
    updateScroll(false);
}

void CDepthThousandDataWidget::resetCenterPosition(int level, int sells, int buys, int& delta)
{
    const int shown = getLevelDisplayCount(kShortForm);
    if (level == kShortForm && (shown > sells || shown > buys))
        delta = 0;
}

void CDepthThousandDataWidget::updateScroll(bool reset)
{
    const bool exceeds = m_totalRows > m_visibleRows;
    m_changeWidth = exceeds ? kChangeWidthWithBar : kChangeWidth;
    m_priceAreaWidth = priceAreaWidth(layout());
    if (!exceeds) {
        m_scrollTop = (m_totalRows - m_visibleRows) / 2;
        drawBackground(m_clientRect);
        update();
        m_scrollBar->hide();
        m_resetTop->hide();
        m_resetBottom->hide();
        return;
    }

    if (reset) {
        m_centerDelta = 0;
        m_resetTop->hide();
        m_resetBottom->hide();
    }
    if (m_sellCount < m_visibleRows / 2) {
        m_centerDelta = m_sellCount - m_visibleRows / 2;
        resetCenterPosition(m_displayLevel, m_sellCount, m_buyCount, m_centerDelta);
    }
    m_scrollTop = m_sellCount - m_visibleRows / 2 - m_centerDelta;
    drawBackground(m_clientRect);
    update();
    moveSlider(m_totalRows - m_visibleRows);
    if (m_scrollBar->isHidden()) {
        m_scrollBar->show();
        m_scrollBar->raise();
    }
    m_scrollBar->setVisible(m_displayLevel == kFullLadder);
    // The slider has ends; where the wanted row lies beyond one, the ladder stops there too.
    if (m_scrollTop != m_scrollBar->value())
        scrolled();
}

/// Gives the slider its range up to `limit` and the first row as its position, in the order in which the
/// range cuts neither the position before nor the one after.
void CDepthThousandDataWidget::moveSlider(int limit)
{
    const QScopedValueRollback<bool> own(m_movesSlider, true);
    if (m_scrollBar->value() <= limit) {
        m_scrollBar->setMaximum(limit);
        m_scrollBar->setValue(m_scrollTop);
    } else {
        m_scrollBar->setValue(m_scrollTop);
        m_scrollBar->setMaximum(limit);
    }
}

void CDepthThousandDataWidget::scrolled()
{
    const int old = m_scrollTop;
    m_scrollTop = m_scrollBar->value();
    m_centerDelta = m_sellCount - m_visibleRows / 2 - m_scrollTop;
    resetCenterPosition(m_displayLevel, m_sellCount, m_buyCount, m_centerDelta);
    if (m_scrollTop != old) {
        drawBackground(m_clientRect);
        showArrows();
    }
    update();
}

/// The arrows that lead back to the latest price, by the side on which it left the centre.
void CDepthThousandDataWidget::showArrows()
{
    const bool below = m_centerDelta < 0 && m_scrollTop >= 1;
    const bool above = m_centerDelta > 0 && m_scrollTop + m_visibleRows < m_totalRows;
    m_resetBottom->setVisible(below);
    m_resetTop->setVisible(above);
    if (below)
        m_resetBottom->raise();
    if (above)
        m_resetTop->raise();
}

void CDepthThousandDataWidget::wheelEvent(QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    const bool atEnd = (delta > 0 && m_scrollBar->value() == m_scrollBar->minimum()) ||
                       (delta < 0 && m_scrollBar->value() == m_scrollBar->maximum());
    // What the bar does not take comes back here.
    if (m_totalRows > m_visibleRows && !atEnd && !m_forwardsWheel) {
        const QScopedValueRollback<bool> forwards(m_forwardsWheel, true);
        QCoreApplication::sendEvent(m_scrollBar, event);
    }
    event->accept();
}

} // namespace Kel
