#pragma once

#include "records/MetaCacheDataWrapper.h"

#include <string>

namespace feed {

/// What a quote service calls back with; panels, models and engines stand behind it. The sequence numbers
/// count the calls of one channel from 0. Status: 0 opens a reload of the channel, 3 is more history, 1 and 2
/// are live batches; -1 (quotes only) is a depth snapshot.
class FeedSink
{
public:
    virtual ~FeedSink() = default;

    /// A batch of quoter::OrderData.
    virtual void onOrders(const std::string& key, int seq, int status,
                          const Kel::MetaCacheDataWrapperPtr& batch) = 0;

    /// A batch of quoter::TransactionData.
    virtual void onDeals(const std::string& key, int seq, int status,
                         const Kel::MetaCacheDataWrapperPtr& batch) = 0;

    /// quoter::QuoterDepthData for status -1, quoter::LevelOrderData otherwise.
    virtual void onQuotes(const std::string& key, int seq, int status, const quoter::QuoterBatch& batch) = 0;

    /// A batch of quoter::ThousandData. Only days that hold ladders bring any.
    virtual void onLadders(const std::string& /*key*/, int /*seq*/, int /*status*/,
                           const Kel::MetaCacheDataWrapperPtr& /*batch*/)
    {
    }
};

} // namespace feed
