#pragma once

#include "host/window/day_moments.h"
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

    void setDay(const DayRange& range);

    /// Shows the moment of the replay, ms since 1970-01-01 UTC.
    void setMoment(std::int64_t moment);

    void setPlaying(bool playing);

    /// Puts a speed in the list in force without a signal; the nearest one for another.
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
    void jump();
    void showTime(std::int64_t moment);

    DayRange m_range;
    bool m_playing = false;
    QToolButton* m_play;
    QComboBox* m_speed;
    QLabel* m_time;
    DaySlider* m_slider;
    QLineEdit* m_jump;
    QStackedWidget* m_stack;
    QProgressBar* m_progress;
    QToolButton* m_cancel;
};

} // namespace host
