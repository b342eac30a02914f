#pragma once

#include "support/PaintRecorder.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QFont>
#include <QRect>
#include <QSize>
#include <QString>

#include <functional>
#include <string>
#include <vector>

class QPainter;

namespace queue_view_rules {

using testing_support::PaintCommand;

constexpr int kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr int kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int kCentre = Qt::AlignHCenter | Qt::AlignVCenter;

/// What a painter did, in order.
using Drawing = std::vector<PaintCommand>;

/// Records what `paint` draws on a device of this size.
Drawing record(const QSize& size, const std::function<void(QPainter&)>& paint);

/// Colour and font of the theme in force.
QColor themeColor(const QString& key);
QFont themeFont(const QString& key);

/// Width of a text in a font of the theme, pixels.
int textWidth(const QString& text, const QString& fontKey);

/// The text stands in the rectangle in this colour; with a font key, in that font.
testing::AssertionResult shows(const Drawing& drawing, const QString& text, const QRect& rect, int alignment,
                               const QString& colorKey, const QString& fontKey = QString());

/// How often the text was written anywhere.
int countOf(const Drawing& drawing, const QString& text);

/// All texts in order, with a blank between them.
std::string texts(const Drawing& drawing);

/// The rectangle was filled in this colour.
testing::AssertionResult filled(const Drawing& drawing, const QRect& rect, const QString& colorKey);

/// Whether the rectangle was filled in any colour.
bool filledAny(const Drawing& drawing, const QRect& rect);

/// Texts that end at the right edges of a grid of cells, row by row, "10 20 -\n30 - -", with a dash for a
/// cell without one. `first` is the cell at the upper left; with `upward` each row stands above the one
/// before.
std::string grid(const Drawing& drawing, const QRect& first, int cols, int rows, bool upward = false);

/// The text written last at the right of this cell; an empty fill if there is none.
PaintCommand cellText(const Drawing& drawing, const QRect& cell);

/// The colour of that text.
QColor cellColor(const Drawing& drawing, const QRect& cell);

/// Heights of the horizontal lines of this colour that cross the whole width, in their order: "25 65".
std::string crossLines(const Drawing& drawing, const QString& colorKey, int width);

/// Places of the vertical lines of this colour that cross the whole height, in their order.
std::string downLines(const Drawing& drawing, const QString& colorKey, int height);

/// The corners of all paths, each corner once and in its order, a path a line: "x,y x,y ...".
std::vector<std::string> outlines(const Drawing& drawing);

/// The drawing's commands as lines, for messages.
std::string print(const Drawing& drawing);

} // namespace queue_view_rules
