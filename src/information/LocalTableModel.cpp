#include "information/LocalTableModel.h"

#include <algorithm>

namespace Kel {

namespace {

constexpr int kRowsLookedAt = 1000; // for rows with more fields than titles

int columnsOf(const LocalTable& table)
{
    int columns = table.headers.size();
    const int rows = std::min(table.rows.size(), kRowsLookedAt);
    for (int row = 0; row < rows; ++row)
        columns = std::max(columns, table.rows[row].size());
    return columns;
}

} // namespace

LocalTableModel::LocalTableModel(QObject* parent) : QAbstractTableModel(parent) {}

void LocalTableModel::setTable(const LocalTablesPtr& tables, int index)
{
    beginResetModel();
    m_tables = tables;
    const bool isThere = tables && index >= 0 && index < tables->size();
    m_table = isThere ? &tables->at(index) : nullptr;
    m_columns = m_table ? columnsOf(*m_table) : 0;
    endResetModel();
}

QString LocalTableModel::cutText() const
{
    QStringList shown;
    if (m_table && m_table->rows.size() > kMostRows)
        shown.append(QStringLiteral("前 %1 行").arg(kMostRows));
    if (m_columns > kMostColumns)
        shown.append(QStringLiteral("前 %1 列").arg(kMostColumns));
    QStringList texts;
    if (!shown.isEmpty())
        texts.append(QStringLiteral("仅显示") + shown.join(QStringLiteral("、")));
    if (m_table && m_table->isCut)
        texts.append(QStringLiteral("文件过大，末尾未读取"));
    return texts.join(QStringLiteral("；"));
}

int LocalTableModel::rowCount(const QModelIndex& parent) const
{
    return m_table && !parent.isValid() ? std::min(m_table->rows.size(), kMostRows) : 0;
}

int LocalTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : std::min(m_columns, kMostColumns);
}

QVariant LocalTableModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !m_table || !index.isValid())
        return QVariant();
    return m_table->rows.at(index.row()).value(index.column()).left(kMostText);
}

QVariant LocalTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section + 1;
    return m_table ? m_table->headers.value(section).left(kMostTitle) : QString();
}

} // namespace Kel
