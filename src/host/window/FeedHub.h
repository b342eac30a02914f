#pragma once

#include "feed/FeedSink.h"
#include "host/window/SideBySide.h"
#include "records/CInstrumentDetail.h"

#include <QString>

#include <boost/function.hpp>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace host {

/// Hands what a feed delivers to all panels. Receivers are added and changed on the GUI thread while nothing
/// is delivered; they are called on the feed's thread, in their order. A large batch, of a history, goes to
/// several of them at once on one more thread; each gets one call at a time, in the order of the feed.
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

        /// The same quotes with their instrument.
        boost::function<void(int seq, int status, const Kel::MetaCacheDataWrapperPtr&)> quoteBatches;

        boost::function<void(int seq, int status, const Kel::MetaCacheDataWrapperPtr&)> ladders;
    };

    void add(Receiver receiver);

    /// Puts others in their place.
    void setReceivers(std::vector<Receiver> receivers);

    /// The instrument whose quotes come next. While nothing is delivered.
    void setInstrument(const nelservice::CInstrumentDetail& instrument);

    /// Records delivered so far. Any thread.
    std::int64_t records() const { return m_records.load(); }

    void onOrders(const std::string& key, int seq, int status,
                  const Kel::MetaCacheDataWrapperPtr& batch) override;
    void onDeals(const std::string& key, int seq, int status,
                 const Kel::MetaCacheDataWrapperPtr& batch) override;
    void onQuotes(const std::string& key, int seq, int status, const quoter::QuoterBatch& batch) override;
    void onLadders(const std::string& key, int seq, int status,
                   const Kel::MetaCacheDataWrapperPtr& batch) override;

private:
    void forEach(std::size_t records, const std::function<void(const Receiver&)>& give);

    SideBySide m_sideBySide;
    std::vector<Receiver> m_receivers;
    std::string m_market;
    std::string m_code;
    std::atomic<std::int64_t> m_records{0};
};

} // namespace host
