#pragma once

#include "platform/models/CModelDepthThousand.h"
#include "platform/models/CModelQuoterDepthThousand.h"
#include "platform/models/ladder_flags.h"
#include "platform/toolkit/CBaseWidget.h"
#include "platform/toolkit/CIndexScrollBar.h"
#include "records/DepthExport.h"
#include "records/EntrustData.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/SingleQueue.h"
#include "thousand/CResetWidget.h"
#include "thousand/thousand_geometry.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QCursor>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QTimer>

#include <memory>
#include <vector>

class QColor;
class QFont;
class QPainter;

namespace Kel {

/// The price ladder of one instrument: every sell price above, the latest price in the middle, every buy
/// price below, up to a thousand a side, with the orders, the volume and the change of volume at each, and on
/// wish the distribution of order value by price behind them.
///
/// The panel holds both of its models and uses the one that it was made for: it asks the model for news by a
/// timer while it is visible. Names, lines and the selection are drawn into a pixmap when the rows change;
/// the numbers are written over it at each painting. The host calls `setStock` (after `clear`, to change the
/// instrument) and forwards the callbacks.
///
/// Events: takes 15 of its scroll bar and 82 of its arrows; sends 3223 when a level was selected by a click
/// on its order count (0, top of the row in pixels), when the selection is gone (-1, 0), and with each news
/// while the selected level stands (0, -1). The host answers with `getSelectedQueue`; it may call `clear`.
///
/// Threads: the four callbacks may be called on any thread while the panel lives; everything else belongs to
/// the GUI thread. Nothing is thrown; a callback for the other model is dropped in silence.
class DEPTH_EXPORT CDepthThousandDataWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    /// With `useQuoterModel` the ladder comes ready-made from the quote service, otherwise it is rebuilt from
    /// orders and deals.
    CDepthThousandDataWidget(QWidget* parent, bool useQuoterModel);
    ~CDepthThousandDataWidget() override;

    // Instrument and settings
    // -----------------------------------------------------------------------------------

    /// Chooses the instrument by the code that the stock manager knows it by. The rows of the instrument
    /// before stay until `clear` or until the feed brings others.
    void setStock(const QString& code);

    /// Empties both models and the ladder; a selection is dropped and told. Shows it if `repaint`.
    void clear(bool repaint);

    /// Drops the selection without a word.
    void clearSelectedEntrust() { m_selected.reset(); }

    double getLastClose() const; ///< yuan, of the model in use
    double getPriceTick() const; ///< yuan, of the model in use
    QString getStockKey() const; ///< "SH600519", of the model in use

    /// 1000 for the full ladder, 11 for the short form with the ten best levels a side.
    int getDisplayDataLevel() const { return m_displayLevel; }

    /// Shows with the next news.
    void setDisplayDataLevel(int level) { m_displayLevel = level; }

    /// Shows with the next painting.
    void setShowDistribute(bool show) { m_showDistribute = show; }

    /// Kept for the host.
    void setCurrentTradeDateFunc(boost::function<int()> tradeDate) { m_tradeDateFunc = std::move(tradeDate); }
    void setPairParamFunc(boost::function<void(QString)> pairParam)
    {
        m_pairParamFunc = std::move(pairParam);
    }

    // What is shown, for exports and other views: prices in yuan, volumes in lots, the best price of sells
    // first and of buys last. Rows are shared and never changed.
    const std::vector<boost::shared_ptr<EntrustData>>& sellRows() const { return m_sellQueues; }
    const std::vector<boost::shared_ptr<EntrustData>>& buyRows() const { return m_buyQueues; }

    /// Of the newest deal: the largest double, and -1, without one.
    double latestPrice() const { return m_latestPrice; }
    int lastVolume() const { return m_lastVolume; }

    /// The selected level, null without one, and its side.
    boost::shared_ptr<EntrustData> selectedRow() const { return m_selected; }
    bool isBuySelected() const { return m_selectedSide == 1; }

    /// The orders of the selected level as they stand now, with the tick (yuan) and the unit (shares of a
    /// lot) of the model that is rebuilt from orders. Null without a selection, which leaves both outputs
    /// alone, and for a level that is gone.
    std::shared_ptr<SingleQueue> getSelectedQueue(double& priceTick, int& volumeUnit);

    // Feed (any thread)
    // -----------------------------------------------------------------------------------------

    /// Snapshots, for the model in use.
    void quoterCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data);

    /// Orders, deals and cancellations; dropped when the ladder comes ready-made.
    void entrustCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data);
    void transactionCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data);

    /// Ladder records; dropped unless the ladder comes ready-made.
    void thousandDataCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data);

    bool handleEvent(int id, int first, int second, QString text, void* data) override;
    void themeChanged() override;

protected Q_SLOTS:
    void slotTimeout();
    void slotRefreshTimer(int ms);
    void slotThousandDataDistribution();

