#pragma once

#include <QByteArray>
#include <QString>

namespace Zeb {

/// A decimal number by its digits, for rounding and scaling without error.
class Decimal
{
public:
    /// The shortest digits that stand for the double, which must be finite.
    explicit Decimal(double value);
    explicit Decimal(qint64 value);

    /// Multiplies by ten to the power of `exponent`.
    Decimal shifted(int exponent) const;

    /// Rounded half away from zero to `decimals` (0 and more) digits after the point.
    Decimal rounded(int decimals) const;

    /// Whether the size of the number is at least ten to the power of `exponent`.
    bool reaches(int exponent) const;

    /// Digits after the point that are needed to write the number.
    int decimals() const;

    bool isZero() const { return m_digits.isEmpty(); }

    /// The number with `decimals` digits after the point, to which it must have been rounded; zero has no
    /// sign.
    QString text(int decimals, bool groupThousands) const;

private:
    void strip();

    bool m_negative = false;
    QByteArray m_digits; ///< "1" to "9" first and last; empty for zero
    int m_point = 0;     ///< the number is 0.digits times ten to this power
};

} // namespace Zeb
