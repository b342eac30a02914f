// The picture of the ladder: names and lines in a pixmap, numbers and distribution over it.

#include "thousand/CDepthThousandDataWidget.h"

#include "platform/resources/CUiResource.h"
#include "platform/services/CConfig.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "records/Tolerance.h"
#include "thousand/fixed_grounds.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace Kel {

namespace {

// Colours of the theme
constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr const char* kLatestLine = "ic_clr_dialog_stock_splitter";
constexpr const char* kLatestText = "ic_clr_entrust_lastest_text";
constexpr const char* kLastVolumeText = "ic_clr_entrust_newvol_amount";

// Fonts of the theme
constexpr const char* kFontText = "ic_fnt_index_modulegroup_entruststatus_text";
constexpr const char* kFontPrice = "ic_fnt_index_modulegroup_entruststatus_price";
constexpr const char* kFontVolume = "ic_fnt_index_modulegroup_entruststatus_amount";
constexpr const char* kFontCount = "ic_fnt_index_modulegroup_entruststatus_order_text";
constexpr const char* kFontBig = "ic_fnt_index_modulegroup_transaction_big_number";
constexpr const char* kFontTip = "fnt_index_title_text";

// Colours that are the same in every theme
const QColor kSelection(0, 0, 128, 255);
const QColor kHover(0x30, 0x40, 0x80, 255);
const QColor kTipGround(16, 128, 192, 255);
const QColor kTipFrame(240, 192, 16, 255);
const QColor kTipText(Qt::white);
const QColor kSellsNear(64, 255, 64, 64); // distribution, at the right edge
const QColor kSellsFar(64, 255, 64, 16);  // at its full length
const QColor kBuysNear(255, 64, 64, 64);
const QColor kBuysFar(255, 64, 64, 16);

constexpr int kClipInset = 2;      // pixels that stay free above and below the rows
constexpr int kMostPlainName = 99; // names above it are numbers and take the font of numbers
constexpr int kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr int kLeft = Qt::AlignLeft | Qt::AlignVCenter;

const Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

const QColor& themeColor(const char* key)
{
    return *resource().getColor(QLatin1String(key));
}

const QFont* themeFont(const char* key)
{
    return resource().getFont(QLatin1String(key));
}

} // namespace

void CDepthThousandDataWidget::initDraw()
{
    const CConfig* const config = getConfig();
    const bool concise = config && config->conciseStyle();
    const auto color = [concise](const char* normal, const char* other) {
        return resource().getColor(QLatin1String(concise ? other : normal));
    };
    m_clrVolume = color("ic_clr_entrust_amount", "ic_clr_concise_entrust_amount");
    m_clrCount = color("ic_clr_entrust_order_text", "ic_clr_entrust_order_text");
    m_clrFall = color("ic_clr_entrust_text_fall", "ic_clr_concise_entrust_text_fall");
    m_clrRise = color("ic_clr_entrust_text_rise", "ic_clr_concise_entrust_text_rise");
    m_clrFlat = color("ic_clr_entrust_default_text", "ic_clr_concise_entrust_default_text");
    m_fntText = themeFont(kFontText);
    m_fntPrice = themeFont(kFontPrice);
    m_fntVolume = themeFont(kFontVolume);
    m_fntCount = themeFont(kFontCount);
    m_fntBig = themeFont(kFontBig);
}

const EntrustData& CDepthThousandDataWidget::rowData(const LadderLayout& layout, int row) const
{
    const bool isSell = layout.isSell(row);
    const auto& rows = isSell ? m_sellQueues : m_buyQueues;
    const int index = isSell ? layout.sellIndex(row) : layout.buyIndex(row);
    return index >= 0 && index < static_cast<int>(rows.size()) ? *rows[static_cast<std::size_t>(index)]
                                                               : *m_emptyQueue;
}

bool CDepthThousandDataWidget::isSelected(const EntrustData& row, bool isBuy) const
{
    return m_selected && (m_selectedSide == 1) == isBuy && isEqual(row.price, m_selected->price);
}

const QColor& CDepthThousandDataWidget::priceColor(double value, double reference) const
{
    if (isEqual(value, reference))
        return *m_clrFlat;
    return value > reference ? *m_clrRise : *m_clrFall;
}

