#include "platform/services/CUserConfig.h"

#include <cmath>
#include <limits>

namespace Kel {

namespace {

std::atomic<CUserConfig*> g_userConfig{nullptr};

} // namespace

CUserConfig::CUserConfig(QObject* parent) : QObject(parent) {}

bool CUserConfig::setRefreshInterval(double seconds)
{
    constexpr double kShortest = 0.001;
    const double ms = seconds * 1000.0;
    if (!std::isfinite(seconds) || seconds < kShortest || ms >= std::numeric_limits<int>::max())
        return false;
    m_refreshInterval.store(seconds);
    Q_EMIT sigRefreshTimer(static_cast<int>(ms));
    return true;
}

CUserConfig* getUserConfig()
{
    return g_userConfig.load();
}

void setUserConfig(CUserConfig* config)
{
    g_userConfig.store(config);
}

} // namespace Kel
