#include "host/window/DaySlider.h"

#include "host/window/day_labels.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/window_style.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace host {

namespace {

constexpr const char* kTextColor = "clr_window_text_soft";
constexpr const char* kLineColor = "clr_button_border";
constexpr const char* kAuctionColor = "clr_replay_auction";
constexpr const char* kBreakColor = "clr_replay_break";
constexpr const char* kGapColor = "clr_state_gap";
constexpr const char* kPlayedColor = "clr_focus";
constexpr const char* kFont = "fnt_graph_axis_text";

constexpr int kRestMs = 250;   // keys and wheel have come to rest
constexpr int kHandle = 6;     // radius of the handle, pixels
constexpr int kHandleDown = 7; // the same in hand
constexpr int kFocusRing = 3;  // around the handle
constexpr int kMargin = 14;    // from the ends of the line to those of the widget
constexpr int kLineY = 13;     // of the line, below the labels of the phases
constexpr int kLineWidth = 4;
constexpr int kLabelOverlap = 4; // the line has room above it that the labels may use
constexpr int kBandHeight = 14;  // of auctions and breaks, around the line
constexpr int kLeastGap = 2;     // width of a gap in the data
constexpr int kReach = 4;        // of the pointer, from a mark
constexpr int kMarkTop = 19;
constexpr int kMarkLength = 3;
constexpr int kTextRoom = 18; // below the marks, for texts of the usual size
constexpr int kMinimumWidth = 160;
constexpr int kMarkGap = 8; // between two texts
constexpr int kPageSeconds = 300;
constexpr int kStepSeconds = 10;
constexpr std::int64_t kMarkMinutes = 30;

QColor themeColor(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QString::fromLatin1(key));
}

QFont themeFont()
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QString::fromLatin1(kFont));
}

/// How far the labels of the phases move the line down.
int labelRoom()
{
    return std::max(0, QFontMetrics(themeFont()).height() - kLabelOverlap);
}

int neededHeight()
{
    return labelRoom() + kMarkTop + kMarkLength + sizeOfText(kTextRoom);
}

} // namespace

DaySlider::DaySlider(QWidget* parent) : QSlider(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    keepSaid(this, [this] {
        setAccessibleName(uiText("回放时间"));
        update(); // the names of the phases
    });
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
    m_phases.clear();
    m_gaps.clear();
    setRange(0, static_cast<int>((range.end - range.begin) / utils::kMSecPerSecond));
    update();
}

void DaySlider::setPhases(std::vector<PhaseMark> phases)
{
    m_phases = std::move(phases);
    update();
}

void DaySlider::setGaps(std::vector<DayStretch> gaps)
{
    const auto same = [](const DayStretch& one, const DayStretch& other) {
        return one.begin == other.begin && one.end == other.end;
    };
    if (std::equal(gaps.begin(), gaps.end(), m_gaps.begin(), m_gaps.end(), same))
        return;
    m_gaps = std::move(gaps);
    update();
}

QString DaySlider::tipAt(int x) const
{
    if (m_range.end <= m_range.begin)
        return QString();
    for (const DayStretch& gap : gapsShown()) {
        if (x >= xOf(gap.begin) - kReach && x <= std::max(xOf(gap.end), xOf(gap.begin) + kLeastGap) + kReach)
            return uiText("数据缺口 %1 – %2")
                .arg(utils::clockText(gap.begin, false), utils::clockText(gap.end, false));
    }
    const PhaseMark* nearest = nullptr;
    for (const PhaseMark& mark : m_phases) {
        const int distance = std::abs(xOf(mark.moment) - x);
        if (distance <= kReach && (!nearest || distance < std::abs(xOf(nearest->moment) - x)))
            nearest = &mark;
    }
    if (nearest)
        return uiText(nearest->name) + QLatin1Char(' ') + utils::clockText(nearest->moment, false);
    return utils::clockText(momentAt(x), false);
}

std::vector<DayStretch> DaySlider::gapsShown() const
{
    std::vector<DayStretch> shown;
    for (const DayStretch& gap : m_gaps) {
        if (gap.begin <= moment())
            shown.push_back({gap.begin, std::min(gap.end, moment())});
    }
    return shown;
}

bool DaySlider::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QSlider::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), tipAt(help->pos().x()), this);
    return true;
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
    return QSize(kMinimumWidth * 2, neededHeight());
}

