#pragma once

#include "host/window/day_moments.h"
#include "platform/resources/CUiResourceChangeHandler.h"

#include <QSlider>
#include <QTimer>

#include <cstdint>

namespace host {

/// The day as a line to seek on, in seconds from its begin; hours are marked below. A click goes where it
/// falls, dragging shows the time and seeks at the release, keys and wheel seek when they rest. GUI thread.
class DaySlider : public QSlider, public Zeb::CUiResourceChangeHandler
{
    Q_OBJECT

public:
    explicit DaySlider(QWidget* parent = nullptr);

    void setDay(const DayRange& range);

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
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void drawMarks(QPainter& painter) const;
    void drawLine(QPainter& painter) const;

    DayRange m_range;
    QTimer m_rest;
};

} // namespace host
