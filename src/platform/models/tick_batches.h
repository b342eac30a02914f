#pragma once

#include "records/CInstrumentDetail.h"
#include "records/MetaCacheDataWrapper.h"

#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <thread>

/// How the models of ticks take batches. Any thread.
namespace Kel {

constexpr int kStatusAnew = 0; ///< replaces what came on the channel before
constexpr int kUsualVolumeUnit = 100;

/// Long lists are filtered on it.
constexpr const char* kFilterStrand = "tick_filter";

/// Whether a batch of this status is taken: 0 replaces, 1, 2 and 3 add.
inline bool isBatchStatus(int status)
{
    return status >= 0 && status <= 3;
}

/// Whether a batch is one of this instrument; null is none.
inline bool isBatchOf(const nelservice::CInstrumentDetailPtr& detail,
                      const boost::shared_ptr<MetaCacheDataWrapper>& data)
{
    return detail && data && data->market == detail->market && data->instrument == detail->code;
}

/// Whether batches of the one are also those of the other.
inline bool isSameInstrument(const nelservice::CInstrumentDetailPtr& left,
                             const nelservice::CInstrumentDetailPtr& right)
{
    if (!left || !right)
        return left == right;
    return left->market == right->market && left->code == right->code;
}

/// Calls `take(from, to)`, which answers whether to go on, for one slice of so many rows after the other. A
/// reader gets the lock in between.
template <class Take>
void forSlices(std::size_t count, std::size_t slice, Take take)
{
    for (std::size_t from = 0; from < count; from += slice) {
        if (from > 0)
            std::this_thread::yield();
        if (!take(from, std::min(from + slice, count)))
            return;
    }
}

/// Frees what `object` holds away from the threads of the interface and of the feed.
void releaseLater(boost::shared_ptr<void> object);
void releaseLater(std::shared_ptr<void> object);

} // namespace Kel
