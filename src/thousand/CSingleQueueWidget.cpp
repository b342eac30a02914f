#include "thousand/CSingleQueueWidget.h"

#include "platform/resources/CUiResource.h"
#include "platform/resources/mark_colors.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "records/Tolerance.h"
#include "thousand/fixed_grounds.h"
#include "thousand/scroll_bar_sheet.h"

#include <QCoreApplication>
#include <QPainter>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QWheelEvent>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kEventScrolled = 15;

// Colours and fonts of the theme
constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr const char* kTitleGround = "kel_clr_depth_module_group_base_widget_header_bg";
constexpr const char* kRise = "ic_clr_entrust_text_rise";
constexpr const char* kFall = "ic_clr_entrust_text_fall";
constexpr const char* kTitleFont = "fnt_index_title_text";
constexpr const char* kLotsFont = "ic_fnt_index_modulegroup_entruststatus_amount";

// Colours that are the same in every theme
const QColor kFrame(240, 192, 16, 255);
const QColor kTitleText(Qt::white);
const QColor kFresh(0, 0, 128, 255);

const Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

const QColor* themeColor(const char* key)
{
    return resource().getColor(QLatin1String(key));
}

} // namespace

CSingleQueueWidget::CSingleQueueWidget(QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("single_queue_widget"), parent)
{
    setAccessibleName(QStringLiteral("单档委托队列"));
    m_scrollBar = makeScrollBar(this);
}

CSingleQueueWidget::~CSingleQueueWidget()
{
    m_quotes.clear();
}

SingleQueueLayout CSingleQueueWidget::layout() const
{
    SingleQueueLayout layout;
    layout.clientWidth = m_clientRect.width();
    layout.clientHeight = m_clientRect.height();
    layout.cellWidth = m_cellWidth;
    layout.leftMargin = m_leftMargin;
    layout.cellGap = m_cellGap;
    layout.titleHeight = m_titleHeight;
    layout.rowHeight = m_rowHeight;
    layout.columns = m_columns;
    layout.cellPitch = m_cellPitch;
    layout.scrollTop = m_scrollTop;
    return layout;
}

void CSingleQueueWidget::setSingleQueue(const std::shared_ptr<SingleQueue>& queue, double priceTick,
                                        int volumeUnit)
{
    if (!queue) {
        m_time = 0;
        m_quotes.clear();
        m_price = 0;
        m_isBuy = 0;
        m_title.clear();
        m_totalRows = 0;
        return;
    }
    const bool priceChanged = !isEqual(queue->price, m_price);
    m_time = queue->time;
    queue->getQuotes(m_quotes);
    m_price = queue->price;
    m_isBuy = queue->isBuy;
    m_orderCount = queue->orderCount;
    m_priceTick = priceTick;
    m_volumeUnit = std::max(volumeUnit, 1);

    const int total = queue->totalVolume < m_volumeUnit ? 1 : queue->totalVolume / m_volumeUnit;
    const QString pattern =
        m_isBuy ? QStringLiteral("买入 %1 共 %2 笔 总量 %3") : QStringLiteral("卖出 %1 共 %2 笔 总量 %3");
    m_title = pattern.arg(Zeb::formatPriceDoubleNumber(m_price, m_priceTick)).arg(m_orderCount).arg(total);
    m_totalRows = layout().rowsFor(std::max(m_orderCount, 0));
    fitHeight(priceChanged);
    fitScroll(priceChanged);
    update();
}

/// The panel grows with the queue and shrinks only when the level changes.
void CSingleQueueWidget::fitHeight(bool priceChanged)
{
    m_visibleRows = openingRows(m_totalRows);
    const int wanted = layout().heightFor(m_visibleRows);
    if (priceChanged || height() < wanted)
        resize(width(), wanted);
}

void CSingleQueueWidget::fitScroll(bool priceChanged)
{
    if (m_totalRows <= m_visibleRows) {
        m_scrollTop = 0;
        m_scrollBar->hide();
        return;
    }
    const int limit = m_totalRows - m_visibleRows;
    // Found first: the bar's range may move the slider, and the slider the first row.
    const int target = std::min(priceChanged ? 0 : m_scrollTop, limit);
    m_scrollBar->setMaximum(limit);
    m_scrollBar->setValue(target);
    m_scrollTop = target;
    if (m_scrollBar->isHidden())
        m_scrollBar->show();
}

void CSingleQueueWidget::setTrackOrder(int orderNo, int colorIndex)
{
    m_trackOrderNo = orderNo;
    m_trackColor = colorIndex;
    update();
}