protected:
    bool event(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

    /// The state of the panel as a value that tells where everything stands.
    LadderLayout layout() const;

    /// The record that a row shows; the empty one outside of the lists.
    const EntrustData& rowData(const LadderLayout& layout, int row) const;

    // Scroll (thousand_scroll.cpp)
    // -------------------------------------------------------------------------------

    /// In the short form with a side that is not full the ladder stays centred.
    static void resetCenterPosition(int level, int sells, int buys, int& delta);

    /// Fits widths, first row and bar to the rows; with `reset` the latest price goes back to the centre.
    void updateScroll(bool reset);

    /// The bar has moved.
    void scrolled();

    // Picture (thousand_painting.cpp)
    // ----------------------------------------------------------------------------

    /// Looks up colours and fonts by the concise style.
    void initDraw();

    /// Draws the pixmap: names, lines, selection.
    void drawBackground(const QRect& rect);
    void drawBackground(QPainter& painter) const;

    /// Writes the numbers.
    void drawGraph(QPainter& painter) const;

    void drawDistribute(QPainter& painter) const;
    void drawTip(QPainter& painter) const;

    // Mouse (thousand_mouse.cpp)
    // ---------------------------------------------------------------------------------

    /// What lies at a point: true if it is a column with something to point at. `row` is -1 outside of the
    /// levels, `queue` null where the row has no level, `side` 0 for sells and 1 for buys.
    bool getCursorData(int x, int y, int& row, boost::shared_ptr<EntrustData>& queue, int& side,
                       int& column) const;

    CModelDepthThousand m_modelDepth{0, -1};
    CModelQuoterDepthThousand m_modelQuoter{0, -1};
    const bool m_useQuoterModel;
    QRect m_clientRect;
    QPixmap m_pixmap;
    QPoint m_cursorPos;
    const QCursor m_handCursor{Qt::PointingHandCursor};
    const QCursor m_arrowCursor{Qt::ArrowCursor};
    bool m_showTip = false;
    bool m_showDistribute = true;
    QString m_tipText;
    QTimer* m_timer = nullptr;
    std::vector<boost::shared_ptr<EntrustData>> m_buyQueues;  ///< best price last
    std::vector<boost::shared_ptr<EntrustData>> m_sellQueues; ///< best price first
    const boost::shared_ptr<EntrustData> m_emptyQueue;
    double m_latestPrice = kNoPrice; ///< yuan
    int m_lastVolume = kNoVolume;    ///< lots
    double m_minPrice = kNoLowestPrice;
    double m_maxPrice = 0;
    double m_maxAmount = 0; ///< lots times yuan
    boost::shared_ptr<EntrustData> m_selected;
    int m_selectedSide = 0; ///< 0 sell, 1 buy
    int m_hoverRow = -1;
    int m_hoverColumn = LadderLayout::eNoColumn;
    int m_rowHeight = 20;
    int m_indexWidth = 30;
    int m_priceWidth = 50;
    int m_volWidth = 55;
    int m_gap = 5;
    int m_spareWidth = 180;
    int m_countWidth = 30;
    int m_priceAreaWidth = 50;
    int m_changeWidth = 40;
    int m_visibleRows = 0;
    int m_centerDelta = 0; ///< rows, positive is upward
    int m_totalRows = 1;
    int m_sellCount = 0;
    int m_buyCount = 0;
    int m_scrollTop = 0;
    int m_displayLevel = 1000;
    boost::function<int()> m_tradeDateFunc;
    boost::function<void(QString)> m_pairParamFunc;
    CIndexScrollBar* m_scrollBar = nullptr;
    CResetWidget* m_resetTop = nullptr;
    CResetWidget* m_resetBottom = nullptr;
    const QColor* m_clrVolume = nullptr;
    const QColor* m_clrCount = nullptr;
    const QColor* m_clrFall = nullptr;
    const QColor* m_clrRise = nullptr;
    const QColor* m_clrFlat = nullptr;
    const QFont* m_fntText = nullptr;
    const QFont* m_fntPrice = nullptr;
    const QFont* m_fntVolume = nullptr;
    const QFont* m_fntCount = nullptr;
    const QFont* m_fntBig = nullptr;
    int m_bigVolume = 9999; ///< lots

private:
    /// What prices are written by, asked of the model once a picture: its lock may be taken by the feed.
    struct Reference
    {
        double lastClose; ///< yuan
        double priceTick; ///< yuan
    };

    void createUi();
    void showArrows();
    void moveSlider(int limit);
    bool askModel(int& flags);
    bool checkSelection();
    void dropSelection();
    void drawNames(QPainter& painter, const LadderLayout& layout) const;
    void drawLatestRow(QPainter& painter, const LadderLayout& layout, int y, const Reference& prices) const;
    void drawLevel(QPainter& painter, const LadderLayout& layout, int row, const Reference& prices) const;
    void drawSide(QPainter& painter, const std::vector<boost::shared_ptr<EntrustData>>& rows,
                  bool isBuy) const;
    const QColor& priceColor(double value, double reference) const;
    bool isSelected(const EntrustData& row, bool isBuy) const;
    void newPixmap();

    bool m_movesSlider = false;   ///< the panel itself moves the slider
    bool m_forwardsWheel = false; ///< a wheel event is with the scroll bar
};

} // namespace Kel
