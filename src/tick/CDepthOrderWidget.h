#pragma once

#include "records/DepthExport.h"
#include "tick/CEntrustListWidget.h"

namespace Kel {

/// The list of new orders. An order that was asked for by `setTrackOrderParam` is drawn in the first mark
/// colour, which also holds for an order of the same number in a later list. GUI thread.
class DEPTH_EXPORT CDepthOrderWidget : public CEntrustListWidget
{
    Q_OBJECT

public:
    CDepthOrderWidget(const boost::shared_ptr<CModelDepthEntrust>& model, CEntrustTitleWidget* title,
                      CDepthEntrustTrackDialog* trackDialog, QWidget* parent);

    /// Looks for the limit orders of this time of day (ms since midnight), price, lots and side in the
    /// filtered list. Each raises event 3225 (first its number, second `tag`); the last one is tracked. A
    /// receiver may end the panel: nobody else is told then.
    void setTrackOrderParam(int timeMs, double price, int hands, int side, int tag);

    QString rowText(int row) const override;

protected:
    int modelCount() const override { return m_model->orderCount.load(); }
    RowIdentity identityOf(int row) const override;
    std::atomic<bool>& dirtyFlag() const override { return m_model->orderDirty; }
    bool timeOf(int row, int& time) const override;
    int traceback(int row) const override { return m_model->tracebackOrderSeq(row); }
    void drawRow(QPainter* painter, int row, int x, int y) override;
    boost::shared_ptr<DepthOrderData> orderOf(int row) const override;

    int m_trackOrderNo = 0;
    int m_trackColor = 0; ///< nothing sets it

private:
    const QColor& handsColor(const DepthOrderData& order) const;
};

} // namespace Kel
