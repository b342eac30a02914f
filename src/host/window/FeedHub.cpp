#include "host/window/FeedHub.h"

#include <boost/make_shared.hpp>

#include <utility>

namespace host {

namespace {

constexpr std::size_t kLargeBatch = 500; // records: below, waking a thread takes longer than the work

} // namespace

void FeedHub::add(Receiver receiver)
{
    m_receivers.push_back(std::move(receiver));
}

void FeedHub::setReceivers(std::vector<Receiver> receivers)
{
    m_receivers = std::move(receivers);
}

void FeedHub::setInstrument(const nelservice::CInstrumentDetail& instrument)
{
    m_market = instrument.market;
    m_code = instrument.code;
}

/// Hands a batch of so many records to the receivers, a large one side by side.
void FeedHub::forEach(std::size_t records, const std::function<void(const Receiver&)>& give)
{
    if (records >= kLargeBatch && m_receivers.size() > 1) {
        m_sideBySide.run(m_receivers.size(), [&](std::size_t at) { give(m_receivers[at]); });
        return;
    }
    for (const Receiver& receiver : m_receivers)
        give(receiver);
}

void FeedHub::onOrders(const std::string& key, int seq, int status, const Kel::MetaCacheDataWrapperPtr& batch)
{
    m_records += static_cast<std::int64_t>(batch->data.size());
    const QString instrument = QString::fromStdString(key);
    forEach(batch->data.size(), [&](const Receiver& receiver) {
        if (receiver.orders)
            receiver.orders(instrument, seq, status, batch);
    });
}

void FeedHub::onDeals(const std::string& key, int seq, int status, const Kel::MetaCacheDataWrapperPtr& batch)
{
    m_records += static_cast<std::int64_t>(batch->data.size());
    const QString instrument = QString::fromStdString(key);
    forEach(batch->data.size(), [&](const Receiver& receiver) {
        if (receiver.deals)
            receiver.deals(instrument, seq, status, batch);
    });
}

void FeedHub::onQuotes(const std::string&, int seq, int status, const quoter::QuoterBatch& batch)
{
    m_records += static_cast<std::int64_t>(batch.size());
    Kel::MetaCacheDataWrapperPtr named;
    for (const Receiver& receiver : m_receivers) {
        if (receiver.quotes)
            receiver.quotes(seq, status, batch);
        if (!receiver.quoteBatches)
            continue;
        if (!named) {
            named = boost::make_shared<Kel::MetaCacheDataWrapper>();
            named->data = batch;
            named->market = m_market;
            named->instrument = m_code;
        }
        receiver.quoteBatches(seq, status, named);
    }
}

void FeedHub::onLadders(const std::string&, int seq, int status, const Kel::MetaCacheDataWrapperPtr& batch)
{
    m_records += static_cast<std::int64_t>(batch->data.size());
    for (const Receiver& receiver : m_receivers) {
        if (receiver.ladders)
            receiver.ladders(seq, status, batch);
    }
}

} // namespace host
