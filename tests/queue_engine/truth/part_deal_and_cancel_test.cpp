// What is left of an order that is dealt in part and cancelled: nothing, unless both come between two passes.

#include "queue_engine/EngineProbe.h"

#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"
#include "records/PriceKey.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace {

using testing_support::EngineProbe;

class PartDealAndCancel : public ::testing::Test
{
protected:
    PartDealAndCancel()
    {
        const auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
        detail->market = "SZ";
        detail->code = "000001";
        utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
        engine.setStock("SZ000001");
        // Orders 1 and 2 wait at 10.00, ten and five lots.
        sendDeals(0, {});
        const auto orders = boost::make_shared<Kel::MetaCacheDataWrapper>();
        orders->market = "SZ";
        orders->instrument = "000001";
        for (int number = 1; number <= 2; ++number) {
            const auto order = boost::make_shared<quoter::OrderData>();
            order->price = 10.0;
            order->volume = number == 1 ? 1000 : 500;
            order->entrustNo = number;
            order->kind = quoter::eOrderLimit;
            order->side = 1;
            orders->data.push_back(order);
        }
        engine.doOrderCallBack(0, 0, orders);
        engine.updateDataList();
    }

    void sendDeals(int status, quoter::QuoterBatch batch)
    {
        const auto wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
        wrapper->market = "SZ";
        wrapper->instrument = "000001";
        wrapper->data = std::move(batch);
        engine.doDealCallBack(0, status, wrapper);
    }

    static quoter::QuoterBasePtr record(int buyNo, int sellNo, int shares, int kind)
    {
        const auto deal = boost::make_shared<quoter::TransactionData>();
        deal->price = kind == quoter::eTransactionCancel ? 0 : 10.0;
        deal->volume = shares;
        deal->buyNo = buyNo;
        deal->sellNo = sellNo;
        deal->kind = kind;
        return deal;
    }
    static quoter::QuoterBasePtr deal(int buyNo, int shares) { return record(buyNo, 77, shares, 0); }
    static quoter::QuoterBasePtr cancel(int buyNo, int shares) { return record(buyNo, 0, shares, 3); }

    /// "number lots state" of each order, state 4 normal, 9 part dealt.
    std::string list()
    {
        std::string text;
        const auto level = engine.m_orderQueues.value(1).value(Kel::priceKey(10.0, 0.01));
        for (const Kel::COrderVol& order : level->m_orders) {
            text += std::to_string(order.m_entrustNo) + " " + std::to_string(static_cast<int>(order.m_vol)) +
                    " " + std::to_string(order.m_type) + "\n";
        }
        return text;
    }

    void passes(int count)
    {
        for (int i = 0; i < count; ++i)
            engine.updateDataList();
    }

    EngineProbe engine;
};

TEST_F(PartDealAndCancel, WithAPassBetweenThemNothingIsLeft)
{
    sendDeals(1, {deal(1, 400)});
    passes(1);
    sendDeals(1, {cancel(1, 600)});
    passes(3);
    EXPECT_EQ(list(), "2 5 4\n");
}

TEST_F(PartDealAndCancel, BetweenTwoPassesTheDealtLotsStayAsPartDealt)
{
    sendDeals(1, {deal(1, 400), cancel(1, 600)});
    passes(3);
    EXPECT_EQ(list(), "1 4 9\n2 5 4\n");
}

TEST_F(PartDealAndCancel, ThePriceTimeRuleClearsWhatStayedOnceALaterOrderIsPartDealt)
{
    sendDeals(1, {deal(1, 400), cancel(1, 600)});
    passes(3);
    sendDeals(1, {deal(2, 100)});
    passes(3);
    EXPECT_EQ(list(), "1 4 9\n2 4 9\n");
    engine.fixSZDataList(false);
    EXPECT_EQ(list(), "2 4 9\n");
}

TEST_F(PartDealAndCancel, AHistoryLoadWithItsDealsFirstLeavesNothing)
{
    sendDeals(0, {deal(1, 400), cancel(1, 600)});
    const auto orders = boost::make_shared<Kel::MetaCacheDataWrapper>();
    orders->market = "SZ";
    orders->instrument = "000001";
    const auto order = boost::make_shared<quoter::OrderData>();
    order->price = 10.0;
    order->volume = 1000;
    order->entrustNo = 1;
    order->side = 1;
    const auto other = boost::make_shared<quoter::OrderData>(*order);
    other->entrustNo = 2;
    orders->data = {order, other};
    engine.doOrderCallBack(0, 0, orders);
    passes(1);
    EXPECT_EQ(list(), "2 10 4\n");
}

} // namespace
