#pragma once

#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "records/CInstrumentDetail.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/OrderData.h"
#include "records/TransactionData.h"

#include <boost/make_shared.hpp>

#include <cstdint>
#include <string>
#include <vector>

/// Records of ticks for tests, in few words.
namespace testing_support {

inline const char* const kStock = "SH600519"; ///< 100 shares a lot, tick 0.01, previous close 10.00
inline const char* const kBond = "SH113050";  ///< 10 shares a lot
inline const char* const kOther = "SZ000001";

/// Enters the instruments that the tests use.
inline void addInstruments()
{
    for (const char* const key : {kStock, kBond, kOther}) {
        auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
        detail->market = std::string(key).substr(0, 2);
        detail->code = std::string(key).substr(2);
        detail->previousClose = 10.0;
        utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
    }
}

/// A moment of the tests' day, milliseconds since 1970-01-01 UTC.
inline std::int64_t at(int hour, int minute, int second, int ms = 0)
{
    return utils::exchangeTime(20230201, hour, minute, second, ms);
}

/// Its time tag.
inline int tag(int hour, int minute, int second)
{
    return static_cast<int>(at(hour, minute, second) / 1000);
}

using Batch = std::vector<boost::shared_ptr<quoter::QuoterBase>>;

inline boost::shared_ptr<Kel::MetaCacheDataWrapper> wrap(Batch records, const std::string& key = kStock)
{
    auto wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
    wrapper->data = std::move(records);
    wrapper->market = key.substr(0, 2);
    wrapper->instrument = key.substr(2);
    return wrapper;
}

inline boost::shared_ptr<quoter::OrderData> order(std::int64_t number, int side, double price,
                                                  std::int64_t shares, std::int64_t time, int kind = 1)
{
    auto record = boost::make_shared<quoter::OrderData>();
    record->m_time = time;
    record->entrustNo = number;
    record->side = side;
    record->price = price;
    record->volume = shares;
    record->kind = kind;
    return record;
}

inline boost::shared_ptr<quoter::TransactionData> deal(int number, int buyNo, int sellNo, double price,
                                                       std::int64_t shares, std::int64_t time,
                                                       int activeSide = 0)
{
    auto record = boost::make_shared<quoter::TransactionData>();
    record->m_time = time;
    record->dealNo = number;
    record->buyNo = buyNo;
    record->sellNo = sellNo;
    record->price = price;
    record->volume = shares;
    record->activeSide = activeSide;
    return record;
}

inline boost::shared_ptr<quoter::TransactionData> cancel(int number, int buyNo, int sellNo,
                                                         std::int64_t shares, std::int64_t time)
{
    auto record = deal(number, buyNo, sellNo, 0, shares, time);
    record->kind = quoter::eTransactionCancel;
    return record;
}

} // namespace testing_support
