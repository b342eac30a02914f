#include "records/CInstrumentDetail.h"
#include "records/COrderVol.h"
#include "records/DepthCancelData.h"
#include "records/DepthOrderData.h"
#include "records/DepthTransData.h"
#include "records/EntrustData.h"
#include "records/LevelOrderData.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/Notice.h"
#include "records/OrderData.h"
#include "records/OrderQueueData.h"
#include "records/QuoterAllData.h"
#include "records/QuoterDepthData.h"
#include "records/SingleQueue.h"
#include "records/SingleQuote.h"
#include "records/TRegionInfo.h"
#include "records/TSMetaInfo.h"
#include "records/TransactionData.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Kel;

namespace {
template <class Expected, class Field>
constexpr bool isType(const Field&)
{
    return std::is_same<Expected, Field>::value;
}
} // namespace

TEST(QuoteRecords, DeriveFromThePolymorphicRootWithItsTime)
{
    EXPECT_TRUE((std::is_base_of<quoter::QuoterBase, quoter::OrderData>::value));
    EXPECT_TRUE((std::is_base_of<quoter::QuoterBase, quoter::TransactionData>::value));
    EXPECT_TRUE((std::is_base_of<quoter::QuoterBase, quoter::LevelOrderData>::value));
    EXPECT_TRUE((std::is_base_of<quoter::QuoterBase, quoter::QuoterDepthData>::value));
    EXPECT_TRUE((std::is_base_of<quoter::QuoterBase, quoter::Notice>::value));
    EXPECT_TRUE(std::is_polymorphic<quoter::QuoterBase>::value);
    EXPECT_TRUE(isType<std::int64_t>(quoter::QuoterBase().m_time));
}

TEST(QuoteRecords, OfAnotherTypeCastToNull)
{
    const quoter::QuoterBasePtr record = boost::make_shared<quoter::OrderData>();
    EXPECT_TRUE(boost::dynamic_pointer_cast<quoter::OrderData>(record));
    EXPECT_FALSE(boost::dynamic_pointer_cast<quoter::TransactionData>(record));
    EXPECT_FALSE(boost::dynamic_pointer_cast<quoter::LevelOrderData>(record));
    EXPECT_FALSE(boost::dynamic_pointer_cast<quoter::QuoterDepthData>(record));
    EXPECT_FALSE(boost::dynamic_pointer_cast<quoter::OrderData>(quoter::QuoterBasePtr()));
}

TEST(OrderRecord, HasItsFields)
{
    const quoter::OrderData order;
    EXPECT_TRUE(isType<double>(order.price));
    EXPECT_TRUE(isType<std::int64_t>(order.volume));
    EXPECT_TRUE(isType<std::int64_t>(order.entrustNo));
    EXPECT_TRUE(isType<std::int32_t>(order.kind));
    EXPECT_TRUE(isType<std::int32_t>(order.side));
}

TEST(TransactionRecord, HasItsFields)
{
    const quoter::TransactionData deal;
    EXPECT_TRUE(isType<double>(deal.price));
    EXPECT_TRUE(isType<std::int64_t>(deal.volume));
    EXPECT_TRUE(isType<std::int32_t>(deal.dealNo));
    EXPECT_TRUE(isType<std::int32_t>(deal.buyNo));
    EXPECT_TRUE(isType<std::int32_t>(deal.sellNo));
    EXPECT_TRUE(isType<std::int32_t>(deal.kind));
    EXPECT_EQ(quoter::eTransactionCancel, 3);
}

TEST(LevelRecord, HasItsFields)
{
    const quoter::LevelOrderData level;
    EXPECT_TRUE(isType<double>(level.bidPrice));
    EXPECT_TRUE(isType<std::vector<std::int32_t>>(level.bidVolumes));
    EXPECT_TRUE(isType<double>(level.askPrice));
    EXPECT_TRUE(isType<std::vector<std::int32_t>>(level.askVolumes));
    EXPECT_TRUE(isType<std::int32_t>(level.bidCount));
    EXPECT_TRUE(isType<std::int32_t>(level.askCount));
}

