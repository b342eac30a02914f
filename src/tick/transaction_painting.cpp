// The picture of the deal list.

#include "platform/models/order_symbols.h"
#include "platform/toolkit/number_formats.h"
#include "records/Tolerance.h"
#include "tick/CDepthTransactionWidget.h"

#include <QPainter>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kSecondsPerMinute = 60;
constexpr int kArrowHeight = 10;      // pixels that the arrow is centred by
constexpr int kMostNormalLots = 1000; // above, the font for big numbers
constexpr int kMostNormalDigits = 3;  // beside a run, likewise
constexpr int kRunTextGap = 4;        // between a run's number and what is at either side of it
constexpr int kMinuteLineInset = 3;   // of the right end

const QColor kHighlightGround(0, 0, 128, 255); // behind the deals that another panel has chosen
const QColor kActiveGround(Qt::darkBlue);      // behind the side of the strip that was active

// The same where the ground is light
constexpr const char* kHighlightOnLight = "kel_clr_deptch_holographic_deal_highlight_bg";
constexpr const char* kActiveOnLight = "kel_clr_deptch_holographic_deal_active_deal_bg";

constexpr const char* kMinuteLine = "ic_clr_modelgroup_transaction_splitter";

/// A triangle of three columns, its point at the right.
void drawRightTriangle(QPainter* painter, int tipX, int middleY)
{
    painter->drawPoint(tipX, middleY);
    painter->drawLine(tipX - 1, middleY - 1, tipX - 1, middleY + 1);
    painter->drawLine(tipX - 2, middleY - 2, tipX - 2, middleY + 2);
}

/// The same with its point at the left; `x` is the left edge of the text that it stands beside.
void drawLeftTriangle(QPainter* painter, int x, int middleY)
{
    painter->drawLine(x - 3, middleY - 2, x - 3, middleY + 2);
    painter->drawLine(x - 4, middleY - 1, x - 4, middleY + 1);
    painter->drawPoint(x - 5, middleY);
}

} // namespace

const QColor* CDepthTransactionWidget::getPriceColor(double a, double b) const
{
    if (isNegative(a - b))
        return m_clrFall;
    return isPositive(a - b) ? m_clrRise : m_clrDefault;
}

const QColor* CDepthTransactionWidget::getVolumeColor() const
{
    return markColor(m_filterParam.color);
}

int CDepthTransactionWidget::stripOffset() const
{
    return (m_layout.priceArea + m_priceWidth) / 2 - barRoom() + 2 * m_columnGap + m_layout.margin +
           m_volumeWidth + m_timeWidth;
}

void CDepthTransactionWidget::drawGraph(QPainter* painter)
{
    drawSeparators(painter, -(m_layout.groupGap / 2));
    if (m_total == 0)
        return;
    const QColor highlight = isGroundLight() ? *themeColor(kHighlightOnLight) : kHighlightGround;
    Pens pens{QPen(*themeColor(kMinuteLine), 1, Qt::DashLine), QPen(*m_clrRise, 1, Qt::SolidLine),
              QPen(*m_clrFall, 1, Qt::SolidLine),
              isGroundLight() ? *themeColor(kActiveOnLight) : kActiveGround};
    const int end = std::min(m_firstIndex + m_layout.capacity(), m_total);
    boost::shared_ptr<DepthTransData> previous =
        m_firstIndex > 0 ? m_model->getData(m_firstIndex - 1) : nullptr;
    int number = 0;
    int last = -1;
    for (int index = m_firstIndex; index < end; ++index) {
        const auto row = m_model->getData(index);
        if (!row)
            break;
        if (index == m_firstIndex)
            number = m_model->tracebackSeq(index);
        else
            number = !previous || previous->time == row->time ? number + 1 : 1;
        const bool isMinute = index != m_firstIndex && previous &&
                              previous->time / kSecondsPerMinute != row->time / kSecondsPerMinute;
        const int place = index - m_firstIndex;
        if (index >= m_highlightRange.first && index <= m_highlightRange.second &&
            m_highlightRange.first >= 0)
            painter->fillRect(m_layout.left(place), m_layout.lineTop(place), stripOffset(),
                              m_layout.rowHeight, highlight);
        if (isMinute) {
            const int y = m_layout.lineTop(place);
            painter->setPen(pens.minute);
            painter->drawLine(m_layout.left(place) + 1, y,
                              m_layout.left(place) + m_layout.groupWidth - kMinuteLineInset, y);
        }
        drawDeal(painter, pens, *row, index, number);
        if (m_showHoloGraph && index > m_firstIndex && previous)
            closeRuns(painter, pens, previous, *row, index);
        previous = row;
        last = index;
    }
    if (m_showHoloGraph && last >= 0)
        closeRunsBelow(painter, pens, last);
}

