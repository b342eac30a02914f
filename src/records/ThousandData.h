#pragma once

#include "records/DepthExport.h"
#include "records/QuoterBase.h"

#include <cstdint>
#include <vector>

namespace quoter {

/// One standing order of a level.
struct DEPTH_EXPORT ThousandOrder
{
    std::int64_t number = 0;
    std::int64_t time = 0;        ///< milliseconds since 1970-01-01 UTC
    std::int64_t volume = 0;      ///< shares, original
    std::int64_t dealtVolume = 0; ///< shares dealt
};

/// One price of the ladder.
struct DEPTH_EXPORT ThousandLevel
{
    double price = 0;                  ///< yuan
    std::int64_t volume = 0;           ///< shares
    std::int32_t orderCount = 0;       ///< orders at the price
    std::vector<ThousandOrder> orders; ///< in order of arrival; empty where the service tells none
};

/// The whole ladder of an instrument at one moment, ready-made by the quote service. The time is that of the
/// newest order or deal that it contains.
struct DEPTH_EXPORT ThousandData : QuoterBase
{
    double lastPrice = 0;            ///< yuan, of the newest deal; 0 before the first
    std::int64_t lastVolume = 0;     ///< shares of the newest deal
    std::vector<ThousandLevel> buys; ///< best price first
    std::vector<ThousandLevel> sells;
};

} // namespace quoter
