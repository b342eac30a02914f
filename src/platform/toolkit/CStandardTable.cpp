#include "platform/toolkit/CStandardTable.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/CBaseTableColumnSimpleTextDelegate.h"
#include "platform/toolkit/TextTableModel.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

namespace Zeb {

namespace {

constexpr int kRowPixels = 20;
constexpr int kHeaderPixels = 22;
constexpr int kMostTipText = 1000; // characters
constexpr int kSideRoom = 8;       // what a text has beside itself in its cell
const QString kDefaultColor = QStringLiteral("ic_clr_table_text_default");

CUiResource& resource()
{
    return utils::CSingletonT<CUiResource>::instance();
}

} // namespace

CStandardTable::CStandardTable(int columns, QWidget* parent)
    : QTableView(parent),
      m_model(new TextTableModel(columns, this)),
      m_cellsKey(QStringLiteral("ic_clr_table_background")),
      m_numbersKey(QStringLiteral("ic_clr_table_number_background")),
      m_headerColorKey(kDefaultColor),
      m_headerFontKey(QStringLiteral("fnt_default_normal"))
{
    setModel(m_model);
    setFrameShape(QFrame::NoFrame);
    setWordWrap(false);
    setMouseTracking(true);
    verticalHeader()->setMinimumSectionSize(1); // the font must not make the rows higher
    verticalHeader()->setDefaultSectionSize(kRowPixels);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setFixedHeight(kHeaderPixels);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    applyFlags();
    CStandardTable::themeChanged();
}

void CStandardTable::setFlags(unsigned flags)
{
    m_flags = flags;
    applyFlags();
    applyColors();
}

void CStandardTable::applyFlags()
{
    // Qt draws lines both ways or none.
    setShowGrid(m_flags & (eTableVerticalLines | eTableHorizontalLines));
    setSelectionBehavior(m_flags & eTableWholeRows ? SelectRows : SelectItems);
    verticalHeader()->setVisible(m_flags & eTableRowNumbers);
    setEditTriggers(m_flags & eTableEditable ? DoubleClicked | EditKeyPressed : NoEditTriggers);
    const auto mode = m_flags & eTableSmoothScroll ? ScrollPerPixel : ScrollPerItem;
    setVerticalScrollMode(mode);
    setHorizontalScrollMode(ScrollPerPixel);
}

void CStandardTable::setHeaderText(int column, const QString& text)
{
    if (column >= 0 && column < columnCount())
        m_model->setHeaderData(column, Qt::Horizontal, text);
}

QString CStandardTable::headerText(int column) const
{
    return m_model->headerData(column, Qt::Horizontal).toString();
}

void CStandardTable::setBackgroundKeys(const QString& cells, const QString& numbers)
{
    m_cellsKey = cells;
    m_numbersKey = numbers;
    applyColors();
}

void CStandardTable::setHeaderStyle(const QString& colorKey, const QString& fontKey)
{
    m_headerColorKey = colorKey;
    m_headerFontKey = fontKey;
    themeChanged();
}

void CStandardTable::setColumnDelegate(int column, CBaseTableColumnSimpleTextDelegate* delegate)
{
    if (column < 0 || column >= columnCount())
        return;
    if (const auto before = m_delegates.take(column))
        before->disconnect(this);
    setItemDelegateForColumn(column, delegate);
    if (!delegate)
        return;
    delegate->setParent(this);
    m_delegates.insert(column, delegate);
    // The model has the text as well, for those who read the table by other means than looking.
    connect(delegate, &CBaseTableColumnSimpleTextDelegate::itemTextChanged, this,
            [this, column](const QString& key, const QString& text) {
                bool isRow = false;
                const int row = key.toInt(&isRow);
                if (isRow)
                    setText(row, column, text);
            });
}

int CStandardTable::appendRow()
{
    return appendRows({QStringList()});
}

int CStandardTable::appendRows(const QVector<QStringList>& rows)
{
    const int first = rowCount();
    m_model->appendRows(rows);
    return first;
}

int CStandardTable::rowCount() const
{
    return m_model->rowCount();
}

int CStandardTable::columnCount() const
{
    return m_model->columnCount();
}

void CStandardTable::setText(int row, int column, const QString& text, const QString& colorKey)
{
    m_model->setText(row, column, text, colorKey);
}

QString CStandardTable::text(int row, int column) const
{
    return m_model->text(row, column);
}

void CStandardTable::clearRows()
{
    m_model->clearRows();
    for (const auto& delegate : m_delegates) {
        if (delegate)
            delegate->clear();
    }
}

void CStandardTable::themeChanged()
{
    setFont(*resource().getFont(QStringLiteral("fnt_default_normal")));
    const QFont headerFont = *resource().getFont(m_headerFontKey);
    horizontalHeader()->setFont(headerFont);
    verticalHeader()->setFont(headerFont);
    applyColors();
    m_model->recolor();
    viewport()->update();
}

void CStandardTable::applyColors()
{
    giveSheet(this, tableSheet(m_cellsKey, m_numbersKey, m_headerColorKey));
}

void CStandardTable::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        event->accept();
        return;
    }
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && state() != EditingState && currentIndex().isValid()) {
        for (const auto& delegate : m_delegates) {
            if (delegate)
                delegate->activate(currentIndex().row());
        }
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void CStandardTable::copySelection() const
{
    QStringList lines;
    QModelIndexList chosen = selectionModel()->selectedIndexes();
    std::sort(chosen.begin(), chosen.end());
    int row = -1;
    for (const QModelIndex& index : chosen) {
        if (isColumnHidden(index.column()))
            continue;
        if (index.row() != row)
            lines.append(index.data().toString());
        else
            lines.last() += '\t' + index.data().toString();
        row = index.row();
    }
    QGuiApplication::clipboard()->setText(lines.join('\n'));
}

bool CStandardTable::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !(m_flags & eTableCutTips))
        return QTableView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    // What a feed or a file brings is text, not markup, and as much of it as a tip can show.
    const QString text = index.data().toString().left(kMostTipText);
    const int room = columnWidth(index.column()) - kSideRoom;
    const bool cut = index.isValid() && fontMetrics().horizontalAdvance(text) > room;
    if (cut)
        QToolTip::showText(help->globalPos(), QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()),
                           viewport());
    else
        QToolTip::hideText();
    return true;
}

} // namespace Zeb
