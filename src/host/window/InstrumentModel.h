#pragma once

#include "host/window/DayLoader.h"
#include "records/CInstrumentDetail.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <vector>

namespace host {

/// The instruments of a source with what they cost at the moment that is replayed. GUI thread.
class InstrumentModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        eCode,
        eName,
        eLastPrice,
        eChange, ///< against the previous close, per cent
        eColumns
    };

    explicit InstrumentModel(QObject* parent = nullptr);

    void setInstruments(const std::vector<nelservice::CInstrumentDetail>& instruments);
    void setPrices(int row, const PriceSeriesPtr& prices);

    /// Row of an instrument by its key ("SH600519"); -1 for an unknown one.
    int rowOf(const QString& key) const;

    /// Shows the prices of this moment, ms since 1970-01-01 UTC.
    void setMoment(std::int64_t moment);

    /// The row that each linking group shows, -1 for none: their colours stand before the names. Empty for no
    /// colours.
    void setGroups(const std::vector<int>& rows);

    /// The theme has other colours now.
    void refreshColors();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row
    {
        nelservice::CInstrumentDetail detail;
        PriceSeriesPtr prices;
        double price = 0; ///< yuan; 0 while there is none
    };

    static double previousClose(const Row& row);
    static QString text(const Row& row, int column);
    static QVariant color(const Row& row, int column);
    QVariant marks(int row) const;
    void update(int row);

    std::vector<Row> m_rows;
    std::vector<int> m_groups; ///< the row of each
    std::int64_t m_moment = 0;
};

} // namespace host
