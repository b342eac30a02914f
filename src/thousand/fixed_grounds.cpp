#include "thousand/fixed_grounds.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

namespace Kel {

namespace {

constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr int kLightGround = 160; // lightness, of 255, from which a theme writes in dark inks
constexpr double kTint = 0.5;     // share of an ink's darkness that its light tint keeps

} // namespace

QColor inkOnDark(const QColor& ink)
{
    const QColor ground = *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QLatin1String(kGround));
    if (ground.lightness() < kLightGround)
        return ink;
    // A grey has no hue; Qt tells -1 for it, which its own constructor does not take.
    const double hue = ink.hslHueF() < 0 ? 0 : ink.hslHueF();
    return QColor::fromHslF(hue, ink.hslSaturationF(), 1 - kTint * ink.lightnessF(), ink.alphaF());
}

} // namespace Kel
