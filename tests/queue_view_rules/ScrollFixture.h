#pragma once

#include "QueueViewFixture.h"

#include <QWheelEvent>

namespace queue_view_rules {

/// A panel with content that has to be scrolled.
class ScrollTest : public QueueViewTest
{
protected:
    /// Horizontal style at 600 x `height`, ten levels a side with a row each: centre 200, content 420.
    void horizontal(int height = 200)
    {
        view.setStyle(3);
        view.m_maxShowCount = 1000;
        setPlainRows(10);
        layOut(600, height);
    }

    /// List style at 600 x 100, ten levels with a row each: content 220, range 120.
    void list()
    {
        view.setStyle(5);
        setPlainRows(10);
        layOut(600, 100);
    }

    void levelDataBack() { view.engine(&EngineProbe::m_bLevelDataBack) = true; }

    bool wheel(int delta)
    {
        QWheelEvent event(QPointF(5, 5), view.mapToGlobal(QPointF(5, 5).toPoint()), QPoint(),
                          QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        event.ignore();
        view.wheelEvent(&event);
        return event.isAccepted();
    }
};

} // namespace queue_view_rules
