#pragma once

#include "feed/FeedSink.h"

#include <QString>

#include <boost/function.hpp>

#include <atomic>
#include <cstdint>
#include <vector>

namespace host {

/// Hands what a feed delivers to all panels. Receivers are added on the GUI thread before the feed starts and
/// are never taken out; they are called on the feed's thread, in the order of adding, and only hand on.
class FeedHub : public feed::FeedSink
{
public:
    /// What a panel takes of a feed; empty functions are passed over.
    struct Receiver
    {
        boost::function<void(const QString& key, int seq, int status, const Kel::MetaCacheDataWrapperPtr&)>
            orders;
        boost::function<void(const QString& key, int seq, int status, const Kel::MetaCacheDataWrapperPtr&)>
            deals;
        boost::function<void(int seq, int status, const quoter::QuoterBatch&)> quotes;
    };

    void add(Receiver receiver);

    /// Records delivered so far. Any thread.
    std::int64_t records() const { return m_records.load(); }

    void onOrders(const std::string& key, int seq, int status,
                  const Kel::MetaCacheDataWrapperPtr& batch) override;
    void onDeals(const std::string& key, int seq, int status,
                 const Kel::MetaCacheDataWrapperPtr& batch) override;
    void onQuotes(const std::string& key, int seq, int status, const quoter::QuoterBatch& batch) override;

private:
    std::vector<Receiver> m_receivers;
    std::atomic<std::int64_t> m_records{0};
};

} // namespace host