// Pixmap
// ----------------------------------------------------------------------------------------------------

void CDepthThousandDataWidget::drawBackground(const QRect& rect)
{
    if (rect.isEmpty())
        return;
    if (m_pixmap.isNull() || m_pixmap.devicePixelRatioF() != devicePixelRatioF())
        newPixmap();
    QPainter painter(&m_pixmap);
    drawBackground(painter);
}

void CDepthThousandDataWidget::drawBackground(QPainter& painter) const
{
    painter.fillRect(m_clientRect, themeColor(kGround));
    painter.setClipRect(0, kClipInset, m_clientRect.width(), m_clientRect.height() - 2 * kClipInset);
    drawNames(painter, layout());
}

void CDepthThousandDataWidget::drawNames(QPainter& painter, const LadderLayout& current) const
{
    for (int row = current.firstRow(); row < current.endRow(); ++row) {
        const int y = current.rowTop(row);
        if (current.isLatest(row)) {
            if (y + m_rowHeight < 0)
                continue;
            painter.setPen(themeColor(kLatestLine));
            painter.drawLine(0, y, m_clientRect.width(), y);
            painter.drawLine(0, y + m_rowHeight, m_clientRect.width(), y + m_rowHeight);
            painter.setPen(themeColor(kLatestText));
            painter.setFont(*m_fntText);
            painter.drawText(current.nameCell(y), kLeft, QStringLiteral("最新"));
            painter.drawText(current.lastVolumeLabel(y), kLeft, QStringLiteral("现手"));
            continue;
        }
        const bool isBuy = !current.isSell(row);
        const bool selected = isSelected(rowData(current, row), isBuy);
        if (selected)
            painter.fillRect(current.selection(y), kSelection);
        const int number = current.levelNumber(row);
        const QColor& ink = isBuy ? *m_clrRise : *m_clrFall;
        painter.setPen(selected ? inkOnDark(ink) : ink);
        painter.setFont(number > kMostPlainName ? *m_fntVolume : *m_fntText);
        painter.drawText(current.nameCell(y), kRight, levelName(number, isBuy));
    }
}

// Painting
// --------------------------------------------------------------------------------------------------

void CDepthThousandDataWidget::paintEvent(QPaintEvent*)
{
    if (!isVisible() || m_pixmap.isNull())
        return;
    // Moved to a screen of another scale: the picture is drawn for that one.
    if (m_pixmap.devicePixelRatioF() != devicePixelRatioF())
        drawBackground(m_clientRect);
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_pixmap);
    if (m_showDistribute)
        drawDistribute(painter);
    drawGraph(painter);
    if (m_showTip)
        drawTip(painter);
}

void CDepthThousandDataWidget::drawGraph(QPainter& painter) const
{
    const LadderLayout current = layout();
    const Reference prices{getLastClose(), getPriceTick()};
    for (int row = current.firstRow(); row < current.endRow(); ++row) {
        if (current.isLatest(row))
            drawLatestRow(painter, current, current.rowTop(row), prices);
        else
            drawLevel(painter, current, row, prices);
    }
}

