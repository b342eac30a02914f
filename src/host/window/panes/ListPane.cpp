#include "host/window/panes/ListPane.h"

#include "host/window/InstrumentList.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/tables/text_tables.h"

namespace host {

namespace {

/// A number as a spreadsheet reads it: without sign of a rise and per cent; empty for none.
QString plainNumber(QString text)
{
    bool isNumber = false;
    text.remove(QLatin1Char('%')).toDouble(&isNumber);
    if (text.startsWith(QLatin1Char('+')))
        text.remove(0, 1);
    return isNumber ? text : QString();
}

} // namespace

ListPane::ListPane(InstrumentList* list, QWidget* parent)
    : Pane(QStringLiteral("list"), sourceText("品种"), parent), m_list(list)
{
    setContentWidget(m_list, 0, 0, true);
    setFocusProxy(m_list);
    setWantedSize(m_list->sizeHint());
}

QStringList ListPane::cells(int row) const
{
    QStringList cells;
    for (int column = 0; column < InstrumentModel::eColumns; ++column) {
        const QString text = m_list->model()->index(row, column).data().toString();
        cells.append(column >= InstrumentModel::eLastPrice ? plainNumber(text) : text);
    }
    return cells;
}

Kel::TickTable ListPane::table() const
{
    std::vector<QStringList> rows;
    for (int row = 0; row < m_list->model()->rowCount(); ++row)
        rows.push_back(cells(row));
    return fixedTable({QStringLiteral("代码"), QStringLiteral("名称"), QStringLiteral("最新(元)"),
                       QStringLiteral("涨跌幅(%)")},
                      std::move(rows));
}

QString ListPane::selectedText() const
{
    const int row = m_list->currentIndex().row();
    if (row >= 0)
        return rowText(cells(row));
    return m_list->model()->rowCount() == 0 ? QString() : tableText(table(), kMostCopiedRows);
}

std::vector<PaneTable> ListPane::tables() const
{
    return {PaneTable{title(), QStringLiteral("instruments"), table()}};
}

} // namespace host