void CDepthTransactionWidget::drawDeal(QPainter* painter, const Pens& pens, const DepthTransData& row,
                                       int index, int number)
{
    const int place = index - m_firstIndex;
    const int height = m_layout.rowHeight;
    const int y = m_layout.lineTop(place);
    int x = m_layout.left(place) + m_layout.margin;
    painter->setFont(*m_font);
    const bool showsTime = index == m_firstIndex || number == 1;
    painter->setPen(showsTime ? *m_clrIndex : *m_clrAmount);
    m_texts.drawRight(*painter, *m_font, QRect(x, y, m_timeWidth, height),
                      showsTime ? clockText(row.time) : QString::number(number));
    x += (m_layout.priceArea - m_priceWidth) / 2 + m_timeWidth + m_columnGap;
    painter->setPen(*getPriceColor(row.price, m_model->preClose));
    m_texts.drawRight(*painter, *m_font, QRect(x, y, m_priceWidth, height),
                      Zeb::formatPriceDoubleNumber(row.price, m_model->priceTick));
    x += m_layout.margin + m_priceWidth;
    if (row.trend == 1 || row.trend == -1)
        painter->drawPixmap(x, y + (height - kArrowHeight) / 2, row.trend == 1 ? m_arrowUp : m_arrowDown);
    x += m_columnGap - m_layout.margin;
    const bool isMarked = m_filterParam.mark == row.volume;
    painter->setPen(isMarked ? *getVolumeColor() : row.volumeRise != 0 ? *m_clrRise : *m_clrFall);
    const QFont& font = row.volume > kMostNormalLots ? *m_fontBig : *m_font;
    painter->setFont(font);
    m_texts.drawRight(*painter, font, QRect(x, y, m_volumeWidth - barRoom(), height),
                      QString::number(row.volume));
    if (!m_showHoloGraph)
        return;
    x += m_volumeWidth - barRoom();
    const int half = m_holoWidth / 2;
    if (row.activeSide == 2)
        painter->fillRect(x + 2, y + 1, half - 3, height - 1, pens.active);
    else if (row.activeSide == 1)
        painter->fillRect(x + 1 + half, y + 1, half - 3, height - 1, pens.active);
}

void CDepthTransactionWidget::drawRun(QPainter* painter, Pens& pens,
                                      const boost::shared_ptr<DepthTransData>& item, bool buy, int last)
{
    const int half = m_holoWidth / 2;
    const int first = last - (buy ? item->buyRun : item->sellRun);
    drawContinousAction(painter, item, buy, first, last, stripOffset() + (buy ? half : 1), m_layout.top(),
                        half - 2, buy ? pens.buyRun : pens.sellRun);
}

void CDepthTransactionWidget::closeRuns(QPainter* painter, Pens& pens,
                                        const boost::shared_ptr<DepthTransData>& previous,
                                        const DepthTransData& row, int index)
{
    if (row.sellRun == 0)
        drawRun(painter, pens, previous, false, index - 1);
    if (row.buyRun == 0)
        drawRun(painter, pens, previous, true, index - 1);
}

void CDepthTransactionWidget::closeRunsBelow(QPainter* painter, Pens& pens, int last)
{
    for (const bool buy : {false, true}) {
        const auto runOf = [&](int row) {
            const auto item = m_model->getData(row);
            return !item ? -1 : buy ? int(item->buyRun) : int(item->sellRun);
        };
        const int end = lastOfRun(last, runOf);
        if (const auto item = m_model->getData(end))
            drawRun(painter, pens, item, buy, end);
    }
}

void CDepthTransactionWidget::drawContinousAction(QPainter* painter,
                                                  const boost::shared_ptr<DepthTransData>& item, bool buy,
                                                  int first, int last, int x, int y, int w, QPen& pen)
{
    const int rows = m_layout.rowCount;
    const int height = m_layout.rowHeight;
    const int from = first - m_firstIndex;
    const int to = last - m_firstIndex;
    pen.setDashPattern({1, 1});
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    int textY = 0;
    int textX = 0;
    if (first == last) {
        textX = from / rows * m_layout.groupWidth + x + w - kRunTextGap;
        textY = y + from % rows * height;
    } else {
        const int lastGroup = to / rows;
        for (int group = from / rows; group <= std::min(lastGroup, m_layout.groupCount - 1); ++group) {
            if (group < 0)
                continue;
            const int fromLine = group == from / rows ? from % rows : 0;
            const int toLine = group == lastGroup ? to % rows : rows - 1;
            painter->drawRect(group * m_layout.groupWidth + x, y + fromLine * height, w,
                              (toLine - fromLine + 1) * height);
        }
        const int a = std::max(from, 0);
        const int b = std::min(m_layout.capacity() - 1, to);
        const int middle = (b - a) / 2 + a;
        textX = w - kRunTextGap + middle / rows * m_layout.groupWidth + x;
        textY = middle % rows * height;
        if (a / rows == b / rows)
            textY += y + ((b - a) % 2 != 0 ? height / 2 : 0);
    }
    pen.setStyle(Qt::SolidLine);
    painter->setPen(pen);
    const int middleY = textY + height / 2;
    if ((buy ? item->buyNext : item->sellNext) != -1)
        drawRightTriangle(painter, textX, middleY);
    const QString text = QString::number(m_model->getEntrustVolume(item, buy));
    const QFont& font = text.size() > kMostNormalDigits ? *m_fontBig : *m_font;
    painter->setFont(font);
    const int textWidth = m_texts.width(font, text);
    const int left = textX - kRunTextGap - textWidth;
    m_texts.drawRight(*painter, font, QRect(left, textY, textWidth, height), text);
    const auto opener = m_model->getData(first);
    if (opener && (buy ? opener->buyPrevious : opener->sellPrevious) != -1)
        drawLeftTriangle(painter, left, middleY);
}

} // namespace Kel
