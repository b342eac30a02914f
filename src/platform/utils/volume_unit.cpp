#include "platform/utils/volume_unit.h"

#include "platform/utils/market_predicates.h"

namespace utils {

int getVolumeUnit(const std::string& market, const std::string& code)
{
    if (isLoan(market, code, 0) || isShenzhenGovernmentLoanRepurchase(code))
        return 10;
    if (market == "SH" && isGovernmentLoanRepurchase(market, code))
        return 10;
    return 100;
}

} // namespace utils
