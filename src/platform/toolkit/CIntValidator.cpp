#include "platform/toolkit/CIntValidator.h"

namespace Zeb {

CIntValidator::CIntValidator(int least, int most, QObject* parent) : QIntValidator(least, most, parent) {}

QValidator::State CIntValidator::validate(QString& text, int&) const
{
    if (text.isEmpty())
        return Intermediate;
    const bool negative = text[0] == '-';
    if (negative && bottom() >= 0)
        return Invalid;
    const QString digits = negative ? text.mid(1) : text;
    if (digits.isEmpty())
        return Intermediate;
    for (const QChar digit : digits) {
        if (digit < '0' || digit > '9')
            return Invalid;
    }
    bool fits = false;
    const qlonglong value = text.toLongLong(&fits);
    if (!fits)
        return Invalid;
    if (value >= bottom() && value <= top())
        return Acceptable;
    // More digits lead away from zero.
    const bool hopeless = negative ? value < bottom() : value > top();
    return hopeless ? Invalid : Intermediate;
}

} // namespace Zeb
