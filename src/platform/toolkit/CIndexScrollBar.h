#pragma once

#include "platform/toolkit/CEventDeliverer.h"

#include <QScrollBar>

namespace Kel {

/// Scroll bar that tells its owner, the parent widget, of every change of its value by event 15 (first number
/// `id`, second 0), synchronously: by hand, wheel, `setValue` or a clamp of the range. No event without a
/// change. GUI thread.
class CIndexScrollBar : public QScrollBar, public Zeb::CEventDeliverer
{
    Q_OBJECT

public:
    CIndexScrollBar(int id, Qt::Orientation orientation, QWidget* parent);

    int id() const { return m_id; }

    /// Where a client's own scroll bars attach themselves to a widget. This one needs nothing of it: it is
    /// kept so that panels read alike, and has no visible effect.
    static void attachWidget(QWidget* owner, QWidget* content, bool vertical, bool horizontal);

private:
    int m_id;
};

} // namespace Kel
