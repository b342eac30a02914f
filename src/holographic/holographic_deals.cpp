// The deals of the chart: bars of the orders behind them, the lines that join the pieces of one order,
// numbers and marks.
//
//            +--+
//     sell   |  |  stands on the price line
//     -------+--+------------------------
//     buy    |  |  hangs below it
//            +--+

#include "holographic/CDepthHolographicWidget.h"
#include "platform/models/order_symbols.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "records/Tolerance.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kBuySide = 1; // of the active side
constexpr int kSellSide = 2;

constexpr int kTextInFlatBar = 2; // pixels that a bar with a number may be lower than the usual half row
constexpr int kTextRoom = 2;      // pixels that it has to be wider than the number
constexpr int kMarkLeg = 4;       // pixels of a mark's legs

/// Deals up to which a picture is drawn shape by shape.
constexpr int kFewDeals = 1000;

/// Deals that are kept from one picture to the next for their memory.
constexpr std::size_t kKeptDeals = 20000;

constexpr const char* kBarFont = "fnt_graph_axis_text";

const QFont& barFont()
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QLatin1String(kBarFont));
}

bool areOpaque(const DealInks& inks)
{
    return std::all_of(inks.begin(), inks.end(), [](const QColor& ink) { return ink.alpha() == 255; });
}

} // namespace

struct CDepthHolographicWidget::Side
{
    bool buy;
    bool isActive;
    int number; ///< of the order
    int lots;   ///< of the order
    int previous;
    int next;
    E_DEAL_KIND kind;
    EDealInk line;
    EDealInk breakLine;
};

CDepthHolographicWidget::Side CDepthHolographicWidget::sideOf(const HolographicDeal& deal, bool buy)
{
    if (buy)
        return {true,
                deal.activeSide == kBuySide,
                deal.buyNo,
                deal.buyLots,
                deal.buyPrevious,
                deal.buyNext,
                deal.buyKind,
                eInkBuy,
                eInkBuyBreak};
    return {false,
            deal.activeSide == kSellSide,
            deal.sellNo,
            deal.sellLots,
            deal.sellPrevious,
            deal.sellNext,
            deal.sellKind,
            eInkSell,
            eInkSellBreak};
}

// Deals in view
// -------------------------------------------------------------------------------------------------------------------

void CDepthHolographicWidget::readDeals()
{
    m_geometry = geometry();
    m_deals.clear();
    m_places.clear();
    if (!m_geometry.holdsDeals())
        return;
    const int start = m_geometry.startIndex;
    const int end = m_model->getEndIndex();
    m_deals.reserve(static_cast<std::size_t>(std::max(end - start + 1, 0)));
    m_places.reserve(m_deals.capacity());
    std::int64_t lots = 0;
    m_model->visitDeals(start, end, [&](const HolographicDeal& deal) {
        const int left = m_geometry.leftX(deal.index, lots);
        m_deals.push_back(deal);
        m_places.push_back({left, m_geometry.rightX(deal.volume, left)});
        lots += deal.volume;
    });
}

void CDepthHolographicWidget::dropDeals()
{
    if (m_deals.capacity() > kKeptDeals) {
        std::vector<HolographicDeal>().swap(m_deals);
        std::vector<Place>().swap(m_places);
    }
    m_deals.clear();
    m_places.clear();
}

const HolographicDeal* CDepthHolographicWidget::dealInView(int seq) const
{
    const std::int64_t place = std::int64_t(seq) - m_geometry.startIndex;
    const bool isThere = place >= 0 && place < static_cast<std::int64_t>(m_deals.size());
    return isThere ? &m_deals[static_cast<std::size_t>(place)] : nullptr;
}

const CDepthHolographicWidget::Place& CDepthHolographicWidget::placeOf(int seq) const
{
    return m_places[static_cast<std::size_t>(seq - m_geometry.startIndex)];
}

bool CDepthHolographicWidget::isDrawn(int seq, const HolographicDeal& before) const
{
    return seq < before.index && dealInView(seq) != nullptr;
}

