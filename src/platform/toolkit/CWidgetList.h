#pragma once

#include "platform/toolkit/CEventWidgetT.h"
#include "records/DepthExport.h"

#include <QWidget>

class QBoxLayout;

namespace Zeb {

/// A row or a column of widgets, margin and spacing 0 at first. A hidden widget takes no room. GUI thread.
class DEPTH_EXPORT CWidgetList : public CEventWidgetT<QWidget>
{
    Q_OBJECT

public:
    explicit CWidgetList(Qt::Orientation orientation, QWidget* parent = nullptr);

    Qt::Orientation orientation() const;

    /// Room around all widgets, in pixels.
    void setMargin(int margin);
    void setMargins(int left, int top, int right, int bottom);

    /// Room between two neighbours, in pixels.
    void setSpacing(int spacing);

    /// Appends `widget` and makes it a child. With `stretch` 0 it keeps its own length; widgets with a
    /// stretch share what is left in that proportion.
    void addWidget(QWidget* widget, int stretch = 0);

    /// Appends a fixed room of `length` pixels.
    void addSpace(int length);

    /// Appends room that takes what is left.
    void addStretch(int stretch = 1);

    /// Number of widgets, hidden ones included.
    int count() const;

    /// Places the widgets at once after some were shown, hidden or resized; otherwise that happens when the
    /// event loop runs next.
    void updateWidgetLength();

private:
    QBoxLayout* m_layout;
};

} // namespace Zeb
