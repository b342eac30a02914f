// One level of the picture: its head, its orders as cells, the call-out of a part-dealt order.

#include "queue_view/CDepthOrderQueueWidget.h"

#include "platform/resources/CUiResource.h"
#include "platform/services/CEnumsDataHelper.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "records/Tolerance.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace Kel {

namespace {

// Pixels
constexpr int kGroundLeft = 3;     // a cell's ground begins so far behind the cell's left edge
constexpr int kGroundInset = 1;    // and is so much lower and higher than the row
constexpr int kGroundNarrower = 2; // and so much narrower than the cell
constexpr int kCallOutPenWidth = 2;
constexpr int kCallOutLabelGap = 2; // between the lots of a call-out and its label

constexpr int kOpaque = 255;

constexpr int kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr int kCenter = Qt::AlignHCenter | Qt::AlignVCenter;

QString lotsText(int lots)
{
    return Zeb::formatIntNumber(lots, 0, 0);
}

const QString& ellipsisText()
{
    static const QString text = QStringLiteral("...");
    return text;
}

QColor opaque(QColor color)
{
    color.setAlpha(kOpaque);
    return color;
}

} // namespace

bool CDepthOrderQueueWidget::drawOrderVol(boost::shared_ptr<OrderQueueData> level, QPainter& painter,
                                          int cols, int row)
{
    if (!level || !level->hasPrice())
        return false;
    const OrderQueueLayout current = queueLayout();
    // The summary row is all that such a level shows.
    if (level->m_level >= 2 && current.firstLevelDetail() && !current.full)
        return false;

    const bool isBuy = level->m_type == OQT_BUY;
    QColor defaultColor =
        *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(getPriceColor(level->m_type));
    painter.setPen(defaultColor);
    const LevelHead head = levelHead(current, *level, current.rowTop(row, level->m_type));
    drawHead(painter, *level, head, defaultColor);
    if (!current.listsOrders(*level))
        return true;

    painter.setPen(defaultColor);
    m_model.lockUi();
    placeCells(current, *level, head.cellsLeft, cols, row, m_cells);
    for (const OrderCell& cell : m_cells.cells)
        drawCell(painter, cell, defaultColor, isBuy);
    if (m_cells.lastPart >= 0) {
        const int index = m_cells.cells[static_cast<std::size_t>(m_cells.lastPart)].index;
        drawPartDealtCell(painter, level->m_orders.at(index), cols, defaultColor, isBuy);
    }
    painter.setPen(opaque(defaultColor));
    m_model.unLockUi();
    return true;
}

/// Name, price, volume and number of orders, as far as the style has them. The painter's pen is the price's.
void CDepthOrderQueueWidget::drawHead(QPainter& painter, const OrderQueueData& level, const LevelHead& head,
                                      const QColor& priceColor)
{
    if (!head.name.isNull()) {
        const QString side = level.m_type == OQT_BUY ? QStringLiteral("买") : QStringLiteral("卖");
        painter.setFont(*m_theme.textFont);
        painter.drawText(head.name, kCenter,
                         side + nelservice::CEnumsDataHelper::numberToFomatString(level.m_level));
        painter.setFont(*m_theme.volumeFont);
    }
    if (!head.priceFill.isNull()) {
        painter.setPen(*m_theme.reversedPrice);
        painter.fillRect(head.priceFill, priceColor);
    }
    if (!head.price.isNull()) {
        static const QString badValue = QStringLiteral("非法值");
        painter.drawText(head.price, kRight,
                         Zeb::formatDoubleNumber(level.m_price, m_model.getPrecision(), 0, false, badValue));
    }
    if (!head.volume.isNull()) {
        painter.setPen(*m_theme.volume);
        painter.drawText(head.volume, kRight, lotsText(truncateToInt(level.m_levelVol)));
    }
    if (!head.count.isNull())
        drawOrderCount(painter, head.count, level.m_count);
}

/// The number and, at its right, "笔".
void CDepthOrderQueueWidget::drawOrderCount(QPainter& painter, QRect box, int count)
{
    static const QString label = QStringLiteral("笔");
    painter.setPen(*m_theme.text);
    painter.setFont(*m_theme.textFont);
    painter.drawText(box, kRight, label);
    box.setWidth(box.width() - painter.fontMetrics().horizontalAdvance(label));
    painter.setFont(*m_theme.volumeFont);
    painter.drawText(box, kRight, lotsText(count));
}

