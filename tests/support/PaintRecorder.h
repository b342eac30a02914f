#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QLineF>
#include <QPaintDevice>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QStringList>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace testing_support {

/// One thing that a painter did, with the state that it was done in. Coordinates are logical pixels of the
/// device: the painter's transformation is applied.
struct PaintCommand
{
    enum Kind
    {
        eFill,    ///< a rectangle without outline: `fillRect`, or `drawRect` with no pen
        eRect,    ///< a rectangle with an outline
        eText,    ///< a run of text in one font
        eLine,    ///< one line
        ePath,    ///< a path, polygon or ellipse; filled, outlined or both as pen and brush say
        ePixmap,  ///< a pixmap or image
        ePoint,   ///< one point
        eSetClip, ///< the clip changed; `rect` is its bounding rectangle, empty for none
    };

    Kind kind = eFill;
    QRectF rect;       ///< fill, rectangle, pixmap (target), clip; bounding rectangle of a path
    QString text;      ///< text
    QPointF baseline;  ///< text: where its base line starts
    double width = 0;  ///< text: its advance
    QLineF line;       ///< line; a point in both ends
    QPainterPath path; ///< path
    QPen pen;
    QBrush brush;
    QFont font;
    QRectF clip; ///< bounding rectangle of the clip in force, null without one
    double opacity = 1;

    /// Colour of what is seen first: the pen's for texts, lines and outlines, the brush's for fills.
    QColor color() const;

    /// Text: whether it stands where `QPainter::drawText(box, flags, text)` puts it, by the metrics of its
    /// font; a pixel more or less is let pass. False for other commands.
    bool standsIn(const QRectF& box, int flags) const;

    /// The command as a line:
    ///     fill 0,0 400x300 #101820
    ///     rect 5,5 20x10 pen #ffffff brush none
    ///     text "10.02" 45,84 #ff0000            (start of the base line)
    ///     line 200,0 200,300 #303030
    ///     line 0,40 400,40 #803030 dash 1 3
    ///     path 12,5 20,5 20,25 12,25 12,5 pen #ffffff width 2 brush none
    ///     pixmap 0,0 16x16
    ///     point 3,4 #ffffff
    ///     clip 0,2 394x296                      ("clip none")
    std::string toLine() const;
};

/// Prints the line of the command, for messages of failed assertions.
std::ostream& operator<<(std::ostream& out, const PaintCommand& command);

/// What was painted, in order, as values: a rule of a picture becomes an assertion that no font and no
/// antialiasing can break.
class PaintRecording
{
public:
    const std::vector<PaintCommand>& commands() const { return m_commands; }
    void clear() { m_commands.clear(); }

    /// Commands of one kind, in order.
    std::vector<PaintCommand> all(PaintCommand::Kind kind) const;
    std::vector<PaintCommand> fills() const { return all(PaintCommand::eFill); }
    std::vector<PaintCommand> lineCommands() const { return all(PaintCommand::eLine); }
    std::vector<PaintCommand> paths() const { return all(PaintCommand::ePath); }

    /// All texts, in order.
    QStringList texts() const;

    /// Commands that wrote exactly this text, in order.
    std::vector<PaintCommand> textCommands(const QString& text) const;

    /// The first command that wrote this text, or an empty fill if there is none; `standsIn` of that is
    /// false.
    PaintCommand text(const QString& text) const;

    /// How often the text was written.
    int count(const QString& text) const { return static_cast<int>(textCommands(text).size()); }

    /// Texts whose middle lies in the rectangle, in order.
    QStringList textsIn(const QRectF& box) const;

    /// Fills of exactly this rectangle.
    std::vector<PaintCommand> fillsOf(const QRectF& rect) const;

    /// Fills of exactly this colour.
    std::vector<PaintCommand> fillsOf(const QColor& color) const;

    /// Every command as its line, in order.
    std::vector<std::string> lines() const;

protected:
    std::vector<PaintCommand> m_commands;
};

/// A paint device that keeps what is painted on it.
///
///     PaintRecorder recorder(400, 300);
///     QPainter painter(&recorder);
///     widget.drawGraph(painter);
///     painter.end();
///     EXPECT_EQ(recorder.texts(), (QStringList{"卖一", "10.02"}));
///     EXPECT_TRUE(recorder.text("10.02").standsIn(QRect(45, 10, 65, 20), Qt::AlignRight |
///     Qt::AlignVCenter));
class PaintRecorder : public QPaintDevice, public PaintRecording
{
public:
    /// Logical pixels.
    PaintRecorder(int width, int height);
    ~PaintRecorder() override;

    QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;
    friend class Engine;

    int m_width;
    int m_height;
    std::unique_ptr<Engine> m_engine;
};

} // namespace testing_support
