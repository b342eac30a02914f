#pragma once

#include "platform/toolkit/CBaseWidget.h"
#include "platform/toolkit/CIndexScrollBar.h"
#include "records/DepthExport.h"
#include "records/SingleQueue.h"
#include "records/SingleQuote.h"
#include "thousand/single_queue_geometry.h"

#include <QRect>
#include <QString>

#include <cstdint>
#include <map>
#include <memory>

class QColor;
class QPainter;

namespace Kel {

/// The orders that stand at one price: a title with price, number and total, and below it the rest of each
/// order in lots, in order of arrival; an order of the last three seconds stands on navy.
///
/// The panel holds a copy of the orders; the host calls `setSingleQueue` for each change, shows the panel
/// before the first one, and hides it when the level is gone. The panel grows with the queue, up to 20 rows,
/// and shrinks only when the price changes. GUI thread; takes event 15 of its scroll bar.
class DEPTH_EXPORT CSingleQueueWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    explicit CSingleQueueWidget(QWidget* parent = nullptr);
    ~CSingleQueueWidget() override;

    /// Shows the orders of a level; `priceTick` in yuan, `volumeUnit` in shares of a lot (below 1 counts as
    /// 1). Null empties the panel without repainting it.
    void setSingleQueue(const std::shared_ptr<SingleQueue>& queue, double priceTick, int volumeUnit);

    /// Writes the order with this number in the mark colour of the index; -1 for none.
    void setTrackOrder(int orderNo, int colorIndex);

    /// Writes all orders of so many lots in the mark colour of the index; 0 for none.
    void setVolumeColor(int volume, int colorIndex);

    bool handleEvent(int id, int first, int second, QString text, void* data) override;
    void themeChanged() override;

protected:
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    /// Colour of the mark with this index; -1 stands for the index of `setVolumeColor`.
    const QColor* getVolumeColor(int index) const;

    SingleQueueLayout layout() const;
    void drawQueue(QPainter& painter) const;

    QRect m_clientRect;
    std::int64_t m_time = 0; ///< ms since 1970-01-01 UTC
    std::map<long long, std::shared_ptr<SingleQuote>> m_quotes;
    double m_price = 0; ///< yuan
    int m_isBuy = 0;
    double m_priceTick = 0; ///< yuan
    int m_orderCount = 0;
    int m_volumeUnit = 1; ///< shares
    QString m_title;
    int m_cellWidth = 45;
    int m_leftMargin = 5;
    int m_cellGap = 10;
    int m_titleHeight = 24;
    int m_rowHeight = 20;
    int m_visibleRows = 0;
    int m_columns = 5;
    int m_cellPitch = 0;
    int m_totalRows = 0;
    int m_scrollTop = 0;
    int m_markVolume = 0; ///< lots
    int m_markColor = 0;
    int m_trackOrderNo = -1;
    int m_trackColor = 0;
    CIndexScrollBar* m_scrollBar = nullptr;

private:
    void fitHeight(bool priceChanged);
    void fitScroll(bool priceChanged);
    void drawFrame(QPainter& painter) const;
    void drawOrder(QPainter& painter, long long number, const SingleQuote& quote, const QRect& cell) const;

    bool m_forwardsWheel = false; ///< a wheel event is with the scroll bar
};

} // namespace Kel
