#pragma once

#include "records/DepthExport.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace nelservice {

/// What an instrument is, beside the market that it is listed on.
enum class EInstrumentKind
{
    Unknown,
    Stock,
    Fund,
    Bond,
    ConvertibleBond,
    Repurchase,
    Index,
    Future,
    Option,
};

/// The reference record of one instrument. Shared and never changed after it was entered in the stock
/// manager.
struct DEPTH_EXPORT CInstrumentDetail
{
    std::string market;       ///< market code: "SH", "SZ", "HK", ...
    std::string code;         ///< instrument code within its market, such as "600519"
    std::string name;         ///< display name, UTF-8
    double priceTick = 0.01;  ///< smallest price step, yuan
    double previousClose = 0; ///< yuan
    double upperLimit = 0;    ///< yuan, highest price allowed today; 0 for no limit
    double lowerLimit = 0;    ///< yuan, lowest price allowed today; 0 for no limit
    EInstrumentKind kind = EInstrumentKind::Unknown;
};

using CInstrumentDetailPtr = boost::shared_ptr<CInstrumentDetail>;

} // namespace nelservice
