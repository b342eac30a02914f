#include "platform/utils/number_texts.h"

#include "platform/toolkit/Decimal.h"
#include "platform/toolkit/number_formats.h"

#include <cmath>

namespace utils {

QString formatDoubleNumber(double value, unsigned flags)
{
    constexpr int kUsualDecimals = 2;
    const QString badText = QStringLiteral("非法值");
    if (!std::isfinite(value))
        return badText;
    if ((flags & eFormatShortest) == 0)
        return Zeb::formatDoubleNumber(value, kUsualDecimals, 0, false, badText);
    const Zeb::Decimal number(value);
    return number.text(number.decimals(), false);
}

QString formatIntNumber(std::int64_t value, int decimals, unsigned flags)
{
    return Zeb::formatLonglongNumber(value, decimals, flags);
}

} // namespace utils