E_DEAL_KIND CDepthHolographicWidget::kindOf(int seq, bool buy) const
{
    const HolographicDeal* const deal = dealInView(seq);
    if (deal == nullptr)
        return m_model->getDataKind(m_model->getData(seq), buy);
    return buy ? deal->buyKind : deal->sellKind;
}

/// Puts the places of the deals into the maps that the mouse and the time strip read. Most of the keys are
/// there from the picture before and only get new values.
void CDepthHolographicWidget::rememberPlaces()
{
    const int start = m_geometry.startIndex;
    const int end = start + static_cast<int>(m_deals.size());
    while (!m_dealRightX.isEmpty() && m_dealRightX.firstKey() < start)
        m_dealRightX.erase(m_dealRightX.begin());
    while (!m_dealRightX.isEmpty() && m_dealRightX.lastKey() >= end)
        m_dealRightX.erase(std::prev(m_dealRightX.end()));
    auto entry = m_dealRightX.begin();
    for (int seq = start; seq < end; ++seq) {
        const int right = placeOf(seq).right;
        if (entry != m_dealRightX.end() && entry.key() == seq)
            *entry++ = right;
        else
            m_dealRightX.insert(entry, seq, right);
    }
    m_timeSpanX.clear();
    auto span = m_timeSpanX.end();
    for (int seq = start; seq < end; ++seq) {
        const Place& place = placeOf(seq);
        const int time = dealInView(seq)->time;
        if (span == m_timeSpanX.end() || span.key() != time)
            span = m_timeSpanX.insert(m_timeSpanX.cend(), time, {place.left, place.right});
        else
            span->second = place.right;
    }
}

void CDepthHolographicWidget::drawDeal(QPainter& painter)
{
    painter.setClipRect(0, 0, m_chartWidth, m_chartHeight);
    if (!m_geometry.holdsDeals())
        return;
    painter.setFont(barFont());
    const QFontMetrics metrics(barFont(), this);
    m_leastTextWidth = metrics.horizontalAdvance(QLatin1Char('0'));
    for (char digit = '1'; digit <= '9'; ++digit)
        m_leastTextWidth = std::min(m_leastTextWidth, metrics.horizontalAdvance(QLatin1Char(digit)));

    const auto drawAll = [this](DealCanvas& canvas) {
        for (const HolographicDeal& deal : m_deals) {
            const QPoint point(placeOf(deal.index).left, m_geometry.priceToY(deal.price));
            drawSell(canvas, point, deal);
            drawBuy(canvas, point, deal);
        }
    };
    // Columns are those of logical pixels; a finer screen shows more of a shape.
    const bool canBeColumns = areOpaque(m_inks) && qFuzzyCompare(painter.device()->devicePixelRatioF(), 1);
    const bool wantsColumns =
        m_drawing == eDrawAsFits ? m_deals.size() > kFewDeals : m_drawing == eDrawByColumns;
    const bool byColumns = canBeColumns && wantsColumns;
    if (byColumns) {
        ColumnDealCanvas canvas(painter, m_inks, QSize(m_chartWidth, m_chartHeight), m_columns);
        drawAll(canvas);
        canvas.finish();
    } else {
        PlainDealCanvas canvas(painter, m_inks);
        drawAll(canvas);
    }
    rememberPlaces();
    painter.setClipping(false);
}

// One deal
// ------------------------------------------------------------------------------------------------------------------------

void CDepthHolographicWidget::drawBuy(DealCanvas& canvas, QPoint point, const HolographicDeal& deal)
{
    drawSide(canvas, point + QPoint(0, 1), deal, true);
}

void CDepthHolographicWidget::drawSell(DealCanvas& canvas, QPoint point, const HolographicDeal& deal)
{
    drawSide(canvas, point - QPoint(0, m_geometry.drawHeight(deal.sellLots)), deal, false);
}

