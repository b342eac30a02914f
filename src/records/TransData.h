#pragma once

#include "records/DepthExport.h"

#include <cstdint>

namespace Kel {

/// A deal as one panel names it to another: by its time tag.
struct DEPTH_EXPORT TransData
{
    std::int32_t time = 0; ///< time tag, seconds since 1970-01-01 UTC
};

} // namespace Kel
