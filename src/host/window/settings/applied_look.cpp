#include "host/window/settings/applied_look.h"

#include "host/window/TerminalServices.h"
#include "host/window/language/TerminalLanguage.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

namespace host {

namespace {

constexpr double kPercent = 100;
constexpr double kMsPerSecond = 1000;

/// The period in whole milliseconds again after it was cut down to them.
double secondsOf(int ms)
{
    constexpr double kHalfAnUnseenMs = 0.25;
    return (ms + kHalfAnUnseenMs) / kMsPerSecond;
}

void applyPeriod(int ms, Kel::CUserConfig& config)
{
    if (static_cast<int>(config.refreshInterval() * kMsPerSecond) != ms)
        config.setRefreshInterval(secondsOf(ms));
}

} // namespace

void applyLook(const TerminalSettings& settings, TerminalServices& services)
{
    auto& look = utils::CSingletonT<Zeb::CUiResource>::instance();
    const bool restyled = services.config().conciseStyle() != settings.concise;
    services.config().setConciseStyle(settings.concise);
    look.setFontScale(settings.fontPercent / kPercent);
    look.setPriceColors(settings.colors);
    // The theme that is in force already tells the panels to read their keys again.
    if (restyled || look.theme() != settings.theme)
        look.setTheme(settings.theme);
    applyPeriod(settings.refreshMs, services.userConfig());
    TerminalLanguage::instance().setLanguage(settings.language);
}

} // namespace host
