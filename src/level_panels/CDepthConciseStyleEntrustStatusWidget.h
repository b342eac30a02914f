#pragma once

#include "level_panels/LevelColumns.h"
#include "level_panels/SideSums.h"
#include "level_panels/level_drawing.h"
#include "platform/models/CModelEntrustStatus.h"
#include "platform/toolkit/CBaseWidget.h"
#include "records/CFormulaParam.h"
#include "records/DepthExport.h"
#include "records/QuoterBase.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QList>
#include <QPixmap>
#include <QRect>
#include <QString>

#include <vector>

class QPainter;

namespace Kel {

/// The level quote of one instrument in the concise style: the order ratio and difference, a bar that
/// compares the sides, and below it the levels as striped rows. A click on a label, a price or a volume gives
/// the parameters of a trade to the host.
///
///     委比            +12.50% | 委差      1200
///     ==================------------------------
///       卖二         10.02        300    +20
///       卖一         10.01        120     -5
///     最新           10.00   现手          12
///       买一         10.00         80
///       买二          9.99        450    +10
///
/// The ladder hangs from the top. The mouse over the head row shows the shares of both sides in a tip. Clicks
/// find their rows two pixels above where they are drawn.
///
/// Threads: `quoterCallBack` and `connectTickData` may be called on any thread while the panel lives;
/// everything else belongs to the GUI thread.
class DEPTH_EXPORT CDepthConciseStyleEntrustStatusWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    /// `tenLevels`: ten levels a side where the market allows a choice, else five.
    CDepthConciseStyleEntrustStatusWidget(QWidget* parent, bool tenLevels);
    ~CDepthConciseStyleEntrustStatusWidget() override;

    /// Chooses the instrument by the code that the stock manager knows it by, takes the mark of the last
    /// click away and fits the number of levels. The numbers stay until `clear`.
    void setStock(const QString& code);

    /// Forgets the quote; with `redraw` the panel shows that at once.
    void clear(bool redraw);

    /// 1 asks for five levels, any other status for ten, where the market allows a choice.
    void setLevelStatus(int status);

    /// Levels a side: 1, 5 or 10.
    int getShelves() { return m_shelves; }

    /// The quote as it stands now, a copy.
    EntrustStatusData quote() const { return m_model.data(); }

    /// The row of the marked cell, counted from the farthest sell level with the latest price's row between
    /// the sides; -1 without a mark.
    int markedRow() const { return m_clickRect.isEmpty() ? -1 : m_clickRect.y() / m_rowHeight - 1; }

    /// Pixels that the rows of the levels and the middle row take. The whole panel has a head row more, and a
    /// few pixels of lines.
    int getMinimumSizeHeight() const { return (2 * m_shelves + 1) * m_rowHeight; }

    /// Puts in what a subscription of the panel's quotes needs.
    void getParams(CFormulaParam& params);

    /// Takes depth snapshots and deals of this panel's instrument, see `CModelEntrustStatus`. The panel shows
    /// what has changed if `force` is true, or for status 0 without records; otherwise the next paint does.
    void quoterCallBack(int seq, int status,
                        const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records, bool force);

    /// Joins two successive records with the shares traded between them, and shows the result.
    void connectTickData(boost::shared_ptr<quoter::QuoterBase> before,
                         boost::shared_ptr<quoter::QuoterBase> latest, long long shares);

    /// Takes the parameters of a trade when the user clicks: a line of JSON with the texts "stockcode"
    /// (market and code), "pricetype" (a number), "price" (yuan) and "vol" (lots). An empty function takes
    /// none.
    void setPairParamFunc(boost::function<void(QString)> function);

    /// Kept for hosts that treat both styles alike; not called.
    void setCurrentTradeDateFunc(boost::function<int()> function);

    void themeChanged() override;

protected:
    /// Sends the parameters of a trade by what is under a point. False if the row there holds nothing to
    /// trade by; why not is put into `message` then.
    bool doTradeFunc(int x, int y, QString& message);

    /// Paints what stays the same into the pixmap.
    void drawBackground();

    /// The same with a painter in logical pixels from the panel's upper left corner.
    void drawBackground(QPainter& painter);

    /// Paints the numbers, the marked cells, the head and the tip.
    void drawForeground(QPainter* painter);

    /// The shares of the sides in a box under the head row. The sums are lots.
    void drawTip(QPainter* painter, qint64 bidSum, qint64 askSum);

    /// The cell under a point, null between cells. Takes note of whether the point is in the head row.
    QRect getCursorRect(int x, int y);

    const QColor* getPriceColor(double value, double base) const;

    /// Fits levels and labels to the instrument's market.
    void resetShelves();

    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    CModelEntrustStatus m_model;
    bool m_tenLevels;
    bool m_shown = false; ///< between show and hide
    QPixmap m_background;
    QRect m_panelRect;              ///< as of the last resize
    QRect m_clickRect;              ///< cell of the last click
    QRect m_hoverRect;              ///< cell under the mouse
    const QList<QString>* m_labels; ///< one of the three below
    QList<QString> m_labels1;
    QList<QString> m_labels5;
    QList<QString> m_labels10;
    int m_shelves = 1;
    bool m_showTip = false; ///< the mouse is over the head row

    // Sizes, pixels
    int m_rowHeight = 24;
    int m_labelWidth = 30;
    int m_priceWidth = 65;
    int m_volumeWidth = 55;
    int m_deltaWidth = 40;
    int m_spacing = 5;
    int m_priceZoneWidth = 50;
    int m_topY = 0; ///< y of the head row

    boost::function<void(QString)> m_pairParamFunc;
    boost::function<int()> m_currentTradeDateFunc;

private:
    LevelColumns columns() const;
    std::vector<LevelRow> rows(int middleRoom) const;
    int firstRowY() const;
    int latestY() const;
    void drawMiddleRow(QPainter& painter, int y);
    void drawStripe(QPainter& painter, const LevelRow& row);
    void drawHead(QPainter& painter, const SideSums& sums);
    int rowAt(int y) const { return (y - m_topY) / m_rowHeight; }
    bool hasRoom() const { return m_panelRect.width() > 0 && m_panelRect.height() > 0; }

    LevelColors m_colors;
    LevelFonts m_fonts;
    AnyThreadUpdate m_update{*this};
};

} // namespace Kel
