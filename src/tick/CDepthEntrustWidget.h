#pragma once

#include "platform/models/CModelDepthEntrust.h"
#include "platform/toolkit/CBaseWidget.h"
#include "records/DepthExport.h"
#include "records/SDepthFilterParam.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QTimer>

namespace Zeb {
class CSpliter;
}

namespace Kel {

class CDepthCancelWidget;
class CDepthEntrustTrackDialog;
class CDepthFilterSettingDialog;
class CDepthOrderWidget;
class CEntrustTitleWidget;

/// The orders of an instrument's day and, at their right, the cancels, each list under a title with its
/// number of rows and the filter button. A double click on a row shows the track of its order.
///
/// Events: takes 5 of the titles' buttons; raises 3226 (first the mark, second its colour) when a filter was
/// set, and 3225 (first the order's number, second the tag) for each order that `setTrackOrderParam` finds.
///
/// The host calls `setStock` (after `clear`, to change the instrument) and forwards the callbacks, which may
/// come on any thread while the panel lives; everything else belongs to the GUI thread. Nothing is thrown; a
/// callback of another instrument is dropped.
class DEPTH_EXPORT CDepthEntrustWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    explicit CDepthEntrustWidget(QWidget* parent = nullptr);
    ~CDepthEntrustWidget() override;

    /// Chooses the instrument. Rows stay until `clear`.
    void setStock(const QString& code);
    void getParams(CFormulaParam& param);

    // Feed (any thread); `key` is market and code joined, "SH600519"
    void entrustCallback(const QString& key, int seq, int status,
                         const boost::shared_ptr<MetaCacheDataWrapper>& batch);
    void transactionCallback(const QString& key, int seq, int status,
                             const boost::shared_ptr<MetaCacheDataWrapper>& batch);

    /// Drops all rows; the filter stays, and the titles keep their counts until the next refresh. With
    /// `repaint` the pictures are drawn at once.
    void clear(bool repaint);

    /// Sets the filter of both lists.
    void setFilterParam(SDepthFilterParam& param);

    /// Lets the user edit the filter, and applies what was confirmed.
    void doFilter();

    /// Tracks the limit orders of this time of day (ms since midnight), price (yuan, compared exactly), lots
    /// and side; `tag` comes back in event 3225.
    void setTrackOrderParam(int timeMs, double price, int hands, int side, int tag);

    /// Kept, and used by nothing.
    void setCurrentTradeDateFunc(boost::function<int()> currentTradeDate)
    {
        m_tradeDateFunc = std::move(currentTradeDate);
    }

    /// The lists and their data, for copies and exports. Never null.
    CDepthOrderWidget* orderList() const { return m_orderList; }
    CDepthCancelWidget* cancelList() const { return m_cancelList; }
    const boost::shared_ptr<CModelDepthEntrust>& model() const { return m_model; }

    bool handleEvent(int id, int first, int second, QString text, void* data) override;

protected Q_SLOTS:
    void slotTimeout();
    void slotRefreshTimer(int ms);

protected:
    void resizeEvent(QResizeEvent* event) override;

    void createUi();

    boost::shared_ptr<CModelDepthEntrust> m_model;
    QTimer* m_timer;
    boost::function<int()> m_tradeDateFunc;
    Zeb::CSpliter* m_splitter = nullptr;
    CDepthOrderWidget* m_orderList = nullptr;
    CDepthCancelWidget* m_cancelList = nullptr;
    CEntrustTitleWidget* m_orderTitle = nullptr;
    CEntrustTitleWidget* m_cancelTitle = nullptr;
    CDepthFilterSettingDialog* m_filterDialog = nullptr;
    CDepthEntrustTrackDialog* m_trackDialog = nullptr;

private:
    bool isOwn(const QString& key) const;
};

} // namespace Kel
