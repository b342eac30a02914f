#pragma once

#include "host/window/day_moments.h"
#include "host/window/day_phases.h"
#include "platform/resources/CUiResourceChangeHandler.h"

#include <QSlider>
#include <QTimer>

#include <cstdint>
#include <vector>

namespace host {

/// The day as a line to seek on, in seconds from its begin; hours are marked below. A click goes where it
/// falls, dragging shows the time and seeks at the release, keys and wheel seek when they rest. GUI thread.
class DaySlider : public QSlider, public Zeb::CUiResourceChangeHandler
{
    Q_OBJECT

public:
    explicit DaySlider(QWidget* parent = nullptr);

    /// Another day, without phases and gaps.
    void setDay(const DayRange& range);

    /// Phases of the day, which are marked and named above the line, auctions and breaks as bands.
    void setPhases(std::vector<PhaseMark> phases);

    /// Stretches of which data are missing. Those up to the moment are shown on the line: what is to come is
    /// not known yet.
    void setGaps(std::vector<DayStretch> gaps);

    /// The gaps that are shown, cut at the moment.
    std::vector<DayStretch> gapsShown() const;

    /// What is told of a place (x in pixels): a gap, a phase with its time, else the time.
    QString tipAt(int x) const;

    /// Follows the replay (ms since 1970-01-01 UTC), unless a person has the slider in hand.
    void follow(std::int64_t moment);

    /// A person moves the slider and has not sought yet.
    bool inHand() const { return isSliderDown() || m_rest.isActive(); }

    /// The moment where the slider stands.
    std::int64_t moment() const;

    /// x of a moment and back, pixels; moments outside the day stand at the ends.
    int xOf(std::int64_t moment) const;
    std::int64_t momentAt(int x) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void themeChanged() override;

Q_SIGNALS:
    /// The slider in hand shows this moment.
    void looked(qint64 moment);

    void sought(qint64 moment);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void drawBands(QPainter& painter) const;
    void drawMarks(QPainter& painter) const;
    void drawPhases(QPainter& painter) const;
    void drawGaps(QPainter& painter) const;
    void drawHandle(QPainter& painter) const;
    void drawLine(QPainter& painter) const;

    DayRange m_range;
    std::vector<PhaseMark> m_phases;
    std::vector<DayStretch> m_gaps;
    QTimer m_rest;
};

} // namespace host
