#pragma once

#include "records/BsonInterface.h"
#include "records/DepthExport.h"

#include <cstdint>

namespace quoter {

/// A moment of a region: milliseconds since 1970-01-01 UTC and the sub-millisecond part, which is 0 in every
/// use.
struct DEPTH_EXPORT TTimeValue
{
    std::int64_t milliseconds = 0;
    std::int32_t fraction = 0;
};

/// The range of a subscription. Written to BSON as "start", "startFraction", "end", "endFraction", "limit".
class DEPTH_EXPORT TRegionInfo : public BsonInterface
{
public:
    TTimeValue start;       ///< first time, inclusive
    TTimeValue end;         ///< last time, inclusive
    std::int32_t limit = 0; ///< most records; 0 for no limit

    void appendElements(bson::BSONObjBuilder& builder) const override;
    void bsonValueFromObj(bson::BSONObj object) override;
};

} // namespace quoter
