#pragma once

#include "records/DepthExport.h"

#include <QString>

namespace nelservice {

/// Texts for numbers of the reference data.
class DEPTH_EXPORT CEnumsDataHelper
{
public:
    /// The number of a level: "一" to "十" for 1 to 10, any other number in decimal digits. Any thread.
    static QString numberToFomatString(int number);
};

} // namespace nelservice
