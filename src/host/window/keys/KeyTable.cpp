#include "host/window/keys/KeyTable.h"

#include "host/window/TerminalActions.h"
#include "host/window/keys/place_keys.h"
#include "host/window/language/TerminalLanguage.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace host {

namespace {

constexpr int kGap = 8;        // pixels between the parts
constexpr int kColumnGap = 28; // pixels
constexpr int kBlockGap = 12;  // pixels above the title of a menu
constexpr int kRowSide = 6;    // pixels beside a row's texts
constexpr int kRowTop = 2;     // pixels above and below them
constexpr int kTitleRows = 2;  // rows that the title of a menu takes, with its gap
constexpr int kBarRoom = 14;   // pixels for the bar to scroll by
constexpr EMenu kMenus[] = {EMenu::eFile,  EMenu::eReplay,  EMenu::ePhase, EMenu::eQueue, EMenu::ePane,
                            EMenu::eGroup, EMenu::eNewPane, EMenu::eLook,  EMenu::eHelp};

QString textOf(const QList<QKeySequence>& keys)
{
    QStringList texts;
    for (const QKeySequence& key : keys)
        texts.append(key.toString(QKeySequence::NativeText));
    return texts.join(QStringLiteral("   "));
}

QString plainTitle(const QString& chinese)
{
    QString title = uiText(chinese);
    const int bracket = title.indexOf(QLatin1String("(&"));
    if (bracket >= 0)
        title.truncate(bracket);
    return title.remove(QLatin1Char('&'));
}

/// Columns that blocks of these sizes need, one after another, if none may be higher than `most`.
int columnsNeeded(const QList<int>& sizes, int most)
{
    int columns = 1;
    int filled = 0;
    for (const int size : sizes) {
        if (filled > 0 && filled + size > most) {
            ++columns;
            filled = 0;
        }
        filled += size;
    }
    return columns;
}

/// The least height of columns that so many of them hold all blocks.
int lowestColumn(const QList<int>& sizes, int columns)
{
    int most = sizes.isEmpty() ? 0 : *std::max_element(sizes.begin(), sizes.end());
    while (columnsNeeded(sizes, most) > columns)
        ++most;
    return most;
}

} // namespace

KeyTable::KeyTable(TerminalActions* actions, int columns, QWidget* parent)
    : QWidget(parent),
      m_actions(actions),
      m_search(new QLineEdit),
      m_area(new QScrollArea),
      m_note(new QLabel),
      m_reset(new QPushButton),
      m_resetAll(new QPushButton)
{
    setObjectName(QStringLiteral("KeyTable"));
    m_search->setObjectName(QStringLiteral("KeySearch"));
    m_search->setClearButtonEnabled(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGap);
    column->addWidget(m_search);
    column->addWidget(m_area, 1);
    m_area->setWidgetResizable(true);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    makeBlocks(std::max(1, columns));
    makeFoot();
    connect(m_search, &QLineEdit::textChanged, this, &KeyTable::search);
    connect(&m_actions->keyMap(), &KeyMap::changed, this, &KeyTable::showKeys);
    keepSaid(this, [this] { say(); });
}

/// The menus one after another, a next column where the last one is full.
void KeyTable::makeBlocks(int columns)
{
    auto* sheet = new QWidget;
    sheet->setObjectName(QStringLiteral("KeySheetPage"));
    auto* row = new QHBoxLayout(sheet);
    row->setContentsMargins(0, 0, kBarRoom, 0);
    row->setSpacing(kColumnGap);
    QList<QPair<EMenu, QStringList>> blocks;
    QList<int> sizes;
    for (const EMenu menu : kMenus) {
        const QStringList ids = m_actions->idsOf(menu);
        if (ids.isEmpty())
            continue;
        blocks.append({menu, ids});
        sizes.append(ids.size() + kTitleRows);
    }
    const int most = lowestColumn(sizes, columns);
    QVBoxLayout* column = nullptr;
    int filled = 0;
    for (int i = 0; i < blocks.size(); ++i) {
        if (!column || filled + sizes[i] > most) {
            column = new QVBoxLayout;
            column->setSpacing(0);
            row->addLayout(column, 1);
            filled = 0;
        }
        addBlock(column, menuTitle(blocks[i].first), blocks[i].second);
        filled += sizes[i];
    }
    for (int i = 0; i < row->count(); ++i)
        static_cast<QVBoxLayout*>(row->itemAt(i)->layout())->addStretch(1);
    m_area->setWidget(sheet);
}

