#include "support/PaintRecorder.h"

#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QTextItem>
#include <QTransform>

#include <cmath>
#include <sstream>

namespace testing_support {

namespace {

constexpr double kMostDeviation = 1.0; // pixels that a text may stand beside its place
constexpr double kRunGap = 0.1;        // pixels between the runs of one text, at most
constexpr int kFallbackDpi = 96;

std::string number(double value)
{
    std::ostringstream out;
    out << (value == 0 ? 0.0 : value);
    return out.str();
}

std::string point(const QPointF& at)
{
    return number(at.x()) + "," + number(at.y());
}

std::string box(const QRectF& rect)
{
    return point(rect.topLeft()) + " " + number(rect.width()) + "x" + number(rect.height());
}

std::string name(const QColor& color)
{
    return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb).toStdString();
}

/// What a pen has beyond a solid line of one pixel.
std::string penExtras(const QPen& pen)
{
    std::string text;
    if (pen.widthF() > 1)
        text += " width " + number(pen.widthF());
    if (pen.style() == Qt::SolidLine || pen.style() == Qt::NoPen)
        return text;
    text += " dash";
    for (const qreal length : pen.dashPattern())
        text += " " + number(length);
    return text;
}

std::string penText(const QPen& pen)
{
    return pen.style() == Qt::NoPen ? " pen none" : " pen " + name(pen.color()) + penExtras(pen);
}

std::string brushText(const QBrush& brush)
{
    return brush.style() == Qt::NoBrush ? " brush none" : " brush " + name(brush.color());
}

std::string pathText(const QPainterPath& path)
{
    std::string text;
    for (int i = 0; i < path.elementCount(); ++i)
        text += " " + point(path.elementAt(i));
    return text;
}

int screenDpi()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? static_cast<int>(std::lround(screen->logicalDotsPerInchY())) : kFallbackDpi;
}

} // namespace

// PaintCommand
// ----------------------------------------------------------------------------------------------------------

QColor PaintCommand::color() const
{
    const bool filled = kind == eFill || (kind == ePath && pen.style() == Qt::NoPen);
    return filled ? brush.color() : pen.color();
}

bool PaintCommand::standsIn(const QRectF& where, int flags) const
{
    if (kind != eText)
        return false;
    PaintRecorder trial(1, 1);
    QPainter painter(&trial);
    painter.setFont(font);
    painter.drawText(where, flags, text);
    painter.end();
    const PaintCommand expected = trial.text(text);
    return expected.kind == eText && std::fabs(expected.baseline.x() - baseline.x()) <= kMostDeviation &&
           std::fabs(expected.baseline.y() - baseline.y()) <= kMostDeviation;
}

std::string PaintCommand::toLine() const
{
    switch (kind) {
    case eFill:
        return "fill " + box(rect) + " " + name(brush.color());
    case eRect:
        return "rect " + box(rect) + penText(pen) + brushText(brush);
    case eText:
        return "text \"" + text.toStdString() + "\" " + point(baseline) + " " + name(pen.color());
    case eLine:
        return "line " + point(line.p1()) + " " + point(line.p2()) + " " + name(pen.color()) + penExtras(pen);
    case ePath:
        return "path" + pathText(path) + penText(pen) + brushText(brush);
    case ePixmap:
        return "pixmap " + box(rect);
    case ePoint:
        return "point " + point(line.p1()) + " " + name(pen.color());
    case eSetClip:
        return rect.isNull() ? "clip none" : "clip " + box(rect);
    }
    return {};
}

std::ostream& operator<<(std::ostream& out, const PaintCommand& command)
{
    return out << command.toLine();
}

// The engine that the painter talks to
// ----------------------------------------------------------------------------------

class PaintRecorder::Engine : public QPaintEngine
{
public:
    explicit Engine(PaintRecorder& owner) : QPaintEngine(AllFeatures), m_owner(owner) {}

