#include "holographic/DealCanvas.h"

#include <QPainterPath>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace Kel {

namespace {

// Slanted lines that are kept as shapes go at most so far; the others are few.
constexpr int kWidestShape = 64;
constexpr int kTallestShape = 2048;

/// The smallest rectangle that holds both.
QRect boxOf(const QPoint& a, const QPoint& b)
{
    return QRect(QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                 QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
}

} // namespace

// Plain
// ------------------------------------------------------------------------------------------------------------------

void PlainDealCanvas::fill(const QRect& rect, EDealInk ink)
{
    m_painter.fillRect(rect, m_inks[ink]);
}

void PlainDealCanvas::outline(const QRect& rect, EDealInk ink)
{
    m_painter.setPen(m_inks[ink]);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRect(rect);
}

void PlainDealCanvas::line(const QPoint& from, const QPoint& to, EDealInk ink)
{
    m_painter.setPen(m_inks[ink]);
    m_painter.drawLine(from, to);
}

void PlainDealCanvas::text(const QRect& rect, const QString& text, EDealInk ink)
{
    m_painter.setPen(m_inks[ink]);
    m_painter.drawText(rect, Qt::AlignCenter, text);
}

void PlainDealCanvas::triangle(const QPoint& corner, int legX, int legY, EDealInk ink)
{
    QPainterPath path;
    path.moveTo(corner);
    path.lineTo(corner.x() + legX, corner.y());
    path.lineTo(corner.x(), corner.y() + legY);
    path.lineTo(corner);
    m_painter.setPen(m_inks[ink]);
    m_painter.fillPath(path, QBrush(m_inks[ink], Qt::SolidPattern));
}

// Shapes of lines
// --------------------------------------------------------------------------------------------------------

bool LineShapes::holds(int dx, int dy)
{
    return std::abs(dx) <= kWidestShape && std::abs(dy) <= kTallestShape;
}

const std::vector<QPoint>& LineShapes::shape(int dx, int dy)
{
    const auto found = m_shapes.constFind({dx, dy});
    if (found != m_shapes.constEnd())
        return *found;
    const int margin = 2;
    QImage image(std::abs(dx) + 1 + 2 * margin, std::abs(dy) + 1 + 2 * margin, QImage::Format_RGB32);
    image.fill(Qt::black);
    const QPoint start(margin + std::max(-dx, 0), margin + std::max(-dy, 0));
    {
        QPainter painter(&image);
        painter.setPen(QColor(Qt::white));
        painter.drawLine(start, start + QPoint(dx, dy));
    }
    std::vector<QPoint> pixels;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != QColor(Qt::black).rgb())
                pixels.push_back(QPoint(x, y) - start);
        }
    }
    return *m_shapes.insert({dx, dy}, pixels);
}

// Columns
// ----------------------------------------------------------------------------------------------------------------

std::size_t ColumnDealCanvas::Memory::heapBytes() const
{
    return cells.capacity() + static_cast<std::size_t>(image.sizeInBytes());
}

ColumnDealCanvas::ColumnDealCanvas(QPainter& painter, const DealInks& inks, const QSize& size, Memory& memory)
    : m_plain(painter, inks), m_painter(painter), m_inks(inks), m_area(QPoint(0, 0), size), m_memory(memory)
{
    memory.cells.assign(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()), 0);
    m_cells = memory.cells.data();
}

void ColumnDealCanvas::fill(const QRect& rect, EDealInk ink)
{
    const QRect seen = rect & m_area;
    for (int x = seen.left(); x <= seen.right(); ++x)
        std::memset(&cell(x, seen.top()), ink + 1, static_cast<std::size_t>(seen.height()));
}

void ColumnDealCanvas::outline(const QRect& rect, EDealInk ink)
{
    if (rect.size() == QSize(0, 0))
        return; // painters draw nothing of an outline around a single pixel
    const QPoint right(rect.left() + rect.width(), rect.top());
    const QPoint bottom(rect.left(), rect.top() + rect.height());
    const QPoint corner(right.x(), bottom.y());
    line(rect.topLeft(), right, ink);
    line(rect.topLeft(), bottom, ink);
    line(right, corner, ink);
    line(bottom, corner, ink);
}

void ColumnDealCanvas::line(const QPoint& from, const QPoint& to, EDealInk ink)
{
    const QRect box = boxOf(from, to);
    if (from.x() == to.x() || from.y() == to.y()) {
        fill(box, ink);
        return;
    }
    if (!box.intersects(m_area))
        return;
    const QPoint reach = to - from;
    if (!m_area.contains(box) || !LineShapes::holds(reach.x(), reach.y())) {
        paintBeneath(box);
        m_plain.line(from, to, ink);
        return;
    }
    for (const QPoint& pixel : m_memory.shapes.shape(reach.x(), reach.y()))
        cell(from.x() + pixel.x(), from.y() + pixel.y()) = static_cast<std::uint8_t>(ink + 1);
}

void ColumnDealCanvas::text(const QRect& rect, const QString& text, EDealInk ink)
{
    if (!rect.intersects(m_area))
        return;
    paintBeneath(rect);
    m_plain.text(rect, text, ink);
}

void ColumnDealCanvas::triangle(const QPoint& corner, int legX, int legY, EDealInk ink)
{
    const QRect box = boxOf(corner, corner + QPoint(legX, legY)).adjusted(-1, -1, 1, 1);
    if (!box.intersects(m_area))
        return;
    paintBeneath(box);
    m_plain.triangle(corner, legX, legY, ink);
}

void ColumnDealCanvas::paintBeneath(const QRect& rect)
{
    const QRect seen = rect & m_area;
    for (int x = seen.left(); x <= seen.right(); ++x) {
        for (int y = seen.top(); y <= seen.bottom();) {
            const std::uint8_t code = cell(x, y);
            const int top = y;
            for (; y <= seen.bottom() && cell(x, y) == code; ++y)
                cell(x, y) = 0;
            if (code != 0)
                m_painter.fillRect(x, top, 1, y - top, m_inks[static_cast<std::size_t>(code - 1)]);
        }
    }
}

void ColumnDealCanvas::finish()
{
    QImage& image = m_memory.image;
    if (image.size() != m_area.size())
        image = QImage(m_area.size(), QImage::Format_ARGB32_Premultiplied);
    std::array<QRgb, eInkCount + 1> colors{};
    for (std::size_t ink = 0; ink < eInkCount; ++ink)
        colors[ink + 1] = m_inks[ink].rgb();
    const auto height = static_cast<std::size_t>(m_area.height());
    for (std::size_t y = 0; y < height; ++y) {
        auto* const pixels = reinterpret_cast<QRgb*>(image.scanLine(static_cast<int>(y)));
        const std::uint8_t* code = m_cells + y;
        for (int x = 0; x < m_area.width(); ++x, code += height)
            pixels[x] = colors[*code];
    }
    m_painter.drawImage(m_area, image);
}

} // namespace Kel
