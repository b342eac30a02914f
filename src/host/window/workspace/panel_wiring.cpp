#include "host/window/workspace/panel_wiring.h"

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

} // namespace

bool PanelWiring::answer(Pane& from, int id, int first, int second, const QString& text)
{
    switch (id) {
    case kEventLevelSelected:
        if (&from == ladder)
            ladder->answerSelection(first, second);
        return true;
    case kEventDealSelected: {
        (void)text;
        if (m_answering)
            return true;
        const QScopedValueRollback<bool> answering(m_answering, true);
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
    default:
        return false;
    }
}

} // namespace host
