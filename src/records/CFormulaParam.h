#pragma once

#include "records/DepthExport.h"

#include <map>
#include <string>

namespace Kel {

/// Parameters that a panel passes on to its model without reading them: values by name.
struct DEPTH_EXPORT CFormulaParam
{
    std::map<std::string, std::string> values;
};

} // namespace Kel
