#pragma once

#include "records/CInstrumentDetail.h"
#include "records/MetaCacheDataWrapper.h"

#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <cstddef>
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

/// Calls `take(from, to)` for one slice of a batch after the other. A reader gets the lock in between.
template <class Take>
void forSlices(std::size_t count, Take take)
{
    constexpr std::size_t kSlice = 5000;
    for (std::size_t from = 0; from < count; from += kSlice) {
        if (from > 0)
            std::this_thread::yield();
        take(from, std::min(from + kSlice, count));
    }
}

/// Frees what `object` holds away from the threads of the interface and of the feed.
void releaseLater(boost::shared_ptr<void> object);

} // namespace Kel
