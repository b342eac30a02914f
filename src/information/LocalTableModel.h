#pragma once

#include "information/LocalInformation.h"

#include <QAbstractTableModel>

namespace Kel {

/// Shows one file of local information in a table view: its titles as columns, its rows as they are. A row
/// with more fields than there are titles has columns without a title. Takes no copy of the rows, so that
/// a large file costs nothing to show. GUI thread.
class LocalTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Columns and rows beyond them, and what a text has beyond so many characters, are not shown.
    static constexpr int kMostColumns = 1000;
    static constexpr int kMostRows = 200000;
    static constexpr int kMostText = 1000;
    static constexpr int kMostTitle = 100; // the header measures hundreds of titles

    explicit LocalTableModel(QObject* parent = nullptr);

    /// `tables` null or `index` outside shows nothing.
    void setTable(const LocalTablesPtr& tables, int index);

    /// What is not shown of the table, as a line for the user; empty if all of it is.
    QString cutText() const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    LocalTablesPtr m_tables;
    const LocalTable* m_table = nullptr; ///< in `m_tables`
    int m_columns = 0;                   ///< of the table, shown or not
};

} // namespace Kel
