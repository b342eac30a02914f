#include "host/window/groups/PaneGroup.h"

#include "host/window/TerminalServices.h"
#include "host/window/panes/QueueCell.h"
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
    m_hub.setReceivers(std::move(receivers));
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
    for (Pane* pane : panes())
        pane->follow();
    if (m_closeAsked || m_close < 0 || now < m_close)
        return;
    m_closeAsked = true;
    for (QueueCell* queue : m_wiring.all<QueueCell>())
        queue->panel().onPostTradeClosed(TerminalServices::keyOf(m_day->detail),
                                         m_close / utils::kMSecPerSecond);
}

} // namespace host