/// `point` is the top left corner of the bar.
void CDepthHolographicWidget::drawSide(DealCanvas& canvas, const QPoint& point, const HolographicDeal& deal,
                                       bool buy)
{
    const Side side = sideOf(deal, buy);
    QRect rect(point, QSize(m_geometry.barWidth(deal.volume), m_geometry.drawHeight(side.lots)));
    bool urgent = false;
    const auto fillIfActive = [&] {
        if (side.isActive)
            canvas.fill(rect, eInkActive);
    };
    const auto drawTopAndBottom = [&] {
        canvas.line(rect.topLeft(), rect.topRight(), side.line);
        canvas.line(rect.bottomLeft(), rect.bottomRight(), side.line);
    };
    const auto drawRight = [&] { canvas.line(rect.topRight(), rect.bottomRight(), side.line); };

    switch (side.kind) {
    case E_DEAL_WHOLE:
        if (deal.volume > m_geometry.fullHeightHand) {
            fillIfActive();
            rect.adjust(0, 0, -1, -1);
            canvas.outline(rect, side.line);
            urgent = true;
        } else if (const int height = m_geometry.lineHeight(deal.volume); height >= 1) {
            // From the price line, which lies below a sell bar and above a buy bar.
            const int from = buy ? rect.top() : rect.bottom();
            const int to = buy ? from + height : from - height + 1;
            canvas.line(QPoint(rect.left(), from), QPoint(rect.left(), to), side.line);
            drawMarketPricelMark(canvas, rect, deal, buy);
            return;
        }
        break;
    case E_DEAL_JOINED:
        if (side.previous != -1)
            rect.setLeft(rect.left() - (m_geometry.gap() + 1));
        fillIfActive();
        if (side.previous == -1) {
            canvas.line(rect.topLeft(), rect.bottomLeft(), side.line);
        } else if (side.next == -1) {
            drawRight();
            urgent = true;
        }
        drawTopAndBottom();
        break;
    case E_DEAL_FLAT_BREAK:
        drawFlatBreak(canvas, rect, deal, side);
        fillIfActive();
        drawTopAndBottom();
        if (side.next == -1)
            drawRight();
        urgent = true;
        break;
    case E_DEAL_SLANTED_BREAK:
        fillIfActive();
        drawSlantedBreak(canvas, rect, deal, side);
        [[fallthrough]];
    case E_DEAL_OPENING:
        fillIfActive();
        drawTopAndBottom();
        if (side.next == -1) {
            drawRight();
            urgent = true;
        }
        break;
    }
    if (buy)
        drawBuyOrderVolume(canvas, rect, deal);
    else
        drawSellOrderVolume(canvas, rect, deal);
    drawMarketPricelMark(canvas, rect, deal, buy);
    if (urgent)
        drawUrgentOrderMark(canvas, rect, deal, buy);
}

void CDepthHolographicWidget::drawFlatBreak(DealCanvas& canvas, const QRect& rect,
                                            const HolographicDeal& deal, const Side& side)
{
    if (!isDrawn(side.previous, deal))
        return;
    const int from = placeOf(side.previous).right;
    canvas.line(QPoint(from, rect.top()), rect.topLeft(), side.breakLine);
    canvas.line(QPoint(from, rect.bottom()), rect.bottomLeft(), side.breakLine);
}

void CDepthHolographicWidget::drawSlantedBreak(DealCanvas& canvas, const QRect& rect,
                                               const HolographicDeal& deal, const Side& side)
{
    if (!isDrawn(side.previous, deal))
        return;
    const double previousPrice = dealInView(side.previous)->price;
    const int y = m_geometry.priceToY(previousPrice);
    const bool fromAbove = previousPrice > deal.price;
    // The line sets out beside this deal, not at the deal before: it shows where the order comes from.
    QPoint from(rect.left() - m_geometry.gap(), 0);
    if (side.buy)
        from.setY(fromAbove ? y + m_geometry.halfRow + 1 : y + 1);
    else
        from.setY(fromAbove ? y - 1 : y - rect.height() - 1);
    canvas.line(from, fromAbove ? rect.topLeft() : rect.bottomLeft(), side.breakLine);
}

