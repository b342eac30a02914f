#include "host/window/panes/ChartPane.h"

#include "holographic/CDepthHolographicWidget.h"

namespace host {

namespace {

QString idOf(ChartPane::EView view)
{
    return view == ChartPane::EView::eDay ? QStringLiteral("chart") : QStringLiteral("zoom");
}

QString titleOf(ChartPane::EView view)
{
    return view == ChartPane::EView::eDay ? QStringLiteral("全息成交图") : QStringLiteral("全息放大图");
}

} // namespace

ChartPane::ChartPane(EView view, QWidget* parent)
    : Pane(idOf(view), titleOf(view), parent), m_panel(new Kel::CDepthHolographicWidget(this))
{
    setContentWidget(m_panel, 0, 0, true);
    setWantedSize(QSize(900, 400));
}

void ChartPane::setInstrument(const QString& key)
{
    m_panel->clear();
    m_panel->setStock(key);
    m_toNewest = true;
}

/// A ladder of hundreds of ticks opens at its top; what a person looks for is the newest deal.
void ChartPane::follow()
{
    const int deals = m_panel->model()->count.load();
    if (!m_toNewest || deals == 0 || !m_panel->isVisible() || m_panel->model()->needRecalc.load())
        return;
    m_toNewest = false;
    m_panel->middleCurrDeal(deals - 1);
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
