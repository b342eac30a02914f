#include "host/window/DaySlider.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace host {

namespace {

constexpr const char* kTextColor = "clr_window_text_soft";
constexpr const char* kLineColor = "clr_button_border";
constexpr const char* kPlayedColor = "clr_focus";
constexpr const char* kFont = "fnt_graph_axis_text";

constexpr int kRestMs = 250;   // keys and wheel have come to rest
constexpr int kHandle = 6;     // radius of the handle, pixels
constexpr int kHandleDown = 7; // the same in hand
constexpr int kFocusRing = 3;  // around the handle
constexpr int kMargin = 14;    // from the ends of the line to those of the widget
constexpr int kLineY = 13;     // of the line
constexpr int kLineWidth = 4;
constexpr int kMarkTop = 19;
constexpr int kMarkLength = 3;
constexpr int kHeight = 40;
constexpr int kMinimumWidth = 160;
constexpr int kMarkGap = 8; // between two texts
constexpr int kPageSeconds = 300;
constexpr int kStepSeconds = 10;
constexpr std::int64_t kMarkMinutes = 30;

QColor themeColor(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QString::fromLatin1(key));
}

} // namespace

DaySlider::DaySlider(QWidget* parent) : QSlider(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("回放时间"));
    setPageStep(kPageSeconds);
    setSingleStep(kStepSeconds);
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRestMs);
    connect(this, &QSlider::actionTriggered, this, [this] {
        m_rest.start();
        Q_EMIT looked(m_range.begin + std::int64_t(sliderPosition()) * utils::kMSecPerSecond);
    });
    connect(&m_rest, &QTimer::timeout, this, [this] { Q_EMIT sought(moment()); });
}

void DaySlider::setDay(const DayRange& range)
{
    m_rest.stop();
    m_range = range;
    setRange(0, static_cast<int>((range.end - range.begin) / utils::kMSecPerSecond));
    update();
}

void DaySlider::follow(std::int64_t moment)
{
    if (!inHand())
        setValue(static_cast<int>((moment - m_range.begin) / utils::kMSecPerSecond));
}

std::int64_t DaySlider::moment() const
{
    return m_range.begin + std::int64_t(value()) * utils::kMSecPerSecond;
}

int DaySlider::xOf(std::int64_t moment) const
{
    const std::int64_t length = m_range.end - m_range.begin;
    const std::int64_t room = std::max(0, width() - 2 * kMargin);
    if (length <= 0)
        return kMargin;
    const std::int64_t done = std::clamp<std::int64_t>(moment - m_range.begin, 0, length);
    return kMargin + static_cast<int>(done * room / length);
}

std::int64_t DaySlider::momentAt(int x) const
{
    const int room = width() - 2 * kMargin;
    if (room <= 0)
        return m_range.begin;
    const std::int64_t place = std::clamp(x - kMargin, 0, room);
    return m_range.begin + place * (m_range.end - m_range.begin) / room;
}

QSize DaySlider::sizeHint() const
{
    return QSize(kMinimumWidth * 2, kHeight);
}

QSize DaySlider::minimumSizeHint() const
{
    return QSize(kMinimumWidth, kHeight);
}

void DaySlider::themeChanged()
{
    update();
}

void DaySlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled())
        return;
    m_rest.stop();
    setSliderDown(true);
    mouseMoveEvent(event);
}

void DaySlider::mouseMoveEvent(QMouseEvent* event)
{
    if (!isSliderDown())
        return;
    setValue(static_cast<int>((momentAt(event->pos().x()) - m_range.begin) / utils::kMSecPerSecond));
    Q_EMIT looked(moment());
}

void DaySlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isSliderDown())
        return;
    setSliderDown(false);
    Q_EMIT sought(moment());
}

void DaySlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawMarks(painter);
    drawLine(painter);
}

/// Every half hour a tick, and its time where there is room.
void DaySlider::drawMarks(QPainter& painter) const
{
    painter.setFont(*utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QString::fromLatin1(kFont)));
    const QFontMetrics metrics = painter.fontMetrics();
    const std::int64_t step = kMarkMinutes * 60 * utils::kMSecPerSecond;
    const std::int64_t midnight = utils::exchangeDayStart(m_range.begin);
    const std::int64_t first = midnight + (m_range.begin - midnight + step - 1) / step * step;
    int free = 0;
    for (std::int64_t mark = first; mark <= m_range.end && m_range.end > m_range.begin; mark += step) {
        const int x = xOf(mark);
        painter.setPen(themeColor(kLineColor));
        painter.drawLine(x, kMarkTop, x, kMarkTop + kMarkLength);
        const QString text = utils::clockText(mark, false).left(5);
        const int textWidth = metrics.horizontalAdvance(text);
        const int left = std::min(x - textWidth / 2, width() - textWidth);
        if (left < free)
            continue;
        painter.setPen(themeColor(kTextColor));
        painter.drawText(left, kMarkTop + kMarkLength + metrics.ascent(), text);
        free = left + textWidth + kMarkGap;
    }
}

void DaySlider::drawLine(QPainter& painter) const
{
    const int x = xOf(moment());
    const QRectF line(kMargin, kLineY - kLineWidth / 2.0, width() - 2 * kMargin, kLineWidth);
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor(kLineColor));
    painter.drawRoundedRect(line, kLineWidth / 2.0, kLineWidth / 2.0);
    if (!isEnabled())
        return;
    QRectF played = line;
    played.setRight(x);
    painter.setBrush(themeColor(kPlayedColor));
    painter.drawRoundedRect(played, kLineWidth / 2.0, kLineWidth / 2.0);
    const int radius = isSliderDown() ? kHandleDown : kHandle;
    painter.drawEllipse(QPoint(x, kLineY), radius, radius);
    if (hasFocus()) {
        painter.setPen(themeColor(kPlayedColor));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QPoint(x, kLineY), radius + kFocusRing, radius + kFocusRing);
    }
}

} // namespace host
