#pragma once

#include "records/DepthExport.h"

#include <string>

namespace utils {

/// What a code range of an exchange is reserved for. Finer than what an instrument is, because boards and
/// share classes have ranges of their own.
enum class ECodeKind
{
    None, ///< in no range
    MainBoardStock,
    GrowthBoardStock,     ///< Shenzhen's growth board ("创业板")
    TechnologyBoardStock, ///< Shanghai's science and technology board ("科创板"), depositary receipts
                          ///< included
    BeijingStock,
    ForeignStock, ///< B shares: yuan shares bought with foreign money
    HongKongStock,
    Fund,
    Bond, ///< government, bank, enterprise and company bonds
    ConvertibleBond,
    Repurchase, ///< pledged repurchase of government bonds
    Index,
    StockOption,
};

/// The kind of the first range that `code` lies in, among the ranges of exactly this market. Connect markets
/// have the ranges of the exchange that the instrument is listed on. Any thread; any text is allowed.
DEPTH_EXPORT ECodeKind codeKind(const std::string& market, const std::string& code);

} // namespace utils