// Numbers
// ------------------------------------------------------------------------------------------------------------------------

void CDepthHolographicWidget::drawBuyOrderVolume(DealCanvas& canvas, const QRect& rect,
                                                 const HolographicDeal& deal)
{
    drawOrderVolume(canvas, rect, deal, true);
}

void CDepthHolographicWidget::drawSellOrderVolume(DealCanvas& canvas, const QRect& rect,
                                                  const HolographicDeal& deal)
{
    drawOrderVolume(canvas, rect, deal, false);
}

void CDepthHolographicWidget::drawOrderVolume(DealCanvas& canvas, QRect rect, const HolographicDeal& deal,
                                              bool buy)
{
    if (rect.height() < m_baseHalfRow - kTextInFlatBar)
        return;
    const Side side = sideOf(deal, buy);
    if (side.kind != E_DEAL_WHOLE) {
        // The number stands on the last piece in view. Only the buy side asks whether there is a next piece
        // at all; the kind of none is that of an opening one.
        if (side.next <= m_model->getEndIndex() && (!buy || side.next != -1)) {
            const E_DEAL_KIND next = kindOf(side.next, buy);
            if (next == E_DEAL_JOINED || next == E_DEAL_FLAT_BREAK)
                return;
        }
        if (side.kind == E_DEAL_JOINED || side.kind == E_DEAL_FLAT_BREAK)
            rect.setLeft(runLeft(rect.left(), side.previous, buy));
    }
    if (rect.width() <= m_leastTextWidth + kTextRoom)
        return;
    const QString text = QString::number(side.lots);
    if (rect.width() > QFontMetrics(barFont(), this).horizontalAdvance(text) + kTextRoom)
        canvas.text(rect, text, side.line);
}

/// The left end of a run of which the piece before `seq` begins at `left`.
int CDepthHolographicWidget::runLeft(int left, int seq, bool buy) const
{
    while (seq != -1) {
        const HolographicDeal* const deal = dealInView(seq);
        if (deal == nullptr)
            break;
        left = placeOf(seq).right - m_geometry.barWidth(deal->volume);
        const Side side = sideOf(*deal, buy);
        if (side.kind != E_DEAL_JOINED && side.kind != E_DEAL_FLAT_BREAK)
            break;
        if (side.previous >= seq)
            break;
        seq = side.previous;
    }
    return left;
}

// Marks
// ------------------------------------------------------------------------------------------------------------------------

void CDepthHolographicWidget::drawMarketPricelMark(DealCanvas& canvas, const QRect& rect,
                                                   const HolographicDeal& deal, bool buy)
{
    if (rect.width() < kMarkLeg || rect.height() < kMarkLeg)
        return;
    const auto order = m_model->getOrder(buy ? deal.buyNo : deal.sellNo);
    if (order && isOrderSpecial(order))
        drawMark(canvas, rect, buy, eInkMarket);
}

void CDepthHolographicWidget::drawUrgentOrderMark(DealCanvas& canvas, const QRect& rect,
                                                  const HolographicDeal& deal, bool buy)
{
    if (rect.width() < kMarkLeg || rect.height() < kMarkLeg)
        return;
    const auto order = m_model->getOrder(buy ? deal.buyNo : deal.sellNo);
    if (!order || isOrderSpecial(order))
        return;
    const double beyond = order->price - deal.price;
    if (buy ? isPositive(beyond) : isNegative(beyond))
        drawMark(canvas, rect, buy, eInkUrgent);
}

void CDepthHolographicWidget::drawMark(DealCanvas& canvas, const QRect& rect, bool buy, EDealInk ink)
{
    const QPoint corner = buy ? rect.topRight() : rect.bottomRight();
    canvas.triangle(corner, -kMarkLeg, buy ? kMarkLeg : -kMarkLeg, ink);
}

} // namespace Kel
