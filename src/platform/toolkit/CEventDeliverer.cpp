#include "platform/toolkit/CEventDeliverer.h"

#include "platform/toolkit/CEventHandler.h"

#include <algorithm>

namespace Zeb {

CEventDeliverer::CEventDeliverer(QWidget* sender) : m_sender(sender) {}

bool CEventDeliverer::deliverEvent(int id, int first, int second, const QString& text, void* data)
{
    if (!m_sender)
        return false;
    const QPointer<QWidget> sender = m_sender;
    const auto receivers = m_receivers;
    QPointer<QWidget> asked = m_sender;
    while (asked && !asked->isWindow()) {
        asked = asked->parentWidget();
        auto* handler = dynamic_cast<CEventHandler*>(asked.data());
        if (handler && handler->handleEvent(id, first, second, text, data))
            return true;
        if (!sender)
            return false;
    }
    for (CEventHandler* receiver : receivers) {
        const bool stillAdded =
            std::find(m_receivers.begin(), m_receivers.end(), receiver) != m_receivers.end();
        if (stillAdded && receiver->handleEvent(id, first, second, text, data))
            return true;
        if (!sender)
            return false;
    }
    return false;
}

void CEventDeliverer::addReceiver(CEventHandler* receiver)
{
    if (receiver && std::find(m_receivers.begin(), m_receivers.end(), receiver) == m_receivers.end())
        m_receivers.push_back(receiver);
}

void CEventDeliverer::removeReceiver(CEventHandler* receiver)
{
    m_receivers.erase(std::remove(m_receivers.begin(), m_receivers.end(), receiver), m_receivers.end());
}

} // namespace Zeb
