#pragma once

#include <QStyledItemDelegate>

namespace Kel {

/// Draws the texts of a table, but lays out no more of one than its cell can show: a field of a file may have
/// any length. GUI thread.
class CutTextDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace Kel
