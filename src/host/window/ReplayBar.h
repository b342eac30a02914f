#pragma once

#include "host/window/day_moments.h"
#include "host/window/day_phases.h"
#include "platform/resources/CUiResourceChangeHandler.h"

#include <QFrame>

#include <cstdint>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QStackedWidget;
class QToolButton;

namespace host {

class DaySlider;

/// Play and pause, speed, time of day, a line to seek on, a field for a typed time; while a day loads, how
/// far it is and a button to give it up. GUI thread.
class ReplayBar : public QFrame, public Zeb::CUiResourceChangeHandler
{
    Q_OBJECT

public:
    explicit ReplayBar(QWidget* parent = nullptr);

    /// The speeds that can be chosen, the slowest first; 0 stands for as fast as possible and is the last.
    static const std::vector<double>& speeds();

    /// The speed that can be chosen next to another one: the next faster for a step of 1, the next slower for
    /// -1; the last one at an end.
    static double nextSpeed(double speed, int step);

    /// Another day, without phases and gaps.
    void setDay(const DayRange& range);

    /// What the line shows besides; see `DaySlider`.
    void setPhases(std::vector<PhaseMark> phases);
    void setGaps(std::vector<DayStretch> gaps);

    /// Tells that the replay does not keep up, and with what speed it goes; 0 when it keeps up.
    void setLag(double effectiveSpeed);

    /// Shows the moment of the replay, ms since 1970-01-01 UTC.
    void setMoment(std::int64_t moment);

    void setPlaying(bool playing);

    /// Puts a speed in force without a signal, below 0 as fast as possible. One that is not among those that
    /// can be chosen is an entry of its own as long as it is in force.
    void setSpeed(double speed);
    double speed() const;

    /// A day is loading; total 0 for unknown.
    void setLoading(qint64 done, qint64 total);
    void setLoaded();

    /// Puts the cursor into the field of the typed time.
    void focusJump();

    void themeChanged() override;

Q_SIGNALS:
    void playClicked();
    void speedChosen(double speed);

    /// ms since 1970-01-01 UTC.
    void seekAsked(qint64 moment);

    /// What was typed is no time of day.
    void timeRefused(const QString& text);

    void cancelAsked();

private:
    void makeControls();
    void makeLayout();
    void say();
    void fitTexts();
    void jump();
    void showTime(std::int64_t moment);
    void addSpeed(int place, double speed);
    void styleLag();

    DayRange m_range;
    bool m_playing = false;
    QToolButton* m_play;
    QComboBox* m_speed;
    QLabel* m_time;
    QLabel* m_lag;
    DaySlider* m_slider;
    QLineEdit* m_jump;
    QStackedWidget* m_stack;
    QProgressBar* m_progress;
    QToolButton* m_cancel;
};

} // namespace host
