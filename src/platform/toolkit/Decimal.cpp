#include "platform/toolkit/Decimal.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

namespace Zeb {

Decimal::Decimal(double value)
{
    // "d.ddde+xx" or "de+xx", shortest form; 32 bytes hold every double.
    char buffer[32];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer - 1, value, std::chars_format::scientific).ptr;
    *end = '\0';
    const char* at = buffer;
    if (*at == '-') {
        m_negative = true;
        ++at;
    }
    const char* const exponent = std::strchr(at, 'e');
    if (exponent == nullptr)
        return;
    for (; at != exponent; ++at) {
        if (*at != '.')
            m_digits.append(*at);
    }
    m_point = std::atoi(exponent + 1) + 1;
    strip();
}

Decimal::Decimal(qint64 value) : m_negative(value < 0), m_digits(QByteArray::number(value))
{
    if (m_negative)
        m_digits.remove(0, 1);
    m_point = m_digits.size();
    strip();
}

void Decimal::strip()
{
    int zeros = 0;
    while (zeros < m_digits.size() && m_digits.at(zeros) == '0')
        ++zeros;
    m_digits.remove(0, zeros);
    m_point -= zeros;
    while (m_digits.endsWith('0'))
        m_digits.chop(1);
    if (m_digits.isEmpty())
        m_point = 0;
}

Decimal Decimal::shifted(int exponent) const
{
    Decimal result = *this;
    if (!isZero())
        result.m_point += exponent;
    return result;
}

Decimal Decimal::rounded(int decimals) const
{
    const int kept = m_point + decimals;
    if (kept >= m_digits.size())
        return *this;
    Decimal result = *this;
    if (kept < 0) {
        result.m_digits.clear();
        result.strip();
        return result;
    }
    const bool up = m_digits.at(kept) >= '5';
    result.m_digits.truncate(kept);
    if (up) {
        int at = kept - 1;
        while (at >= 0 && result.m_digits.at(at) == '9')
            result.m_digits[at--] = '0';
        if (at >= 0) {
            result.m_digits[at] = static_cast<char>(result.m_digits.at(at) + 1);
        } else {
            result.m_digits.prepend('1');
            ++result.m_point;
        }
    }
    result.strip();
    return result;
}

bool Decimal::reaches(int exponent) const
{
    return !isZero() && m_point > exponent;
}

int Decimal::decimals() const
{
    return qMax(0, static_cast<int>(m_digits.size()) - m_point);
}

QString Decimal::text(int decimals, bool groupThousands) const
{
    QByteArray whole = m_point > 0 ? m_digits.left(m_point).leftJustified(m_point, '0') : QByteArray("0");
    if (groupThousands) {
        for (int at = whole.size() - 3; at > 0; at -= 3)
            whole.insert(at, ',');
    }
    if (decimals > 0) {
        QByteArray fraction = m_point >= 0 ? m_digits.mid(m_point) : QByteArray(-m_point, '0') + m_digits;
        whole += '.' + fraction.leftJustified(decimals, '0', true);
    }
    if (m_negative && !isZero())
        whole.prepend('-');
    return QString::fromLatin1(whole);
}

} // namespace Zeb
