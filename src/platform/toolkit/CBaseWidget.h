#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/CEventDeliverer.h"
#include "platform/toolkit/CEventWidgetT.h"
#include "records/DepthExport.h"

#include <QPointer>
#include <QWidget>

namespace Zeb {

/// Base of all panels: takes and sends events, hears of theme changes, tracks the mouse without a pressed
/// button, and may hold one content widget that it keeps at its own size. GUI thread.
class DEPTH_EXPORT CBaseWidget : public CEventWidgetT<QWidget>,
                                 public CEventDeliverer,
                                 public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    explicit CBaseWidget(const QString& objectName, QWidget* parent = nullptr);

    /// Makes `content` a child that fills this widget but for the margins (pixels at the left and right, at
    /// the top and bottom); with `fill` false it keeps its own size and only its place is set. The content
    /// before is left where it is. Null takes the content away.
    void setContentWidget(QWidget* content, int horizontalMargin, int verticalMargin, bool fill);
    QWidget* contentWidget() const { return m_content; }

    /// Repaints; a panel that keeps what it looked up reads it again.
    void themeChanged() override { update(); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeContent();

    QPointer<QWidget> m_content;
    int m_horizontalMargin = 0;
    int m_verticalMargin = 0;
    bool m_fill = false;
};

} // namespace Zeb
