#pragma once

namespace quoter {

/// How much of a series a subscription asks for.
enum DataDemand : int
{
    eDemandLatest = 0,   ///< what is newest
    eDemandCoverAll = 1, ///< everything within the region, in one answer
};

} // namespace quoter
