#include "platform/toolkit/TextTableModel.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QBrush>

#include <utility>

namespace Zeb {

namespace {

const QString kDefaultColor = QStringLiteral("ic_clr_table_text_default");

} // namespace

TextTableModel::TextTableModel(int columns, QObject* parent)
    : QAbstractTableModel(parent), m_columns(qMax(columns, 0))
{
    for (int column = 1; column <= m_columns; ++column)
        m_titles.append(QString::number(column));
}

int TextTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int TextTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

bool TextTableModel::isCell(int row, int column) const
{
    return row >= 0 && row < m_rows.size() && column >= 0 && column < m_columns;
}

QVariant TextTableModel::data(const QModelIndex& index, int role) const
{
    if (!isCell(index.row(), index.column()))
        return QVariant();
    const Cell cell = m_rows.at(index.row()).value(index.column());
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return cell.text;
    if (role != Qt::ForegroundRole)
        return QVariant();
    const auto& resource = utils::CSingletonT<CUiResource>::instance();
    return QBrush(*resource.getColor(cell.colorKey.isEmpty() ? kDefaultColor : cell.colorKey));
}

bool TextTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !isCell(index.row(), index.column()))
        return false;
    setText(index.row(), index.column(), value.toString(),
            m_rows.at(index.row()).value(index.column()).colorKey);
    return true;
}

Qt::ItemFlags TextTableModel::flags(const QModelIndex& index) const
{
    return QAbstractTableModel::flags(index) | (index.isValid() ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

QVariant TextTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || section < 0)
        return QVariant();
    return orientation == Qt::Horizontal ? QVariant(m_titles.value(section)) : QVariant(section + 1);
}

bool TextTableModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant& value, int role)
{
    if (role != Qt::EditRole || orientation != Qt::Horizontal || section < 0 || section >= m_columns)
        return false;
    m_titles[section] = value.toString();
    emit headerDataChanged(orientation, section, section);
    return true;
}

void TextTableModel::appendRows(const QVector<QStringList>& rows)
{
    if (rows.isEmpty())
        return;
    beginInsertRows(QModelIndex(), m_rows.size(), m_rows.size() + rows.size() - 1);
    m_rows.reserve(m_rows.size() + rows.size());
    for (const QStringList& texts : rows) {
        QVector<Cell> cells(texts.isEmpty() ? 0 : m_columns);
        const int count = qMin(texts.size(), cells.size());
        for (int column = 0; column < count; ++column)
            cells[column].text = texts[column];
        m_rows.append(std::move(cells));
    }
    endInsertRows();
}

void TextTableModel::clearRows()
{
    if (m_rows.isEmpty())
        return;
    beginRemoveRows(QModelIndex(), 0, m_rows.size() - 1);
    m_rows.clear();
    endRemoveRows();
}

void TextTableModel::setText(int row, int column, const QString& text, const QString& colorKey)
{
    if (!isCell(row, column))
        return;
    QVector<Cell>& cells = m_rows[row];
    if (cells.isEmpty())
        cells.resize(m_columns);
    Cell& cell = cells[column];
    if (cell.text == text && cell.colorKey == colorKey)
        return;
    cell = {text, colorKey};
    const QModelIndex changed = index(row, column);
    emit dataChanged(changed, changed);
}

QString TextTableModel::text(int row, int column) const
{
    return isCell(row, column) ? m_rows.at(row).value(column).text : QString();
}

void TextTableModel::recolor()
{
    if (!m_rows.isEmpty() && m_columns > 0)
        emit dataChanged(index(0, 0), index(m_rows.size() - 1, m_columns - 1), {Qt::ForegroundRole});
}

} // namespace Zeb
