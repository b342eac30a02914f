#pragma once

#include "records/TransactionData.h"
#include "tick/CTrackWidget.h"

namespace Kel {

/// The cancel of the order, if there is one: its first.
class CCancelWidget : public CTrackWidget
{
    Q_OBJECT

public:
    CCancelWidget(const TrackSubject* subject, QWidget* parent);

    /// Null for none.
    void setCancelRecord(const boost::shared_ptr<quoter::TransactionData>& record)
    {
        m_cancelRecord = record;
    }
    void clear();

protected:
    void drawContent(QPainter& painter) override;

    boost::shared_ptr<quoter::TransactionData> m_cancelRecord;
};

} // namespace Kel
