#pragma once

#include "platform/toolkit/CBaseWidget.h"
#include "platform/toolkit/CIndexScrollBar.h"
#include "queue_engine/CDepthModelOrderQueue.h"
#include "queue_view/LotTexts.h"
#include "queue_view/OrderQueueTheme.h"
#include "queue_view/order_queue_geometry.h"
#include "records/CInstrumentDetail.h"
#include "records/DepthExport.h"
#include "records/EQueueMode.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/OrderQueueData.h"
#include "records/QuoterBase.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QColor>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QTimer>

#include <limits>
#include <vector>

class QPainter;

namespace Kel {

/// Shows, level by level, the single orders that stand in the exchange queue of one instrument: five or ten
/// levels a side in one of four styles, see `EQueueMode`.
///
/// The panel owns its engine, hands every quote callback on to it and asks it for news by a timer while it is
/// visible. A picture is drawn into a pixmap when there is news or a setter asks for it; painting the widget
/// only copies the pixmap. The host calls `setStock` (after `clear`, to change the instrument) and forwards
/// the callbacks.
///
/// Events: takes 5 (second number 1: the first is the mode) and 15 of its scroll bar; sends 1395 with the
/// engine's header text each time the timer finds news.
///
/// Threads: `quoterCallBack`, `onEntrustCallback` and `onTransactionCallback` may be called on any thread
/// while the panel lives; everything else belongs to the GUI thread. Nothing is thrown; a callback of another
/// instrument is dropped in silence.
class DEPTH_EXPORT CDepthOrderQueueWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    explicit CDepthOrderQueueWidget(QWidget* parent = nullptr);
    ~CDepthOrderQueueWidget() override;

    // Instrument and settings
    // -----------------------------------------------------------------------------------

    /// Chooses the instrument by the code that the stock manager knows it by. An unknown code changes
    /// nothing. The rows of the instrument before stay until `clear`. A request for the time around the close
    /// ends.
    void setStock(const QString& code);

    /// Empties the engine and forgets how far the user has scrolled from the centre. Repaints nothing.
    void clear();

    /// Draws the picture anew and shows it.
    void updateAll();

    /// 0 and 1: levels shown; 6 and 7: kept, without effect on the picture; any other: the style (2 to 5). In
    /// each case the scroll goes back to the centre (horizontal style) or keeps its proportion, and the
    /// picture is drawn anew.
    void updateQueueMode(EQueueMode mode);

    /// 0 five levels, 1 ten levels.
    int getQueueModeLevel() const { return m_queueModeLevel; }

    /// The style less 2: 0 first-level detail, 1 horizontal, 2 vertical, 3 list.
    int getQueueModeStyle() const { return m_queueModeStyle - eQueueDetailFirst; }

    /// All levels list their orders, in every style. Shows at the next picture; the cut of a long level
    /// changes at the next change of style.
    void setQueueFull(bool full) { m_queueModeFull = full ? eQueueFull : eQueueNotFull; }

    /// Whether a wheel event stays in the panel; initially it does.
    void setBlockExceededWheel(bool block) { m_blockExceededWheel = block; }

    /// Height of the whole content, pixels. The panel sets its own at the next update of its scroll bar.
    void setClientRealHeight(int height) { m_clientRealHeight = height; }

    /// Gives the trading date (20230201) whose previous close prices are coloured by. Set it before
    /// `setStock`; without it all prices are held against the largest double.
    void setCurrentTradeDateFunc(boost::function<int()> currentTradeDate);

    /// Writes the order with this number in the mark colour of the index; -1, the initial number, is no
    /// order.
    void setTrackOrder(int orderNo, int colorIndex);

    /// Writes all orders of this many lots in the mark colour of the index; 0, the initial number, is no
    /// order's.
    void setVolumeColor(int volume, int colorIndex);

    bool handleEvent(int id, int first, int second, QString text, void* pointer) override;

    /// The engine, for exports and other views: its rows are those of the next picture.
    const CDepthModelOrderQueue& model() const { return m_model; }

    // Feed (any thread)
    // -----------------------------------------------------------------------------------------

    /// Snapshots and published queues of this panel's instrument, as `CDepthModelOrderQueue` takes them.
    void quoterCallBack(int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch);

