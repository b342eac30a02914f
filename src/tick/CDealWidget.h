#pragma once

#include "records/TransactionData.h"
#include "tick/CTrackWidget.h"

#include <list>

namespace Kel {

class CDealTable;

/// What the order has dealt: the sums, in all and by who was active, and every deal.
class CDealWidget : public CTrackWidget
{
    Q_OBJECT

public:
    CDealWidget(const TrackSubject* subject, QWidget* parent);

    CDealTable* table() const { return m_table; }

    /// Takes the deals among the records; set the order before. The table takes its own.
    void setRecords(const std::list<boost::shared_ptr<quoter::TransactionData>>& records);
    void clear();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void drawContent(QPainter& painter) override;

    CDealTable* m_table;
    std::list<boost::shared_ptr<quoter::TransactionData>> m_dealList;
    qint64 m_total = 0; ///< this and the next two: shares
    qint64 m_active = 0;
    qint64 m_passive = 0;
};

} // namespace Kel
