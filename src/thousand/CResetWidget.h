#pragma once

#include "platform/toolkit/CBaseWidget.h"
#include "platform/toolkit/CImage.h"

namespace Kel {

/// A small arrow at the edge of the ladder, pale until the mouse is over it: a press on it asks, by event 82,
/// to go back to the latest price. As large as its picture. GUI thread.
class CResetWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    CResetWidget(const QString& imageKey, QWidget* parent);

    void themeChanged() override;

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    Zeb::CImage m_image;
    bool m_hover = false;
};

} // namespace Kel