    bool begin(QPaintDevice*) override
    {
        m_state = PaintCommand();
        m_transform.reset();
        m_clip = QPainterPath();
        m_clipSet = false;
        return true;
    }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& now) override
    {
        const DirtyFlags dirty = now.state();
        if (dirty & DirtyPen)
            m_state.pen = now.pen();
        if (dirty & DirtyBrush)
            m_state.brush = now.brush();
        if (dirty & DirtyFont)
            m_state.font = now.font();
        if (dirty & DirtyOpacity)
            m_state.opacity = now.opacity();
        if (dirty & DirtyTransform)
            m_transform = now.transform();
        if (dirty & (DirtyClipRegion | DirtyClipPath)) {
            QPainterPath path;
            if (dirty & DirtyClipRegion)
                path.addRegion(now.clipRegion());
            else
                path = now.clipPath();
            takeClip(m_transform.map(path), now.clipOperation());
        } else if (dirty & DirtyClipEnabled) {
            noteClip(now.isClipEnabled() && m_clipSet);
        }
    }

    void drawRects(const QRectF* rects, int count) override
    {
        for (int i = 0; i < count; ++i) {
            const bool filled = m_state.pen.style() == Qt::NoPen;
            PaintCommand& command = add(filled ? PaintCommand::eFill : PaintCommand::eRect);
            command.rect = m_transform.mapRect(rects[i]);
        }
    }

    void drawLines(const QLineF* lines, int count) override
    {
        for (int i = 0; i < count; ++i)
            add(PaintCommand::eLine).line = m_transform.map(lines[i]);
    }

    void drawPath(const QPainterPath& path) override
    {
        PaintCommand& command = add(PaintCommand::ePath);
        command.path = m_transform.map(path);
        command.rect = command.path.boundingRect();
    }

    void drawEllipse(const QRectF& rect) override
    {
        QPainterPath path;
        path.addEllipse(rect);
        drawPath(path);
    }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override
    {
        QPainterPath path;
        for (int i = 0; i < count; ++i) {
            if (i == 0)
                path.moveTo(points[i]);
            else
                path.lineTo(points[i]);
        }
        if (mode != PolylineMode)
            path.closeSubpath();
        drawPath(path);
        if (mode == PolylineMode)
            m_owner.m_commands.back().brush = QBrush();
    }

    void drawPoints(const QPointF* points, int count) override
    {
        for (int i = 0; i < count; ++i) {
            const QPointF at = m_transform.map(points[i]);
            add(PaintCommand::ePoint).line = QLineF(at, at);
        }
    }

    void drawPixmap(const QRectF& target, const QPixmap&, const QRectF&) override
    {
        add(PaintCommand::ePixmap).rect = m_transform.mapRect(target);
    }

    void drawImage(const QRectF& target, const QImage&, const QRectF&, Qt::ImageConversionFlags) override
    {
        add(PaintCommand::ePixmap).rect = m_transform.mapRect(target);
    }

    void drawTiledPixmap(const QRectF& target, const QPixmap&, const QPointF&) override
    {
        add(PaintCommand::ePixmap).rect = m_transform.mapRect(target);
    }

    void drawTextItem(const QPointF& at, const QTextItem& item) override
    {
        const QPointF baseline = m_transform.map(at);
        if (continuesText(baseline, item)) {
            m_owner.m_commands.back().text += item.text();
            m_owner.m_commands.back().width += item.width();
            return;
        }
        PaintCommand& command = add(PaintCommand::eText);
        command.text = item.text();
        command.baseline = baseline;
        command.width = item.width();
        command.font = item.font();
    }

