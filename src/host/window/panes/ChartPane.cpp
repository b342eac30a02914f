#include "host/window/panes/ChartPane.h"

#include "holographic/CDepthHolographicWidget.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/tables/chart_tables.h"
#include "host/window/tables/text_tables.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kLatest = -1; // both ends of a range that means the last deals
constexpr int kAround = 60; // seconds before and after a deal that is brought into view
constexpr int kLooks = 4;   // a few refreshes, after which the chart has laid out what has come

QString idOf(ChartPane::EView view)
{
    return view == ChartPane::EView::eDay ? QStringLiteral("chart") : QStringLiteral("zoom");
}

QString titleOf(ChartPane::EView view)
{
    return view == ChartPane::EView::eDay ? sourceText("全息成交图") : sourceText("全息放大图");
}

} // namespace

ChartPane::ChartPane(EView view, QWidget* parent)
    : Pane(idOf(view), titleOf(view), parent), m_view(view), m_panel(new Kel::CDepthHolographicWidget(this))
{
    setContentWidget(m_panel, 0, 0, true);
    setWantedSize(QSize(900, 400));
}

void ChartPane::setInstrument(const QString& key)
{
    m_panel->clear();
    m_panel->setStock(key);
    m_looks = kLooks;
}

void ChartPane::showRange(int begin, int end)
{
    m_panel->setViewTimeRange(begin, end);
    m_looks = kLooks;
}

void ChartPane::showLatest()
{
    showRange(kLatest, kLatest);
}

void ChartPane::highlight(int deal, int timeTag)
{
    const Kel::CModelDepthHolographic& model = *m_panel->model();
    if (timeTag > 0 && (deal < model.getStartIndex() || deal > model.getEndIndex())) {
        m_panel->setViewTimeRange(timeTag - kAround, timeTag + kAround);
        m_panel->slotTimeOut(); // the deal has to be in view before it can be selected
    }
    m_panel->highlightTransactionSeq(deal);
}

/// A ladder of hundreds of ticks opens at its top; what a person looks for is the newest deal.
void ChartPane::follow()
{
    const int deals = m_panel->model()->count.load();
    if (m_looks == 0 || deals == 0 || !m_panel->isVisible() || --m_looks > 0)
        return;
    m_panel->middleCurrDeal(std::min(deals - 1, m_panel->model()->getEndIndex()));
}

QString ChartPane::selectedText() const
{
    const boost::shared_ptr<Kel::CModelDepthHolographic>& model = m_panel->model();
    const int cursor = m_panel->cursorDeal();
    if (cursor >= 0 && !m_panel->isColumnMode())
        return rowText(chartDealCells(*model, cursor));
    std::pair<int, int> deals(model->getStartIndex(), model->getEndIndex());
    if (cursor >= 0 && model->getCurrSeqPair(cursor).first >= 0)
        deals = model->getCurrSeqPair(cursor);
    return deals.second < deals.first
               ? QString()
               : tableText(chartDealTable(model, deals.first, deals.second), kMostCopiedRows);
}

std::vector<PaneTable> ChartPane::tables() const
{
    const boost::shared_ptr<Kel::CModelDepthHolographic>& model = m_panel->model();
    const int first = model->getStartIndex();
    const int last = model->getEndIndex();
    return {
        PaneTable{uiText("图中成交"), id() + QStringLiteral("-deals"), chartDealTable(model, first, last)},
        PaneTable{uiText("图中行情区间"), id() + QStringLiteral("-intervals"),
                  chartIntervalTable(*model, first, last)}};
}

FeedHub::Receiver ChartPane::receiver()
{
    FeedHub::Receiver receiver;
    receiver.orders = [panel = m_panel](const QString& key, int seq, int status, const auto& batch) {
        panel->onEntrustCallback(key, seq, status, batch);
    };
    receiver.deals = [panel = m_panel](const QString& key, int seq, int status, const auto& batch) {
        panel->onTransactionCallback(key, seq, status, batch);
    };
    receiver.quoteBatches = [panel = m_panel](int seq, int status,
                                              const Kel::MetaCacheDataWrapperPtr& batch) {
        const QString key = QString::fromStdString(batch->market + batch->instrument);
        panel->slotQuoterCallBack(seq, status, batch->data, key, 0);
    };
    return receiver;
}

} // namespace host
