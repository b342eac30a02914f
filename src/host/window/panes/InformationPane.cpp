#include "host/window/panes/InformationPane.h"

#include "feed/archive/archived_notices.h"
#include "feed/simulation/notices.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/tables/text_tables.h"
#include "information/CInformationWidget.h"
#include "platform/toolkit/CStandardTable.h"

namespace host {

namespace {

constexpr int kDateColumn = 1;
constexpr int kTitleColumn = 3;
constexpr int kCodeColumn = 5;
constexpr int kLinkColumn = 6;
constexpr int kDatePadding = 16; // pixels
constexpr int kEventPage = 302;
constexpr int kPages = 4;
constexpr int kAnnouncements = 1;

} // namespace

InformationPane::InformationPane(QWidget* parent)
    : Pane(QStringLiteral("information"), sourceText("资讯"), parent),
      m_panel(new Kel::CInformationWidget(this))
{
    setContentWidget(m_panel, 0, 0, true);
    // The fonts of a desktop may be wider than the panel reckons with.
    const int date = fontMetrics().horizontalAdvance(QStringLiteral("0000-00-00")) + kDatePadding;
    for (const auto which :
         {Kel::CInformationWidget::eTableNews, Kel::CInformationWidget::eTableAnnouncements,
          Kel::CInformationWidget::eTableReports})
        m_panel->table(which)->setColumnWidth(kDateColumn, date);
    setWantedSize(QSize(700, 220));
}

void InformationPane::setSource(const DaySource& source)
{
    m_simulated = source.simulated;
    m_seed = source.seed;
    m_archive = source.archive;
    m_key.clear(); // the same instrument of another source is another one
}

void InformationPane::setDay(const DayPtr& day)
{
    m_day = day;
}

/// A jump within the day changes nothing here: notices are those of the days before and of the morning.
void InformationPane::setInstrument(const QString& key)
{
    if (key == m_key || !m_day)
        return;
    m_key = key;
    m_panel->clear();
    m_panel->clearTables();
    m_panel->setStock(key);
    m_panel->enableUi();
    m_failure.clear();
    quoter::NoticeList notices;
    if (m_simulated) {
        notices = feed::simulatedNotices(m_day->detail, m_day->tradingDay, m_seed);
    } else if (!m_archive.empty()) {
        feed::ImportReport report;
        feed::Error error;
        if (!feed::readArchivedNotices(m_archive, key.toStdString(), notices, report, error))
            m_failure = QString::fromStdString(error.text());
    }
    m_panel->onInfoNotice(key, notices);
    // With what a feed brings; after that the page is the person's choice.
    if (!m_opened)
        m_panel->handleEvent(kEventPage, kPages, kAnnouncements, QString(), nullptr);
    m_opened = true;
}

/// A table of the panel and what of it is given away.
struct InformationPane::Shown
{
    Zeb::CStandardTable* table;
    QString name;
    QString file;
    QList<int> columns;
    QStringList names;
};

/// Those that hold something, the one in view first.
std::vector<InformationPane::Shown> InformationPane::shownTables() const
{
    const std::pair<Kel::CInformationWidget::ETable, const char*> files[] = {
        {Kel::CInformationWidget::eTableAnnouncements, "announcements"},
        {Kel::CInformationWidget::eTableReports, "reports"},
        {Kel::CInformationWidget::eTableLocal, "local"},
        {Kel::CInformationWidget::eTableNews, "news"},
    };
    std::vector<Shown> tables;
    for (const auto& [which, file] : files) {
        Zeb::CStandardTable* table = m_panel->table(which);
        const QAbstractItemModel& model = *table->model();
        if (model.rowCount() == 0)
            continue;
        Shown shown{table, table->accessibleName(), QString::fromLatin1(file), {}, {}};
        if (which == Kel::CInformationWidget::eTableLocal) {
            for (int column = 0; column < model.columnCount(); ++column)
                shown.columns.append(column);
        } else {
            shown.columns = {kDateColumn, kTitleColumn, kCodeColumn, kLinkColumn};
        }
        for (const int column : shown.columns)
            shown.names.append(model.headerData(column, Qt::Horizontal).toString());
        tables.insert(table->isVisibleTo(m_panel) ? tables.begin() : tables.end(), shown);
    }
    return tables;
}

QString InformationPane::selectedText() const
{
    const std::vector<Shown> tables = shownTables();
    if (tables.empty() || !tables.front().table->isVisibleTo(m_panel))
        return {};
    const Shown& shown = tables.front();
    const QItemSelectionModel* selection = shown.table->selectionModel();
    QStringList lines;
    for (const QModelIndex& row : selection ? selection->selectedRows() : QModelIndexList()) {
        QStringList cells;
        for (const int column : shown.columns)
            cells.append(row.sibling(row.row(), column).data().toString());
        lines.append(rowText(cells));
    }
    return lines.isEmpty()
               ? tableText(modelTable(*shown.table->model(), shown.columns, shown.names), kMostCopiedRows)
               : lines.join(QLatin1Char('\n'));
}

std::vector<PaneTable> InformationPane::tables() const
{
    std::vector<PaneTable> tables;
    for (const Shown& shown : shownTables())
        tables.push_back(
            PaneTable{shown.name, shown.file, modelTable(*shown.table->model(), shown.columns, shown.names)});
    return tables;
}

} // namespace host
