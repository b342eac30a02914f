#pragma once

#include "platform/toolkit/CBaseWidget.h"

#include <QColor>

namespace Kel {

/// A line across the track dialog. GUI thread.
class CSpliterWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    explicit CSpliterWidget(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

    QColor m_ground; ///< this and the line's colour are read when the widget is made
    QColor m_line;
};

} // namespace Kel
