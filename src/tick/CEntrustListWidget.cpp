#include "tick/CEntrustListWidget.h"

#include "tick/CDepthEntrustTrackDialog.h"
#include "tick/CEntrustTitleWidget.h"

#include <QPainter>

#include <list>

namespace Kel {

namespace {

constexpr int kSecondsPerMinute = 60;
constexpr int kMinuteLineInset = 3; // of the right end
constexpr const char* kMinuteLine = "ic_clr_modelgroup_transaction_splitter";

} // namespace

CEntrustListWidget::CEntrustListWidget(const QString& objectName,
                                       const boost::shared_ptr<CModelDepthEntrust>& model,
                                       CEntrustTitleWidget* title, CDepthEntrustTrackDialog* trackDialog,
                                       QWidget* parent)
    : CTickListWidget(objectName, parent), m_model(model), m_title(title), m_trackDialog(trackDialog)
{
    CEntrustListWidget::initDraw();
}

void CEntrustListWidget::initDraw()
{
    m_clrIndex = themeColor("ic_clr_modelgroup_transaction_index");
    m_clrAmount = themeColor("ic_clr_entrust_amount");
    m_clrSplitter = themeColor("kel_clr_depth_modelgroup_transaction_splitter");
    m_font = themeFont("ic_fnt_index_modulegroup_transaction");
}

int CEntrustListWidget::otherColumns() const
{
    return m_timeWidth + m_volumeWidth + m_amountWidth + m_symbolWidth + 4 * m_columnGap;
}

void CEntrustListWidget::refresh()
{
    if (!isVisible() || !dirtyFlag())
        return;
    dirtyFlag() = false;
    takeRows();
}

void CEntrustListWidget::takeRows()
{
    updateScroll();
    m_title->setCount(m_total);
    m_title->update();
}

void CEntrustListWidget::setFilterParam(const SDepthFilterParam& param)
{
    m_filterParam = param;
    dirtyFlag() = true; // tail and title are mended at the next tick
    dropSelection();
    takeRows();
}

void CEntrustListWidget::clear(bool repaint)
{
    forgetRows();
    if (repaint) {
        drawBackground(m_rect);
        update();
    }
}

void CEntrustListWidget::rowOpened(int row)
{
    const boost::shared_ptr<DepthOrderData> order = row >= 0 ? orderOf(row) : nullptr;
    if (!order) {
        if (m_trackDialog->isVisible())
            m_trackDialog->hide();
        return;
    }
    std::list<boost::shared_ptr<quoter::TransactionData>> records;
    m_model->getTransactionData(order->orderNo, records);
    m_trackDialog->setEntrustData(order);
    m_trackDialog->setTransactionData(records);
    m_trackDialog->update();
    m_trackDialog->show();
    m_trackDialog->raise();
}

void CEntrustListWidget::drawGraph(QPainter* painter)
{
    drawSeparators(painter, m_layout.groupGap / 2);
    if (m_total == 0)
        return;
    const QPen minuteLine(*themeColor(kMinuteLine), 1, Qt::DashLine);
    const int end = std::min(m_firstIndex + m_layout.capacity(), m_total);
    int before = 0;
    bool hasBefore = m_firstIndex > 0 && timeOf(m_firstIndex - 1, before);
    int number = 0;
    painter->setFont(*m_font);
    for (int row = m_firstIndex; row < end; ++row) {
        int time = 0;
        if (!timeOf(row, time))
            break;
        const int place = row - m_firstIndex;
        const int y = m_layout.lineTop(place);
        const bool isFirst = place == 0;
        if (isFirst)
            number = traceback(row);
        else
            number = !hasBefore || before == time ? number + 1 : 1;
        if (!isFirst && hasBefore && before / kSecondsPerMinute != time / kSecondsPerMinute) {
            painter->setPen(minuteLine);
            painter->drawLine(m_layout.left(place) + 1, y,
                              m_layout.left(place) + m_layout.groupWidth - kMinuteLineInset, y);
        }
        const int x = m_layout.left(place) + m_layout.margin;
        const bool showsTime = isFirst || number == 1;
        drawCell(painter, x, y, m_timeWidth, showsTime ? clockText(time) : QString::number(number),
                 showsTime ? *m_clrIndex : *m_clrAmount);
        drawRow(painter, row, x, y);
        before = time;
        hasBefore = true;
    }
}

int CEntrustListWidget::priceLeft(int x) const
{
    return x + (m_layout.priceArea - m_priceWidth) / 2 + m_columnGap + m_timeWidth;
}

void CEntrustListWidget::drawCell(QPainter* painter, int x, int y, int width, const QString& text,
                                  const QColor& color)
{
    painter->setPen(color);
    m_texts.drawRight(*painter, *m_font, QRect(x, y, width, m_layout.rowHeight), text);
}

} // namespace Kel