TEST(DepthSnapshot, HasTenPricesAndVolumesASide)
{
    const quoter::QuoterDepthData depth;
    EXPECT_EQ(std::extent<decltype(depth.askPrice)>::value, 10u);
    EXPECT_EQ(std::extent<decltype(depth.askVolume)>::value, 10u);
    EXPECT_EQ(std::extent<decltype(depth.bidPrice)>::value, 10u);
    EXPECT_EQ(std::extent<decltype(depth.bidVolume)>::value, 10u);
    EXPECT_TRUE(isType<double>(depth.lastPrice));
    EXPECT_TRUE(isType<double>(depth.askPrice[0]));
    EXPECT_TRUE(isType<double>(depth.bidPrice[0]));
    EXPECT_TRUE(isType<std::int64_t>(depth.askVolume[0]));
    EXPECT_TRUE(isType<std::int64_t>(depth.bidVolume[0]));
}

TEST(FullQuote, HasAnIntegerStatus)
{
    const quoter::QuoterAllData quote;
    EXPECT_TRUE(isType<std::int32_t>(quote.status));
    EXPECT_EQ(quote.status, 0);
}

TEST(SubscriptionRecords, AreBsonRecordsWithTheirFieldsZeroAndEmpty)
{
    EXPECT_TRUE((std::is_base_of<quoter::BsonInterface, quoter::TSMetaInfo>::value));
    EXPECT_TRUE((std::is_base_of<quoter::BsonInterface, quoter::TRegionInfo>::value));
    const quoter::TSMetaInfo meta;
    EXPECT_EQ(meta.market, "");
    EXPECT_EQ(meta.instrument, "");
    EXPECT_EQ(meta.metaId, 0);
    EXPECT_EQ(meta.period, 0);
    EXPECT_EQ(meta.extra1, "");
    EXPECT_EQ(meta.extra2, "");
    const quoter::TRegionInfo region;
    EXPECT_EQ(region.start.milliseconds, 0);
    EXPECT_EQ(region.start.fraction, 0);
    EXPECT_EQ(region.end.milliseconds, 0);
    EXPECT_EQ(region.limit, 0);
    EXPECT_EQ(quoter::eMetaLevel2Queue, 1804);
    EXPECT_EQ(quoter::eMetaProxyLookup, 1010);
}

TEST(NoticeRecord, HasATitleAndALink)
{
    const quoter::Notice notice;
    EXPECT_TRUE(isType<std::string>(notice.title));
    EXPECT_TRUE(isType<std::string>(notice.link));
    quoter::NoticeList list;
    list.append(boost::make_shared<quoter::Notice>());
    EXPECT_EQ(list.size(), 1);
}

TEST(BatchWrapper, NamesItsInstrument)
{
    const MetaCacheDataWrapper wrapper;
    EXPECT_TRUE(isType<quoter::QuoterBatch>(wrapper.data));
    EXPECT_TRUE(isType<std::string>(wrapper.market));
    EXPECT_TRUE(isType<std::string>(wrapper.instrument));
}

TEST(InstrumentDetail, HasMarketCodeTickAndPreviousClose)
{
    const nelservice::CInstrumentDetail detail;
    EXPECT_TRUE(isType<std::string>(detail.market));
    EXPECT_TRUE(isType<std::string>(detail.code));
    EXPECT_TRUE(isType<double>(detail.priceTick));
    EXPECT_TRUE(isType<double>(detail.previousClose));
}

TEST(OrderOfALevel, HasItsFields)
{
    const COrderVol order;
    EXPECT_TRUE(isType<std::int64_t>(order.m_entrustNo));
    EXPECT_TRUE(isType<double>(order.m_vol));
    EXPECT_TRUE(isType<EOrderQueueType>(order.m_type));
    EXPECT_TRUE(isType<double>(order.m_partDealVol));
}

