#include "platform/services/CConfig.h"

namespace Kel {

namespace {

std::atomic<CConfig*> g_config{nullptr};

} // namespace

CConfig* getConfig()
{
    return g_config.load();
}

void setConfig(CConfig* config)
{
    g_config.store(config);
}

} // namespace Kel
