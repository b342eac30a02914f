#pragma once

#include "platform/toolkit/CEventDeliverer.h"
#include "records/DepthExport.h"

#include <QScrollBar>

namespace Kel {

/// Scroll bar that tells its owner, the parent widget, of every change of its value by event 15 (first number
/// `id`, second 0), synchronously: by hand, wheel, `setValue` or a clamp of the range. No event without a
/// change. GUI thread.
class DEPTH_EXPORT CIndexScrollBar : public QScrollBar, public Zeb::CEventDeliverer
{
    Q_OBJECT

public:
    CIndexScrollBar(int id, Qt::Orientation orientation, QWidget* parent);

    int id() const { return m_id; }

    /// Joins scroll bars to a widget. A scroll bar of this kind is a child of its owner and needs no joining,
    /// so this has no visible effect.
    static void attachWidget(QWidget* owner, QWidget* content, bool vertical, bool horizontal);

private:
    int m_id;
};

} // namespace Kel
