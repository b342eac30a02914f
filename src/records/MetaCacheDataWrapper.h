#pragma once

#include "records/DepthExport.h"
#include "records/QuoterBase.h"

#include <string>

namespace Kel {

/// A tick batch with the instrument that it belongs to. Never changed after it was handed over.
struct DEPTH_EXPORT MetaCacheDataWrapper
{
    quoter::QuoterBatch data; ///< the records, oldest first
    std::string market;       ///< market code, compared with the instrument's
    std::string instrument;   ///< instrument code, compared with the instrument's
};

using MetaCacheDataWrapperPtr = boost::shared_ptr<MetaCacheDataWrapper>;

} // namespace Kel