void CDepthThousandDataWidget::drawLevel(QPainter& painter, const LadderLayout& current, int row,
                                         const Reference& prices) const
{
    const EntrustData& entry = rowData(current, row);
    const bool isEmpty = &entry == m_emptyQueue.get();
    const int y = current.rowTop(row);
    const int hover = row == m_hoverRow ? m_hoverColumn : LadderLayout::eNoColumn;

    const bool selected = isSelected(entry, !current.isSell(row));
    const auto pen = [&](const QColor& ink, int column) {
        painter.setPen(selected || (hover == column && column != LadderLayout::eNoColumn) ? inkOnDark(ink)
                                                                                          : ink);
    };

    painter.setFont(*m_fntPrice);
    if (hover == LadderLayout::ePrice)
        painter.fillRect(LadderLayout::hoverBox(current.priceCell(y)), kHover);
    pen(priceColor(entry.price, prices.lastClose), LadderLayout::ePrice);
    painter.drawText(current.priceCell(y), kRight,
                     isEmpty ? QStringLiteral("-")
                             : Zeb::formatPriceDoubleNumber(entry.price, prices.priceTick));

    if (entry.orderCount > 0) {
        if (hover == LadderLayout::eCount)
            painter.fillRect(current.countCell(y), kHover);
        painter.setFont(*m_fntCount);
        pen(*m_clrCount, LadderLayout::eCount);
        painter.drawText(current.countCell(y), kLeft, QStringLiteral(" %1").arg(entry.orderCount));
    }

    const QString volume = isEmpty ? QStringLiteral("-") : QString::number(entry.volume);
    painter.setFont(entry.volume > m_bigVolume ? *m_fntBig : *m_fntVolume);
    if (hover == LadderLayout::eVolume) {
        const int textWidth = painter.fontMetrics().horizontalAdvance(volume);
        painter.fillRect(current.volumeHoverBox(y, textWidth), kHover);
    }
    pen(*m_clrVolume, LadderLayout::eVolume);
    painter.drawText(current.volumeCell(y), kRight, volume);

    if (entry.change != 0) {
        pen(priceColor(entry.change, 0), LadderLayout::eNoColumn);
        painter.drawText(current.changeCell(y), kRight,
                         (entry.change > 0 ? QStringLiteral("+") : QString()) +
                             QString::number(entry.change));
    }
}

void CDepthThousandDataWidget::drawLatestRow(QPainter& painter, const LadderLayout& current, int y,
                                             const Reference& prices) const
{
    if (y + m_rowHeight < 0)
        return;
    if (!isEqual(m_latestPrice, kNoPrice)) {
        painter.setFont(*m_fntPrice);
        painter.setPen(priceColor(m_latestPrice, prices.lastClose));
        painter.drawText(current.priceCell(y), kRight,
                         Zeb::formatPriceDoubleNumber(m_latestPrice, prices.priceTick));
    }
    if (m_lastVolume > 0) {
        painter.setFont(*m_fntVolume);
        painter.setPen(themeColor(kLastVolumeText));
        painter.drawText(current.lastVolumeCell(y), kRight, Zeb::formatIntNumber(m_lastVolume, 0, 0));
    }
}

void CDepthThousandDataWidget::drawDistribute(QPainter& painter) const
{
    if ((m_sellQueues.empty() && m_buyQueues.empty()) || isLess(m_maxPrice, m_minPrice))
        return;
    drawSide(painter, m_sellQueues, false);
    drawSide(painter, m_buyQueues, true);
}

/// The value that stands at each price of a side, as an area at the right edge.
void CDepthThousandDataWidget::drawSide(QPainter& painter,
                                        const std::vector<boost::shared_ptr<EntrustData>>& rows,
                                        bool isBuy) const
{
    if (rows.empty())
        return;
    const LadderLayout current = layout();
    const int right = current.distributionRight();
    const int span = current.distributionSpan();
    const auto yOf = [&](double price) {
        return distributionY(price, m_minPrice, m_maxPrice, m_clientRect.height());
    };
    QPainterPath path;
    path.moveTo(right, yOf(rows.front()->price));
    for (const boost::shared_ptr<EntrustData>& row : rows)
        path.lineTo(right - distributionLength(span, row->volume * row->price, m_maxAmount), yOf(row->price));
    path.lineTo(right, yOf(rows.back()->price));
    path.lineTo(right, yOf(rows.front()->price));

    QLinearGradient gradient(right - span, 0, right, 0);
    gradient.setColorAt(1, isBuy ? kBuysNear : kSellsNear);
    gradient.setColorAt(0, isBuy ? kBuysFar : kSellsFar);
    painter.fillPath(path, gradient);
}

void CDepthThousandDataWidget::drawTip(QPainter& painter) const
{
    painter.setFont(*themeFont(kFontTip));
    const QRect box =
        tipBox(m_cursorPos, painter.fontMetrics().horizontalAdvance(m_tipText), m_clientRect.size());
    painter.fillRect(box, kTipGround);
    painter.setPen(kTipFrame);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.setPen(kTipText);
    painter.drawText(box, Qt::AlignCenter, m_tipText);
}

} // namespace Kel
