// Size, scroll bar and scroll position of the panel.

#include "queue_view/CDepthOrderQueueWidget.h"

#include "platform/toolkit/scroll_bar_sheet.h"

#include <QResizeEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Kel {

namespace {

constexpr int kBarWidth = 6; // pixels

/// For the life of the object the bar's moves are the panel's and not the user's.
class PanelMoves
{
public:
    explicit PanelMoves(bool& userScroll) : m_userScroll(userScroll) { m_userScroll = false; }
    ~PanelMoves() { m_userScroll = true; }
    PanelMoves(const PanelMoves&) = delete;
    PanelMoves& operator=(const PanelMoves&) = delete;

private:
    bool& m_userScroll;
};

} // namespace

void CDepthOrderQueueWidget::initScrollBar()
{
    m_clientRealHeight = height();
    m_scrollBar = new CIndexScrollBar(0, Qt::Vertical, this);
    m_scrollBar->setFixedWidth(kBarWidth);
    m_scrollBar->setRange(0, 0);
    m_scrollBar->hide();
    applyScrollBarSheet();
}

void CDepthOrderQueueWidget::applyScrollBarSheet()
{
    m_scrollBar->setStyleSheet(scrollBarSheet());
}

void CDepthOrderQueueWidget::moveSlider(int position)
{
    const PanelMoves moves(m_userScroll);
    m_scrollBar->setValue(position);
}

void CDepthOrderQueueWidget::setSliderMaximum(int maximum)
{
    const PanelMoves moves(m_userScroll);
    m_scrollBar->setMaximum(maximum);
}

// Size
// ------------------------------------------------------------------------------------------------------------------

QSize CDepthOrderQueueWidget::pixmapSize() const
{
    const QSizeF size = QSizeF(m_clientRect.size()) * devicePixelRatioF();
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

void CDepthOrderQueueWidget::newPixmap()
{
    m_pixmap = QPixmap(pixmapSize());
    m_pixmap.setDevicePixelRatio(devicePixelRatioF());
    m_pixmap.fill(*m_theme.back); // the last part of a device pixel too
}

/// Takes a pixmap for the screen that the panel is on now.
void CDepthOrderQueueWidget::fitPixmap()
{
    if (m_pixmap.devicePixelRatioF() != devicePixelRatioF())
        newPixmap();
}

void CDepthOrderQueueWidget::resizeEvent(QResizeEvent* event)
{
    Zeb::CBaseWidget::resizeEvent(event);
    resetLayout();
}

void CDepthOrderQueueWidget::resetLayout()
{
    m_clientRect = rect();
    m_layoutDone = true;
    m_visibleRows = static_cast<quint8>(m_clientRect.height() / m_rowHeight);
    m_scrollBar->setGeometry(width() - m_scrollBar->width(), 0, m_scrollBar->width(), height());
    m_scrollBar->setPageStep(m_clientRect.height());
    m_centerOffset = 0;
    if (!m_drawing && !m_pixmap.paintingActive())
        newPixmap();
    drawGraph();
    updateScroll(false);
    setScrollCenter();
    update();
}

// Scroll
// ----------------------------------------------------------------------------------------------------------------

void CDepthOrderQueueWidget::updateScroll(bool keepProportion)
{
    m_clientRect = rect();
    m_clientRealHeight = (m_rowCount + 1) * m_rowHeight;
    m_scrollBar->setGeometry(width() - m_scrollBar->width(), 0, m_scrollBar->width(), height());

    const int clientHeight = m_clientRect.height();
    if (m_clientRealHeight <= clientHeight) {
        m_scrollPos = 0;
        setSliderMaximum(0);
        moveSlider(0);
        if (isBarVisible())
            m_scrollBar->hide();
        drawGraph();
        update();
        return;
    }

    const int maximum = m_clientRealHeight - clientHeight;
    setSliderMaximum(maximum);
    m_scrollPos = std::clamp(m_scrollPos, 0, maximum);

    const bool pending = m_queueModeStyle == eQueueDetailHorizontal && m_needCenter;
    const bool backed = pending && m_model.isLevelDataBack();
    if (backed || m_model.m_bLevelArrived) {
        m_centerOffset = 0;
        setScrollCenter();
        m_needCenter = false;
        m_model.m_bLevelArrived.exchange(false);
    } else if (keepProportion) {
        const double share = static_cast<double>(m_scrollPos) / m_clientRealHeight;
        moveSlider(static_cast<int>(share * maximum));
    }

    if (!isBarVisible()) {
        m_scrollBar->show();
        m_scrollBar->raise();
        // The bar takes its width from the columns.
        drawGraph();
        update();
    }
}

void CDepthOrderQueueWidget::setScrollCenter()
{
    if (m_queueModeStyle != eQueueDetailHorizontal)
        return;
    int position = 0;
    if (m_centerY != 0) {
        const int half = m_clientRect.height() / 2;
        const int maximum = m_scrollBar->maximum();
        position = m_centerY - m_centerOffset - half;
        if (position < 0) {
            position = 0;
            m_centerOffset = m_centerY - half;
        }
        if (position > maximum) {
            position = maximum;
            m_centerOffset = m_centerY - half - maximum;
        }
    }
    moveSlider(position);
}

/// The bar has moved.
void CDepthOrderQueueWidget::scrolled()
{
    const int old = m_scrollTop;
    m_scrollTop = m_scrollBar->value();
    if (old != 0 && m_queueModeStyle == eQueueDetailHorizontal && m_userScroll)
        m_centerOffset += old - m_scrollTop;
    drawGraph();
    update();
}

void CDepthOrderQueueWidget::wheelEvent(QWheelEvent* event)
{
    QWidget::wheelEvent(event);
    if (isBarVisible()) {
        m_userScroll = true;
        m_scrollBar->setValue(m_scrollTop - event->angleDelta().y());
    }
    if (m_blockExceededWheel)
        event->accept();
}

} // namespace Kel
