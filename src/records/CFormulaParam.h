#pragma once

#include <map>
#include <string>

namespace Kel {

/// Parameters that a panel passes on to its model without reading them: values by name.
struct CFormulaParam
{
    std::map<std::string, std::string> values;
};

} // namespace Kel
