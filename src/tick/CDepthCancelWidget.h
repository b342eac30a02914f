#pragma once

#include "records/DepthExport.h"
#include "tick/CEntrustListWidget.h"

namespace Kel {

/// The list of cancels, each with price, side and amount of its order. Without the order a row has the
/// cancel's own price and a "C" in place of the amount. GUI thread.
class DEPTH_EXPORT CDepthCancelWidget : public CEntrustListWidget
{
    Q_OBJECT

public:
    CDepthCancelWidget(const boost::shared_ptr<CModelDepthEntrust>& model, CEntrustTitleWidget* title,
                       CDepthEntrustTrackDialog* trackDialog, QWidget* parent);

    QString rowText(int row) const override;

protected:
    int modelCount() const override { return m_model->cancelCount.load(); }
    RowIdentity identityOf(int row) const override;
    std::atomic<bool>& dirtyFlag() const override { return m_model->cancelDirty; }
    bool timeOf(int row, int& time) const override;
    int traceback(int row) const override { return m_model->tracebackCancelSeq(row); }
    void drawRow(QPainter* painter, int row, int x, int y) override;
    boost::shared_ptr<DepthOrderData> orderOf(int row) const override;
};

} // namespace Kel
