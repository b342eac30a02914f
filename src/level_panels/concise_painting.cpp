// The picture of the concise panel: head, middle row and stripes, the numbers of the levels, and the tip.

#include "level_panels/CDepthConciseStyleEntrustStatusWidget.h"

#include "level_panels/level_rules.h"
#include "platform/services/CStockManager.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"

#include <QPainter>

namespace Kel {

namespace {

constexpr const char* kHead = "ic_clr_sell_head";
constexpr const char* kLine = "ic_clr_concise_modulegroup_spliter";
constexpr const char* kMiddleRow = "ic_clr_concise_new_background";
constexpr const char* kSellSingular = "ic_clr_sell_singular";
constexpr const char* kSellEven = "ic_clr_sell_even";
constexpr const char* kBuySingular = "ic_clr_buy_singular";
constexpr const char* kBuyEven = "ic_clr_buy_even";
constexpr const char* kBuyPart = "ic_clr_comparison_line";
constexpr const char* kSellPart = "ic_clr_deviation_line";
constexpr const char* kTipGround = "ic_clr_concise_model_today_amount";
constexpr const char* kTipText = "ic_clr_concise_buysell_text";

// Pixels
constexpr int kLabelX = 10;
constexpr int kLatestX = 3;
constexpr int kHeadGap = 5;       // from the middle to what stands at both sides of it
constexpr int kDifferenceX = 50;  // from the middle
constexpr int kBarHeight = 2;     // of the bar that compares the sides, which the rows begin below
constexpr int kMiddleLines = 3;   // what the two lines of the middle row add to it
constexpr int kMiddleNumbers = 2; // what the numbers of the buy rows leave for them
constexpr int kLatestTop = 3;     // of the latest price, below the rows before it

constexpr int kTipWidth = 200;
constexpr int kTipHeight = 30;
constexpr int kTipSquare = 10;
constexpr int kTipSquareUp = 2; // above the middle of the row below the head
constexpr int kTipTextUp = 10;
constexpr int kTipSellX = 20;
constexpr int kTipBuyX = 105;
constexpr int kTipNameX = 20; // from the square
constexpr int kTipShareX = 40;

constexpr int kOneLevel = 1;
constexpr int kFiveLevels = 5;
constexpr int kTenLevels = 10;

/// The stripe of row `index`; null for a number of levels that has none. Ten levels begin with the other
/// stripe, so that sell one and buy one look alike in all of them.
const char* stripeKey(int index, int shelves)
{
    if (shelves != kOneLevel && shelves != kFiveLevels && shelves != kTenLevels)
        return nullptr;
    const bool even = (index % 2 != 0) != (shelves == kTenLevels);
    if (index < shelves)
        return even ? kSellEven : kSellSingular;
    return even ? kBuyEven : kBuySingular;
}

} // namespace

LevelColumns CDepthConciseStyleEntrustStatusWidget::columns() const
{
    LevelColumns columns;
    columns.panelWidth = m_panelRect.width();
    columns.labelWidth = m_labelWidth;
    columns.priceWidth = m_priceWidth;
    columns.volumeWidth = m_volumeWidth;
    columns.deltaWidth = m_deltaWidth;
    columns.spacing = m_spacing;
    columns.priceZoneWidth = m_priceZoneWidth;
    return columns;
}

int CDepthConciseStyleEntrustStatusWidget::firstRowY() const
{
    return m_topY + kBarHeight + m_rowHeight;
}

int CDepthConciseStyleEntrustStatusWidget::latestY() const
{
    return (m_shelves + 1) * m_rowHeight + m_topY + kLatestTop;
}

std::vector<LevelRow> CDepthConciseStyleEntrustStatusWidget::rows(int middleRoom) const
{
    return levelRows(m_shelves, m_rowHeight, firstRowY(), m_panelRect.bottom(), middleRoom);
}

const QColor* CDepthConciseStyleEntrustStatusWidget::getPriceColor(double value, double base) const
{
    return m_colors.of(value, base);
}

// What stays the same
// ---------------------------------------------------------------------------------------------

void CDepthConciseStyleEntrustStatusWidget::drawBackground()
{
    if (!hasRoom() || m_labels->isEmpty() || m_background.isNull())
        return;
    QPainter painter(&m_background);
    drawBackground(painter);
}

void CDepthConciseStyleEntrustStatusWidget::drawBackground(QPainter& painter)
{
    const int width = m_panelRect.width();
    painter.fillRect(m_panelRect, *levelColor(kLevelGround));
    painter.setPen(*m_colors.normal);
    painter.setFont(*m_fonts.text);
    painter.fillRect(0, m_topY, width, m_rowHeight, *levelColor(kHead));
    drawLeft(painter, QRect(kLabelX, m_topY, m_labelWidth, m_rowHeight), QStringLiteral("委比"));
    drawLeft(painter, QRect(width / 2 + kHeadGap, m_topY, m_labelWidth, m_rowHeight), QStringLiteral("委差"));

    painter.setClipRect(m_panelRect);
    for (const LevelRow& row : rows(m_rowHeight + kMiddleLines)) {
        if (row.index == m_shelves)
            drawMiddleRow(painter, row.y - m_rowHeight - kMiddleLines);
        if (row.y + m_rowHeight < 0)
            continue;
        drawStripe(painter, row);
        drawLeft(painter, QRect(kLabelX, row.y, m_labelWidth, m_rowHeight), labelAt(*m_labels, row.index));
    }

    painter.setPen(*m_colors.amount);
    drawLeft(painter, QRect(kLatestX, latestY(), m_labelWidth, m_rowHeight), QStringLiteral("最新"));
    drawLeft(painter, columns().newVolumeLabelCell(latestY(), m_rowHeight), QStringLiteral("现手"));
}

void CDepthConciseStyleEntrustStatusWidget::drawMiddleRow(QPainter& painter, int y)
{
    const int right = m_panelRect.right();
    painter.setPen(*levelColor(kLine));
    painter.drawLine(0, y, right, y);
    painter.fillRect(0, y + 1, m_panelRect.width(), m_rowHeight, *levelColor(kMiddleRow));
    painter.drawLine(0, y + 1 + m_rowHeight, right, y + 1 + m_rowHeight);
    painter.setPen(*m_colors.normal);
}

void CDepthConciseStyleEntrustStatusWidget::drawStripe(QPainter& painter, const LevelRow& row)
{
    if (const char* const key = stripeKey(row.index, m_shelves))
        painter.fillRect(0, row.y, m_panelRect.width(), m_rowHeight, *levelColor(key));
}

// What quotes and the mouse change
// ----------------------------------------------------------------------------------

void CDepthConciseStyleEntrustStatusWidget::drawForeground(QPainter* painter)
{
    painter->setClipRect(m_panelRect);
    const EntrustStatusData quote = m_model.data();
    const double close = m_model.getLastClosePrice();
    const bool custom =
        utils::CSingletonT<CStockManager>::instance().isCustomIndex(getDetailQsKey(quote.instrument));

    drawLatest(*painter, columns(), latestY(), m_rowHeight, quote, close, m_colors, m_fonts);
    drawCellMark(*painter, m_clickRect, m_topY, *m_colors.amount);
    drawCellMark(*painter, m_hoverRect, m_topY, *m_colors.amount);
    SideSums sums;
    for (const LevelRow& row : rows(m_rowHeight + kMiddleNumbers)) {
        const EntrustLevel level = levelOfRow(quote, row.index, m_shelves);
        drawLevel(*painter, columns(), row.y, m_rowHeight, level, quote, close, custom, m_colors, m_fonts);
        SideSums::add(row.index < m_shelves ? sums.ask : sums.bid, level);
    }
    drawHead(*painter, sums);
    if (m_showTip)
        drawTip(painter, sums.bid, sums.ask);
}

void CDepthConciseStyleEntrustStatusWidget::drawHead(QPainter& painter, const SideSums& sums)
{
    const int width = m_panelRect.width();
    const int split = sums.split(width);
    const int barY = m_rowHeight + m_topY;
    painter.fillRect(0, barY, split, kBarHeight, *levelColor(kBuyPart));
    painter.fillRect(split, barY, width - split, kBarHeight, *levelColor(kSellPart));

    const QString ratio = sums.ratioText();
    const bool falls = ratio.contains(QLatin1Char('-'));
    const QColor& color = sums.isEmpty() ? *m_colors.normal : falls ? *m_colors.fall : *m_colors.rise;
    painter.setFont(*m_fonts.price);
    drawRight(painter, QRect(width / 2 - m_priceWidth - kHeadGap, m_topY, m_priceWidth, m_rowHeight), ratio,
              color);
    drawRight(painter, QRect(width / 2 + kDifferenceX, m_topY, m_priceWidth, m_rowHeight),
              sums.differenceText(), color);
}

void CDepthConciseStyleEntrustStatusWidget::drawTip(QPainter* painter, qint64 bidSum, qint64 askSum)
{
    const SideSums sums{bidSum, askSum};
    const int center = m_rowHeight + m_rowHeight / 2;
    painter->fillRect(0, m_rowHeight, kTipWidth, kTipHeight, *levelColor(kTipGround));
    const auto drawSide = [&](int x, const char* key, const QString& name, const QString& share) {
        painter->fillRect(x, center - kTipSquareUp, kTipSquare, kTipSquare, *levelColor(key));
        painter->setPen(*levelColor(kTipText));
        const int y = center - kTipTextUp;
        drawLeft(*painter, QRect(x + kTipNameX, y, m_volumeWidth, m_rowHeight), name);
        drawLeft(*painter, QRect(x + kTipShareX, y, m_volumeWidth, m_rowHeight), share);
    };
    drawSide(kTipSellX, kSellPart, QStringLiteral("卖"), sums.shareText(askSum));
    drawSide(kTipBuyX, kBuyPart, QStringLiteral("买"), sums.shareText(bidSum));
}

} // namespace Kel
