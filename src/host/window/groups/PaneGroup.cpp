#include "host/window/groups/PaneGroup.h"

#include "host/window/TerminalServices.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/state/pane_states.h"
#include "platform/utils/exchange_time.h"
#include "queue_view/CDepthOrderQueueWidget.h"

#include <utility>

namespace host {

void PaneGroup::setDay(int row, const DayPtr& day)
{
    m_row = day ? row : -1;
    m_day = day;
    m_range = day ? dayRange(*day) : DayRange();
}

void PaneGroup::begin()
{
    m_closeAsked = false;
    std::vector<FeedHub::Receiver> receivers;
    for (Pane* pane : panes())
        receivers.push_back(pane->receiver());
    receivers.push_back(receiverOf(m_watch));
    m_hub.setReceivers(std::move(receivers));
    m_watch.setStock(m_day ? TerminalServices::keyOf(m_day->detail) : QString());
    if (!m_day)
        return;
    m_close = TerminalServices::closeOf(*m_day);
    m_hub.setInstrument(m_day->detail);
    for (Pane* pane : panes())
        pane->setDay(m_day);
    for (Pane* pane : panes())
        pane->setInstrument(TerminalServices::keyOf(m_day->detail));
}

void PaneGroup::follow(std::int64_t now)
{
    m_watch.setClock(now);
    m_watch.check();
    const DataStateView state = viewOf(m_watch);
    for (Pane* pane : panes()) {
        pane->follow();
        showDataState(*pane, state);
    }
    if (m_closeAsked || m_close < 0 || now < m_close)
        return;
    m_closeAsked = true;
    for (QueueCell* queue : m_wiring.all<QueueCell>())
        queue->panel().onPostTradeClosed(TerminalServices::keyOf(m_day->detail),
                                         m_close / utils::kMSecPerSecond);
}

} // namespace host
