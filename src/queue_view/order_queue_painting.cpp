// The picture as a whole: ground, lines, levels, and the summary rows of the first-level detail.

#include "queue_view/CDepthOrderQueueWidget.h"

#include "platform/services/CConfig.h"
#include "platform/services/instrument_functions.h"
#include "platform/toolkit/number_formats.h"
#include "records/Tolerance.h"

#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace Kel {

namespace {

// Keys by what the panel chooses them for
constexpr const char* kText = "kel_clr_deptch_order_queue_txt";
constexpr const char* kVolume = "kel_clr_deptch_order_queue_vol";
constexpr const char* kDefault = "ic_clr_entrust_default_text";
constexpr const char* kRise = "ic_clr_entrust_text_rise";
constexpr const char* kFall = "ic_clr_entrust_text_fall";
constexpr const char* kBuyPrice = "kel_clr_deptch_order_queue_price_rise";
constexpr const char* kSellPrice = "kel_clr_deptch_order_queue_price_fall";
constexpr const char* kConciseText = "ic_clr_concise_entrust_default_text";
constexpr const char* kConciseVolume = "ic_clr_concise_entrust_amount";
constexpr const char* kConciseRise = "ic_clr_concise_entrust_text_rise";
constexpr const char* kConciseFall = "ic_clr_concise_entrust_text_fall";

constexpr int kClipInset = 2; // pixels above and below that nothing of a level is drawn in
constexpr int kSeparatorWidth = 1;
constexpr int kSeparatorOn = 1; // of the dashes
constexpr int kSeparatorOff = 3;
constexpr int kAverageDecimals = 1;
constexpr int kFiveLevels = 5;
constexpr int kTenLevels = 10;

constexpr int kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr int kLeft = Qt::AlignLeft | Qt::AlignVCenter;

const QString& badValue()
{
    static const QString text = QStringLiteral("非法值");
    return text;
}

bool isConcise()
{
    const CConfig* config = getConfig();
    return config && config->conciseStyle();
}

/// One pixel on, three off.
QPen separatorPen(const QColor& color)
{
    QPen pen(color);
    pen.setWidth(kSeparatorWidth);
    pen.setDashPattern({kSeparatorOn, kSeparatorOff});
    return pen;
}

} // namespace

void CDepthOrderQueueWidget::initDraw()
{
    const bool concise = isConcise();
    m_clrText = QLatin1String(concise ? kConciseText : kText);
    m_clrVol = QLatin1String(concise ? kConciseVolume : kVolume);
    m_clrDefault = QLatin1String(concise ? kConciseText : kDefault);
    m_clrRise = QLatin1String(concise ? kConciseRise : kRise);
    m_clrFall = QLatin1String(concise ? kConciseFall : kFall);
    m_theme.setKeys({m_clrText, m_clrVol, m_clrDefault, m_clrRise, m_clrFall, m_fontText, m_fontVol});
    m_lotTexts.clear();
}

// Rows, columns, colours
// ------------------------------------------------------------------------------------------------

OrderQueueLayout CDepthOrderQueueWidget::queueLayout() const
{
    OrderQueueLayout layout;
    layout.width = width();
    layout.height = height();
    layout.barWidth = m_scrollBar->width();
    layout.barVisible = isBarVisible();
    layout.style = m_queueModeStyle;
    layout.full = m_queueModeFull == eQueueFull;
    layout.levels = m_queueModeLevel == eQueueTenLevels ? kTenLevels : kFiveLevels;
    layout.maxShowCount = m_maxShowCount;
    layout.nameWidth = m_nameWidth;
    layout.priceWidth = m_priceWidth;
    layout.volWidth = m_volWidth;
    layout.cellWidth = m_cellWidth;
    layout.avgWidth = m_avgWidth;
    layout.rowHeight = m_rowHeight;
    layout.centerY = m_centerY;
    layout.scrollTop = m_scrollTop;
    return layout;
}

int CDepthOrderQueueWidget::calcDelta(int& left, int& right) const
{
    left = 0;
    right = 0;
    const OrderQueueLayout current = queueLayout();
    const int cols = current.countedColumns();
    if (cols < 1)
        return 0;
    OrderQueueRows rows;
    for (int i = 0; i < current.levels && i < m_model.size(); ++i) {
        const auto sell = m_model.at(static_cast<unsigned>(i), OQT_SELL);
        const auto buy = m_model.at(static_cast<unsigned>(i), OQT_BUY);
        addRows(current, cols, i, sell.get(), buy.get(), rows);
    }
    left = rows.left;
    right = rows.right;
    return std::max(left * m_rowHeight, 0);
}

