#pragma once

#include "records/EOrderQueueType.h"

#include <QString>

#include <array>

class QColor;
class QFont;

namespace Kel {

/// The colours and fonts of the order queue's picture, looked up once instead of once a cell. The addresses
/// stay valid and follow the theme. GUI thread.
struct OrderQueueTheme
{
    /// Keys that the panel chooses by the concise style.
    struct Keys
    {
        QString text;
        QString volume;
        QString normal;
        QString rise;
        QString fall;
        QString fontText;
        QString fontVolume;
    };

    /// Looks up everything that the keys below do not choose.
    OrderQueueTheme();

    /// Looks up what the keys choose; null until then.
    void setKeys(const Keys& keys);

    /// Colour of the mark of an index; the default text colour for an index that is none.
    const QColor* mark(int index) const;

    /// Ground of a cell.
    const QColor* ground(EOrderQueueType type, bool isBuy) const;

    const QColor* back = nullptr;
    const QColor* split = nullptr;
    const QColor* splitRed = nullptr;
    const QColor* reversedPrice = nullptr;
    const QColor* canceled = nullptr;
    const QColor* unknown = nullptr;
    const QColor* bigBuy = nullptr;
    const QColor* bigSell = nullptr;
    const QColor* superBuy = nullptr;
    const QColor* superSell = nullptr;
    const QColor* callOutFrame = nullptr;
    const QColor* callOutFill = nullptr;
    const QColor* partDealtPen = nullptr;
    std::array<const QColor*, 5> marks{};

    const QColor* text = nullptr;
    const QColor* volume = nullptr;
    const QColor* normal = nullptr;
    const QColor* rise = nullptr;
    const QColor* fall = nullptr;

    const QFont* textFont = nullptr;
    const QFont* volumeFont = nullptr;
    const QFont* callOutFont = nullptr;
};

} // namespace Kel
