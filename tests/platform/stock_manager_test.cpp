#include "platform/services/CStockManager.h"

#include "platform/services/instrument_functions.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <thread>

using Kel::CStockManager;

namespace {

nelservice::CInstrumentDetailPtr detail(const std::string& market, const std::string& code, double close = 0)
{
    auto made = boost::make_shared<nelservice::CInstrumentDetail>();
    made->market = market;
    made->code = code;
    made->previousClose = close;
    return made;
}

} // namespace

TEST(StockManager, FindsAnInstrumentByItsKey)
{
    CStockManager manager;
    const auto moutai = detail("SH", "600519");
    manager.addInstrument(moutai);
    EXPECT_EQ(manager.getInstrumentDetail("SH600519"), moutai);
    EXPECT_EQ(manager.getInstrumentDetail("SZ600519"), nullptr);
    EXPECT_EQ(manager.getInstrumentDetail("sh600519"), nullptr);
    EXPECT_EQ(manager.getInstrumentDetail(""), nullptr);
    EXPECT_EQ(manager.getInstrumentDetail(QString()), nullptr);
}

TEST(StockManager, FindsABareCodeOnlyWhileOneMarketHasIt)
{
    CStockManager manager;
    const auto bank = detail("SZ", "000001");
    const auto index = detail("SH", "000001");
    manager.addInstrument(bank);
    EXPECT_EQ(manager.getInstrumentDetail("000001"), bank);
    manager.addInstrument(index);
    EXPECT_EQ(manager.getInstrumentDetail("000001"), nullptr);
    EXPECT_EQ(manager.getInstrumentDetail("SZ000001"), bank);
    EXPECT_EQ(manager.getInstrumentDetail("SH000001"), index);
    manager.removeInstrument("SZ000001");
    EXPECT_EQ(manager.getInstrumentDetail("000001"), index);
}

TEST(StockManager, AKeyGoesBeforeABareCode)
{
    CStockManager manager;
    const auto byCode = detail("XX", "SH600519");
    manager.addInstrument(byCode);
    EXPECT_EQ(manager.getInstrumentDetail("SH600519"), byCode);
    const auto byKey = detail("SH", "600519");
    manager.addInstrument(byKey);
    EXPECT_EQ(manager.getInstrumentDetail("SH600519"), byKey);
}

TEST(StockManager, ANewDetailReplacesTheOldOneOfItsKey)
{
    CStockManager manager;
    manager.addInstrument(detail("SH", "600519", 1));
    const auto newer = detail("SH", "600519", 2);
    manager.addInstrument(newer);
    EXPECT_EQ(manager.getInstrumentDetail("600519"), newer);
    EXPECT_EQ(manager.instruments().size(), 1u);
    manager.addInstrument(newer);
    EXPECT_EQ(manager.getInstrumentDetail("600519"), newer);
}

TEST(StockManager, IgnoresNullAndNamelessDetailsAndUnknownKeys)
{
    CStockManager manager;
    manager.addInstrument(nullptr);
    manager.addInstrument(detail("SH", ""));
    manager.removeInstrument("SH600519");
    EXPECT_TRUE(manager.instruments().empty());
    EXPECT_EQ(manager.getInstrumentDetail("SH"), nullptr);
}

TEST(StockManager, ListsInstrumentsInOrderOfTheirKeysUntilCleared)
{
    CStockManager manager;
    for (const char* code : {"600519", "510300", "601825"})
        manager.addInstrument(detail("SH", code));
    manager.addInstrument(detail("BJ", "920002"));
    std::string keys;
    for (const auto& instrument : manager.instruments())
        keys += Kel::getDetailQsKey(instrument).toStdString() + " ";
    EXPECT_EQ(keys, "BJ920002 SH510300 SH600519 SH601825 ");
    manager.clear();
    EXPECT_TRUE(manager.instruments().empty());
    EXPECT_EQ(manager.getInstrumentDetail("600519"), nullptr);
}

