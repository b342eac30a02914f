#pragma once

#include "tick/CTrackWidget.h"

namespace Kel {

/// The order itself.
class COrderWidget : public CTrackWidget
{
    Q_OBJECT

public:
    COrderWidget(const TrackSubject* subject, QWidget* parent);

protected:
    void drawContent(QPainter& painter) override;
};

} // namespace Kel