    /// Tick-by-tick orders; dropped if `key` is not that of the instrument ("SH600519").
    void onEntrustCallback(const QString& key, int seq, int status,
                           const boost::shared_ptr<MetaCacheDataWrapper>& batch);

    /// Tick-by-tick deals and cancellations, the same way.
    void onTransactionCallback(const QString& key, int seq, int status,
                               const boost::shared_ptr<MetaCacheDataWrapper>& batch);

    // After the close
    // -------------------------------------------------------------------------------------------

    /// Asks once for the whole queue from a minute before to a minute after `time` (seconds since
    /// 1970-01-01 UTC). Does nothing without an instrument or a trade date function, or when `key` is that of
    /// another instrument.
    void onPostTradeClosed(const QString& key, long long time);

    /// Re-reads the keys of the theme and of the concise style, and draws the picture anew.
    void themeChanged() override;

protected Q_SLOTS:
    void slotQueueCallBack(int seq, int status,
                           const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch, QString key,
                           long long time);
    void slotTimeout();
    void slotRefreshTimer(int ms);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    // Requests (post_close_request.cpp)
    // -------------------------------------------------------------------------

    /// Ends the request and hands the answer, sent for the instrument `key`, to the engine.
    void postTradeQuoterCallBack(int seq, int status,
                                 const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch, QString key,
                                 long long time);

    /// The same for snapshots: the engine hears of status -1.
    void postQuoterDepthCallBack(int seq, int status,
                                 const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch, QString key,
                                 long long time);

    // Scroll (order_queue_scroll.cpp)
    // ---------------------------------------------------------------------------

    void initScrollBar();

    /// Takes the widget's size: pixmap, bar, picture, scroll.
    void resetLayout();

    /// Fits bar and range to the rows of the last picture; with `keepProportion` the slider keeps its share
    /// of the content.
    void updateScroll(bool keepProportion);

    /// Horizontal style: brings the line between sells and buys to the middle, less what the user has
    /// scrolled.
    void setScrollCenter();

    // Picture (order_queue_painting.cpp, order_queue_cells.cpp)
    // -------------------------------------------------

    /// Chooses the colour keys by the concise style and looks up colours and fonts.
    void initDraw();

    /// Draws the picture into the pixmap; shows nothing by itself. Does nothing while a picture is being
    /// drawn.
    void drawGraph();

    /// Draws the picture with a painter in logical pixels from the widget's upper left corner. Takes the row
    /// counts into the scroll bar on the way.
    void drawGraph(QPainter& painter);

    /// Draws one level from row `row` of its side on, `cols` (at least 1) orders a row. True if its rows
    /// count.
    bool drawOrderVol(boost::shared_ptr<OrderQueueData> level, QPainter& painter, int cols, int row);

    /// The box with the lots dealt of a part-dealt order, its arrow at `tip`, at the right of it or, with
    /// `toLeft`, at the left.
    void drawPartDealVol(QPainter& painter, const QPoint& tip, const COrderVol& order, bool toLeft);

    /// Rows of both sides; gives the height of the sell side, pixels.
    int calcDelta(int& left, int& right) const;

    /// Upper edge of a row of a side, pixels in the widget.
    int getCurTop(int row, EOrderQueueType side) const;

    /// Rows that a level takes.
    int getStoreyNum(int cols, const boost::shared_ptr<OrderQueueData>& level) const;

    double getLastClosePrice() const;
    QColor getBackColorByQueueTye(const COrderVol& order, bool isBuy) const;
    const QColor* getColor(double value, double base) const;
    QString getPriceColor(EOrderQueueType side) const;

    /// Colour of a mark; -1 means that of `setVolumeColor`.
    const QColor* getVolumeColor(int index) const;

    int getTabLen() const;
    int getTopSpace() const;
    int getTotalVolSpace() const;
    bool isDrawVolSum(const boost::shared_ptr<OrderQueueData>& level) const;
    bool isShowDetailOrderQueue(const boost::shared_ptr<OrderQueueData>& level) const;
    bool isUseOrderDealData() const { return m_queueModeStyle == eQueueDetailHorizontal; }

    /// Whether a row with this upper edge is drawn; `bottom` is not looked at.
    bool isDrawRectValid(int top, int bottom) const;

    CDepthModelOrderQueue m_model;
    QRect m_clientRect;
    quint8 m_visibleRows = 0;
    bool m_layoutDone = false;

