#include "host/window/workspace/panel_wiring.h"

#include "holographic/CDepthHolographicWidget.h"
#include "host/window/panes/ChartPane.h"
#include "host/window/panes/DealsPane.h"
#include "host/window/panes/EntrustPane.h"
#include "host/window/panes/LadderPane.h"
#include "host/window/panes/QueueCell.h"
#include "queue_view/CDepthOrderQueueWidget.h"
#include "thousand/CSingleQueueWidget.h"
#include "tick/CDepthTransactionWidget.h"

#include <QScopedValueRollback>

namespace host {

namespace {

constexpr int kEventLevelSelected = 3223;
constexpr int kEventDealSelected = 3224;
constexpr int kEventOrderTracked = 3225;
constexpr int kEventMarkChanged = 3226;
constexpr int kEventRangeSelected = 3227;

/// Whether an index means the same deal in two models; a filter or a batch that has reached only one of them
/// shifts it.
bool isSameDeal(const boost::shared_ptr<Kel::DepthTransData>& one,
                const boost::shared_ptr<Kel::DepthTransData>& other)
{
    return one && other && one->time == other->time && one->buyNo == other->buyNo &&
           one->sellNo == other->sellNo && one->price == other->price && one->volume == other->volume;
}

} // namespace

bool PanelWiring::answer(Pane& from, int id, int first, int second, const QString& text)
{
    switch (id) {
    case kEventLevelSelected:
        if (&from == ladder)
            ladder->answerSelection(first, second);
        return true;
    case kEventDealSelected: {
        if (m_answering)
            return true;
        const QScopedValueRollback<bool> answering(m_answering, true);
        if (&from == deals) {
            highlightInChart(*chart, second, text);
            highlightInChart(*zoom, second, text);
        } else if (&from == chart || &from == zoom) {
            auto& source = static_cast<ChartPane&>(from);
            highlightInList(source, second, text);
            highlightInOtherChart(source, &from == chart ? *zoom : *chart, second, text);
        }
        return true;
    }
    case kEventOrderTracked:
        ++trackedFound;
        queue->panel().setTrackOrder(first, second);
        queue->panel().updateAll();
        ladder->orders().setTrackOrder(first, second);
        return true;
    case kEventMarkChanged:
        queue->panel().setVolumeColor(first, second);
        queue->panel().updateAll();
        ladder->orders().setVolumeColor(first, second);
        return true;
    case kEventRangeSelected:
        if (&from == chart)
            zoom->showRange(first, second);
        return true;
    default:
        return false;
    }
}

void PanelWiring::highlightInList(ChartPane& from, int deal, const QString& timeTag)
{
    Kel::CDepthTransactionWidget& list = deals->panel();
    Kel::TransData second;
    second.time = timeTag.toInt();
    list.highlightTransaction(&second, true);
    if (isSameDeal(from.panel().model()->getData(deal), list.model()->getData(deal)))
        list.highlightTransaction(deal);
}

/// A deal that the chart does not show is brought into view.
void PanelWiring::highlightInChart(ChartPane& target, int row, const QString& timeTag)
{
    const int second = timeTag.toInt();
    if (isSameDeal(deals->panel().model()->getData(row), target.panel().model()->getData(row)))
        target.highlight(row, second);
    else
        target.panel().highlightTransactionTime(second);
}

/// The charts keep their ranges: the zoomed one has been given its own by hand.
void PanelWiring::highlightInOtherChart(ChartPane& from, ChartPane& target, int deal, const QString& timeTag)
{
    if (isSameDeal(from.panel().model()->getData(deal), target.panel().model()->getData(deal)))
        target.panel().highlightTransactionSeq(deal);
    else
        target.panel().highlightTransactionTime(timeTag.toInt());
}

} // namespace host
