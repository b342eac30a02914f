#include "platform/services/last_quotes.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

class LastQuotes : public ::testing::Test
{
protected:
    void SetUp() override { Kel::clearLastQuoterAllData(); }
    void TearDown() override { Kel::clearLastQuoterAllData(); }

    static quoter::QuoterAllDataPtr quote(int status)
    {
        auto made = boost::make_shared<quoter::QuoterAllData>();
        made->status = status;
        return made;
    }
};

} // namespace

TEST_F(LastQuotes, AreNullUntilSet)
{
    EXPECT_EQ(Kel::getLastQuoterAllDataPtr("SH", "600519"), nullptr);
    EXPECT_EQ(Kel::getLastQuoterAllDataPtr("", ""), nullptr);
}

TEST_F(LastQuotes, AreKeptByMarketAndCodeAndReplaced)
{
    const auto first = quote(1);
    const auto second = quote(0);
    Kel::setLastQuoterAllData("SH", "600519", first);
    EXPECT_EQ(Kel::getLastQuoterAllDataPtr("SH", "600519"), first);
    EXPECT_EQ(Kel::getLastQuoterAllDataPtr("SZ", "600519"), nullptr);
    EXPECT_EQ(Kel::getLastQuoterAllDataPtr("SH6", "00519"), nullptr);
    Kel::setLastQuoterAllData("SH", "600519", second);
    EXPECT_EQ(Kel::getLastQuoterAllDataPtr("SH", "600519"), second);
}

TEST_F(LastQuotes, AreForgottenByNullAndByClear)
{
    Kel::setLastQuoterAllData("SH", "600519", quote(1));
    Kel::setLastQuoterAllData("SH", "600519", nullptr);
    EXPECT_EQ(Kel::getLastQuoterAllDataPtr("SH", "600519"), nullptr);
    Kel::setLastQuoterAllData("SZ", "000001", quote(1));
    Kel::clearLastQuoterAllData();
    EXPECT_EQ(Kel::getLastQuoterAllDataPtr("SZ", "000001"), nullptr);
}

TEST_F(LastQuotes, CanBeReadWhileAFeedSetsThem)
{
    std::atomic<bool> stop{false};
    std::thread feed([&stop] {
        for (int i = 0; i < 1000; ++i)
            Kel::setLastQuoterAllData("SH", std::to_string(600000 + i % 10), quote(i));
        stop = true;
    });
    std::atomic<int> seen{0};
    std::thread reader([&] {
        do {
            const auto last = Kel::getLastQuoterAllDataPtr("SH", "600009");
            if (last && last->status % 10 == 9)
                ++seen;
        } while (!stop || seen == 0);
    });
    feed.join();
    reader.join();
    EXPECT_GT(seen, 0);
    EXPECT_EQ(Kel::getLastQuoterAllDataPtr("SH", "600009")->status, 999);
}
