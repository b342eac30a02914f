#include "tick/CTickListWidget.h"

#include "platform/services/CUserConfig.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kEventScrolled = 15;
constexpr int kBarWidth = 6;
constexpr int kPictureMargin = 2; // rows are clipped so far from the upper and lower edge

constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr const char* kSeparator = "ic_clr_realtime_axis_line";
constexpr const char* kSelection = "ic_clr_entrust_amount";

} // namespace

int refreshPeriod(int fallback)
{
    const CUserConfig* const config = getUserConfig();
    return config == nullptr ? fallback : static_cast<int>(config->refreshInterval() * 1000);
}

CTickListWidget::CTickListWidget(const QString& objectName, QWidget* parent)
    : Zeb::CBaseWidget(objectName, parent), m_scrollBar(new CIndexScrollBar(0, Qt::Vertical, this))
{
    m_scrollBar->setFixedWidth(kBarWidth);
    m_scrollBar->setSingleStep(1);
    m_scrollBar->setMinimum(0);
    m_scrollBar->setStyleSheet(scrollBarSheet());
    m_scrollBar->setFocusPolicy(Qt::NoFocus);
    m_scrollBar->hide();
    setFocusPolicy(Qt::StrongFocus);
}

void CTickListWidget::themeChanged()
{
    m_texts.clear();
    m_scrollBar->setStyleSheet(scrollBarSheet());
    initDraw();
    drawBackground(m_rect);
    update();
}

// Picture
// ---------------------------------------------------------------------------------------------------------------------

void CTickListWidget::resizeEvent(QResizeEvent* event)
{
    Zeb::CBaseWidget::resizeEvent(event);
    if (width() <= 0 || height() <= 0 || (m_rect == rect() && !m_buffer.isNull()))
        return;
    m_rect = rect();
    m_layout.setHeight(m_rect.height());
    newBuffer();
    resetLayout();
    m_scrollBar->setGeometry(m_rect.width() - m_scrollBar->width(), 0, m_scrollBar->width(), m_rect.height());
    m_scrollBar->setPageStep(m_layout.rowCount);
    updateScroll();
}

void CTickListWidget::newBuffer()
{
    const qreal ratio = devicePixelRatioF();
    m_buffer = QPixmap((QSizeF(m_rect.size()) * ratio).toSize());
    m_buffer.setDevicePixelRatio(ratio);
}

void CTickListWidget::resetLayout()
{
    m_layout.setWidth(m_rect.width(), otherColumns() + priceWidth(), otherColumns(), priceWidth());
    drawBackground(m_rect);
}

void CTickListWidget::drawBackground(const QRect& rect)
{
    m_selectedIndex = selectedRow(); // the outline stands over the rows that are drawn now
    if (rect.isEmpty() || m_buffer.isNull())
        return;
    QPainter painter(&m_buffer);
    drawBackground(&painter);
}

void CTickListWidget::drawBackground(QPainter* painter)
{
    painter->fillRect(QRect(QPoint(0, 0), m_rect.size()), *themeColor(kGround));
    painter->setClipRect(0, kPictureMargin, m_rect.width(), m_rect.height() - 2 * kPictureMargin);
    drawGraph(painter);
}

void CTickListWidget::drawSeparators(QPainter* painter, int offset) const
{
    painter->setPen(*themeColor(kSeparator));
    for (int group = 1; group < m_layout.groupCount; ++group) {
        const int x = group * m_layout.groupWidth + offset + m_layout.margin - 1;
        painter->drawLine(x, kPictureMargin, x, m_layout.height - 2 * kPictureMargin);
    }
}

void CTickListWidget::paintEvent(QPaintEvent*)
{
    if (!isVisible() || m_buffer.isNull())
        return;
    if (m_buffer.devicePixelRatioF() != devicePixelRatioF()) { // on another screen
        newBuffer();
        m_texts.clear();
        initDraw();
        drawBackground(m_rect);
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_buffer);
    if (m_selectedIndex >= 0 && m_selectedIndex < m_total && isInView(m_selectedIndex)) {
        painter.setPen(*themeColor(kSelection));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(outlineInside(m_layout.rowRect(m_selectedIndex - m_firstIndex), m_rect.size()));
    }
    drawOverlay(painter);
}

// Scroll
// ----------------------------------------------------------------------------------------------------------------------

void CTickListWidget::updateScroll()
{
    m_total = modelCount();
    const int capacity = m_layout.capacity();
    if (m_total <= capacity) {
        if (!m_scrollBar->isHidden()) {
            m_scrollBar->hide();
            dropTip();
        }
        drawBackground(m_rect);
        update();
        return;
    }
    m_scrollBar->setMaximum(m_total - capacity);
    if (m_followTail) {
        m_firstIndex = m_total - capacity;
        m_scrollBar->setValue(m_firstIndex);
        dropTip();
    }
    drawBackground(m_rect);
    update();
    if (m_scrollBar->isHidden()) {
        m_scrollBar->show();
        m_scrollBar->raise();
        dropTip();
    }
}

