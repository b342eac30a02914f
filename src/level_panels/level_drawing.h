#pragma once

#include "level_panels/LevelColumns.h"
#include "level_panels/level_rules.h"

#include <QRect>
#include <QString>

#include <atomic>

class QColor;
class QFont;
class QPainter;
class QPixmap;
class QWidget;

/// What both quote panels draw in the same way. GUI thread.
namespace Kel {

/// The colour of a key; the address stays valid and follows the theme.
const QColor* levelColor(const char* key);

/// Colours of the numbers of levels.
struct LevelColors
{
    const QColor* normal = nullptr;
    const QColor* rise = nullptr;
    const QColor* fall = nullptr;
    const QColor* amount = nullptr;    ///< volumes
    const QColor* newAmount = nullptr; ///< the latest volume

    /// Rise or fall as `value` is above or below `base` by more than the tolerance, else the default.
    const QColor* of(double value, double base) const;
};

/// Key of the colour of what both panels lie on.
constexpr const char* kLevelGround = "ic_clr_graph_kline_bg";

/// Fonts of the numbers and labels; the addresses follow the theme.
struct LevelFonts
{
    LevelFonts();

    const QFont* text;
    const QFont* price;
    const QFont* amount;
};

void drawLeft(QPainter& painter, const QRect& box, const QString& text);
void drawRight(QPainter& painter, const QRect& box, const QString& text, const QColor& color);

/// The numbers of a level in the row that begins at `y`; nothing of an invalid level.
void drawLevel(QPainter& painter, const LevelColumns& columns, int y, int rowHeight,
               const EntrustLevel& level, const EntrustStatusData& data, double close, bool customIndex,
               const LevelColors& colors, const LevelFonts& fonts);

/// Latest price and volume in the row that begins at `y`; nothing without a latest price.
void drawLatest(QPainter& painter, const LevelColumns& columns, int y, int rowHeight,
                const EntrustStatusData& data, double close, const LevelColors& colors,
                const LevelFonts& fonts);

/// The outline of a cell whose y counts from the first row; nothing for an empty one.
void drawCellMark(QPainter& painter, const QRect& cell, int topY, const QColor& color);

/// A pixmap for the whole of `widget`, at the resolution of its screen: the ground and nothing on it.
QPixmap pixmapFor(const QWidget& widget);

/// Whether `pixmap` is of another resolution than the screen of `widget`, which may have moved there.
bool isOfOtherScreen(const QPixmap& pixmap, const QWidget& widget);

/// Repaints a widget on the GUI thread, from whatever thread it is asked for. However often that is before
/// the GUI thread gets round to it, one event waits for it. Lives as long as the widget, as its member.
class AnyThreadUpdate
{
public:
    explicit AnyThreadUpdate(QWidget& widget) : m_widget(widget) {}

    void ask();

private:
    QWidget& m_widget;
    std::atomic<bool> m_asked{false};
};

/// Whether a panel shows another cell: by the place, not the size.
inline bool isOtherCell(const QRect& a, const QRect& b)
{
    return a.topLeft() != b.topLeft();
}

} // namespace Kel
