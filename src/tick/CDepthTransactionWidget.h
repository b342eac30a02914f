#pragma once

#include "platform/models/CModelDepthTransaction.h"
#include "records/DepthExport.h"
#include "tick/CTickListWidget.h"

#include <boost/function.hpp>

#include <QPen>
#include <QTimer>

#include <utility>

namespace Kel {

class CDepthFilterSettingDialog;

/// Every deal of an instrument's day that passes the filter, in time order. Each row: the time, or the number
/// of the deal within its second; price; arrow of the trend; lots. Behind the lots lies the hologram strip,
/// which brackets runs of deals of one order, sell orders at the left and buy orders at the right, with the
/// order's lots beside them and a small triangle where the order has deals outside the run.
///
/// A click or the keys select a deal, which raises event 3224 (first number 1, second the row, text the
/// deal's time tag); a pause of the mouse over a row, or the space key on the selected one, shows the deal
/// with the orders behind it.
///
/// The host calls `setStock` (after `clear`, to change the instrument) and forwards the callbacks, which may
/// come on any thread while the panel lives; everything else belongs to the GUI thread. Nothing is thrown.
class DEPTH_EXPORT CDepthTransactionWidget : public CTickListWidget
{
    Q_OBJECT

public:
    explicit CDepthTransactionWidget(QWidget* parent = nullptr, bool showHoloGraph = true);
    ~CDepthTransactionWidget() override;

    /// Chooses the instrument. Rows stay until `clear`.
    void setStock(const QString& code);
    void getParams(CFormulaParam& param);

    // Feed (any thread)
    void quoterCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& batch);
    void transactionCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& batch);
    void entrustCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& batch);

    /// Drops all rows and what is selected or highlighted. Without `repaint` the picture stays until the
    /// next one.
    void clear(bool repaint);

    /// Lets the user edit the filter, and applies what was confirmed.
    void doFilter();

    void setShowHoloGraph(bool show);

    /// 8 switches the strip on, 10 off; others do nothing.
    void actionHandler(int action);

    /// Selects a row and brings it to the middle of the view. Out of range, or selected already: nothing.
    void highlightTransaction(int index);

    /// Highlights the rows of a second, or those of the nearest earlier second with a deal, and centres
    /// them. Null takes the highlight away. With `repaint` the picture is drawn at once.
    void highlightTransaction(const TransData* second, bool repaint);

    /// Kept, and used by nothing.
    void setCurrentTradeDateFunc(boost::function<int()> currentTradeDate)
    {
        m_tradeDateFunc = std::move(currentTradeDate);
    }

    /// The data, for exports and other views. Never null.
    const boost::shared_ptr<CModelDepthTransaction>& model() const { return m_model; }

    QString rowText(int row) const override;

protected Q_SLOTS:
    void slotTimeout();
    void slotRefreshTimer(int ms);

protected:
    bool event(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    int modelCount() const override { return m_model->count.load(); }
    RowIdentity identityOf(int row) const override;
    void initDraw() override;
    int otherColumns() const override;
    int priceWidth() const override { return m_priceWidth; }
    void rowSelected(int row) override;
    void dropTip() override { m_tipSide = -1; }
    void drawOverlay(QPainter& painter) override;

    // Picture (transaction_painting.cpp)
    // ---------------------------------------------------------------------------------------

    void drawGraph(QPainter* painter) override;

    /// A run of deals of one order: bracket, the order's lots and triangles. `item` is the run's last row;
    /// `x`, `w` (pixels in a group) and `y` are the strip's.
    void drawContinousAction(QPainter* painter, const boost::shared_ptr<DepthTransData>& item, bool buy,
                             int first, int last, int x, int y, int w, QPen& pen);

    const QColor* getPriceColor(double a, double b) const;
    const QColor* getVolumeColor() const;

    /// Offset of the strip within a group.
    int stripOffset() const;

    // Tip (transaction_tip.cpp)
    // ----------------------------------------------------------------------------------------------

    void drawTip(QPainter& painter, const int& index);

    /// The tip of a row: its place for a mouse position, given the sizes of its texts.
    QRect tipRect(int textWidth, int lineHeight) const;

    boost::shared_ptr<CModelDepthTransaction> m_model;
    QTimer* m_timer = nullptr;
    QPoint m_mousePos;
    int m_highlightKey = -1;
    std::pair<int, int> m_highlightRange{-1, -1};
    bool m_showHoloGraph;
    int m_tipSide = -1;
    int m_holoWidth = 92;
    boost::function<int()> m_tradeDateFunc;
    QPixmap m_arrowUp;
    QPixmap m_arrowDown;
    const QColor* m_clrIndex = nullptr;
    const QColor* m_clrSplitter = nullptr; ///< looked up with the others, used by nothing
    const QColor* m_clrAmount = nullptr;
    const QColor* m_clrFall = nullptr;
    const QColor* m_clrRise = nullptr;
    const QColor* m_clrDefault = nullptr;
    const QFont* m_font = nullptr;
    const QFont* m_fontBig = nullptr;
    SDepthFilterParam m_filterParam;
    CDepthFilterSettingDialog* m_filterDialog = nullptr;

private:
    /// What rows and runs of the view are drawn with; made once a picture.
    struct Pens
    {
        QPen minute;
        QPen buyRun;
        QPen sellRun;
        QColor active; ///< ground of the side of the strip that was active
    };

    void switchStrip(bool show);
    void drawDeal(QPainter* painter, const Pens& pens, const DepthTransData& row, int index, int number);
    void closeRuns(QPainter* painter, Pens& pens, const boost::shared_ptr<DepthTransData>& previous,
                   const DepthTransData& row, int index);
    void closeRunsBelow(QPainter* painter, Pens& pens, int last);
    void drawRun(QPainter* painter, Pens& pens, const boost::shared_ptr<DepthTransData>& item, bool buy,
                 int last);
};

} // namespace Kel
