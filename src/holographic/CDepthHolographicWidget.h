#pragma once

#include "holographic/ChartGeometry.h"
#include "holographic/DealCanvas.h"
#include "platform/models/CModelDepthHolographic.h"
#include "platform/toolkit/CBaseWidget.h"
#include "platform/utils/AtomicSharedPtr.h"
#include "records/CInstrumentDetail.h"
#include "records/DepthExport.h"
#include "records/MetaCacheDataWrapper.h"

#include <QColor>
#include <QMap>
#include <QPair>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QTimer>

#include <boost/shared_ptr.hpp>

#include <vector>

namespace Zeb {
class CMenu;
class CSimpleInputDialog;
} // namespace Zeb

namespace Kel {

class CIndexScrollBar;

/// Every deal of an instrument's day as a mark: across, the chart runs by traded volume, so that time is
/// squeezed where nothing trades; down, it is a ladder with a row for each price tick. Below a deal's price
/// hangs the bar of its buy order, above it stands that of its sell order, as high as the whole order is
/// large. The active side is filled. The pieces of one order are joined by lines.
///
/// Two modes, turned over by a double click. Column mode, the first: the cursor is a whole quote interval,
/// drawn as a column, dragged with the left button, moved by the keys Left and Right. Deal mode: the cursor
/// is one deal, a drag selects a range, a pause of the mouse shows the deal with its orders. Control with Up
/// and Down, the wheel and the menu change the height of the rows.
///
/// Events to the host: 3224 (0, deal, time tag) when the cursor was moved by hand, 3227 (first time tag, last
/// time tag) when a range was selected. The host answers, or tells of another panel's choice, with
/// `highlightTransactionSeq`, `highlightTransactionTime` and `setViewTimeRange`, which send nothing.
///
/// Threads: the three callbacks on any thread while the chart lives, everything else on the GUI thread.
/// Nothing is thrown.
class DEPTH_EXPORT CDepthHolographicWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    explicit CDepthHolographicWidget(QWidget* parent = nullptr);
    ~CDepthHolographicWidget() override;

    /// Drops what is shown and takes another instrument, by the key that the stock manager knows. With an
    /// unknown one the chart stays empty.
    void setStock(const QString& code);

    /// Drops what is shown, but for the cursor.
    void clear();

    /// Shows the deals with time tags (seconds since 1970-01-01 UTC) from `begin` to `end`, both inside; -1
    /// and -1 the last 300 deals. An upside-down range shows none.
    void setViewTimeRange(const int& begin, const int& end);

    /// Makes the rows higher or lower: `delta` pixels on the half height, which stays within 1 and 16.
    void setFullHeightChagne(int delta);

    /// Selects a deal that another panel has selected and brings it into view. In column mode its interval is
    /// selected. -1, or a deal that does not exist, takes the selection away.
    void highlightTransactionSeq(int seq);

    /// The same for the first deal of a time tag (seconds), or the last deal before it.
    void highlightTransactionTime(int time);

    /// Scrolls the ladder so that the deal's row is in the middle, if it is not in view. Nothing for a deal
    /// that does not exist.
    void middleCurrDeal(int seq);

    /// The deal that the cursor stands on, -1 for none; in column mode it stands for its whole quote
    /// interval.
    int cursorDeal() const { return m_cursorSeq; }
    bool isColumnMode() const { return m_columnMode; }

    /// The data, for exports and other views. Never null.
    const boost::shared_ptr<CModelDepthHolographic>& model() const { return m_model; }

    void themeChanged() override;
    bool handleEvent(int id, int first, int second, QString text, void* payload) override;

public Q_SLOTS:
    /// Snapshots (any thread). `key` is market and code joined; batches of another instrument are dropped.
    void slotQuoterCallBack(int seq, int status,
                            const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records, QString key,
                            long long time);

    /// Deals and orders (any thread). The key is not looked at: the batch names its instrument.
    void onTransactionCallback(const QString& key, int seq, int status,
                               const boost::shared_ptr<MetaCacheDataWrapper>& batch);
    void onEntrustCallback(const QString& key, int seq, int status,
                           const boost::shared_ptr<MetaCacheDataWrapper>& batch);

    /// Another period for the refresh timer, and for a hover that is running, milliseconds; below 1 it is 1.
    void slotRefreshTimer(int ms);

    /// Brings view and picture up to the data, if there is news. The refresh timer calls it.
    void slotTimeOut();

    /// Asks for the lots at which a bar has full height, 4 to 2000.
    void slotSetFullHeightHandle();

    /// A pixel more, or less, for the half rows.
    void slotAddRowHeight();
    void slotReduceRowHeight();

    /// Makes the rows as low as the whole ladder needs to be seen, or as high as usual where it fits.
    void slotAdjustHeight();

    /// Shows the detail box of the deal under the mouse, if there is one. The hover timer calls it.
    void slotShowDealDetail();

protected:
    // Interaction (holographic_interaction.cpp)
    // -------------------------------------------------------------------------------

    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    void initMenu();
    void draging(int x);
    void moveCursorByKey(bool left);

    // Both give false if a receiver of their event has destroyed the chart.
    bool sendCursor();
    bool endSelection();
    void sendSelectedRange();
    int hoverDelay() const;

    // State and scales (CDepthHolographicWidget.cpp)
    // --------------------------------------------------------------------------

    void createUi();
    void initDraw();
    void resizeLayout();
    void dropShown();

    /// An empty pixmap as large, and as fine, as the widget.
    void newCanvas();

