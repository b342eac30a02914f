#include "host/window/InstrumentModel.h"

#include "host/window/groups/GroupChip.h"
#include "host/window/language/TerminalLanguage.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"

#include <QColor>

#include <algorithm>

namespace host {

namespace {

constexpr const char* kRiseColor = "ic_clr_entrust_text_rise";
constexpr const char* kFallColor = "ic_clr_entrust_text_fall";
constexpr const char* kCodeColor = "clr_window_text_soft";
constexpr const char* kTextColor = "clr_window_text";
const char* const kNoPrice = "--";

QColor themeColor(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QString::fromLatin1(key));
}

} // namespace

InstrumentModel::InstrumentModel(QObject* parent) : QAbstractTableModel(parent) {}

void InstrumentModel::setInstruments(const std::vector<nelservice::CInstrumentDetail>& instruments)
{
    beginResetModel();
    m_rows.clear();
    for (const nelservice::CInstrumentDetail& detail : instruments) {
        Row row;
        row.detail = detail;
        m_rows.push_back(row);
    }
    endResetModel();
}

void InstrumentModel::setPrices(int row, const PriceSeriesPtr& prices)
{
    if (row < 0 || row >= rowCount())
        return;
    m_rows[static_cast<std::size_t>(row)].prices = prices;
    update(row);
}

int InstrumentModel::rowOf(const QString& key) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&key](const Row& row) {
        return QString::fromStdString(row.detail.market + row.detail.code) == key;
    });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

void InstrumentModel::setMoment(std::int64_t moment)
{
    if (moment == m_moment)
        return;
    m_moment = moment;
    for (int row = 0; row < rowCount(); ++row)
        update(row);
}

void InstrumentModel::setGroups(const std::vector<int>& rows)
{
    if (rows == m_groups)
        return;
    m_groups = rows;
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0, eName), index(rowCount() - 1, eName), {Qt::DecorationRole});
}

QVariant InstrumentModel::marks(int row) const
{
    std::vector<int> groups;
    for (std::size_t group = 0; group < m_groups.size(); ++group) {
        if (m_groups[group] == row)
            groups.push_back(static_cast<int>(group));
    }
    return groups.empty() ? QVariant() : QVariant(GroupChip::marks(groups));
}

void InstrumentModel::refreshColors()
{
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, eColumns - 1),
                           {Qt::ForegroundRole, Qt::DecorationRole});
}

void InstrumentModel::update(int row)
{
    Row& entry = m_rows[static_cast<std::size_t>(row)];
    const double price = entry.prices ? entry.prices->at(m_moment) : 0;
    if (price == entry.price)
        return;
    entry.price = price;
    Q_EMIT dataChanged(index(row, eLastPrice), index(row, eChange));
}

int InstrumentModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int InstrumentModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : eColumns;
}

QVariant InstrumentModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::ForegroundRole:
        return color(row, index.column());
    case Qt::DecorationRole:
        return index.column() == eName ? marks(index.row()) : QVariant();
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (index.column() >= eLastPrice ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ToolTipRole:
        return QString::fromStdString(row.detail.market + row.detail.code + ' ' + row.detail.name);
    default:
        return {};
    }
}

double InstrumentModel::previousClose(const Row& row)
{
    return row.prices && row.prices->previousClose() > 0 ? row.prices->previousClose()
                                                         : row.detail.previousClose;
}

QString InstrumentModel::text(const Row& row, int column)
{
    const double close = previousClose(row);
    switch (column) {
    case eCode:
        return QString::fromStdString(row.detail.code);
    case eName:
        return QString::fromStdString(row.detail.name.empty() ? row.detail.code : row.detail.name);
    case eLastPrice:
        return row.price > 0 ? Zeb::formatPriceDoubleNumber(row.price, row.detail.priceTick)
                             : QString::fromLatin1(kNoPrice);
    case eChange: {
        if (!(row.price > 0) || !(close > 0))
            return QString::fromLatin1(kNoPrice);
        const QString number = Zeb::formatDoubleNumber(row.price / close - 1, 2, Zeb::eFormatPercent, false,
                                                       QString::fromLatin1(kNoPrice));
        return row.price > close && !number.startsWith(QLatin1String("0.00")) ? QLatin1Char('+') + number
                                                                              : number;
    }
    default:
        return {};
    }
}

QVariant InstrumentModel::color(const Row& row, int column)
{
    if (column == eCode)
        return themeColor(kCodeColor);
    const double close = previousClose(row);
    if (column == eName || !(row.price > 0) || !(close > 0) || row.price == close)
        return themeColor(kTextColor);
    return themeColor(row.price > close ? kRiseColor : kFallColor);
}

QVariant InstrumentModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignVCenter | (section >= eLastPrice ? Qt::AlignRight : Qt::AlignLeft));
    if (role != Qt::DisplayRole)
        return {};
    switch (section) {
    case eCode:
        return uiText("代码");
    case eName:
        return uiText("名称");
    case eLastPrice:
        return uiText("最新");
    case eChange:
        return uiText("涨跌幅");
    default:
        return {};
    }
}

} // namespace host
