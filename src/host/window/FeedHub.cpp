#include "host/window/FeedHub.h"

#include <utility>

namespace host {

void FeedHub::add(Receiver receiver)
{
    m_receivers.push_back(std::move(receiver));
}

void FeedHub::onOrders(const std::string& key, int seq, int status, const Kel::MetaCacheDataWrapperPtr& batch)
{
    m_records += static_cast<std::int64_t>(batch->data.size());
    const QString instrument = QString::fromStdString(key);
    for (const Receiver& receiver : m_receivers) {
        if (receiver.orders)
            receiver.orders(instrument, seq, status, batch);
    }
}

void FeedHub::onDeals(const std::string& key, int seq, int status, const Kel::MetaCacheDataWrapperPtr& batch)
{
    m_records += static_cast<std::int64_t>(batch->data.size());
    const QString instrument = QString::fromStdString(key);
    for (const Receiver& receiver : m_receivers) {
        if (receiver.deals)
            receiver.deals(instrument, seq, status, batch);
    }
}

void FeedHub::onQuotes(const std::string&, int seq, int status, const quoter::QuoterBatch& batch)
{
    m_records += static_cast<std::int64_t>(batch.size());
    for (const Receiver& receiver : m_receivers) {
        if (receiver.quotes)
            receiver.quotes(seq, status, batch);
    }
}

} // namespace host