    // Widths of columns, pixels
    quint8 m_nameWidth = 40;
    quint8 m_priceWidth = 65; ///< also the unit of `getTabLen`
    quint8 m_volWidth = 60;
    quint8 m_cellWidth = 50;
    quint8 m_avgWidth = 50;
    quint8 m_spareWidth = 42; ///< kept with the others, used by nothing

    int m_centerY = 0; ///< horizontal style: y of the line between sells and buys before scrolling; else 0
    int m_deltaHeight = 0; ///< pixels, result of the last `calcDelta`
    int m_leftRows = 0;
    int m_rightRows = 0;
    int m_maxShowCount = 50;    ///< most orders of a level before the "..." cell
    int m_scrollPos = 0;        ///< slider position at the last picture, 0 with the bar hidden
    int m_clientRealHeight = 0; ///< pixels, height of the whole content
    int m_rowHeight = 20;       ///< pixels
    CIndexScrollBar* m_scrollBar = nullptr;
    bool m_blockExceededWheel = true;
    boost::function<int()> m_currentTradeDateFunc;
    int m_scrollTop = 0; ///< pixels; written only when the bar reports a move
    int m_centerOffset =
        0; ///< pixels that the user has scrolled away from the centred position, horizontal style

    qint8 m_queueModeLevel = eQueueTenLevels;
    qint8 m_queueModeStyle = eQueueDetailFirst;
    qint8 m_queueModeExtra = eQueueExtra6;
    qint8 m_queueModeFull = eQueueNotFull;

    int m_rowCount = 0;                                      ///< rows of the last picture
    double m_lastClose = std::numeric_limits<double>::max(); ///< yuan
    bool m_needCenter = false; ///< centre the scroll once the level data is back
    QPixmap m_pixmap;
    QTimer* m_timer = nullptr;
    QString m_fontText = QStringLiteral("ic_fnt_index_modulegroup_entruststatus_text"); ///< of labels
    QString m_fontVol = QStringLiteral("ic_fnt_index_modulegroup_transaction");         ///< of numbers
    bool m_userScroll = true; ///< false while the panel itself moves the slider
    boost::shared_ptr<nelservice::CInstrumentDetail> m_detail;
    int m_subscribeId = -1; ///< request for the time around the close, -1 for none
    int m_markVolume = 0;
    int m_markColor = 0;
    int m_trackOrderNo = -1;
    int m_trackColor = 0;
    QString m_clrText;
    QString m_clrVol;
    QString m_clrDefault;
    QString m_clrRise;
    QString m_clrFall;

private:
    bool isInstrument(const QString& key) const;
    bool isBarVisible() const { return !m_scrollBar->isHidden(); }
    void applyScrollBarSheet();
    void moveSlider(int position);
    void setSliderMaximum(int maximum);
    QSize pixmapSize() const; ///< device pixels of a picture of `m_clientRect`
    void newPixmap();
    void fitPixmap();
    void scrolled();
    void endPostCloseRequest(int seq, int status,
                             const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch,
                             const QString& key);

    OrderQueueLayout queueLayout() const;
    bool drawLevels(QPainter& painter, int sideWidth, int cols);
    void drawSummary(QPainter& painter, const boost::shared_ptr<OrderQueueData>& level, EOrderQueueType side,
                     int top, int sideWidth);
    void drawHead(QPainter& painter, const OrderQueueData& level, const LevelHead& head,
                  const QColor& priceColor);
    void drawOrderCount(QPainter& painter, QRect box, int count);
    void drawCell(QPainter& painter, const OrderCell& cell, const QColor& defaultColor, bool isBuy);
    void drawPartDealtCell(QPainter& painter, const COrderVol& order, int cols, const QColor& defaultColor,
                           bool isBuy);
    void drawLots(QPainter& painter, const QRect& box, int lots, bool ellipsis);
    QColor cellPen(const OrderCell& cell, const QColor& otherwise) const;

    OrderQueueTheme m_theme; ///< what the picture's keys stand for; set by `initDraw`
    LotTexts m_lotTexts;
    LevelCells m_cells;     ///< of the level drawn last, kept for its memory
    bool m_drawing = false; ///< a picture is being drawn
};

} // namespace Kel
