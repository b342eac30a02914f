#include "platform/utils/civil_date.h"
#include "platform/utils/exchange_time.h"

#include <QByteArray>
#include <QTextCodec>

#include <array>
#include <cmath>

namespace utils {

namespace {

constexpr std::int64_t kSecondsPerDay = 24 * 60 * 60;
constexpr std::int64_t kExchangeOffsetSeconds = 8 * 60 * 60;

using TimeFields = std::array<int, 6>;

TimeFields fieldsOf(std::int64_t wallSeconds)
{
    std::int64_t days = wallSeconds / kSecondsPerDay;
    if (days * kSecondsPerDay > wallSeconds)
        --days;
    const auto second = static_cast<int>(wallSeconds - days * kSecondsPerDay);
    const CivilDate date = civilFromDays(days);
    return {date.year, date.month, date.day, second / 3600, second / 60 % 60, second % 60};
}

/// Fills the conversions of `format`; false if it holds anything but "%%" and conversions of an int with an
/// optional zero flag and a width of at most two digits. The trail bytes of GBK begin at 0x40, so a percent
/// sign (0x25) is never half of a character.
bool fillFormat(const char* format, const TimeFields& fields, QByteArray& text)
{
    std::size_t used = 0;
    for (const char* at = format; *at != '\0'; ++at) {
        if (*at != '%') {
            text.append(*at);
            continue;
        }
        ++at;
        if (*at == '%') {
            text.append('%');
            continue;
        }
        const char fill = *at == '0' ? '0' : ' ';
        int width = 0;
        for (int digits = 0; *at >= '0' && *at <= '9'; ++at) {
            if (++digits > 3)
                return false;
            width = width * 10 + (*at - '0');
        }
        if (*at != 'd' || width > 99 || used == fields.size())
            return false;
        text.append(QByteArray::number(fields[used++]).rightJustified(width, fill));
    }
    return true;
}

} // namespace

QString getFullTextTimeByTime(double seconds, bool timeOfDay, const char* gbkFormat)
{
    constexpr auto kFirstSecond = static_cast<double>(daysFromCivil(1, 1, 1) * kSecondsPerDay);
    constexpr auto kEndSecond = static_cast<double>(daysFromCivil(10000, 1, 1) * kSecondsPerDay);
    if (!std::isfinite(seconds))
        return QString();
    const double wall = std::floor(seconds) + static_cast<double>(kExchangeOffsetSeconds);
    if (wall < kFirstSecond || wall >= kEndSecond)
        return QString();
    if (timeOfDay)
        return clockText(static_cast<std::int64_t>(std::floor(seconds)) * kMSecPerSecond, false);
    QByteArray text;
    if (gbkFormat == nullptr || !fillFormat(gbkFormat, fieldsOf(static_cast<std::int64_t>(wall)), text))
        return QString();
    QTextCodec* const codec = QTextCodec::codecForName("GBK");
    return codec == nullptr ? QString() : codec->toUnicode(text);
}

} // namespace utils
