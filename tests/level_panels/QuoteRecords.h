#pragma once

#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "records/QuoterDepthData.h"
#include "records/TransactionData.h"

#include <boost/make_shared.hpp>

/// Instruments and records that the tests of the quote panels send.
namespace test {

inline Kel::CStockManager& stocks()
{
    return utils::CSingletonT<Kel::CStockManager>::instance();
}

inline void addInstrument(const char* market, const char* code, double tick = 0.01, double close = 10)
{
    auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
    detail->market = market;
    detail->code = code;
    detail->name = code;
    detail->priceTick = tick;
    detail->previousClose = close;
    stocks().addInstrument(detail);
}

/// A full snapshot: sell one at 10.01 and up, buy one at 9.99 and down, 100 to 109 and 200 to 209 lots,
/// latest price 10.
inline boost::shared_ptr<quoter::QuoterDepthData> fullSnapshot()
{
    auto record = boost::make_shared<quoter::QuoterDepthData>();
    record->m_time = utils::exchangeTime(20230201, 10, 0, 0, 250);
    for (int i = 0; i < quoter::kDepthLevels; ++i) {
        record->askPrice[i] = (1001 + i) / 100.0;
        record->askVolume[i] = 100 + i;
        record->bidPrice[i] = (999 - i) / 100.0;
        record->bidVolume[i] = 200 + i;
    }
    record->lastPrice = 10;
    record->totalVolume = 100000;
    return record;
}

} // namespace test
