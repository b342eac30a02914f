#include "platform/services/CEnumsDataHelper.h"

namespace nelservice {

QString CEnumsDataHelper::numberToFomatString(int number)
{
    static const QString numerals = QStringLiteral("一二三四五六七八九十");
    if (number >= 1 && number <= numerals.size())
        return QString(numerals.at(number - 1));
    return QString::number(number);
}

} // namespace nelservice