void KeyTable::addBlock(QVBoxLayout* column, const char* title, const QStringList& ids)
{
    auto* box = new QWidget;
    auto* rows = new QVBoxLayout(box);
    rows->setContentsMargins(0, 0, 0, kBlockGap);
    rows->setSpacing(0);
    auto* label = new QLabel;
    label->setObjectName(QStringLiteral("KeyMenu"));
    rows->addWidget(label);
    m_blocks.append({box, label, QString::fromUtf8(title)});
    for (const QString& id : ids)
        addRow(rows, id);
    column->addWidget(box);
}

void KeyTable::addRow(QVBoxLayout* column, const QString& id)
{
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("KeyRow"));
    frame->setFocusPolicy(Qt::StrongFocus);
    frame->installEventFilter(this);
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(kRowSide, kRowTop, kRowSide, kRowTop);
    auto* title = new QLabel;
    auto* keys = new QLabel;
    keys->setObjectName(QStringLiteral("KeyText"));
    keys->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addWidget(title, 1);
    row->addWidget(keys);
    column->addWidget(frame);
    m_rows.append({id, m_blocks.size() - 1, frame, title, keys});
}

void KeyTable::makeFoot()
{
    m_note->setObjectName(QStringLiteral("KeyNote"));
    m_note->setWordWrap(true);
    for (QPushButton* button : {m_reset, m_resetAll})
        button->setAutoDefault(false);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(kGap);
    foot->addWidget(m_note, 1);
    foot->addWidget(m_reset);
    foot->addWidget(m_resetAll);
    static_cast<QVBoxLayout*>(layout())->addLayout(foot);
    connect(m_reset, &QPushButton::clicked, this, &KeyTable::resetRow);
    connect(m_resetAll, &QPushButton::clicked, this, [this] {
        m_actions->keyMap().resetAll();
        say();
    });
}

void KeyTable::say()
{
    m_search->setPlaceholderText(uiText("搜索命令或按键"));
    m_reset->setText(uiText("恢复此项"));
    m_resetAll->setText(uiText("全部恢复"));
    m_note->setText(uiText("双击或回车修改，Delete 清除"));
    for (const Block& block : m_blocks)
        block.title->setText(plainTitle(block.text));
    for (const Row& row : m_rows) {
        row.title->setText(m_actions->titleOf(row.id));
        showKeys(row.id);
    }
    search(m_search->text());
}

void KeyTable::showKeys(const QString& id)
{
    const Row* row = find(id);
    if (!row)
        return;
    const KeyMap& map = m_actions->keyMap();
    row->keys->setText(textOf(map.keys(id)));
    row->keys->setProperty("changed", !map.isUsual(id)); // style sheets tell it
    row->keys->setStyleSheet(QString());                 // asks them anew
    row->frame->setAccessibleName(row->title->text() + QLatin1Char(' ') + row->keys->text());
}

void KeyTable::search(const QString& text)
{
    QList<int> counts;
    for (int i = 0; i < m_blocks.size(); ++i)
        counts.append(0);
    const QString wanted = text.trimmed();
    for (const Row& row : m_rows) {
        const bool fits = row.title->text().contains(wanted, Qt::CaseInsensitive) ||
                          row.keys->text().contains(wanted, Qt::CaseInsensitive);
        row.frame->setHidden(!fits);
        counts[row.block] += fits ? 1 : 0;
    }
    for (int i = 0; i < m_blocks.size(); ++i)
        m_blocks[i].box->setHidden(counts[i] == 0);
}

QStringList KeyTable::shown() const
{
    QStringList ids;
    for (const Row& row : m_rows) {
        if (!row.frame->isHidden())
            ids.append(row.id);
    }
    return ids;
}

const KeyTable::Row* KeyTable::find(const QString& id) const
{
    for (const Row& row : m_rows) {
        if (row.id == id)
            return &row;
    }
    return nullptr;
}

int KeyTable::indexOf(const QObject* frame) const
{
    for (int i = 0; i < m_rows.size(); ++i) {
        if (m_rows[i].frame == frame)
            return i;
    }
    return -1;
}