    /// Lays the rows out for the height of the chart; with `fit` so that the whole ladder can be seen.
    void calcSizeInfo(bool fit);
    void updateScroll();

    /// The scales in force.
    ChartGeometry geometry() const;
    int calcDrawHeight(const int& hands) const;
    int priceToY(const double& price) const;

    /// The deal that is drawn at `x`: the first whose right end lies beyond it, -1 for none.
    int getSeqByX(const int& x) const;

    // Picture (holographic_painting.cpp, holographic_deals.cpp, holographic_detail.cpp)
    // ---------------------------------------

    /// Draws the chart into its pixmap.
    void drawGraph();
    void drawGraph(QPainter& painter);
    void drawHighlightBg(QPainter& painter);
    void drawLinePrices(QPainter& painter);
    void drawDeal(QPainter& painter);
    void drawTimeList(QPainter& painter);

    /// What lies over the pixmap: cursor, range and detail box of deal mode.
    void drawOverlays(QPainter& painter);
    void drawCursor(QPainter& painter);
    void drawDealDetail(QPainter& painter);

    /// The box for texts of a width and a height of its lines, pixels.
    QRect detailRect(int textWidth, int lineHeight) const;

    /// The deals in view with their places, read once for a picture.
    void readDeals();
    void dropDeals();
    void rememberPlaces();

    void drawBuy(DealCanvas& canvas, QPoint point, const HolographicDeal& deal);
    void drawSell(DealCanvas& canvas, QPoint point, const HolographicDeal& deal);
    void drawBuyOrderVolume(DealCanvas& canvas, const QRect& rect, const HolographicDeal& deal);
    void drawSellOrderVolume(DealCanvas& canvas, const QRect& rect, const HolographicDeal& deal);
    void drawMarketPricelMark(DealCanvas& canvas, const QRect& rect, const HolographicDeal& deal, bool buy);
    void drawUrgentOrderMark(DealCanvas& canvas, const QRect& rect, const HolographicDeal& deal, bool buy);

    boost::shared_ptr<CModelDepthHolographic> m_model;
    Zeb::CMenu* m_menu = nullptr;
    Zeb::CSimpleInputDialog* m_fullHeightDialog = nullptr; ///< made on first use
    CIndexScrollBar* m_scrollBar = nullptr;
    QTimer* m_detailTimer = nullptr;
    QTimer* m_refreshTimer = nullptr;
    int m_baseHalfRow = 12; ///< usual half height of a row, pixels
    int m_pageRows = 0;     ///< whole rows that fit the chart
    int m_totalRows = 0;    ///< rows from the highest price in view to the lowest
    int m_rowHeight = 25;
    int m_timeCellWidth = 0;
    int m_timeAxisHeight = 0;
    int m_priceAxisWidth = 50;
    int m_chartWidth = 0;
    int m_chartHeight = 0;
    double m_priceTick = 0.01;
    int m_topPadRows = 0;
    int m_scrollRow = 0;
    QMap<int, int> m_dealRightX;            ///< deal to its right end, of the last picture
    QMap<int, QPair<int, int>> m_timeSpanX; ///< time tag to the ends of its deals
    QPoint m_selectAnchor;
    bool m_selecting = false;
    QRect m_selectRect;
    bool m_dragging = false;
    int m_dragLastX = -1;
    QRect m_widgetRect;
    QPixmap m_canvas;
    DealInks m_inks;
    QColor m_clrBackground;
    QColor m_clrAxis;
    QColor m_clrAxisText;
    QColor m_clrHighlight;
    int m_halfRow = 12;
    QPoint m_hoverPos;
    int m_detailSeq = -1;
    int m_cursorSeq = -1;
    bool m_columnMode = true;
    utils::AtomicSharedPtr<nelservice::CInstrumentDetail> m_instrument; ///< read by the feed's threads

    /// How deals are drawn: shape by shape, by columns (where a logical pixel is one of the device), or as
    /// their number suggests.
    enum EDrawing
    {
        eDrawAsFits,
        eDrawPlain,
        eDrawByColumns,
    };
    EDrawing m_drawing = eDrawAsFits;

private:
    /// Where a deal stands on the chart.
    struct Place
    {
        int left;
        int right;
    };

    /// One side of a deal.
    struct Side;

    static Side sideOf(const HolographicDeal& deal, bool buy);
    const HolographicDeal* dealInView(int seq) const;
    bool isDrawn(int seq, const HolographicDeal& before) const;
    const Place& placeOf(int seq) const;
    E_DEAL_KIND kindOf(int seq, bool buy) const;
    void drawSide(DealCanvas& canvas, const QPoint& point, const HolographicDeal& deal, bool buy);
    void drawFlatBreak(DealCanvas& canvas, const QRect& rect, const HolographicDeal& deal, const Side& side);
    void drawSlantedBreak(DealCanvas& canvas, const QRect& rect, const HolographicDeal& deal,
                          const Side& side);
    void drawOrderVolume(DealCanvas& canvas, QRect rect, const HolographicDeal& deal, bool buy);
    void drawMark(DealCanvas& canvas, const QRect& rect, bool buy, EDealInk ink);
    int runLeft(int left, int seq, bool buy) const;

    ChartGeometry m_geometry;             ///< of the picture that is being drawn
    std::vector<HolographicDeal> m_deals; ///< in view, while a picture is drawn
    std::vector<Place> m_places;          ///< of these
    int m_leastTextWidth = 1;             ///< of the narrowest digit in the bars
    ColumnDealCanvas::Memory m_columns;
    bool m_forwardingWheel = false; ///< an event that the scroll bar does not want comes back here
};

} // namespace Kel
