#include "platform/models/LadderInstrument.h"

#include "platform/services/CStockManager.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/volume_unit.h"
#include "records/QuoterDepthData.h"
#include "records/record_cast.h"

#include <algorithm>
#include <cmath>

namespace Kel {

LadderInstrument LadderInstrument::of(const QString& code)
{
    LadderInstrument result;
    result.detail = utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(code);
    if (!result.detail)
        return result;
    result.priceTick = getDetailPriceTick(result.detail);
    result.lastClose = getDetailLastClose(result.detail);
    result.volumeUnit = std::max(utils::getVolumeUnit(result.detail->market, result.detail->code), 1);
    result.stockKey = getDetailQsKey(result.detail);
    return result;
}

bool LadderInstrument::owns(const MetaCacheDataWrapperPtr& batch) const
{
    return detail && batch && batch->market == detail->market && batch->instrument == detail->code;
}

void LadderInstrument::takeLastClose(const MetaCacheDataWrapper& batch)
{
    for (const quoter::QuoterBasePtr& record : batch.data) {
        const auto* depth = quoter::recordCast<quoter::QuoterDepthData>(record.get());
        if (depth && std::isfinite(depth->previousClose) && depth->previousClose > 0)
            lastClose = depth->previousClose;
    }
}

} // namespace Kel
