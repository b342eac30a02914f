#include "host/window/InstrumentList.h"

#include "host/window/language/TerminalLanguage.h"
#include "host/window/window_style.h"

#include <QEvent>
#include <QHeaderView>

namespace host {

namespace {

constexpr int kRestMs = 150;   // the cursor rests when it has not moved for so long
constexpr int kRowHeight = 26; // pixels
constexpr int kCodeText = 40;  // of six digits
constexpr int kPriceText = 44;
constexpr int kLeastColumn = 30; // pixels
constexpr int kCellPadding = 20; // left and right of a text together
const QString kWidestChange = QStringLiteral("+1000.00%");

} // namespace

InstrumentList::InstrumentList(QWidget* parent) : QTableView(parent), m_model(new InstrumentModel(this))
{
    setObjectName(QStringLiteral("InstrumentList"));
    keepSaid(this, [this] { setAccessibleName(uiText("证券列表")); });
    setModel(m_model);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setMinimumSectionSize(kLeastColumn);
    horizontalHeader()->setSectionResizeMode(InstrumentModel::eCode, QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(InstrumentModel::eName, QHeaderView::Stretch);
    horizontalHeader()->setSectionResizeMode(InstrumentModel::eLastPrice, QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(InstrumentModel::eChange, QHeaderView::Fixed);
    fitTexts();

    m_rest.setSingleShot(true);
    m_rest.setInterval(kRestMs);
    connect(&m_rest, &QTimer::timeout, this, &InstrumentList::choose);
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& now) { onCursor(now.row()); });
    connect(this, &QAbstractItemView::activated, this, &InstrumentList::choose);
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] {
        m_rest.stop();
        setShown(-1);
    });
}

void InstrumentList::setShown(int row)
{
    m_shown = row;
    if (m_rest.isActive()) // the cursor is on its way to another row
        return;
    m_quiet = true;
    if (row >= 0) {
        selectRow(row);
    } else {
        clearSelection();
        setCurrentIndex(QModelIndex()); // so that any row can be clicked
    }
    m_quiet = false;
}

void InstrumentList::fitTexts()
{
    verticalHeader()->setDefaultSectionSize(sizeOfText(kRowHeight));
    setColumnWidth(InstrumentModel::eCode, sizeOfText(kCodeText) + kCellPadding);
    setColumnWidth(InstrumentModel::eLastPrice, sizeOfText(kPriceText) + kCellPadding);
    setColumnWidth(InstrumentModel::eChange, fontMetrics().horizontalAdvance(kWidestChange) + kCellPadding);
}

void InstrumentList::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitTexts();
}

void InstrumentList::onCursor(int row)
{
    if (!m_quiet && row >= 0)
        m_rest.start();
}

void InstrumentList::choose()
{
    m_rest.stop();
    const int row = currentIndex().row();
    if (row < 0 || row == m_shown)
        return;
    m_shown = row;
    Q_EMIT chosen(row);
}

} // namespace host
