#include "host/window/ReplayBar.h"

#include "host/window/DaySlider.h"
#include "host/window/bar_icons.h"
#include "host/window/language/TerminalLanguage.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace host {

namespace {

constexpr const char* kFont = "fnt_default_normal";
constexpr int kMargin = 10;       // pixels
constexpr int kSpacing = 10;      // pixels
constexpr int kJumpPadding = 20;  // pixels
constexpr int kPlaySize = 30;     // pixels
constexpr int kIconSize = 16;     // pixels
constexpr int kPerMille = 1000;   // of the progress bar
constexpr int kTimePadding = 12;  // pixels
constexpr double kFastest = 1000; // speed that the lag has room for
constexpr double kWholeFrom = 10; // speeds from here on are shown without decimals
constexpr const char* kLagColor = "clr_state_stale";
constexpr const char* kLagFont = "fnt_graph_axis_text";

QString lagText(double speed)
{
    return uiText("滞后，实际 %1 倍").arg(speed, 0, 'f', speed < kWholeFrom ? 1 : 0);
}

QString speedText(double speed)
{
    return speed > 0 ? QString::number(speed) + QStringLiteral("×") : uiText("最快");
}

} // namespace

ReplayBar::ReplayBar(QWidget* parent)
    : QFrame(parent),
      m_play(new QToolButton(this)),
      m_speed(new QComboBox(this)),
      m_time(new QLabel(this)),
      m_lag(new QLabel(this)),
      m_slider(new DaySlider(this)),
      m_jump(new QLineEdit(this)),
      m_stack(new QStackedWidget(this)),
      m_progress(new QProgressBar(this)),
      m_cancel(new QToolButton(this))
{
    setObjectName(QStringLiteral("ReplayBar"));
    setAttribute(Qt::WA_StyledBackground);
    makeControls();
    makeLayout();
    setPlaying(false);
    showTime(0);

    connect(m_play, &QToolButton::clicked, this, &ReplayBar::playClicked);
    connect(m_speed, QOverload<int>::of(&QComboBox::activated), this,
            [this] { Q_EMIT speedChosen(speed()); });
    connect(m_slider, &DaySlider::looked, this, &ReplayBar::showTime);
    connect(m_slider, &DaySlider::sought, this, &ReplayBar::seekAsked);
    connect(m_jump, &QLineEdit::returnPressed, this, &ReplayBar::jump);
    connect(m_cancel, &QToolButton::clicked, this, &ReplayBar::cancelAsked);
}

const std::vector<double>& ReplayBar::speeds()
{
    static const std::vector<double> list = {0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 60, 100, 200, 500, 1000, 0};
    return list;
}

double ReplayBar::nextSpeed(double speed, int step)
{
    const auto& list = speeds();
    const auto fastest = list.end() - 1;
    if (!(speed > 0))
        return step > 0 ? *fastest : *(fastest - 1);
    if (step > 0)
        return *std::upper_bound(list.begin(), fastest, speed);
    const auto place = std::lower_bound(list.begin(), fastest, speed);
    return place == list.begin() ? *place : *(place - 1);
}

void ReplayBar::makeControls()
{
    m_play->setFixedSize(kPlaySize, kPlaySize);
    m_play->setIconSize(QSize(kIconSize, kIconSize));
    m_speed->setMaxVisibleItems(static_cast<int>(speeds().size()) + 1);
    for (const double speed : speeds())
        addSpeed(m_speed->count(), speed);
    setSpeed(1);

    m_time->setObjectName(QStringLiteral("ReplayTime"));
    m_time->setAlignment(Qt::AlignCenter);
    m_lag->setObjectName(QStringLiteral("ReplayLag"));
    m_lag->setAlignment(Qt::AlignCenter);
    m_lag->hide();
    styleLag();

    m_jump->setObjectName(QStringLiteral("ReplayJump"));

    m_progress->setRange(0, kPerMille);
    m_progress->setTextVisible(true);
    m_cancel->setObjectName(QStringLiteral("CancelLoading"));
    keepSaid(this, [this] { say(); });
}

/// Keys are not named: a person may have given the commands others.
void ReplayBar::say()
{
    m_speed->setAccessibleName(uiText("回放速度"));
    m_speed->setToolTip(uiText("回放速度"));
    for (int i = 0; i < m_speed->count(); ++i)
        m_speed->setItemText(i, speedText(m_speed->itemData(i).toDouble()));
    m_jump->setPlaceholderText(uiText("跳到 09:30:00"));
    m_jump->setAccessibleName(uiText("跳到时间"));
    m_jump->setToolTip(uiText("输入时间后回车"));
    m_progress->setFormat(uiText("载入中 %p%"));
    m_progress->setAccessibleName(uiText("载入进度"));
    m_cancel->setText(uiText("取消"));
    fitTexts();
    setPlaying(m_playing);
}

void ReplayBar::fitTexts()
{
    const QFont font = *utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QString::fromLatin1(kFont));
    m_jump->setFixedWidth(QFontMetrics(font).horizontalAdvance(m_jump->placeholderText()) + kJumpPadding);
    m_slider->updateGeometry();
}

