#pragma once

#include "records/CInstrumentDetail.h"
#include "records/DepthExport.h"

#include <string>

/// What an instrument is, told by its market and its code alone. The code ranges stand in code_ranges.cpp.
///
/// Market codes: "SH" Shanghai, "SZ" Shenzhen, "BJ" Beijing, "HK" Hong Kong; "SHHK" and "SZHK" Hong Kong
/// shares traded through Shanghai and Shenzhen, "HKSH" and "HKSZ" Shanghai and Shenzhen shares traded through
/// Hong Kong; the futures exchanges "SHFE", "DCE", "CZCE", "CFFEX", "INE", "GFEX"; the stock option markets
/// "SHOP" and "SZOP"; "YSWP" the interbank swaps. Case matters and a longer string does not match. An unknown
/// market or code answers false to all questions. Any thread.
namespace utils {

DEPTH_EXPORT bool isShanghaiMarket(const std::string& market);
DEPTH_EXPORT bool isShenzhenMarket(const std::string& market);
DEPTH_EXPORT bool isBeijingMarket(const std::string& market);
DEPTH_EXPORT bool isHKMarket(const std::string& market);

/// Shanghai, Shenzhen or Beijing.
DEPTH_EXPORT bool isStockMarket(const std::string& market);
DEPTH_EXPORT bool isFutureMarket(const std::string& market);
DEPTH_EXPORT bool isStockOptionMarket(const std::string& market);

/// The connect of Shanghai and Hong Kong, in either direction.
DEPTH_EXPORT bool isHGTMarket(const std::string& market);

/// The connect of Shenzhen and Hong Kong, in either direction.
DEPTH_EXPORT bool isSGTMarket(const std::string& market);

DEPTH_EXPORT bool isShanghaiIndex(const std::string& market, const std::string& code);
DEPTH_EXPORT bool isShenzhenIndex(const std::string& market, const std::string& code);
DEPTH_EXPORT bool isIndex(const std::string& market, const std::string& code);

/// Shares of every board and class, B shares and depositary receipts among them.
DEPTH_EXPORT bool isStock(const std::string& market, const std::string& code);

/// Closed, listed open, exchange-traded, real estate and open funds.
DEPTH_EXPORT bool isFund(const std::string& market, const std::string& code);

/// Bonds that turn into no shares.
DEPTH_EXPORT bool isBond(const std::string& market, const std::string& code);

/// Bonds that can be converted or exchanged into shares.
DEPTH_EXPORT bool isConvertibleBond(const std::string& market, const std::string& code);

/// What is traded in tens: all bonds, convertible ones among them. `flags` asks for nothing further; callers
/// pass 0.
DEPTH_EXPORT bool isLoan(const std::string& market, const std::string& code, int flags);

/// A repurchase of government bonds at Shenzhen, 131000 to 131999. Looks at the code only, whatever the
/// market is.
DEPTH_EXPORT bool isShenzhenGovernmentLoanRepurchase(const std::string& code);

/// A repurchase of government bonds: 204000 to 204999 at Shanghai, 131000 to 131999 at Shenzhen.
DEPTH_EXPORT bool isGovernmentLoanRepurchase(const std::string& market, const std::string& code);

/// Shenzhen's growth board ("创业板").
DEPTH_EXPORT bool isGrowthBoard(const std::string& market, const std::string& code);

/// Shanghai's science and technology board ("科创板").
DEPTH_EXPORT bool isShanghaiTechBoard(const std::string& market, const std::string& code);

/// A contract of a futures exchange: one to three letters and two to four digits, such as "IF2406" or
/// "SR405". Options on futures have longer codes and are none.
DEPTH_EXPORT bool isFuture(const std::string& market, const std::string& code);

/// An option on a stock or fund.
DEPTH_EXPORT bool isStockOption(const std::string& market, const std::string& code);

/// The kind for an instrument's reference record.
DEPTH_EXPORT nelservice::EInstrumentKind instrumentKind(const std::string& market, const std::string& code);

} // namespace utils
