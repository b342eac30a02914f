#include "level_panels/SideSums.h"

#include "platform/toolkit/number_formats.h"

namespace Kel {

namespace {

constexpr int kRatioDecimals = 2;

QString percent(double part, qint64 whole, int decimals)
{
    return Zeb::formatDoubleNumber(part / static_cast<double>(whole), decimals, Zeb::eFormatPercent, false,
                                   QStringLiteral("非法值"));
}

} // namespace

void SideSums::add(qint64& sum, const EntrustLevel& level)
{
    if (level.valid && level.volume > 0)
        sum += level.volume;
}

int SideSums::split(int width) const
{
    return isEmpty() ? width / 2 : static_cast<int>(width * bid / (ask + bid));
}

QString SideSums::differenceText() const
{
    return isEmpty() ? QString() : Zeb::formatLonglongNumber(bid - ask, 0, 0);
}

QString SideSums::ratioText() const
{
    return isEmpty() ? QString() : percent(static_cast<double>(bid - ask), ask + bid, kRatioDecimals);
}

QString SideSums::shareText(qint64 side) const
{
    return isEmpty() ? QString() : percent(static_cast<double>(side), ask + bid, 0);
}

} // namespace Kel
