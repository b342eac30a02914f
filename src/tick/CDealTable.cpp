#include "tick/CDealTable.h"

#include "tick/tick_list_geometry.h"
#include "tick/tick_resources.h"

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
constexpr int kOutlineMargin = 5; // of a selected row, at the left and right

} // namespace

CDealTable::CDealTable(const TrackSubject* subject, QWidget* parent)
    : CTrackWidget(QStringLiteral("track_deal_table"), subject, parent),
      m_scrollBar(new CIndexScrollBar(0, Qt::Vertical, this))
{
    m_scrollBar->setFixedWidth(kBarWidth);
    m_scrollBar->setSingleStep(1);
    m_scrollBar->setMinimum(0);
    m_scrollBar->setStyleSheet(scrollBarSheet());
    m_scrollBar->setFocusPolicy(Qt::NoFocus);
    m_scrollBar->hide();
    setFocusPolicy(Qt::StrongFocus);
}

void CDealTable::setRecords(const std::list<Record>& records)
{
    m_rows.clear();
    m_selectedIndex = -1;
    m_firstIndex = 0;
    for (const Record& record : records) {
        if (record && record->kind != quoter::eTransactionCancel)
            m_rows.push_back(record);
    }
    m_total = static_cast<int>(m_rows.size());
    updateScroll();
    // A slider that stood lower than this order's list reaches was moved by its range, which told the table.
    m_firstIndex = 0;
}

void CDealTable::updateScroll()
{
    if (m_total > m_rowCount) {
        m_scrollBar->setMaximum(m_total - m_rowCount);
        update();
        if (m_scrollBar->isHidden()) {
            m_scrollBar->show();
            m_scrollBar->raise();
        }
        return;
    }
    if (!m_scrollBar->isHidden())
        m_scrollBar->hide();
    update();
}

void CDealTable::resizeEvent(QResizeEvent* event)
{
    CTrackWidget::resizeEvent(event);
    if (size().isEmpty() || size() == m_size)
        return;
    m_size = size();
    m_rowCount = std::max(height() / m_rowHeight, 1);
    m_scrollBar->setGeometry(width() - m_scrollBar->width(), 0, m_scrollBar->width(), height());
    m_scrollBar->setPageStep(m_rowCount);
    updateScroll();
}

bool CDealTable::handleEvent(int id, int, int, QString, void*)
{
    if (id != kEventScrolled)
        return false;
    if (m_firstIndex != m_scrollBar->value()) {
        m_firstIndex = m_scrollBar->value();
        update();
    }
    return true;
}

void CDealTable::wheelEvent(QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    const bool atEnd = m_scrollBar->value() == m_scrollBar->maximum() && delta < 0;
    const bool atStart = m_scrollBar->value() == m_scrollBar->minimum() && delta > 0;
    if (m_total > m_rowCount && !atEnd && !atStart)
        QApplication::sendEvent(m_scrollBar, event);
    event->accept();
}

int CDealTable::rowAt(int y) const
{
    const int line = (y - top()) / m_rowHeight;
    return line >= 0 && m_firstIndex + line < m_total ? m_firstIndex + line : -1;
}

void CDealTable::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int row = rowAt(event->y());
    m_selectedIndex = row == m_selectedIndex ? -1 : row;
    update();
}

void CDealTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_selectedIndex = rowAt(event->y());
    update();
}

void CDealTable::select(int row)
{
    m_selectedIndex = std::clamp(row, 0, m_total - 1);
    int first = std::min(m_firstIndex, m_selectedIndex);
    first = std::max(first, m_selectedIndex - m_rowCount + 1);
    if (first != m_firstIndex) {
        m_firstIndex = first; // the slider may stand there already, from the order before, and tell nothing
        m_scrollBar->setValue(first);
    }
    update();
}

void CDealTable::keyPressEvent(QKeyEvent* event)
{
    int by = 0;
    switch (event->key()) {
    case Qt::Key_Up:
        by = -1;
        break;
    case Qt::Key_Down:
        by = 1;
        break;
    case Qt::Key_PageUp:
        by = -m_rowCount;
        break;
    case Qt::Key_PageDown:
        by = m_rowCount;
        break;
    case Qt::Key_Home:
        by = -m_total;
        break;
    case Qt::Key_End:
        by = m_total;
        break;
    default:
        break;
    }
    if (by == 0 || m_total == 0) {
        CTrackWidget::keyPressEvent(event);
        return;
    }
    const bool isOne = by == 1 || by == -1;
    select(m_selectedIndex < 0 && isOne ? m_firstIndex : m_selectedIndex + by);
}

void CDealTable::drawContent(QPainter& painter)
{
    for (int line = 0; line < m_rowCount && m_firstIndex + line < m_total; ++line) {
        const Record& record = m_rows[static_cast<std::size_t>(m_firstIndex + line)];
        const int y = top() + line * m_rowHeight;
        drawTrackRow(painter, m_style, kSideMargin, y, width() - kSideMargin, m_rowHeight,
                     {record->m_time / 1000, record->price, m_order->side, record->volume}, *m_subject);
        if (m_firstIndex + line == m_selectedIndex) {
            painter.setPen(m_style.selection);
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(
                outlineInside(QRect(kOutlineMargin, y, width() - 2 * kOutlineMargin, m_rowHeight), size()));
        }
    }
}

} // namespace Kel
