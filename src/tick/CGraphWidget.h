#pragma once

#include "tick/CTrackWidget.h"

#include <vector>

namespace Kel {

/// What a slice of the pie stands for.
enum class ETrackShare
{
    eFilled,
    eQueueing,
    eCancelled,
};

/// A slice of the pie, in sixteenths of a degree.
struct TrackSlice
{
    int start = 0;
    int span = 0;
    ETrackShare share = ETrackShare::eQueueing;
};

/// The slices for an order of `volume` shares of which so many were filled and cancelled. An order with both
/// has no slice for what is queueing: the filled slice takes all that the cancelled one leaves. Spans lie
/// between nothing and the full circle whatever the numbers are.
std::vector<TrackSlice> trackSlices(qint64 volume, qint64 filled, qint64 cancelled);

/// Percent of the order that was filled, to the nearest; 0 for an order without volume.
int filledPercent(qint64 volume, qint64 filled);

/// A pie of how much of the order was filled, is queueing and was cancelled, and the same in numbers.
class CGraphWidget : public CTrackWidget
{
    Q_OBJECT

public:
    CGraphWidget(const TrackSubject* subject, QWidget* parent);

    /// Shares.
    void setSums(qint64 filled, qint64 cancelled);
    void clear();

protected:
    void drawContent(QPainter& painter) override;

    qint64 m_filled = 0;
    qint64 m_cancelled = 0;

private:
    QColor shareColor(ETrackShare share) const;
    void drawPie(QPainter& painter);
    void drawLine(QPainter& painter, int y, const QString& label, qint64 shares);
};

} // namespace Kel
