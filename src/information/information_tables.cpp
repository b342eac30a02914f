// The tables of the information panel, their tabs and rows.

#include "information/CInformationWidget.h"
#include "information/CutTextDelegate.h"
#include "information/LocalTableModel.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/CBaseTableColumnSimpleTextDelegate.h"
#include "platform/toolkit/CComboBox.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/toolkit/CSimpleTextWidget.h"
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
constexpr int kHintMargin = 3; // as much as a text has in its cell
constexpr int kLeastTitleWidth = 80;
constexpr int kMostLocalWidth = 400; // of a column of a local file

// How far a local file is looked at for the widths of its columns.
constexpr int kRowsFitted = 50;
constexpr int kColumnsFitted = 50;
constexpr int kLettersFitted = 100; // more than the widest column shows
constexpr int kCellRoom = 12;       // pixels beside a text in its cell

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

/// Pixels that the texts of a column of a local file ask for.
int fittingWidth(const QAbstractItemModel& model, int column, const QFont& headerFont, const QFont& font)
{
    const QString title = model.headerData(column, Qt::Horizontal).toString();
    int width = QFontMetrics(headerFont).horizontalAdvance(title.left(kLettersFitted));
    const QFontMetrics metrics(font);
    const int rows = std::min(model.rowCount(), kRowsFitted);
    for (int row = 0; row < rows && width < kMostLocalWidth; ++row) {
        const QString text = model.index(row, column).data().toString();
        width = std::max(width, metrics.horizontalAdvance(text.left(kLettersFitted)));
    }
    return qBound(kLeastTitleWidth, width + kCellRoom, kMostLocalWidth);
}

void layOutColumns(Zeb::CStandardTable& table)
{
    for (int column = 0; column < eColumnCount; ++column) {
        if (kColumns[column].width > 0)
            table.setColumnWidth(column, kColumns[column].width);
        table.setColumnHidden(column, kColumns[column].hidden);
    }
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
    }
    layOutColumns(*table);
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

/// The chooser stands above the table and shows itself when there is something to choose; the line below the
/// table when the table does not show everything.
void CInformationWidget::createLocalPage()
{
    m_fileChooser = new Zeb::CComboBox(kFileChooserId, this);
    m_fileChooser->setAccessibleName(QStringLiteral("文件"));
    m_fileChooser->hide();
    connect(m_fileChooser, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CInformationWidget::chooseLocalFile);
    m_tableLists[eTableLocal]->addWidget(m_fileChooser);
    m_tableLists[eTableLocal]->addWidget(m_tables[eTableLocal], 1);
    m_cutHint = new Zeb::CSimpleTextWidget(QString());
    m_cutHint->setColorKey(kText);
    m_cutHint->setContentsMargins(kHintMargin, kHintMargin, kHintMargin, kHintMargin);
    m_cutHint->hide();
    m_tableLists[eTableLocal]->addWidget(m_cutHint);
    m_tables[eTableLocal]->setItemDelegate(new CutTextDelegate(this));
    m_localModel = new LocalTableModel(this);
    m_emptyLocalModel = m_tables[eTableLocal]->model();
    m_localTitles = titlesOf(m_tables[eTableLocal]);
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
    addRows(table, {notice});
}

/// All rows at once, and the column is fitted once: a day may bring thousands.
void CInformationWidget::addRows(Zeb::CStandardTable* table,
                                 const QList<boost::shared_ptr<quoter::Notice>>& notices)
{
    const auto detail = instrument();
    const bool showsName = table == m_tables[eTableAnnouncements] && m_rowOwner == 1;
    const QString code = detail ? QString::fromStdString(detail->code) : QString();
    const QString name = detail && showsName ? QString::fromStdString(detail->name) : QString();
    QVector<QStringList> rows;
    rows.reserve(notices.size());
    const int first = table->rowCount();
    for (const auto& notice : notices) {
        if (!notice)
            continue;
        const QString id(QChar(static_cast<ushort>(first + rows.size())));
        const QString date = utils::exchangeTimestamp(notice->m_time).left(kDateLength);
        rows.append({id, date, name, QString::fromStdString(notice->title), date, code,
                     QString::fromStdString(notice->link)});
    }
    if (rows.isEmpty())
        return;
    table->appendRows(rows);
    if (auto* const titles = titlesOf(table)) {
        for (int row = 0; row < rows.size(); ++row) {
            const QString key = QString::number(first + row);
            titles->setItemText(key, rows[row][eColumnTitle]);
            titles->setItemClickable(key, true);
            titles->setItemColorKey(key, kText);
        }
    }
    fitTitles(table);
}

void CInformationWidget::fitTitles(Zeb::CStandardTable* table)
{
    if (const auto* const titles = titlesOf(table))
        table->setColumnWidth(eColumnTitle, std::max(kLeastTitleWidth, titles->preferredWidth()));
}

void CInformationWidget::updateNotice(const QList<boost::shared_ptr<quoter::Notice>>& notices)
{
    if (Zeb::CStandardTable* const table = m_tables[eTableAnnouncements])
        addRows(table, notices);
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
    const bool isFile = m_localTables && index >= 0 && index < m_localTables->size();
    if (!isFile)
        showLocalModel(m_emptyLocalModel);
    m_localModel->setTable(m_localTables, index);
    m_cutHint->setText(m_localModel->cutText());
    m_cutHint->setVisible(!m_cutHint->text().isEmpty());
    if (!isFile)
        return;
    showLocalModel(m_localModel);
    Zeb::CStandardTable* const table = m_tables[eTableLocal];
    const int columns = std::min(m_localModel->columnCount(), kColumnsFitted);
    for (int column = 0; column < columns; ++column)
        table->setColumnWidth(
            column, fittingWidth(*m_localModel, column, table->horizontalHeader()->font(), table->font()));
}

/// With a file the columns are those of the file, without one those of the other pages.
void CInformationWidget::showLocalModel(QAbstractItemModel* model)
{
    Zeb::CStandardTable* const table = m_tables[eTableLocal];
    if (table->model() == model)
        return;
    const bool isEmpty = model == m_emptyLocalModel;
    table->setColumnDelegate(eColumnTitle, isEmpty ? m_localTitles : nullptr);
    table->setModel(model);
    // The table and its headers leave those of the model before behind.
    for (const QItemSelectionModel* const selection : table->findChildren<QItemSelectionModel*>()) {
        if (selection != table->selectionModel())
            delete selection;
    }
    if (isEmpty) {
        layOutColumns(*table);
        return;
    }
    for (int column = 0; column < eColumnCount; ++column)
        table->setColumnHidden(column, false);
}

} // namespace Kel