TEST(StockManager, TheCloseEnteredForADateGoesBeforeTheDetails)
{
    CStockManager manager;
    const auto moutai = detail("SH", "600519", 1800.5);
    manager.addInstrument(moutai);
    EXPECT_EQ(manager.getCurrentDateLastClose(moutai, 20230201), 1800.5);
    manager.setLastClose("SH600519", 20230201, 1845.99);
    EXPECT_EQ(manager.getCurrentDateLastClose(moutai, 20230201), 1845.99);
    EXPECT_EQ(manager.getCurrentDateLastClose(moutai, 20230202), 1800.5);
    EXPECT_EQ(manager.getCurrentDateLastClose(nullptr, 20230201), 0);
    manager.setLastClose("SH600519", 20230201, std::nan(""));
    EXPECT_EQ(manager.getCurrentDateLastClose(moutai, 20230201), 1845.99);
    manager.removeInstrument("SH600519");
    EXPECT_EQ(manager.getCurrentDateLastClose(moutai, 20230201), 1800.5);
}

TEST(StockManager, ACustomIndexIsAKnownOneOfItsMarket)
{
    CStockManager manager;
    manager.addInstrument(detail(Kel::kCustomIndexMarket, "900001"));
    manager.addInstrument(detail("SH", "000001"));
    EXPECT_TRUE(manager.isCustomIndex("CI900001"));
    EXPECT_FALSE(manager.isCustomIndex("CI900002"));
    EXPECT_FALSE(manager.isCustomIndex("SH000001"));
    EXPECT_FALSE(manager.isCustomIndex(""));
}

TEST(StockManager, ManyThreadsLookUpWhileOthersAddAndRemove)
{
    CStockManager manager;
    const auto steady = detail("SH", "600519", 7);
    manager.addInstrument(steady);
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int writer = 0; writer < 2; ++writer) {
        threads.emplace_back([&manager, writer] {
            const std::string code = std::to_string(300000 + writer);
            for (int i = 0; i < 500; ++i) {
                manager.addInstrument(detail("SZ", code));
                manager.setLastClose("SH600519", i, i);
                manager.removeInstrument(QString::fromStdString("SZ" + code));
            }
        });
    }
    for (int reader = 0; reader < 2; ++reader) {
        threads.emplace_back([&] {
            for (int i = 0; i < 500; ++i) {
                if (manager.getInstrumentDetail("600519") != steady || manager.instruments().empty())
                    ++wrong;
                const double close = manager.getCurrentDateLastClose(steady, i);
                if (close != i && close != 7)
                    ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(manager.instruments().size(), 1u);
}

TEST(InstrumentFunctions, TheKeyIsMarketAndCode)
{
    EXPECT_EQ(Kel::getDetailQsKey(detail("SH", "600519")), "SH600519");
    EXPECT_EQ(Kel::getDetailQsKey(nullptr), "");
    EXPECT_EQ(Kel::getDetailMarket(detail("SH", "600519")), "SH");
    EXPECT_EQ(Kel::getDetailMarket(nullptr), "");
}

TEST(InstrumentFunctions, ATickThatIsNoTickIsACent)
{
    const auto fund = detail("SH", "510300");
    fund->priceTick = 0.001;
    EXPECT_EQ(Kel::getDetailPriceTick(fund), 0.001);
    for (const double tick : {0.0, -0.01, std::nan(""), std::numeric_limits<double>::infinity()}) {
        fund->priceTick = tick;
        EXPECT_EQ(Kel::getDetailPriceTick(fund), 0.01) << tick;
    }
    EXPECT_EQ(Kel::getDetailPriceTick(nullptr), 0.01);
}

TEST(InstrumentFunctions, TheLastCloseOfNullIsZero)
{
    EXPECT_EQ(Kel::getDetailLastClose(detail("SH", "600519", 12.5)), 12.5);
    EXPECT_EQ(Kel::getDetailLastClose(nullptr), 0);
}
