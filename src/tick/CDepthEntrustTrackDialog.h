#pragma once

#include "platform/toolkit/CCommonDialog.h"
#include "records/DepthExport.h"
#include "records/DepthOrderData.h"
#include "records/TransactionData.h"
#include "tick/track_style.h"

#include <boost/shared_ptr.hpp>

#include <list>

namespace Kel {

class CCancelWidget;
class CDealWidget;
class CGraphWidget;
class COrderWidget;

/// The life of one order, as it was when the dialog was filled: how much of it was filled, is queueing or was
/// cancelled, the order itself, every deal that it took part in, and its cancel. Fill it by `setEntrustData`
/// and then `setTransactionData`. GUI thread.
class DEPTH_EXPORT CDepthEntrustTrackDialog : public Zeb::CCommonDialog
{
    Q_OBJECT

public:
    explicit CDepthEntrustTrackDialog(QWidget* parent);

    /// Takes the instrument by the code that the stock manager knows it by; with an unknown code all widgets
    /// stay empty.
    void setStock(const QString& key);

    void setEntrustData(const boost::shared_ptr<DepthOrderData>& order);

    /// Deals and cancels of the order; null records are skipped.
    void setTransactionData(std::list<boost::shared_ptr<quoter::TransactionData>>& records);

    /// Empties all but the table of deals, which keeps its rows until the next records.
    void clear();

protected:
    TrackSubject m_subject; ///< instrument and shares per lot
    CGraphWidget* m_graph;
    COrderWidget* m_orderInfo;
    CDealWidget* m_deals;
    CCancelWidget* m_cancelInfo;
};

} // namespace Kel
