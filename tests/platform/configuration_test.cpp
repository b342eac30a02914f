#include "platform/services/CConfig.h"
#include "platform/services/CUserConfig.h"
#include "platform/services/external_data.h"

#include <QObject>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

/// The periods that a configuration announces, milliseconds.
class Announced
{
public:
    explicit Announced(Kel::CUserConfig& config)
    {
        QObject::connect(&config, &Kel::CUserConfig::sigRefreshTimer, &config,
                         [this](int ms) { periods.push_back(ms); });
    }
    std::vector<int> periods;
};

} // namespace

TEST(UserConfig, IsNullUntilTheHostSetsOne)
{
    EXPECT_EQ(Kel::getUserConfig(), nullptr);
    Kel::CUserConfig config;
    Kel::setUserConfig(&config);
    EXPECT_EQ(Kel::getUserConfig(), &config);
    Kel::setUserConfig(nullptr);
    EXPECT_EQ(Kel::getUserConfig(), nullptr);
}

TEST(UserConfig, ANewRefreshIntervalIsAnnouncedInTruncatedMilliseconds)
{
    Kel::CUserConfig config;
    Announced announced(config);
    EXPECT_TRUE(config.setRefreshInterval(0.2));
    EXPECT_EQ(config.refreshInterval(), 0.2);
    EXPECT_TRUE(config.setRefreshInterval(0.0019));
    EXPECT_TRUE(config.setRefreshInterval(0.001));
    EXPECT_TRUE(config.setRefreshInterval(2.5));
    EXPECT_EQ(announced.periods, (std::vector<int>{200, 1, 1, 2500}));
}

TEST(UserConfig, ABadRefreshIntervalIsRefusedInSilence)
{
    Kel::CUserConfig config;
    Announced announced(config);
    const double before = config.refreshInterval();
    for (const double seconds :
         {0.0, -1.0, 0.0009, std::nan(""), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::max(), 2147483.647}) {
        EXPECT_FALSE(config.setRefreshInterval(seconds)) << seconds;
        EXPECT_EQ(config.refreshInterval(), before) << seconds;
    }
    EXPECT_TRUE(announced.periods.empty());
    EXPECT_TRUE(config.setRefreshInterval(2147483.0));
}

TEST(UserConfig, KeepsTheDistributionFlag)
{
    Kel::CUserConfig config;
    EXPECT_FALSE(config.showDistribution());
    config.setShowDistribution(true);
    EXPECT_TRUE(config.showDistribution());
}

TEST(Config, IsNullUntilTheHostSetsOneAndKeepsTheConciseStyle)
{
    EXPECT_EQ(Kel::getConfig(), nullptr);
    Kel::CConfig config;
    Kel::setConfig(&config);
    EXPECT_EQ(Kel::getConfig(), &config);
    EXPECT_FALSE(config.conciseStyle());
    config.setConciseStyle(true);
    EXPECT_TRUE(Kel::getConfig()->conciseStyle());
    Kel::setConfig(nullptr);
    EXPECT_EQ(Kel::getConfig(), nullptr);
}

TEST(ExternalData, HasNoDirectoryUntilTheHostSetsOne)
{
    EXPECT_EQ(Kel::getExternalDataDir(), "");
    Kel::setExternalDataDir(QStringLiteral("/somewhere/数据"));
    EXPECT_EQ(Kel::getExternalDataDir(), QStringLiteral("/somewhere/数据"));
    Kel::setExternalDataDir(QString());
    EXPECT_EQ(Kel::getExternalDataDir(), "");
}
