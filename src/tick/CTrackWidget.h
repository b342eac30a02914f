#pragma once

#include "platform/toolkit/CBaseWidget.h"
#include "records/DepthOrderData.h"
#include "tick/track_style.h"

#include <boost/shared_ptr.hpp>

class QPainter;

namespace Kel {

/// One part of the track dialog: shows the order that it was given, and its ground alone without an order or
/// an instrument. GUI thread.
class CTrackWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    /// `subject` is the dialog's and outlives this widget.
    CTrackWidget(const QString& objectName, const TrackSubject* subject, QWidget* parent);

    void setOrder(const boost::shared_ptr<DepthOrderData>& order) { m_order = order; }
    const boost::shared_ptr<DepthOrderData>& order() const { return m_order; }

    /// Draws the whole widget.
    void draw(QPainter& painter);

protected:
    void paintEvent(QPaintEvent* event) override;

    /// Draws what stands on the ground; there is an order and an instrument.
    virtual void drawContent(QPainter& painter) = 0;

    /// The caption at the left of the first line and lots at its right.
    void drawCaption(QPainter& painter, const QString& caption, const QString& lots);

    static constexpr int kSideMargin = 10; ///< pixels at the left and right
    static constexpr int kLineHeight = 25;

    const TrackSubject* m_subject;
    TrackStyle m_style;
    boost::shared_ptr<DepthOrderData> m_order;
};

} // namespace Kel
