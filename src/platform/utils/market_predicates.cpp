#include "platform/utils/market_predicates.h"

#include "platform/utils/code_ranges.h"

#include <algorithm>
#include <iterator>

namespace utils {

namespace {

constexpr const char* kFutureMarkets[] = {"SHFE", "DCE", "CZCE", "CFFEX", "INE", "GFEX"};

bool isKind(const std::string& market, const std::string& code, ECodeKind kind)
{
    return codeKind(market, code) == kind;
}

} // namespace

bool isShanghaiMarket(const std::string& market)
{
    return market == "SH";
}

bool isShenzhenMarket(const std::string& market)
{
    return market == "SZ";
}

bool isBeijingMarket(const std::string& market)
{
    return market == "BJ";
}

bool isHKMarket(const std::string& market)
{
    return market == "HK";
}

bool isStockMarket(const std::string& market)
{
    return isShanghaiMarket(market) || isShenzhenMarket(market) || isBeijingMarket(market);
}

bool isFutureMarket(const std::string& market)
{
    return std::find(std::begin(kFutureMarkets), std::end(kFutureMarkets), market) !=
           std::end(kFutureMarkets);
}

bool isStockOptionMarket(const std::string& market)
{
    return market == "SHOP" || market == "SZOP";
}

bool isHGTMarket(const std::string& market)
{
    return market == "SHHK" || market == "HKSH";
}

bool isSGTMarket(const std::string& market)
{
    return market == "SZHK" || market == "HKSZ";
}

bool isShanghaiIndex(const std::string& market, const std::string& code)
{
    return isShanghaiMarket(market) && isIndex(market, code);
}

bool isShenzhenIndex(const std::string& market, const std::string& code)
{
    return isShenzhenMarket(market) && isIndex(market, code);
}

bool isIndex(const std::string& market, const std::string& code)
{
    return isKind(market, code, ECodeKind::Index);
}

bool isStock(const std::string& market, const std::string& code)
{
    switch (codeKind(market, code)) {
    case ECodeKind::MainBoardStock:
    case ECodeKind::GrowthBoardStock:
    case ECodeKind::TechnologyBoardStock:
    case ECodeKind::BeijingStock:
    case ECodeKind::ForeignStock:
    case ECodeKind::HongKongStock:
        return true;
    default:
        return false;
    }
}

bool isFund(const std::string& market, const std::string& code)
{
    return isKind(market, code, ECodeKind::Fund);
}

bool isBond(const std::string& market, const std::string& code)
{
    return isKind(market, code, ECodeKind::Bond);
}

bool isConvertibleBond(const std::string& market, const std::string& code)
{
    return isKind(market, code, ECodeKind::ConvertibleBond);
}

bool isLoan(const std::string& market, const std::string& code, int)
{
    return isBond(market, code) || isConvertibleBond(market, code);
}

bool isShenzhenGovernmentLoanRepurchase(const std::string& code)
{
    return isKind("SZ", code, ECodeKind::Repurchase);
}

bool isGovernmentLoanRepurchase(const std::string& market, const std::string& code)
{
    return isKind(market, code, ECodeKind::Repurchase);
}

bool isGrowthBoard(const std::string& market, const std::string& code)
{
    return isKind(market, code, ECodeKind::GrowthBoardStock);
}

bool isShanghaiTechBoard(const std::string& market, const std::string& code)
{
    return isKind(market, code, ECodeKind::TechnologyBoardStock);
}

bool isFuture(const std::string& market, const std::string& code)
{
    if (!isFutureMarket(market))
        return false;
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto digits = std::find_if_not(code.begin(), code.end(), isLetter);
    const auto letterCount = digits - code.begin();
    const auto digitCount = code.end() - digits;
    return letterCount >= 1 && letterCount <= 3 && digitCount >= 2 && digitCount <= 4 &&
           std::all_of(digits, code.end(), isDigit);
}

bool isStockOption(const std::string& market, const std::string& code)
{
    return isKind(market, code, ECodeKind::StockOption);
}

nelservice::EInstrumentKind instrumentKind(const std::string& market, const std::string& code)
{
    using nelservice::EInstrumentKind;
    switch (codeKind(market, code)) {
    case ECodeKind::MainBoardStock:
    case ECodeKind::GrowthBoardStock:
    case ECodeKind::TechnologyBoardStock:
    case ECodeKind::BeijingStock:
    case ECodeKind::ForeignStock:
    case ECodeKind::HongKongStock:
        return EInstrumentKind::Stock;
    case ECodeKind::Fund:
        return EInstrumentKind::Fund;
    case ECodeKind::Bond:
        return EInstrumentKind::Bond;
    case ECodeKind::ConvertibleBond:
        return EInstrumentKind::ConvertibleBond;
    case ECodeKind::Repurchase:
        return EInstrumentKind::Repurchase;
    case ECodeKind::Index:
        return EInstrumentKind::Index;
    case ECodeKind::StockOption:
        return EInstrumentKind::Option;
    case ECodeKind::None:
        break;
    }
    if (isFuture(market, code))
        return EInstrumentKind::Future;
    return EInstrumentKind::Unknown;
}

} // namespace utils
