#include "information/CutTextDelegate.h"

namespace Kel {

namespace {

constexpr int kLeastLetterWidth = 2; // pixels; what is cut by it is cut off by the cell as well

} // namespace

void CutTextDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->rect.width() > 0)
        option->text.truncate(option->rect.width() / kLeastLetterWidth + 1);
}

} // namespace Kel