int CDepthOrderQueueWidget::getCurTop(int row, EOrderQueueType side) const
{
    return queueLayout().rowTop(row, side);
}

int CDepthOrderQueueWidget::getStoreyNum(int cols, const boost::shared_ptr<OrderQueueData>& level) const
{
    return level ? queueLayout().storeys(cols, *level) : 1;
}

int CDepthOrderQueueWidget::getTabLen() const
{
    return queueLayout().tabLen();
}

int CDepthOrderQueueWidget::getTopSpace() const
{
    return queueLayout().topSpace();
}

int CDepthOrderQueueWidget::getTotalVolSpace() const
{
    return queueLayout().totalVolSpace();
}

bool CDepthOrderQueueWidget::isDrawVolSum(const boost::shared_ptr<OrderQueueData>& level) const
{
    if (!level || !level->hasPrice())
        return false;
    if (level->m_level != 0 && level->m_level != 1 && m_queueModeFull != eQueueFull)
        return false;
    return !level->m_orders.isEmpty();
}

bool CDepthOrderQueueWidget::isShowDetailOrderQueue(const boost::shared_ptr<OrderQueueData>& level) const
{
    return level && queueLayout().listsOrders(*level);
}

bool CDepthOrderQueueWidget::isDrawRectValid(int top, int bottom) const
{
    Q_UNUSED(bottom)
    return queueLayout().isVisible(top);
}

double CDepthOrderQueueWidget::getLastClosePrice() const
{
    return std::isfinite(m_lastClose) ? m_lastClose : getDetailLastClose(m_model.instrument());
}

QColor CDepthOrderQueueWidget::getBackColorByQueueTye(const COrderVol& order, bool isBuy) const
{
    return *m_theme.ground(order.m_type, isBuy);
}

const QColor* CDepthOrderQueueWidget::getColor(double value, double base) const
{
    if (isPositive(value - base))
        return m_theme.rise;
    return isNegative(value - base) ? m_theme.fall : m_theme.normal;
}

QString CDepthOrderQueueWidget::getPriceColor(EOrderQueueType side) const
{
    if (isConcise())
        return QLatin1String(side == OQT_BUY ? kConciseRise : kConciseFall);
    return QLatin1String(side == OQT_BUY ? kBuyPrice : kSellPrice);
}

const QColor* CDepthOrderQueueWidget::getVolumeColor(int index) const
{
    return m_theme.mark(index == -1 ? m_markColor : index);
}

// The picture
// -----------------------------------------------------------------------------------------------------------

void CDepthOrderQueueWidget::drawGraph()
{
    if (m_drawing || m_pixmap.isNull() || m_pixmap.paintingActive())
        return;
    fitPixmap();
    QPainter painter;
    if (!painter.begin(&m_pixmap))
        return;
    drawGraph(painter);
}

void CDepthOrderQueueWidget::drawGraph(QPainter& painter)
{
    const QScopedValueRollback<bool> drawing(m_drawing, true);
    const bool horizontal = m_queueModeStyle == eQueueDetailHorizontal;
    painter.fillRect(rect(), *m_theme.back);

    const QColor& splitColor = horizontal ? *m_theme.splitRed : *m_theme.split;
    painter.setPen(splitColor);
    m_deltaHeight = calcDelta(m_leftRows, m_rightRows);
    m_centerY = horizontal ? m_deltaHeight : 0;
    const int delta = m_centerY;
    if (!horizontal)
        painter.drawLine(width() / 2, 0, width() / 2, height());

    const int rows = horizontal ? m_leftRows + m_rightRows : std::max(m_leftRows, m_rightRows);
    if (rows != m_rowCount || m_model.m_bLevelArrived) {
        m_rowCount = rows;
        updateScroll(false);
        setScrollCenter();
    }
    m_scrollPos = isBarVisible() ? m_scrollBar->value() : 0;

    // Nothing above reads the scroll; everything below reads it as it is now.
    const OrderQueueLayout current = queueLayout();
    const int barWidth = current.barVisible ? current.barWidth : 0;
    painter.setClipRect(m_clientRect.adjusted(0, kClipInset, -barWidth, -kClipInset));
    const int sideWidth = horizontal ? width() : width() / 2;
    if (!drawLevels(painter, sideWidth, current.drawnColumns()) || !horizontal)
        return;

    const int center = delta + current.topSpace() - m_scrollTop;
    painter.setPen(splitColor);
    painter.drawLine(0, center, width(), center);
    painter.setPen(separatorPen(*m_theme.splitRed));
    painter.drawLine(current.tabX(), 0, current.tabX(), height());
}

