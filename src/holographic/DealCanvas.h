#pragma once

#include <QColor>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPair>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kel {

/// What deals are drawn in.
enum EDealInk : std::uint8_t
{
    eInkSell,
    eInkBuy,
    eInkActive,
    eInkSellBreak,
    eInkBuyBreak,
    eInkMarket,
    eInkUrgent,
    eInkCount,
};

using DealInks = std::array<QColor, eInkCount>;

/// The shapes that deals are made of. Pixels are logical ones; rectangles are filled from `left()` to
/// `right()` and lines drawn from end to end, both inside. GUI thread.
class DealCanvas
{
public:
    virtual ~DealCanvas() = default;

    virtual void fill(const QRect& rect, EDealInk ink) = 0;

    /// The outline whose outermost pixels are those of the rectangle's edge with one more at right and
    /// bottom, as painters draw it.
    virtual void outline(const QRect& rect, EDealInk ink) = 0;
    virtual void line(const QPoint& from, const QPoint& to, EDealInk ink) = 0;

    /// In the middle of the rectangle, in the painter's font.
    virtual void text(const QRect& rect, const QString& text, EDealInk ink) = 0;

    /// Right-angled triangle in a corner: its legs go `legX` and `legY` pixels from there.
    virtual void triangle(const QPoint& corner, int legX, int legY, EDealInk ink) = 0;
};

/// Shape by shape with a painter. The measure of what the picture is.
class PlainDealCanvas : public DealCanvas
{
public:
    PlainDealCanvas(QPainter& painter, const DealInks& inks) : m_painter(painter), m_inks(inks) {}

    void fill(const QRect& rect, EDealInk ink) override;
    void outline(const QRect& rect, EDealInk ink) override;
    void line(const QPoint& from, const QPoint& to, EDealInk ink) override;
    void text(const QRect& rect, const QString& text, EDealInk ink) override;
    void triangle(const QPoint& corner, int legX, int legY, EDealInk ink) override;

private:
    QPainter& m_painter;
    const DealInks& m_inks;
};

/// Pixels of slanted lines, by how far they go. Made by a painter, so that they are a painter's.
class LineShapes
{
public:
    /// Whether lines that go so far are kept at all.
    static bool holds(int dx, int dy);

    /// The pixels of a line from (0, 0).
    const std::vector<QPoint>& shape(int dx, int dy);

private:
    QHash<QPair<int, int>, std::vector<QPoint>> m_shapes;
};

/// The same picture where a hundred thousand deals share a thousand columns: shapes are written into one byte
/// a pixel, and only what is left to see at the end is painted. Texts, triangles and long slanted lines go to
/// the painter at once, after what lies beneath them. Inks must be opaque, and a logical pixel one of the
/// device.
class ColumnDealCanvas : public DealCanvas
{
public:
    /// Memory that is kept from one picture to the next.
    struct Memory
    {
        std::vector<std::uint8_t> cells;
        QImage image;
        LineShapes shapes;

        std::size_t heapBytes() const;
    };

    /// Nothing is drawn outside (0, 0) and `size`, which the painter has to clip to as well.
    ColumnDealCanvas(QPainter& painter, const DealInks& inks, const QSize& size, Memory& memory);

    void fill(const QRect& rect, EDealInk ink) override;
    void outline(const QRect& rect, EDealInk ink) override;
    void line(const QPoint& from, const QPoint& to, EDealInk ink) override;
    void text(const QRect& rect, const QString& text, EDealInk ink) override;
    void triangle(const QPoint& corner, int legX, int legY, EDealInk ink) override;

    /// Paints what is not painted yet. To be called once, at the end.
    void finish();

private:
    std::uint8_t& cell(int x, int y)
    {
        return m_cells[static_cast<std::size_t>(x) * static_cast<std::size_t>(m_area.height()) +
                       static_cast<std::size_t>(y)];
    }
    void paintBeneath(const QRect& rect);

    PlainDealCanvas m_plain;
    QPainter& m_painter;
    const DealInks& m_inks;
    QRect m_area;
    Memory& m_memory;
    std::uint8_t* m_cells; ///< column by column; ink + 1 where something waits to be painted, else 0
};

} // namespace Kel
