#pragma once

#include <QHash>
#include <QKeySequence>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

namespace host {

/// Which keys stand for which command. Two commands never share a key. GUI thread.
class KeyMap : public QObject
{
    Q_OBJECT

public:
    enum class EResult
    {
        eDone,
        eTaken,    ///< another command has the key
        eReserved, ///< panes need the key themselves, or it is none
        eUnknown,  ///< no such command
    };

    using QObject::QObject;

    /// Makes a command known with its usual keys, or those that `setDifferences` has named before.
    void add(const QString& id, const QList<QKeySequence>& usual);

    /// In the order in which they were made known.
    const QStringList& ids() const { return m_ids; }

    QList<QKeySequence> keys(const QString& id) const;
    QList<QKeySequence> usualKeys(const QString& id) const;
    bool isUsual(const QString& id) const { return keys(id) == usualKeys(id); }

    /// The command that a key stands for; empty for none.
    QString commandOf(const QKeySequence& key) const;

    /// Gives a command other keys, no keys included. Refused as a whole if one of them is not to be had; if
    /// another command has it, that one is in `other`.
    EResult setKeys(const QString& id, const QList<QKeySequence>& keys, QString* other = nullptr);

    /// Back to the usual keys; refused as above if another command has one of them by now.
    EResult reset(const QString& id, QString* other = nullptr);
    void resetAll();

    /// The commands whose keys are not the usual ones, with their keys as portable text.
    QMap<QString, QStringList> differences() const;

    /// Begins with the usual keys and takes differences over. Commands that are not there (yet) wait for
    /// `add`; keys that cannot be read or had are passed over.
    void setDifferences(const QMap<QString, QStringList>& differences);

    /// Whether a command may have the key: one press, and none that panes move or select by.
    static bool mayBeHad(const QKeySequence& key);

Q_SIGNALS:
    /// The keys of a command are others.
    void changed(const QString& id);

private:
    QList<QKeySequence> wishOf(const QString& id) const;
    void put(const QString& id, const QList<QKeySequence>& keys);

    QStringList m_ids;
    QHash<QString, QList<QKeySequence>> m_usual;
    QHash<QString, QList<QKeySequence>> m_keys;
    QMap<QString, QStringList> m_wishes; ///< as they were read
};

} // namespace host
