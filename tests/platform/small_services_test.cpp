#include "platform/services/CEnumsDataHelper.h"
#include "platform/services/DataDemand.h"
#include "platform/services/proxy_type.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <limits>

TEST(LevelNumbers, AreWordsFromOneToTenAndDigitsBeyond)
{
    using nelservice::CEnumsDataHelper;
    const QStringList words = {QStringLiteral("一"), QStringLiteral("二"), QStringLiteral("三"),
                               QStringLiteral("四"), QStringLiteral("五"), QStringLiteral("六"),
                               QStringLiteral("七"), QStringLiteral("八"), QStringLiteral("九"),
                               QStringLiteral("十")};
    for (int number = 1; number <= 10; ++number)
        EXPECT_EQ(CEnumsDataHelper::numberToFomatString(number), words[number - 1]);
    EXPECT_EQ(CEnumsDataHelper::numberToFomatString(0), "0");
    EXPECT_EQ(CEnumsDataHelper::numberToFomatString(11), "11");
    EXPECT_EQ(CEnumsDataHelper::numberToFomatString(-3), "-3");
    EXPECT_EQ(CEnumsDataHelper::numberToFomatString(std::numeric_limits<int>::min()), "-2147483648");
}

TEST(ProxyType, FollowsTheMarket)
{
    EXPECT_EQ(Kel::proxyType("SH"), se::eProxyStock);
    EXPECT_EQ(Kel::proxyType("SZ"), se::eProxyStock);
    EXPECT_EQ(Kel::proxyType("BJ"), se::eProxyStock);
    EXPECT_EQ(Kel::proxyType("HK"), se::eProxyHongKong);
    EXPECT_EQ(Kel::proxyType("SHHK"), se::eProxyHongKong);
    EXPECT_EQ(Kel::proxyType("CZCE"), se::eProxyFuture);
    EXPECT_EQ(Kel::proxyType("SZOP"), se::eProxyOption);
    EXPECT_EQ(Kel::proxyType("YSWP"), se::eProxySwap);
    EXPECT_EQ(Kel::proxyType("YSWP2"), se::eProxyNone);
    EXPECT_EQ(Kel::proxyType(""), se::eProxyNone);
}

TEST(DataDemand, OneCoversAll)
{
    EXPECT_EQ(quoter::eDemandCoverAll, 1);
}
