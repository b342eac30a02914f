#pragma once

#include "records/DepthExport.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <vector>

namespace Zeb {

class CEventHandler;

/// Sends events of one widget to those above it. GUI thread.
class DEPTH_EXPORT CEventDeliverer
{
public:
    /// `sender` is the widget whose parents are asked; it owns this object or is this object.
    explicit CEventDeliverer(QWidget* sender);
    virtual ~CEventDeliverer() = default;

    /// Asks the parents of the sender from the nearest up, each once, until a `handleEvent` answers true, and
    /// does not go beyond the window that the sender is in; then the receivers that were added, in their
    /// order. A widget that takes no events is passed over. Synchronous: a handler may delete the sender, and
    /// nobody else is asked then. True if somebody took the event.
    bool deliverEvent(int id, int first, int second, const QString& text, void* data);

    /// Adds a receiver that is no parent. It is asked after the parents and must be removed before it dies.
    /// Null and one that was added before are ignored.
    void addReceiver(CEventHandler* receiver);
    void removeReceiver(CEventHandler* receiver);

private:
    QPointer<QWidget> m_sender;
    std::vector<CEventHandler*> m_receivers;
};

} // namespace Zeb
