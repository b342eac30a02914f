#pragma once

#include "host/window/keys/KeyMap.h"

#include <QList>
#include <QString>
#include <QWidget>

class QFrame;
class QKeyEvent;
class QKeySequenceEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace host {

class TerminalActions;

/// All commands with their keys by menu, side by side in columns, with a line to search in. A double click or
/// Enter on a command asks for another key, Delete takes its keys away. Changes are in force at once. GUI
/// thread.
class KeyTable : public QWidget
{
    Q_OBJECT

public:
    /// `columns` side by side, at least 1. `actions` outlives the table.
    KeyTable(TerminalActions* actions, int columns, QWidget* parent = nullptr);

    /// Shows only commands whose title or keys contain the text, in any case; all for an empty one.
    void search(const QString& text);

    /// Ids of the commands that are shown, in their order.
    QStringList shown() const;

    /// Lets a person press the new key of a command; nothing for an unknown one.
    void edit(const QString& id);

    /// Gives the command this key alone, as a person would by pressing it; tells what speaks against it.
    void take(const QString& id, const QKeySequence& key);

    /// What the line below the commands says.
    QString note() const;

    /// The row of a command; null for an unknown one.
    QWidget* row(const QString& id) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Row
    {
        QString id;
        int block;
        QFrame* frame;
        QLabel* title;
        QLabel* keys;
    };
    struct Block
    {
        QWidget* box;
        QLabel* title;
        QString text; ///< in Chinese
    };

    void makeBlocks(int columns);
    void addBlock(QVBoxLayout* column, const char* title, const QStringList& ids);
    void addRow(QVBoxLayout* column, const QString& id);
    void makeFoot();
    void say();
    void showKeys(const QString& id);
    void tell(KeyMap::EResult result, const QString& id, const QKeySequence& key, const QString& other);
    void endEditing();
    void onPressed(const QKeyEvent& press);
    void resetRow();
    void clearRow(const QString& id);
    bool onRowKey(int index, int key);
    void step(int from, int by);
    const Row* find(const QString& id) const;
    int indexOf(const QObject* frame) const;

    TerminalActions* m_actions;
    QLineEdit* m_search;
    QScrollArea* m_area;
    QLabel* m_note;
    QPushButton* m_reset;
    QPushButton* m_resetAll;
    QList<Block> m_blocks;
    QList<Row> m_rows;
    QString m_current; ///< the row that was used last
    QString m_editing; ///< its command; empty for none
    QKeySequenceEdit* m_editor = nullptr;
};

} // namespace host
