#pragma once

#include "records/DepthExport.h"

#include <QHash>
#include <QString>
#include <QStyledItemDelegate>

namespace Zeb {

/// Draws the texts of one column of a `CStandardTable`. It keeps the texts itself, by key; the key of a cell
/// is the decimal index of its row. GUI thread.
class DEPTH_EXPORT CBaseTableColumnSimpleTextDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CBaseTableColumnSimpleTextDelegate(const QString& fontKey, QObject* parent = nullptr);

    void setItemText(const QString& key, const QString& text);
    QString itemText(const QString& key) const;

    /// A clickable text is underlined under the mouse, and `itemClicked` tells of a click on it or of the
    /// return key in its row.
    void setItemClickable(const QString& key, bool clickable);
    bool isItemClickable(const QString& key) const;

    /// The theme's colour of a text, "ic_clr_table_text_default" without it.
    void setItemColorKey(const QString& key, const QString& colorKey);

    /// Pixels that the widest text takes, with the room at its sides; 0 without texts.
    int preferredWidth() const;

    /// Forgets all texts.
    void clear();

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Tells of the cell in `row`, if it is clickable.
    void activate(int row);

signals:
    /// Comes once the event that caused it is over.
    void itemClicked(const QString& key);
    void itemTextChanged(const QString& key, const QString& text);

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    struct Item
    {
        QString text;
        QString colorKey;
        bool clickable = false;
    };

    QString m_fontKey;
    QHash<QString, Item> m_items;
};

} // namespace Zeb
