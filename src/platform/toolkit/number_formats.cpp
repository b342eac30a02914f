#include "platform/toolkit/number_formats.h"

#include "platform/toolkit/Decimal.h"

#include <cmath>
#include <limits>

namespace Zeb {

namespace {

constexpr int kMostDecimals = 15;
constexpr int kMostTickDecimals = 8;
constexpr int kUnitDecimals = 2;
constexpr int kTenThousand = 4;    ///< digits of 万
constexpr int kHundredMillion = 8; ///< digits of 亿

QString format(const Decimal& number, int decimals, unsigned flags, bool groupThousands)
{
    const int places = qBound(0, decimals, kMostDecimals);
    if ((flags & eFormatPercent) != 0)
        return number.shifted(2).rounded(places).text(places, groupThousands) + QLatin1Char('%');
    const Decimal plain = number.rounded(places);
    if ((flags & eFormatUnits) == 0 || !plain.reaches(kTenThousand))
        return plain.text(places, groupThousands);
    const Decimal small = number.shifted(-kTenThousand).rounded(kUnitDecimals);
    if (!small.reaches(kHundredMillion - kTenThousand))
        return small.text(kUnitDecimals, groupThousands) + QStringLiteral("万");
    const Decimal large = number.shifted(-kHundredMillion).rounded(kUnitDecimals);
    return large.text(kUnitDecimals, groupThousands) + QStringLiteral("亿");
}

} // namespace

QString formatDoubleNumber(double value, int decimals, unsigned flags, bool groupThousands,
                           const QString& badText)
{
    if (!std::isfinite(value))
        return badText;
    return format(Decimal(value), decimals, flags, groupThousands);
}

QString formatIntNumber(int value, int decimals, unsigned flags)
{
    return format(Decimal(static_cast<qint64>(value)), decimals, flags, false);
}

QString formatLonglongNumber(qint64 value, int decimals, unsigned flags)
{
    return format(Decimal(value), decimals, flags, false);
}

QString formatPriceDoubleNumber(double value, double tick)
{
    const QString badText = QStringLiteral("非法值");
    if (value == std::numeric_limits<double>::max())
        return badText;
    return formatDoubleNumber(value, priceTick2Precision(tick), 0, false, badText);
}

int priceTick2Precision(double tick)
{
    constexpr int kUsualDecimals = 2;
    if (!std::isfinite(tick) || tick <= 0)
        return kUsualDecimals;
    const Decimal rounded = Decimal(tick).rounded(kMostTickDecimals);
    return rounded.isZero() ? kMostTickDecimals : rounded.decimals();
}

} // namespace Zeb