void CSingleQueueWidget::setVolumeColor(int volume, int colorIndex)
{
    m_markVolume = volume;
    m_markColor = colorIndex;
    update();
}

bool CSingleQueueWidget::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    Q_UNUSED(first)
    Q_UNUSED(second)
    Q_UNUSED(text)
    Q_UNUSED(pointer)
    if (id != kEventScrolled)
        return false;
    if (m_scrollBar->value() != m_scrollTop) {
        m_scrollTop = m_scrollBar->value();
        update();
    }
    return true;
}

void CSingleQueueWidget::themeChanged()
{
    applyScrollBarSheet(*m_scrollBar);
    update();
}

const QColor* CSingleQueueWidget::getVolumeColor(int index) const
{
    if (index == -1)
        index = m_markColor;
    return themeColor(markColorKey(index));
}

void CSingleQueueWidget::wheelEvent(QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    const bool atEnd = (delta > 0 && m_scrollBar->value() == m_scrollBar->minimum()) ||
                       (delta < 0 && m_scrollBar->value() == m_scrollBar->maximum());
    // What the bar does not take comes back here.
    if (m_totalRows > m_visibleRows && !atEnd && !m_forwardsWheel) {
        const QScopedValueRollback<bool> forwards(m_forwardsWheel, true);
        QCoreApplication::sendEvent(m_scrollBar, event);
    }
    event->accept();
}

void CSingleQueueWidget::resizeEvent(QResizeEvent* event)
{
    Zeb::CBaseWidget::resizeEvent(event);
    if (width() <= 0 || height() <= 0 || size() == m_clientRect.size())
        return;
    m_clientRect = rect();
    m_columns = layout().fittingColumns();
    m_cellPitch = layout().pitch();
    m_visibleRows = layout().fittingRows();
    m_scrollBar->setGeometry(layout().barGeometry(m_scrollBar->width()));
    m_scrollBar->setPageStep(m_visibleRows);
}

// Picture
// ---------------------------------------------------------------------------------------------------

void CSingleQueueWidget::paintEvent(QPaintEvent*)
{
    if (!isVisible())
        return;
    QPainter painter(this);
    drawQueue(painter);
}

void CSingleQueueWidget::drawQueue(QPainter& painter) const
{
    drawFrame(painter);
    painter.setFont(*resource().getFont(QLatin1String(kLotsFont)));
    painter.setClipRect(1, 2, m_clientRect.width() - 2, m_clientRect.height() - 4);
    const SingleQueueLayout current = layout();
    int index = 0;
    for (const auto& [number, quote] : m_quotes) {
        const int row = index / m_columns;
        if (row - m_scrollTop >= m_visibleRows)
            break;
        if (row >= m_scrollTop && quote)
            drawOrder(painter, number, *quote, current.cell(index));
        ++index;
    }
}

void CSingleQueueWidget::drawFrame(QPainter& painter) const
{
    const int width = m_clientRect.width();
    const int height = m_clientRect.height();
    painter.fillRect(m_clientRect, *themeColor(kGround));
    painter.fillRect(1, 1, width - 2, m_titleHeight, *themeColor(kTitleGround));
    painter.setPen(kFrame);
    painter.drawRect(1, 1, width - 3, height - 3);
    painter.drawLine(1, m_titleHeight + 1, width - 2, m_titleHeight + 1);
    painter.setPen(kTitleText);
    painter.setFont(*resource().getFont(QLatin1String(kTitleFont)));
    painter.drawText(QRect(1, 1, width - 2, m_titleHeight), Qt::AlignCenter, m_title);
}

void CSingleQueueWidget::drawOrder(QPainter& painter, long long number, const SingleQuote& quote,
                                   const QRect& cell) const
{
    const int lots = restInLots(quote, m_volumeUnit);
    const bool fresh = isFresh(quote, m_time);
    if (fresh)
        painter.fillRect(QRect(cell.x() + 1, cell.y() + 2, m_cellWidth - 1, m_rowHeight - 2), kFresh);
    const QColor* ink = themeColor(m_isBuy ? kRise : kFall);
    if (number == m_trackOrderNo)
        ink = getVolumeColor(m_trackColor);
    else if (lots == m_markVolume)
        ink = getVolumeColor(-1);
    painter.setPen(fresh ? inkOnDark(*ink) : *ink);
    painter.drawText(cell.translated(0, 1), Qt::AlignRight | Qt::AlignVCenter, QString::number(lots));
}

} // namespace Kel
