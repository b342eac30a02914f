// The tables of the information panel, their tabs and rows.

#include "information/CInformationWidget.h"
#include "information/LocalTableModel.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/CBaseTableColumnSimpleTextDelegate.h"
#include "platform/toolkit/CComboBox.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/toolkit/CStandardTable.h"
#include "platform/toolkit/CWidgetList.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPalette>
#include <QToolTip>

#include <algorithm>

namespace Kel {

namespace {

enum EColumn
{
    eColumnId,
    eColumnDate,
    eColumnName,
    eColumnTitle,
    eColumnTime,
    eColumnCode,
    eColumnLink,
    eColumnCount,
};

/// A column of a table; "%1" in a title is the tab's name, and 0 leaves the width as it is.
struct Column
{
    const char* title;
    bool hidden;
    int width; ///< pixels
};

constexpr Column kColumns[eColumnCount] = {
    {"ID", true, 0},       {"%1日期", false, 70}, {"股票名称", true, 70}, {"%1标题", false, 500},
    {"DateTime", true, 0}, {"股票代码", true, 0}, {"公告连接", true, 0},
};

constexpr const char* kTabNames[CInformationWidget::eTableCount] = {"新闻", "公告", "研报", "本地资讯"};

/// Pages by table; the news have none.
constexpr int kPages[CInformationWidget::eTableCount] = {0, 1, 2, 3};

constexpr int kEventPage = 302;
constexpr int kPageFirst = 4;

constexpr unsigned kFlagsAdded = 0x204004;
constexpr unsigned kFlagsTaken = 43;

// Pixels
constexpr int kTabWidth = 60;
constexpr int kTabHeight = 20;
constexpr int kTabGap = 5;
constexpr int kLeftMargin = 2;
constexpr int kLeastTitleWidth = 80;
constexpr int kMostLocalWidth = 400; // of a column of a local file

// How far a local file is looked at for the widths of its columns.
constexpr int kRowsFitted = 50;
constexpr int kColumnsFitted = 50;

constexpr int kDateLength = 10; // of a time stamp, "2023-02-01"
constexpr int kFileChooserId = 3;

const QString kGround = QStringLiteral("ic_clr_table_background");
const QString kNumberGround = QStringLiteral("ic_clr_table_number_background");
const QString kText = QStringLiteral("ic_clr_table_text_default");
const QString kHeaderFont = QStringLiteral("fnt_default_normal");
const QString kTitleFont = QStringLiteral("fnt_default_normal_fix");

const Zeb::CPushButton::StateKeys kTabGrounds{
    "kel_clr_depth_bottom_group_btn_nomal", "kel_clr_depth_bottom_group_btn_hover",
    "kel_clr_depth_bottom_group_btn_press", "kel_clr_depth_bottom_group_btn_disable"};
const Zeb::CPushButton::StateKeys kTabTexts{
    "kel_clr_depth_bottom_group_btn_txt_nomal", "kel_clr_depth_bottom_group_btn_txt_hover",
    "kel_clr_depth_bottom_group_btn_txt_press", "kel_clr_depth_bottom_group_btn_txt_disable"};

const Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

Zeb::CBaseTableColumnSimpleTextDelegate* titlesOf(Zeb::CStandardTable* table)
{
    return qobject_cast<Zeb::CBaseTableColumnSimpleTextDelegate*>(table->itemDelegateForColumn(eColumnTitle));
}

} // namespace

void CInformationWidget::creatUi()
{
    m_rootList = new Zeb::CWidgetList(Qt::Horizontal, this);
    m_leftList = new Zeb::CWidgetList(Qt::Vertical);
    m_rightList = new Zeb::CWidgetList(Qt::Vertical);
    m_topList = new Zeb::CWidgetList(Qt::Horizontal);
    m_pageList = new Zeb::CWidgetList(Qt::Vertical);
    m_topList->setMargins(kLeftMargin, 0, 0, 0);

    for (int index = 0; index < eTableCount; ++index) {
        createTable(index);
        createTab(index);
    }
    m_topList->addStretch();
    createLocalPage();

    // The news stand beside the pages once there are any.
    m_leftList->addWidget(m_tableLists[eTableNews], 1);
    m_tableLists[eTableNews]->hide();
    for (const int index : {eTableAnnouncements, eTableReports, eTableLocal})
        m_pageList->addWidget(m_tableLists[index], 1);
    m_rightList->addWidget(m_topList);
    m_rightList->addWidget(m_pageList, 1);
    m_rootList->addWidget(m_leftList);
    m_rootList->addWidget(m_rightList, 1);
    setContentWidget(m_rootList, 0, 0, true);

    connect(m_tables[eTableNews]->model(), &QAbstractItemModel::rowsInserted, this,
            &CInformationWidget::newsArrived);
    showPage(m_pageKind);
    markTab();
    CInformationWidget::themeChanged();
}

void CInformationWidget::createTable(int index)
{
    auto* table = new Zeb::CStandardTable(eColumnCount);
    const QString tabName = QString::fromUtf8(kTabNames[index]);
    for (int column = 0; column < eColumnCount; ++column) {
        QString title = QString::fromUtf8(kColumns[column].title);
        table->setHeaderText(column, title.replace(QLatin1String("%1"), tabName));
        if (kColumns[column].width > 0)
            table->setColumnWidth(column, kColumns[column].width);
        table->setColumnHidden(column, kColumns[column].hidden);
    }
    table->setBackgroundKeys(kGround, kNumberGround);
    table->setHeaderStyle(kText, kHeaderFont);
    auto* titles = new Zeb::CBaseTableColumnSimpleTextDelegate(kTitleFont);
    table->setColumnDelegate(eColumnTitle, titles);
    table->setFlags((table->flags() | kFlagsAdded) & ~kFlagsTaken);
    table->setAccessibleName(tabName);
    connect(titles, &Zeb::CBaseTableColumnSimpleTextDelegate::itemClicked, this,
            [this, table](const QString& key) { copyLink(table, key.toInt()); });
    m_tables[index] = table;

    m_tableLists[index] = new Zeb::CWidgetList(Qt::Vertical);
    m_tableLists[index]->setMargins(kLeftMargin, 0, 0, 0);
    if (index != eTableLocal)
        m_tableLists[index]->addWidget(table, 1);
}

void CInformationWidget::createTab(int index)
{
    auto* tab = new Zeb::CPushButton(QString(), kPages[index], this);
    tab->setText(QString::fromUtf8(kTabNames[index]));
    tab->setAutoRaise(true);
    tab->setFixedSize(kTabWidth, kTabHeight);
    tab->setColorKeys(kTabGrounds, kTabTexts);
    tab->setClickEvent(kEventPage, kPageFirst, kPages[index]);
    tab->setCheckable(true);
    tab->setEnabled(index != eTableNews);
    m_topList->addSpace(kTabGap);
    m_topList->addWidget(tab);
    m_tabs[index] = tab;
}

/// The chooser stands above the table and shows itself when there is something to choose.
void CInformationWidget::createLocalPage()
{
    m_fileChooser = new Zeb::CComboBox(kFileChooserId, this);
    m_fileChooser->setAccessibleName(QStringLiteral("文件"));
    m_fileChooser->hide();
    connect(m_fileChooser, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CInformationWidget::chooseLocalFile);
    m_tableLists[eTableLocal]->addWidget(m_fileChooser);
    m_tableLists[eTableLocal]->addWidget(m_tables[eTableLocal], 1);
    m_localModel = new LocalTableModel(this);
}

void CInformationWidget::themeChanged()
{
    setAutoFillBackground(true);
    QPalette colors = palette();
    colors.setColor(QPalette::Window, *resource().getColor(kGround));
    setPalette(colors);
    update();
}

void CInformationWidget::showPage(int page)
{
    for (const int index : {eTableReports, eTableAnnouncements, eTableLocal})
        m_tableLists[index]->setVisible(kPages[index] == page);
    m_pageList->updateWidgetLength();
    m_pageKind = page;
}

/// The tab of the page that is shown looks pressed, whatever was clicked.
void CInformationWidget::markTab()
{
    for (int index = 0; index < eTableCount; ++index) {
        const bool isNews = index == eTableNews;
        m_tabs[index]->setChecked(isNews ? !m_tableLists[index]->isHidden() : kPages[index] == m_pageKind);
    }
}

void CInformationWidget::newsArrived()
{
    if (m_tabs[eTableNews]->isEnabled())
        return;
    m_tabs[eTableNews]->setEnabled(true);
    connect(m_tabs[eTableNews], &QPushButton::clicked, this, [this] {
        m_tableLists[eTableNews]->setVisible(m_tableLists[eTableNews]->isHidden());
        markTab();
    });
    m_tableLists[eTableNews]->show();
    markTab();
}

// Rows
// ------------------------------------------------------------------------------------------------------------

void CInformationWidget::addOneRow(Zeb::CStandardTable* table, boost::shared_ptr<quoter::Notice> notice)
{
    addRow(table, *notice);
    fitTitles(table);
}

int CInformationWidget::addRow(Zeb::CStandardTable* table, const quoter::Notice& notice)
{
    const int row = table->appendRow();
    const QString date = utils::exchangeTimestamp(notice.m_time).left(kDateLength);
    table->setText(row, eColumnId, QString(QChar(static_cast<ushort>(row))));
    table->setText(row, eColumnDate, date, kText);
    table->setText(row, eColumnTime, date);
    table->setText(row, eColumnLink, QString::fromStdString(notice.link));
    if (const auto detail = instrument()) {
        table->setText(row, eColumnCode, QString::fromStdString(detail->code));
        if (table == m_tables[eTableAnnouncements] && m_rowOwner == 1)
            table->setText(row, eColumnName, QString::fromStdString(detail->name), kText);
    }
    if (auto* const titles = titlesOf(table)) {
        const QString key = QString::number(row);
        titles->setItemText(key, QString::fromStdString(notice.title));
        titles->setItemClickable(key, true);
        titles->setItemColorKey(key, kText);
    }
    return row;
}

void CInformationWidget::fitTitles(Zeb::CStandardTable* table)
{
    if (const auto* const titles = titlesOf(table))
        table->setColumnWidth(eColumnTitle, std::max(kLeastTitleWidth, titles->preferredWidth()));
}

/// A row more at a time, but the column is fitted once: a day may bring thousands.
void CInformationWidget::updateNotice(const QList<boost::shared_ptr<quoter::Notice>>& notices)
{
    Zeb::CStandardTable* const table = m_tables[eTableAnnouncements];
    if (!table)
        return;
    bool added = false;
    for (const auto& notice : notices) {
        if (notice)
            added = addRow(table, *notice) >= 0;
    }
    if (added)
        fitTitles(table);
}

void CInformationWidget::copyLink(Zeb::CStandardTable* table, int row)
{
    const QString link = table->text(row, eColumnLink);
    if (link.isEmpty())
        return;
    QGuiApplication::clipboard()->setText(link);
    QToolTip::showText(QCursor::pos(), QStringLiteral("<qt>已复制链接: %1</qt>").arg(link.toHtmlEscaped()),
                       table);
}

void CInformationWidget::clearTables()
{
    for (Zeb::CStandardTable* const table : m_tables)
        table->clearRows();
    m_localTables.reset();
    showLocalFiles();
}

// Local information
// -----------------------------------------------------------------------------------------------

void CInformationWidget::showLocalFiles()
{
    const QSignalBlocker quiet(m_fileChooser);
    m_fileChooser->clear();
    if (m_localTables) {
        for (const LocalTable& table : *m_localTables)
            m_fileChooser->addItem(table.key);
    }
    m_fileChooser->setVisible(m_fileChooser->count() > 1);
    chooseLocalFile(0);
}

void CInformationWidget::chooseLocalFile(int index)
{
    Zeb::CStandardTable* const table = m_tables[eTableLocal];
    m_localModel->setTable(m_localTables, index);
    if (table->model() != m_localModel) {
        // From the first file on the columns are those of the file.
        table->setColumnDelegate(eColumnTitle, nullptr);
        table->setModel(m_localModel);
        table->horizontalHeader()->setResizeContentsPrecision(kRowsFitted);
        for (int column = 0; column < eColumnCount; ++column)
            table->setColumnHidden(column, false);
    }
    const int columns = std::min(m_localModel->columnCount(), kColumnsFitted);
    for (int column = 0; column < columns; ++column) {
        table->resizeColumnToContents(column);
        table->setColumnWidth(column, qBound(kLeastTitleWidth, table->columnWidth(column), kMostLocalWidth));
    }
}

} // namespace Kel
