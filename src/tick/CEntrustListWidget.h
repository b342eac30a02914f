#pragma once

#include "platform/models/CModelDepthEntrust.h"
#include "records/DepthExport.h"
#include "records/SDepthFilterParam.h"
#include "tick/CTickListWidget.h"

#include <boost/shared_ptr.hpp>

namespace Kel {

class CDepthEntrustTrackDialog;
class CEntrustTitleWidget;

/// What the list of orders and the list of cancels have in common:
///
///     | time or number | price | lots | amount | symbol |
///
/// A double click on a row, or the return key, shows the track of its order. GUI thread.
class DEPTH_EXPORT CEntrustListWidget : public CTickListWidget
{
    Q_OBJECT

public:
    CEntrustListWidget(const QString& objectName, const boost::shared_ptr<CModelDepthEntrust>& model,
                       CEntrustTitleWidget* title, CDepthEntrustTrackDialog* trackDialog, QWidget* parent);

    /// Looks at the model when it is visible and the list has changed.
    void refresh();

    /// Takes over a filter that the model was given.
    void setFilterParam(const SDepthFilterParam& param);

    /// Forgets the rows; with `repaint` the picture is drawn at once.
    void clear(bool repaint);

protected:
    int otherColumns() const override;
    int priceWidth() const override { return m_priceWidth; }
    void initDraw() override;
    void drawGraph(QPainter* painter) override;
    void rowOpened(int row) override;

    /// The model's flag of this list.
    virtual std::atomic<bool>& dirtyFlag() const = 0;

    /// Time tag of a row; false if it is not there.
    virtual bool timeOf(int row, int& time) const = 0;

    /// The number, from 1, of a row within its second.
    virtual int traceback(int row) const = 0;

    /// Draws all of a row but its first column; `x` is the left edge of that column.
    virtual void drawRow(QPainter* painter, int row, int x, int y) = 0;

    /// The order of a row, null if there is none.
    virtual boost::shared_ptr<DepthOrderData> orderOf(int row) const = 0;

    /// Left edge of the price column of a row whose first column begins at `x`.
    int priceLeft(int x) const;

    void drawCell(QPainter* painter, int x, int y, int width, const QString& text, const QColor& color);

    boost::shared_ptr<CModelDepthEntrust> m_model;
    CEntrustTitleWidget* m_title;
    CDepthEntrustTrackDialog* m_trackDialog;
    int m_amountWidth = 90;
    int m_symbolWidth = 30;
    SDepthFilterParam m_filterParam;
    const QColor* m_clrIndex = nullptr;
    const QColor* m_clrAmount = nullptr;
    const QColor* m_clrSplitter = nullptr; ///< looked up with the others, used by nothing
    const QFont* m_font = nullptr;

private:
    void takeRows();
};

} // namespace Kel
