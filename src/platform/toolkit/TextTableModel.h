#pragma once

#include "records/DepthExport.h"

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Zeb {

/// Texts in rows and columns, each in a colour by key that follows the theme. Rows are appended by the
/// thousand at the cost of one notice to the view. Cells that are not there are empty. GUI thread.
class DEPTH_EXPORT TextTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    TextTableModel(int columns, QObject* parent);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// A title at first is the number of its column, counted from 1, as that of a row is its own.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& value,
                       int role = Qt::EditRole) override;

    /// Appends rows of these texts, in the default colour. What a row has beyond the columns is left out.
    void appendRows(const QVector<QStringList>& rows);

    /// Takes all rows away.
    void clearRows();

    /// An empty `colorKey` is the default colour. A cell that is not there is ignored, and what a cell has
    /// already is no news to the view.
    void setText(int row, int column, const QString& text, const QString& colorKey);
    QString text(int row, int column) const;

    /// Tells the view to look the colours up again.
    void recolor();

private:
    struct Cell
    {
        QString text;
        QString colorKey;
    };

    bool isCell(int row, int column) const;

    int m_columns;
    QStringList m_titles;
    QVector<QVector<Cell>> m_rows; ///< an empty row has no cells yet
};

} // namespace Zeb
