#include "Drawing.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace queue_view_rules {

namespace {

constexpr double kPixel = 1.0; ///< how far a place may lie beside the one expected

bool near(double a, double b)
{
    return std::abs(a - b) <= kPixel;
}

Zeb::CUiResource& theme()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

bool sameRect(const QRectF& a, const QRect& b)
{
    return a == QRectF(b);
}

} // namespace

Drawing record(const QSize& size, const std::function<void(QPainter&)>& paint)
{
    testing_support::PaintRecorder recorder(size.width(), size.height());
    {
        QPainter painter(&recorder);
        paint(painter);
    }
    return recorder.commands();
}

QColor themeColor(const QString& key)
{
    return *theme().getColor(key);
}

QFont themeFont(const QString& key)
{
    return *theme().getFont(key);
}

int textWidth(const QString& text, const QString& fontKey)
{
    return QFontMetrics(themeFont(fontKey)).horizontalAdvance(text);
}

testing::AssertionResult shows(const Drawing& drawing, const QString& text, const QRect& rect, int alignment,
                               const QString& colorKey, const QString& fontKey)
{
    for (const PaintCommand& command : drawing) {
        if (command.kind == PaintCommand::eText && command.text == text &&
            command.standsIn(rect, alignment) && command.color() == themeColor(colorKey) &&
            (fontKey.isEmpty() || command.font == themeFont(fontKey)))
            return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "no " << text.toStdString() << " in " << rect.x() << "," << rect.y()
                                       << " " << rect.width() << "x" << rect.height() << " in the colour "
                                       << themeColor(colorKey).name().toStdString() << " among\n"
                                       << print(drawing);
}

int countOf(const Drawing& drawing, const QString& text)
{
    int count = 0;
    for (const PaintCommand& command : drawing)
        count += command.kind == PaintCommand::eText && command.text == text ? 1 : 0;
    return count;
}

std::string texts(const Drawing& drawing)
{
    std::string all;
    for (const PaintCommand& command : drawing) {
        if (command.kind == PaintCommand::eText)
            all += (all.empty() ? "" : " ") + command.text.toStdString();
    }
    return all;
}

testing::AssertionResult filled(const Drawing& drawing, const QRect& rect, const QString& colorKey)
{
    for (const PaintCommand& command : drawing) {
        if (command.kind == PaintCommand::eFill && sameRect(command.rect, rect) &&
            command.color() == themeColor(colorKey))
            return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "no fill of " << rect.x() << "," << rect.y() << " " << rect.width() << "x" << rect.height()
           << " in the colour " << themeColor(colorKey).name().toStdString() << " among\n"
           << print(drawing);
}

bool filledAny(const Drawing& drawing, const QRect& rect)
{
    for (const PaintCommand& command : drawing) {
        if (command.kind == PaintCommand::eFill && sameRect(command.rect, rect))
            return true;
    }
    return false;
}

std::string grid(const Drawing& drawing, const QRect& first, int cols, int rows, bool upward)
{
    std::string lines;
    for (int row = 0; row < rows; ++row) {
        lines += row == 0 ? "" : "\n";
        for (int col = 0; col < cols; ++col) {
            const int down = (upward ? -row : row) * first.height();
            const PaintCommand found = cellText(drawing, first.translated(col * first.width(), down));
            lines += col == 0 ? "" : " ";
            lines += found.kind == PaintCommand::eText ? found.text.toStdString() : "-";
        }
    }
    return lines;
}

PaintCommand cellText(const Drawing& drawing, const QRect& cell)
{
    for (auto command = drawing.rbegin(); command != drawing.rend(); ++command) {
        if (command->standsIn(cell, kRight))
            return *command;
    }
    return {};
}

QColor cellColor(const Drawing& drawing, const QRect& cell)
{
    const PaintCommand found = cellText(drawing, cell);
    return found.kind == PaintCommand::eText ? found.color() : QColor();
}

std::string crossLines(const Drawing& drawing, const QString& colorKey, int width)
{
    std::string places;
    for (const PaintCommand& command : drawing) {
        if (command.kind != PaintCommand::eLine || command.pen.color() != themeColor(colorKey))
            continue;
        if (command.line.y1() == command.line.y2() && near(std::abs(command.line.dx()), width))
            places += (places.empty() ? "" : " ") + std::to_string(std::lround(command.line.y1()));
    }
    return places;
}

std::string downLines(const Drawing& drawing, const QString& colorKey, int height)
{
    std::string places;
    for (const PaintCommand& command : drawing) {
        if (command.kind != PaintCommand::eLine || command.pen.color() != themeColor(colorKey))
            continue;
        if (command.line.x1() == command.line.x2() && near(std::abs(command.line.dy()), height))
            places += (places.empty() ? "" : " ") + std::to_string(std::lround(command.line.x1()));
    }
    return places;
}

std::vector<std::string> outlines(const Drawing& drawing)
{
    std::vector<std::string> all;
    for (const PaintCommand& command : drawing) {
        if (command.kind != PaintCommand::ePath)
            continue;
        std::string corners;
        for (int i = 0; i < command.path.elementCount(); ++i) {
            const QPainterPath::Element element = command.path.elementAt(i);
            const bool closing = i > 0 && i + 1 == command.path.elementCount() &&
                                 QPointF(element) == QPointF(command.path.elementAt(0));
            if (!closing)
                corners += (corners.empty() ? "" : " ") + std::to_string(std::lround(element.x)) + "," +
                           std::to_string(std::lround(element.y));
        }
        all.push_back(corners);
    }
    return all;
}

std::string print(const Drawing& drawing)
{
    std::string lines;
    for (const PaintCommand& command : drawing)
        lines += command.toLine() + "\n";
    return lines;
}

} // namespace queue_view_rules
