#pragma once

#include "feed/FeedSink.h"
#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthHolographic.h"
#include "platform/models/CModelDepthThousand.h"
#include "platform/models/CModelDepthTransaction.h"
#include "platform/models/CModelEntrustStatus.h"
#include "platform/models/CModelQuoterDepthThousand.h"
#include "records/CInstrumentDetail.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace host {

/// A 64-bit figure of all that each kind of panel can show; the same on every machine.
struct PanelHashes
{
    std::uint64_t deals = 0;       ///< the deal list, with the orders of both sides and their runs
    std::uint64_t orders = 0;      ///< orders, cancels, and the track of each order
    std::uint64_t ladder = 0;      ///< the rebuilt ladder, with the orders of each price shown
    std::uint64_t readyLadder = 0; ///< the delivered ladder, likewise
    std::uint64_t quotes = 0;      ///< ten levels with their changes, last price, last volume
    std::uint64_t chart = 0;       ///< deals, the latest ones in view, quote intervals

    /// Changes of the rows of both ladders since the look before: they depend on when one looks.
    std::uint64_t ladderChanges = 0;

    /// One figure of all of them.
    std::uint64_t all() const;
};

/// The models behind the panels without their widgets: what a window with every kind of panel would show of a
/// feed. Filters are off, the lists whole. The models take batches while the feed calls, so nothing is under
/// way when a call has returned. One thread.
class PanelModels : public feed::FeedSink
{
public:
    /// Enters the instrument in the stock manager, chooses it and empties the models. False for one that the
    /// stock manager does not take; the feed then brings nothing.
    bool open(const nelservice::CInstrumentDetail& detail);

    /// Empties the models, as panels are emptied before a feed begins anew elsewhere in the day.
    void clear();

    /// Looks at the models as panels do at a refresh, and hashes what they would show then.
    PanelHashes look();

    void onOrders(const std::string& key, int seq, int status,
                  const Kel::MetaCacheDataWrapperPtr& batch) override;
    void onDeals(const std::string& key, int seq, int status,
                 const Kel::MetaCacheDataWrapperPtr& batch) override;
    void onQuotes(const std::string& key, int seq, int status, const quoter::QuoterBatch& batch) override;
    void onLadders(const std::string& key, int seq, int status,
                   const Kel::MetaCacheDataWrapperPtr& batch) override;

    /// A ladder as it was reported last.
    struct Ladder
    {
        std::vector<boost::shared_ptr<Kel::EntrustData>> buys;
        std::vector<boost::shared_ptr<Kel::EntrustData>> sells;
        double latest = Kel::kNoPrice;         ///< yuan
        int lastVolume = Kel::kNoVolume;       ///< lots
        double minPrice = Kel::kNoLowestPrice; ///< yuan
        double maxPrice = 0;
        double maxAmount = 0; ///< lots times yuan
    };

private:
    QString m_key;
    std::string m_market;
    std::string m_code;
    Kel::CModelDepthTransaction m_deals;
    Kel::CModelDepthEntrust m_orders;
    Kel::CModelDepthThousand m_ladder{0, 0};
    Kel::CModelQuoterDepthThousand m_readyLadder{0, 0};
    Kel::CModelEntrustStatus m_quotes;
    Kel::CModelDepthHolographic m_chart;
    Ladder m_ladderShown;
    Ladder m_readyLadderShown;
};

} // namespace host