// Cells
// -----------------------------------------------------------------------------------------------------------------

/// Pen of a cell: a tracked order and a marked volume have colours of their own.
QColor CDepthOrderQueueWidget::cellPen(const OrderCell& cell, const QColor& otherwise) const
{
    if (cell.number == m_trackOrderNo)
        return *getVolumeColor(m_trackColor);
    // Cells show plain digits: equal numbers are equal texts.
    if (!cell.ellipsis && cell.lots == m_markVolume)
        return *m_theme.mark(m_markColor);
    return otherwise;
}

void CDepthOrderQueueWidget::drawLots(QPainter& painter, const QRect& box, int lots, bool ellipsis)
{
    if (ellipsis)
        painter.drawText(box, kRight, ellipsisText());
    else
        m_lotTexts.draw(painter, *m_theme.volumeFont, box, lots);
}

void CDepthOrderQueueWidget::drawCell(QPainter& painter, const OrderCell& cell, const QColor& defaultColor,
                                      bool isBuy)
{
    if (cell.type == OQT_DEALT) {
        painter.setPen(cellPen(cell, opaque(*m_theme.normal)));
    } else {
        painter.setPen(cellPen(cell, defaultColor));
        if (cell.type != OQT_PART_DEALT) {
            painter.fillRect(QRect(cell.rect.x() + kGroundLeft, cell.rect.y() + kGroundInset,
                                   m_cellWidth - kGroundNarrower, m_rowHeight - 2 * kGroundInset),
                             *m_theme.ground(cell.type, isBuy));
        }
    }
    drawLots(painter, cell.rect, cell.lots, cell.ellipsis);
}

/// Draws over the last part-dealt cell: its ground as wide as its text, and the call-out.
void CDepthOrderQueueWidget::drawPartDealtCell(QPainter& painter, const COrderVol& order, int cols,
                                               const QColor& defaultColor, bool isBuy)
{
    const OrderCell& cell = m_cells.cells[static_cast<std::size_t>(m_cells.lastPart)];
    const QString text = m_cells.partEllipsis ? ellipsisText() : lotsText(m_cells.partLots);
    const int dx = m_cellWidth - painter.fontMetrics().horizontalAdvance(text);
    const QRect box(cell.rect.x() + dx, cell.rect.y() + kGroundInset, m_cellWidth - dx,
                    m_rowHeight - 2 * kGroundInset);
    // The index in the list is compared, not the column.
    const int tipX = cell.index == cols - 1 ? 0 : box.width();
    drawPartDealVol(painter, QPoint(box.x() + tipX, box.y() + box.height() / 2), order, tipX == 0);

    if (isPositive(order.m_partDealVol)) {
        painter.setPen(opaque(*m_theme.partDealtPen));
        painter.fillRect(box, *m_theme.ground(order.m_type, isBuy));
    } else {
        painter.setPen(defaultColor);
    }
    painter.drawText(cell.rect, kRight, text);
}

void CDepthOrderQueueWidget::drawPartDealVol(QPainter& painter, const QPoint& tip, const COrderVol& order,
                                             bool toLeft)
{
    if (!isPositive(std::fabs(order.m_partDealVol)))
        return;
    static const QString label = QStringLiteral("成");
    const QString lots = lotsText(shownLots(order.m_partDealVol));
    const CallOut shape =
        callOut(queueLayout(), tip, painter.fontMetrics().horizontalAdvance(label + lots), toLeft);

    QPainterPath path;
    path.addPolygon(shape.outline);
    painter.fillPath(path, QBrush(*m_theme.callOutFill));
    painter.strokePath(path, QPen(QBrush(*m_theme.callOutFrame), kCallOutPenWidth, Qt::SolidLine,
                                  Qt::SquareCap, Qt::BevelJoin));

    painter.setPen(*m_theme.normal);
    painter.drawText(shape.text, kRight, lots);
    QRect labelBox = shape.text;
    labelBox.setWidth(labelBox.width() - kCallOutLabelGap - painter.fontMetrics().horizontalAdvance(lots));
    painter.setFont(*m_theme.callOutFont);
    painter.drawText(labelBox, kRight, label);
    painter.setFont(*m_theme.volumeFont);
}

} // namespace Kel