QWidget* KeyTable::row(const QString& id) const
{
    const Row* row = find(id);
    return row ? row->frame : nullptr;
}

QString KeyTable::note() const
{
    return m_note->text();
}

void KeyTable::edit(const QString& id)
{
    const Row* row = find(id);
    if (!row)
        return;
    endEditing();
    m_editing = id;
    m_editor = new QKeySequenceEdit(row->frame);
    m_editor->installEventFilter(this);
    row->keys->hide();
    row->frame->layout()->addWidget(m_editor);
    m_note->setText(uiText("请按新的快捷键，Esc 取消"));
    m_editor->setFocus();
}

/// The first press is the whole key; the editor by itself would wait for a second one.
void KeyTable::onPressed(const QKeyEvent& press)
{
    const int key = shortcutMeant(press);
    if (key == 0)
        return;
    const QString edited = m_editing;
    endEditing();
    if (key == Qt::Key_Escape)
        m_note->setText(uiText("双击或回车修改，Delete 清除"));
    else
        take(edited, QKeySequence(key));
}

/// The editor may be at work with the event that ends it.
void KeyTable::endEditing()
{
    if (!m_editor)
        return;
    QKeySequenceEdit* editor = m_editor;
    m_editor = nullptr;
    const Row* row = find(m_editing);
    m_editing.clear();
    editor->disconnect(this);
    editor->removeEventFilter(this);
    row->keys->show();
    if (editor->hasFocus())
        row->frame->setFocus();
    editor->hide();
    editor->deleteLater();
}

void KeyTable::take(const QString& id, const QKeySequence& key)
{
    QString other;
    const KeyMap::EResult result = m_actions->keyMap().setKeys(id, {key}, &other);
    tell(result, id, key, other);
}

void KeyTable::tell(KeyMap::EResult result, const QString& id, const QKeySequence& key, const QString& other)
{
    const QString name = key.toString(QKeySequence::NativeText);
    switch (result) {
    case KeyMap::EResult::eDone:
        m_note->setText(uiText("已更改：%1").arg(m_actions->titleOf(id)));
        break;
    case KeyMap::EResult::eTaken:
        m_note->setText(uiText("%1 已用于“%2”").arg(name, m_actions->titleOf(other)));
        break;
    case KeyMap::EResult::eReserved:
        m_note->setText(uiText("%1 由窗格自己使用").arg(name));
        break;
    case KeyMap::EResult::eUnknown:
        break;
    }
}

void KeyTable::resetRow()
{
    const Row* row = find(m_current);
    if (!row)
        return;
    QString other;
    const KeyMap::EResult result = m_actions->keyMap().reset(row->id, &other);
    const QList<QKeySequence> usual = m_actions->keyMap().usualKeys(row->id);
    tell(result, row->id, usual.isEmpty() ? QKeySequence() : usual.first(), other);
}

void KeyTable::clearRow(const QString& id)
{
    tell(m_actions->keyMap().setKeys(id, {}), id, QKeySequence(), QString());
}

void KeyTable::step(int from, int by)
{
    for (int i = from + by; i >= 0 && i < m_rows.size(); i += by) {
        if (!m_rows[i].frame->isHidden()) {
            m_rows[i].frame->setFocus();
            m_area->ensureWidgetVisible(m_rows[i].frame);
            return;
        }
    }
}

bool KeyTable::onRowKey(int index, int key)
{
    const QString id = m_rows[index].id;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        edit(id);
    else if (key == Qt::Key_Delete)
        clearRow(id);
    else if (key == Qt::Key_Up || key == Qt::Key_Down)
        step(index, key == Qt::Key_Down ? 1 : -1);
    else
        return false;
    return true;
}

bool KeyTable::eventFilter(QObject* watched, QEvent* event)
{
    const int index = indexOf(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
        if (index >= 0)
            m_current = m_rows[index].id;
        return false;
    case QEvent::MouseButtonDblClick:
        if (index >= 0)
            edit(m_rows[index].id);
        return index >= 0;
    case QEvent::KeyPress: {
        const auto& press = *static_cast<QKeyEvent*>(event);
        if (watched == m_editor)
            onPressed(press);
        return watched == m_editor || (index >= 0 && onRowKey(index, press.key()));
    }
    case QEvent::FocusOut:
        if (watched == m_editor)
            endEditing();
        return false;
    default:
        return false;
    }
}

} // namespace host
