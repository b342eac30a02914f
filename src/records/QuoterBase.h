#pragma once

#include "records/DepthExport.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <vector>

namespace quoter {

/// Polymorphic root of all quote records.
///
/// Records are handed over in batches, are shared between all receivers and are never changed after the
/// hand-over, so any thread may read them without a lock. A receiver casts each element of a batch to the
/// type that it wants and skips what is null or of another type.
struct DEPTH_EXPORT QuoterBase
{
    virtual ~QuoterBase() = default;

    std::int64_t m_time = 0; ///< time of the record, milliseconds since 1970-01-01 UTC
};

using QuoterBasePtr = boost::shared_ptr<QuoterBase>;

/// Records of one call, oldest first.
using QuoterBatch = std::vector<QuoterBasePtr>;

} // namespace quoter