private:
    PaintCommand& add(PaintCommand::Kind kind)
    {
        PaintCommand command = m_state;
        command.kind = kind;
        m_owner.m_commands.push_back(command);
        return m_owner.m_commands.back();
    }

    /// A text with letters of several faces comes in runs: one that begins where the command before ended is
    /// the same text.
    bool continuesText(const QPointF& baseline, const QTextItem& item) const
    {
        if (m_owner.m_commands.empty())
            return false;
        const PaintCommand& last = m_owner.m_commands.back();
        return last.kind == PaintCommand::eText && last.pen == m_state.pen &&
               last.font.toString() == item.font().toString() &&
               std::fabs(last.baseline.y() - baseline.y()) < kRunGap &&
               std::fabs(last.baseline.x() + last.width - baseline.x()) < kRunGap;
    }

    void takeClip(const QPainterPath& path, Qt::ClipOperation operation)
    {
        if (operation == Qt::IntersectClip && m_clipSet)
            m_clip = m_clip.intersected(path);
        else
            m_clip = path;
        m_clipSet = operation != Qt::NoClip;
        noteClip(m_clipSet);
    }

    void noteClip(bool on)
    {
        m_state.clip = on ? m_clip.boundingRect() : QRectF();
        add(PaintCommand::eSetClip).rect = m_state.clip;
    }

    PaintRecorder& m_owner;
    PaintCommand m_state; ///< pen, brush, font, clip and opacity in force
    QTransform m_transform;
    QPainterPath m_clip;
    bool m_clipSet = false;
};

// PaintRecorder
// ---------------------------------------------------------------------------------------------------------

PaintRecorder::PaintRecorder(int width, int height)
    : m_width(width), m_height(height), m_engine(std::make_unique<Engine>(*this))
{
}

PaintRecorder::~PaintRecorder() = default;

QPaintEngine* PaintRecorder::paintEngine() const
{
    return m_engine.get();
}

int PaintRecorder::metric(PaintDeviceMetric metric) const
{
    constexpr double kMillimetresPerInch = 25.4;
    const int dpi = screenDpi();
    switch (metric) {
    case PdmWidth:
        return m_width;
    case PdmHeight:
        return m_height;
    case PdmWidthMM:
        return static_cast<int>(m_width * kMillimetresPerInch / dpi);
    case PdmHeightMM:
        return static_cast<int>(m_height * kMillimetresPerInch / dpi);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return dpi;
    case PdmDepth:
        return 32;
    case PdmNumColors:
        return 1 << 24;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    }
    return 0;
}

// PaintRecording
// --------------------------------------------------------------------------------------------------------

std::vector<PaintCommand> PaintRecording::all(PaintCommand::Kind kind) const
{
    std::vector<PaintCommand> found;
    for (const PaintCommand& command : m_commands) {
        if (command.kind == kind)
            found.push_back(command);
    }
    return found;
}

QStringList PaintRecording::texts() const
{
    QStringList found;
    for (const PaintCommand& command : all(PaintCommand::eText))
        found.append(command.text);
    return found;
}

std::vector<PaintCommand> PaintRecording::textCommands(const QString& text) const
{
    std::vector<PaintCommand> found;
    for (const PaintCommand& command : all(PaintCommand::eText)) {
        if (command.text == text)
            found.push_back(command);
    }
    return found;
}

PaintCommand PaintRecording::text(const QString& text) const
{
    const std::vector<PaintCommand> found = textCommands(text);
    return found.empty() ? PaintCommand() : found.front();
}

QStringList PaintRecording::textsIn(const QRectF& box) const
{
    QStringList found;
    for (const PaintCommand& command : all(PaintCommand::eText)) {
        const double middle = QFontMetricsF(command.font).xHeight() / 2;
        if (box.contains(command.baseline + QPointF(command.width / 2, -middle)))
            found.append(command.text);
    }
    return found;
}

std::vector<PaintCommand> PaintRecording::fillsOf(const QRectF& rect) const
{
    std::vector<PaintCommand> found;
    for (const PaintCommand& command : fills()) {
        if (command.rect == rect)
            found.push_back(command);
    }
    return found;
}

std::vector<PaintCommand> PaintRecording::fillsOf(const QColor& color) const
{
    std::vector<PaintCommand> found;
    for (const PaintCommand& command : fills()) {
        if (command.brush.color().rgba() == color.rgba())
            found.push_back(command);
    }
    return found;
}

std::vector<std::string> PaintRecording::lines() const
{
    std::vector<std::string> found;
    for (const PaintCommand& command : m_commands)
        found.push_back(command.toLine());
    return found;
}

} // namespace testing_support
