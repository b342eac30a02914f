#include "host/window/groups/panel_wiring.h"

#include "holographic/CDepthHolographicWidget.h"
#include "host/window/panes/ChartPane.h"
#include "host/window/panes/DealsPane.h"
#include "host/window/panes/LadderPane.h"
#include "host/window/panes/QueueCell.h"
#include "queue_view/CDepthOrderQueueWidget.h"
#include "thousand/CSingleQueueWidget.h"
#include "tick/CDepthTransactionWidget.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace host {

namespace {

constexpr int kEventLevelSelected = 3223;
constexpr int kEventDealSelected = 3224;
constexpr int kEventOrderTracked = 3225;
constexpr int kEventMarkChanged = 3226;
constexpr int kEventRangeSelected = 3227;
constexpr int kNoOrder = -1;

/// Whether an index means the same deal in two models; a filter or a batch that has reached only one of them
/// shifts it.
bool isSameDeal(const boost::shared_ptr<Kel::DepthTransData>& one,
                const boost::shared_ptr<Kel::DepthTransData>& other)
{
    return one && other && one->time == other->time && one->buyNo == other->buyNo &&
           one->sellNo == other->sellNo && one->price == other->price && one->volume == other->volume;
}

void highlightSecond(DealsPane& list, const QString& timeTag)
{
    Kel::TransData second;
    second.time = timeTag.toInt();
    list.panel().highlightTransaction(&second, true);
}

} // namespace

void PanelWiring::add(Pane* pane)
{
    m_panes.push_back(pane);
}

void PanelWiring::remove(Pane* pane)
{
    m_panes.erase(std::remove(m_panes.begin(), m_panes.end(), pane), m_panes.end());
}

std::vector<ChartPane*> PanelWiring::charts(bool zoomed) const
{
    std::vector<ChartPane*> found = all<ChartPane>();
    const auto other = [zoomed](const ChartPane* chart) {
        return (chart->view() == ChartPane::EView::eZoomed) != zoomed;
    };
    found.erase(std::remove_if(found.begin(), found.end(), other), found.end());
    return found;
}

bool PanelWiring::answer(Pane& from, int id, int first, int second, const QString& text)
{
    switch (id) {
    case kEventLevelSelected:
        if (auto* ladder = qobject_cast<LadderPane*>(&from))
            ladder->answerSelection(first, second);
        return true;
    case kEventDealSelected:
        if (!m_answering) {
            const QScopedValueRollback<bool> answering(m_answering, true);
            highlight(from, second, text);
        }
        return true;
    case kEventOrderTracked:
        ++m_tracked;
        setTrackOrder(first, second);
        return true;
    case kEventMarkChanged:
        for (QueueCell* queue : all<QueueCell>()) {
            queue->panel().setVolumeColor(first, second);
            queue->panel().updateAll();
        }
        for (LadderPane* ladder : all<LadderPane>())
            ladder->orders().setVolumeColor(first, second);
        return true;
    case kEventRangeSelected: {
        auto* chart = qobject_cast<ChartPane*>(&from);
        if (chart && chart->view() == ChartPane::EView::eDay) {
            for (ChartPane* zoom : charts(true))
                zoom->showRange(first, second);
        }
        return true;
    }
    default:
        return false;
    }
}

void PanelWiring::endTracking()
{
    setTrackOrder(kNoOrder, 0);
}

int PanelWiring::takeTracked()
{
    return std::exchange(m_tracked, 0);
}

void PanelWiring::setTrackOrder(int number, int color)
{
    for (QueueCell* queue : all<QueueCell>()) {
        queue->panel().setTrackOrder(number, color);
        queue->panel().updateAll();
    }
    for (LadderPane* ladder : all<LadderPane>())
        ladder->orders().setTrackOrder(number, color);
}

/// `row` is the deal's place in the panel that tells.
void PanelWiring::highlight(Pane& from, int row, const QString& timeTag)
{
    auto* list = qobject_cast<DealsPane*>(&from);
    auto* chart = qobject_cast<ChartPane*>(&from);
    for (ChartPane* target : all<ChartPane>()) {
        if (list)
            highlightInChart(*list, *target, row, timeTag);
        else if (chart && target != chart)
            highlightInOtherChart(*chart, *target, row, timeTag);
    }
    for (DealsPane* target : all<DealsPane>()) {
        if (chart)
            highlightInList(*chart, *target, row, timeTag);
        else if (list && target != list)
            highlightInOtherList(*list, *target, row, timeTag);
    }
}

void PanelWiring::highlightInList(ChartPane& from, DealsPane& target, int deal, const QString& timeTag)
{
    highlightSecond(target, timeTag);
    if (isSameDeal(from.panel().model()->getData(deal), target.panel().model()->getData(deal)))
        target.panel().highlightTransaction(deal);
}

void PanelWiring::highlightInOtherList(DealsPane& from, DealsPane& target, int row, const QString& timeTag)
{
    highlightSecond(target, timeTag);
    if (isSameDeal(from.panel().model()->getData(row), target.panel().model()->getData(row)))
        target.panel().highlightTransaction(row);
}

/// A deal that the chart does not show is brought into view.
void PanelWiring::highlightInChart(DealsPane& from, ChartPane& target, int row, const QString& timeTag)
{
    const int second = timeTag.toInt();
    if (isSameDeal(from.panel().model()->getData(row), target.panel().model()->getData(row)))
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
