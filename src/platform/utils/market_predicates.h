#pragma once

#include "records/CInstrumentDetail.h"

#include <string>

/// What an instrument is, told by its market and its code alone. The code ranges stand in code_ranges.cpp.
///
/// Market codes: "SH" Shanghai, "SZ" Shenzhen, "BJ" Beijing, "HK" Hong Kong; "SHHK" and "SZHK" Hong Kong
/// shares traded through Shanghai and Shenzhen, "HKSH" and "HKSZ" Shanghai and Shenzhen shares traded through
/// Hong Kong; the futures exchanges "SHFE", "DCE", "CZCE", "CFFEX", "INE", "GFEX"; the stock option markets
/// "SHOP" and "SZOP"; "YSWP" the interbank swaps. Case matters and a longer string does not match. An unknown
/// market or code answers false to all questions. Any thread.
namespace utils {

bool isShanghaiMarket(const std::string& market);
bool isShenzhenMarket(const std::string& market);
bool isBeijingMarket(const std::string& market);
bool isHKMarket(const std::string& market);

/// Shanghai, Shenzhen or Beijing.
bool isStockMarket(const std::string& market);
bool isFutureMarket(const std::string& market);
bool isStockOptionMarket(const std::string& market);

/// The connect of Shanghai and Hong Kong, in either direction.
bool isHGTMarket(const std::string& market);

/// The connect of Shenzhen and Hong Kong, in either direction.
bool isSGTMarket(const std::string& market);

bool isShanghaiIndex(const std::string& market, const std::string& code);
bool isShenzhenIndex(const std::string& market, const std::string& code);
bool isIndex(const std::string& market, const std::string& code);

/// Shares of every board and class, B shares and depositary receipts among them.
bool isStock(const std::string& market, const std::string& code);

/// Closed, listed open, exchange-traded, real estate and open funds.
bool isFund(const std::string& market, const std::string& code);

/// Bonds that turn into no shares.
bool isBond(const std::string& market, const std::string& code);

/// Bonds that can be converted or exchanged into shares.
bool isConvertibleBond(const std::string& market, const std::string& code);

/// What is traded in tens: all bonds, convertible ones among them. `flags` asks for nothing further; callers
/// pass 0.
bool isLoan(const std::string& market, const std::string& code, int flags);

/// A repurchase of government bonds at Shenzhen, 131000 to 131999. Looks at the code only, whatever the
/// market is.
bool isShenzhenGovernmentLoanRepurchase(const std::string& code);

/// A repurchase of government bonds: 204000 to 204999 at Shanghai, 131000 to 131999 at Shenzhen.
bool isGovernmentLoanRepurchase(const std::string& market, const std::string& code);

/// Shenzhen's growth board ("创业板").
bool isGrowthBoard(const std::string& market, const std::string& code);

/// Shanghai's science and technology board ("科创板").
bool isShanghaiTechBoard(const std::string& market, const std::string& code);

/// A contract of a futures exchange: one to three letters and two to four digits, such as "IF2406" or
/// "SR405". Options on futures have longer codes and are none.
bool isFuture(const std::string& market, const std::string& code);

/// An option on a stock or fund.
bool isStockOption(const std::string& market, const std::string& code);

/// The kind for an instrument's reference record.
nelservice::EInstrumentKind instrumentKind(const std::string& market, const std::string& code);

} // namespace utils
