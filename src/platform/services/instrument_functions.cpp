#include "platform/services/instrument_functions.h"

#include <cmath>

namespace Kel {

QString getDetailQsKey(const nelservice::CInstrumentDetailPtr& detail)
{
    return detail ? QString::fromStdString(detail->market + detail->code) : QString();
}

double getDetailPriceTick(const nelservice::CInstrumentDetailPtr& detail)
{
    constexpr double kUsualTick = 0.01;
    return detail && std::isfinite(detail->priceTick) && detail->priceTick > 0 ? detail->priceTick
                                                                               : kUsualTick;
}

double getDetailLastClose(const nelservice::CInstrumentDetailPtr& detail)
{
    return detail ? detail->previousClose : 0;
}

std::string getDetailMarket(const nelservice::CInstrumentDetailPtr& detail)
{
    return detail ? detail->market : std::string();
}

} // namespace Kel
