#include "host/window/state/pane_states.h"

#include "host/window/panes/Pane.h"
#include "host/window/state/PaneVeil.h"
#include "host/window/state/StateBadge.h"

#include <QDockWidget>

namespace host {

namespace {

bool takesFeed(Pane& pane)
{
    const FeedHub::Receiver receiver = pane.receiver();
    return receiver.orders || receiver.deals || receiver.quotes || receiver.quoteBatches || receiver.ladders;
}

} // namespace

FeedHub::Receiver receiverOf(Kel::CDataStateWatch& watch)
{
    FeedHub::Receiver receiver;
    receiver.orders = [&watch](const QString& key, int seq, int status,
                               const Kel::MetaCacheDataWrapperPtr& batch) {
        watch.onEntrustCallback(key, seq, status, batch);
    };
    receiver.deals = [&watch](const QString& key, int seq, int status,
                              const Kel::MetaCacheDataWrapperPtr& batch) {
        watch.onTransactionCallback(key, seq, status, batch);
    };
    receiver.quoteBatches = [&watch](int seq, int status, const Kel::MetaCacheDataWrapperPtr& batch) {
        watch.onQuoterCallback(QString::fromStdString(batch->market + batch->instrument), seq, status,
                               batch->data);
    };
    return receiver;
}

void showDataState(Pane& pane, const DataStateView& view)
{
    const DataStateView shown = takesFeed(pane) ? view : DataStateView();
    for (QWidget* up = pane.parentWidget(); up; up = up->parentWidget()) {
        auto* dock = qobject_cast<QDockWidget*>(up);
        if (!dock)
            continue;
        QWidget* title = dock->titleBarWidget();
        if (auto* badge = title ? title->findChild<StateBadge*>() : nullptr)
            badge->setState(shown);
        break;
    }
    auto* veil = pane.findChild<PaneVeil*>(QString(), Qt::FindDirectChildrenOnly);
    if (!veil && stateNotice(shown).isEmpty())
        return;
    if (!veil)
        veil = new PaneVeil(&pane);
    veil->setState(shown);
}

} // namespace host