QSize DaySlider::minimumSizeHint() const
{
    return QSize(kMinimumWidth, neededHeight());
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
    drawBands(painter);
    drawMarks(painter);
    drawPhases(painter);
    drawLine(painter);
    drawGaps(painter);
    drawHandle(painter);
}

/// Auctions and breaks, behind the line.
void DaySlider::drawBands(QPainter& painter) const
{
    const int top = labelRoom() + kLineY - kBandHeight / 2;
    for (const PhaseBand& band : bandsOf(m_phases)) {
        const int left = xOf(band.stretch.begin);
        painter.fillRect(left, top, xOf(band.stretch.end) - left, kBandHeight,
                         themeColor(band.auction ? kAuctionColor : kBreakColor));
    }
}

/// The phases: a tick each through the line, and above it what begins there, where there is room.
void DaySlider::drawPhases(QPainter& painter) const
{
    painter.setFont(themeFont());
    const QFontMetrics metrics = painter.fontMetrics();
    const int line = labelRoom() + kLineY;
    painter.setPen(themeColor(kTextColor));
    for (const PhaseMark& mark : m_phases) {
        const int x = xOf(mark.moment);
        painter.drawLine(x, line - kBandHeight / 2, x, line + kBandHeight / 2);
    }
    const auto labels = placeLabels(
        m_phases, width(), kMarkGap, [this](std::int64_t moment) { return xOf(moment); },
        [&metrics](const QString& text) { return metrics.horizontalAdvance(text); });
    for (const PlacedLabel& label : labels)
        painter.drawText(label.left, metrics.ascent(), label.text);
}

/// What is missing of the day up to the moment.
void DaySlider::drawGaps(QPainter& painter) const
{
    const int top = labelRoom() + kLineY - kLineWidth;
    for (const DayStretch& gap : gapsShown()) {
        const int left = xOf(gap.begin);
        painter.fillRect(left, top, std::max(xOf(gap.end) - left, kLeastGap), 2 * kLineWidth,
                         themeColor(kGapColor));
    }
}

/// Every half hour a tick, and its time where there is room.
void DaySlider::drawMarks(QPainter& painter) const
{
    painter.setFont(themeFont());
    const QFontMetrics metrics = painter.fontMetrics();
    const int top = labelRoom() + kMarkTop;
    const std::int64_t step = kMarkMinutes * 60 * utils::kMSecPerSecond;
    const std::int64_t midnight = utils::exchangeDayStart(m_range.begin);
    const std::int64_t first = midnight + (m_range.begin - midnight + step - 1) / step * step;
    int free = 0;
    for (std::int64_t mark = first; mark <= m_range.end && m_range.end > m_range.begin; mark += step) {
        const int x = xOf(mark);
        painter.setPen(themeColor(kLineColor));
        painter.drawLine(x, top, x, top + kMarkLength);
        const QString text = utils::clockText(mark, false).left(5);
        const int textWidth = metrics.horizontalAdvance(text);
        const int left = std::min(x - textWidth / 2, width() - textWidth);
        if (left < free)
            continue;
        painter.setPen(themeColor(kTextColor));
        painter.drawText(left, top + kMarkLength + metrics.ascent(), text);
        free = left + textWidth + kMarkGap;
    }
}

void DaySlider::drawLine(QPainter& painter) const
{
    const int x = xOf(moment());
    const QRectF line(kMargin, labelRoom() + kLineY - kLineWidth / 2.0, width() - 2 * kMargin, kLineWidth);
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor(kLineColor));
    painter.drawRoundedRect(line, kLineWidth / 2.0, kLineWidth / 2.0);
    if (!isEnabled())
        return;
    QRectF played = line;
    played.setRight(x);
    painter.setBrush(themeColor(kPlayedColor));
    painter.drawRoundedRect(played, kLineWidth / 2.0, kLineWidth / 2.0);
}

void DaySlider::drawHandle(QPainter& painter) const
{
    if (!isEnabled())
        return;
    const QPoint place(xOf(moment()), labelRoom() + kLineY);
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor(kPlayedColor));
    const int radius = isSliderDown() ? kHandleDown : kHandle;
    painter.drawEllipse(place, radius, radius);
    if (hasFocus()) {
        painter.setPen(themeColor(kPlayedColor));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(place, radius + kFocusRing, radius + kFocusRing);
    }
}

} // namespace host