void ReplayBar::makeLayout()
{
    auto* loading = new QWidget(this);
    auto* loadingRow = new QHBoxLayout(loading);
    loadingRow->setContentsMargins(0, 0, 0, 0);
    loadingRow->addWidget(m_progress, 1);
    loadingRow->addWidget(m_cancel);
    m_stack->addWidget(m_slider);
    m_stack->addWidget(loading);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, 4, kMargin, 4);
    row->setSpacing(kSpacing);
    row->addWidget(m_play);
    row->addWidget(m_speed);
    auto* times = new QVBoxLayout;
    times->setSpacing(0);
    times->addStretch();
    times->addWidget(m_time);
    times->addWidget(m_lag);
    times->addStretch();
    row->addLayout(times);
    row->addWidget(m_stack, 1);
    row->addWidget(m_jump);
}

void ReplayBar::setDay(const DayRange& range)
{
    m_range = range;
    m_slider->setDay(range);
}

void ReplayBar::setPhases(std::vector<PhaseMark> phases)
{
    m_slider->setPhases(std::move(phases));
}

void ReplayBar::setGaps(std::vector<DayStretch> gaps)
{
    m_slider->setGaps(std::move(gaps));
}

void ReplayBar::setLag(double effectiveSpeed)
{
    m_lag->setVisible(effectiveSpeed > 0);
    if (effectiveSpeed > 0)
        m_lag->setText(lagText(effectiveSpeed));
}

void ReplayBar::styleLag()
{
    auto& theme = utils::CSingletonT<Zeb::CUiResource>::instance();
    m_lag->setFont(*theme.getFont(QString::fromLatin1(kLagFont)));
    Zeb::giveSheet(m_lag,
                   QStringLiteral("color: %1;").arg(theme.getColor(QString::fromLatin1(kLagColor))->name()));
}

void ReplayBar::setMoment(std::int64_t moment)
{
    if (m_slider->inHand())
        return;
    m_slider->follow(moment);
    showTime(moment);
}

void ReplayBar::showTime(std::int64_t moment)
{
    const bool day = m_range.end > m_range.begin;
    m_time->setText(day ? utils::clockText(moment, false) : QStringLiteral("--:--:--"));
    // Digits are equally wide, so the label needs its width once; the theme may bring another font.
    // That of the lag is kept too, so that the line beside it does not move when the lag comes and goes.
    m_time->setMinimumWidth(
        std::max(m_time->fontMetrics().horizontalAdvance(QStringLiteral("00:00:00")) + kTimePadding,
                 m_lag->fontMetrics().horizontalAdvance(lagText(kFastest))));
}

void ReplayBar::setPlaying(bool playing)
{
    m_playing = playing;
    m_play->setIcon(playing ? pauseIcon() : playIcon());
    const QString what = playing ? uiText("暂停") : uiText("播放");
    m_play->setAccessibleName(what);
    m_play->setToolTip(what);
}

void ReplayBar::addSpeed(int place, double speed)
{
    m_speed->insertItem(place, speedText(speed), speed);
}

void ReplayBar::setSpeed(double speed)
{
    const auto& list = speeds();
    const double wanted = speed > 0 ? speed : list.back();
    const auto known = std::find(list.begin(), list.end(), wanted);
    const auto place = known != list.end() ? known : std::upper_bound(list.begin(), list.end() - 1, wanted);
    for (int i = m_speed->count() - 1; i >= 0; --i) { // the entry of its own that was in force
        const double entry = m_speed->itemData(i).toDouble();
        if (entry != wanted && std::find(list.begin(), list.end(), entry) == list.end())
            m_speed->removeItem(i);
    }
    const int index = static_cast<int>(place - list.begin());
    if (m_speed->itemData(index).toDouble() != wanted)
        addSpeed(index, wanted);
    m_speed->setCurrentIndex(index);
}

double ReplayBar::speed() const
{
    return m_speed->currentData().toDouble();
}

void ReplayBar::setLoading(qint64 done, qint64 total)
{
    m_progress->setRange(0, total > 0 ? kPerMille : 0);
    m_progress->setValue(total > 0 ? static_cast<int>(double(done) / double(total) * kPerMille) : 0);
    m_stack->setCurrentIndex(1);
}

void ReplayBar::setLoaded()
{
    m_stack->setCurrentIndex(0);
}

void ReplayBar::focusJump()
{
    m_jump->setFocus(Qt::ShortcutFocusReason);
    m_jump->selectAll();
}

void ReplayBar::jump()
{
    std::int64_t timeOfDay = 0;
    const QString text = m_jump->text().trimmed();
    if (!utils::parseTimeOfDay(text, timeOfDay)) {
        Q_EMIT timeRefused(text);
        return;
    }
    m_jump->clear();
    if (m_range.end > m_range.begin)
        Q_EMIT seekAsked(momentIn(m_range, timeOfDay));
}

void ReplayBar::themeChanged()
{
    setPlaying(m_playing);
    fitTexts();
    styleLag();
}

} // namespace host