TEST(Level, TakesPriceTimeAndSideAndIsOtherwiseEmpty)
{
    const OrderQueueData level(10.25, 34200, OQT_SELL);
    EXPECT_EQ(level.m_price, 10.25);
    EXPECT_EQ(level.m_time, 34200);
    EXPECT_EQ(level.m_type, OQT_SELL);
    EXPECT_EQ(level.m_sumVol, 0);
    EXPECT_EQ(level.m_levelVol, 0);
    EXPECT_EQ(level.m_avgVol, 0);
    EXPECT_EQ(level.m_unknownVol, 0);
    EXPECT_TRUE(level.m_orders.isEmpty());
    EXPECT_TRUE(level.m_orderIds.isEmpty());
    EXPECT_EQ(level.m_level, 0);
    EXPECT_EQ(level.m_count, 0);
    EXPECT_EQ(level.m_startIndex, 0);
    EXPECT_FALSE(level.m_hasPartDeal);
    EXPECT_TRUE(isType<std::int64_t>(level.m_time));
    EXPECT_TRUE(isType<std::int32_t>(level.m_level));
    EXPECT_TRUE(isType<std::int32_t>(level.m_count));
    EXPECT_TRUE(isType<std::int32_t>(level.m_startIndex));
}

TEST(TickRows, HaveTheirFieldsAndWidths)
{
    const DepthTransData row;
    EXPECT_TRUE(isType<std::int32_t>(row.time));
    EXPECT_TRUE(isType<double>(row.price));
    EXPECT_TRUE(isType<std::int32_t>(row.volume));
    EXPECT_TRUE(isType<std::int32_t>(row.sellNo));
    EXPECT_TRUE(isType<std::int32_t>(row.buyNo));
    EXPECT_EQ(row.buyPrevious, -1);
    EXPECT_EQ(row.buyNext, -1);
    EXPECT_EQ(row.sellPrevious, -1);
    EXPECT_EQ(row.sellNext, -1);
    EXPECT_TRUE(isType<std::int16_t>(row.sellRun));
    EXPECT_TRUE(isType<std::int16_t>(row.buyRun));
    EXPECT_TRUE(isType<std::int32_t>(row.trend));
    EXPECT_TRUE(isType<std::int32_t>(row.activeSide));
    EXPECT_TRUE(isType<std::uint8_t>(row.volumeRise));

    const DepthOrderData order;
    EXPECT_TRUE(isType<std::int32_t>(order.time));
    EXPECT_TRUE(isType<std::int32_t>(order.lots));
    EXPECT_TRUE(isType<std::int64_t>(order.volume));
    EXPECT_TRUE(isType<std::int32_t>(order.orderNo));
    EXPECT_TRUE(isType<std::int32_t>(order.side));
    EXPECT_TRUE(isType<std::int32_t>(order.kind));

    const DepthCancelData cancel;
    EXPECT_TRUE(isType<std::int32_t>(cancel.time));
    EXPECT_TRUE(isType<double>(cancel.price));
    EXPECT_TRUE(isType<std::int32_t>(cancel.lots));
    EXPECT_TRUE(isType<std::int64_t>(cancel.volume));
    EXPECT_TRUE(isType<std::int32_t>(cancel.orderNo));
}

TEST(LadderRows, HaveTheirFieldsAndWidths)
{
    const EntrustData row;
    EXPECT_TRUE(isType<double>(row.price));
    EXPECT_TRUE(isType<std::int32_t>(row.volume));
    EXPECT_TRUE(isType<std::int32_t>(row.change));
    EXPECT_TRUE(isType<std::int32_t>(row.orderCount));

    const SingleQueue queue;
    EXPECT_TRUE(isType<std::uint8_t>(queue.isBuy));
    EXPECT_TRUE(isType<std::int64_t>(queue.time));
    EXPECT_TRUE(isType<double>(queue.price));
    EXPECT_TRUE(isType<std::int32_t>(queue.totalVolume));
    EXPECT_TRUE(isType<std::int32_t>(queue.orderCount));

    const SingleQuote quote;
    EXPECT_TRUE(isType<std::int64_t>(quote.time));
    EXPECT_TRUE(isType<std::int32_t>(quote.volume));
    EXPECT_TRUE(isType<std::int32_t>(quote.dealtVolume));
    EXPECT_TRUE(isType<std::int32_t>(quote.state));
}