bool CTickListWidget::handleEvent(int id, int, int, QString, void*)
{
    if (id != kEventScrolled)
        return false;
    const int position = m_scrollBar->value();
    const bool moved = position != m_firstIndex;
    m_firstIndex = position;
    m_followTail = position + m_layout.capacity() == m_total;
    if (moved) {
        drawBackground(m_rect);
        update();
    }
    return true;
}

void CTickListWidget::wheelEvent(QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    const bool atEnd = m_scrollBar->value() == m_scrollBar->maximum() && delta < 0;
    const bool atStart = m_scrollBar->value() == m_scrollBar->minimum() && delta > 0;
    if (m_total > m_layout.capacity() && !atEnd && !atStart)
        QApplication::sendEvent(m_scrollBar, event);
    event->accept();
}

void CTickListWidget::scrollTo(int firstIndex)
{
    const int most = std::max(m_total - m_layout.capacity(), 0);
    m_firstIndex = std::clamp(firstIndex, 0, most);
}

void CTickListWidget::forgetRows()
{
    m_firstIndex = 0;
    m_total = 0;
    select(-1);
    m_followTail = true;
}

int CTickListWidget::selectedRow() const
{
    if (m_selectedIndex < 0)
        return -1;
    return rowOf(m_selectedRow, m_selectedIndex, modelCount(), [this](int row) { return identityOf(row); });
}

void CTickListWidget::select(int row)
{
    if (row == m_selectedIndex)
        return;
    m_selectedIndex = row;
    m_selectedRow = row < 0 ? RowIdentity() : identityOf(row);
}

void CTickListWidget::dropSelection()
{
    select(-1);
    dropTip();
}

// Selection
// -------------------------------------------------------------------------------------------------------------------

int CTickListWidget::rowAt(const QPoint& point) const
{
    const int hit = m_layout.hit(point);
    return hit >= 0 && m_firstIndex + hit < m_total ? m_firstIndex + hit : -1;
}

void CTickListWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return; // the others open menus, for what is selected
    const int row = rowAt(event->pos());
    select(row == m_selectedIndex ? -1 : row);
    update();
    rowSelected(m_selectedIndex);
}

void CTickListWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    select(rowAt(event->pos()));
    update();
    rowOpened(m_selectedIndex);
}

void CTickListWidget::showRow(int row)
{
    select(row);
    const int capacity = m_layout.capacity();
    if (!isInView(row)) {
        scrollTo(row < m_firstIndex ? row : row - capacity + 1);
        // A list that has become shorter than the view is shown whole, and with it its tail.
        const bool follows = m_total > capacity ? m_firstIndex + capacity == m_total : m_followTail;
        m_scrollBar->setValue(m_firstIndex);
        m_followTail = follows;
        drawBackground(m_rect);
    }
    update();
}

void CTickListWidget::keyTo(int row)
{
    dropTip();
    row = std::clamp(row, 0, m_total - 1);
    const bool changed = row != m_selectedIndex;
    showRow(row);
    if (changed)
        rowSelected(row);
}

void CTickListWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_selectedIndex >= 0) {
        dropSelection();
        update();
        rowSelected(-1);
        return;
    }
    const int rows = m_layout.rowCount;
    const int page = m_layout.capacity();
    const int last = m_total - 1;
    // Without a selection the first key selects the row at the end that it comes from.
    const bool none = m_selectedIndex < 0 || m_selectedIndex > last;
    const int firstShown = std::clamp(m_firstIndex, 0, std::max(last, 0));
    const int lastShown = std::min(m_firstIndex + page - 1, last);
    const auto step = [&](int by) { return none ? (by > 0 ? firstShown : lastShown) : m_selectedIndex + by; };
    int row = -1;
    switch (event->key()) {
    case Qt::Key_Up:
        row = step(-1);
        break;
    case Qt::Key_Down:
        row = step(1);
        break;
    case Qt::Key_Left:
        row = step(-rows);
        break;
    case Qt::Key_Right:
        row = step(rows);
        break;
    case Qt::Key_PageUp:
        row = step(-page);
        break;
    case Qt::Key_PageDown:
        row = step(page);
        break;
    case Qt::Key_Home:
        row = 0;
        break;
    case Qt::Key_End:
        row = last;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!none) {
            rowOpened(m_selectedIndex);
            return;
        }
        break;
    default:
        break;
    }
    const bool isMove = event->key() >= Qt::Key_Home && event->key() <= Qt::Key_PageDown;
    if (!isMove || m_total == 0) {
        Zeb::CBaseWidget::keyPressEvent(event);
        return;
    }
    keyTo(row);
}

} // namespace Kel