/// False if a level has a price and there is no room for a single order.
bool CDepthOrderQueueWidget::drawLevels(QPainter& painter, int sideWidth, int cols)
{
    const OrderQueueLayout current = queueLayout();
    const QPen separator = separatorPen(*m_theme.splitRed);
    const auto drawSeparator = [&](int y) {
        painter.setPen(separator);
        painter.drawLine(0, y, width(), y);
    };
    const int center = m_centerY - m_scrollTop + current.topSpace();
    int leftRow = 0;
    int rightRow = 0;
    for (int i = 0; i < current.levels && i < m_model.size(); ++i) {
        const auto sell = m_model.at(static_cast<unsigned>(i), OQT_SELL);
        const auto buy = m_model.at(static_cast<unsigned>(i), OQT_BUY);
        if (!sell && !buy)
            continue;
        if (current.firstLevelDetail()) {
            drawSummary(painter, sell, OQT_SELL, current.rowTop(leftRow, OQT_SELL), sideWidth);
            drawSummary(painter, buy, OQT_BUY, current.rowTop(rightRow, OQT_BUY), sideWidth);
            ++leftRow;
            ++rightRow;
        }
        const bool hasSell = sell && sell->hasPrice();
        const bool hasBuy = buy && buy->hasPrice();
        if (!hasSell && !hasBuy)
            continue;
        painter.setFont(*m_theme.volumeFont);
        if (cols < 1)
            return false;
        const bool separated = current.horizontal() && i != current.levels - 1;
        if (drawOrderVol(sell, painter, cols, leftRow)) {
            leftRow += current.storeys(cols, *sell);
            if (separated)
                drawSeparator(center - m_rowHeight * leftRow);
        }
        if (drawOrderVol(buy, painter, cols, rightRow)) {
            rightRow += current.storeys(cols, *buy);
            if (separated)
                drawSeparator(center + m_rowHeight * rightRow);
        }
    }
    return true;
}

/// Name, price, volume, number of orders and average of a level.
void CDepthOrderQueueWidget::drawSummary(QPainter& painter, const boost::shared_ptr<OrderQueueData>& level,
                                         EOrderQueueType side, int top, int sideWidth)
{
    const OrderQueueLayout current = queueLayout();
    if (!level || !level->hasPrice() || !current.isVisible(top))
        return;
    const bool isSell = side == OQT_SELL;
    const SummaryRow row = summaryRow(current, isSell ? 0 : sideWidth, top, sideWidth, isSell);

    painter.setFont(*m_theme.textFont);
    painter.setPen(*m_theme.text);
    painter.drawText(row.name, kLeft, level->getLevelName());

    painter.setFont(*m_theme.volumeFont);
    painter.setPen(*getColor(level->m_price, getLastClosePrice()));
    painter.drawText(row.price, kRight,
                     Zeb::formatDoubleNumber(level->m_price, m_model.getPrecision(), 0, false, badValue()));

    if (!row.volume.isNull()) {
        painter.setPen(*m_theme.volume);
        painter.drawText(row.volume, kRight, Zeb::formatIntNumber(truncateToInt(level->m_levelVol), 0, 0));
    }
    if (!isDrawVolSum(level))
        return;
    if (!row.count.isNull())
        drawOrderCount(painter, row.count, std::max(level->m_count, 0));
    if (!isPositive(level->m_avgVol))
        return;
    if (!row.average.isNull()) {
        painter.setFont(*m_theme.volumeFont);
        painter.setPen(*m_theme.volume);
        painter.drawText(row.average, kRight,
                         Zeb::formatDoubleNumber(level->m_avgVol, kAverageDecimals, 0, false, badValue()));
    }
    if (!row.unit.isNull()) {
        painter.setFont(*m_theme.textFont);
        painter.setPen(*m_theme.text);
        painter.drawText(row.unit, kLeft, QStringLiteral("手/笔"));
    }
}

} // namespace Kel
