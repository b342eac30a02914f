#include "host/window/keys/KeyMap.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kModifiers = int(Qt::KeyboardModifierMask);

/// Keys that move in lists, choose in them, or leave them; with a modifier they are free.
bool isOfPanes(int key)
{
    const bool moves = key >= Qt::Key_Home && key <= Qt::Key_PageDown;
    const bool acts = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape ||
                      key == Qt::Key_Tab || key == Qt::Key_Backtab;
    return moves || acts;
}

bool isModifierAlone(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_Meta ||
           key == Qt::Key_AltGr;
}

} // namespace

bool KeyMap::mayBeHad(const QKeySequence& key)
{
    if (key.count() != 1)
        return false;
    const int plain = key[0] & ~kModifiers;
    const int modifiers = key[0] & kModifiers;
    if (plain == 0 || plain == Qt::Key_unknown || isModifierAlone(plain))
        return false;
    return modifiers != 0 || !isOfPanes(plain);
}

QList<QKeySequence> KeyMap::keys(const QString& id) const
{
    return m_keys.value(id);
}

QList<QKeySequence> KeyMap::usualKeys(const QString& id) const
{
    return m_usual.value(id);
}

QString KeyMap::commandOf(const QKeySequence& key) const
{
    for (const QString& id : m_ids) {
        if (m_keys.value(id).contains(key))
            return id;
    }
    return {};
}

void KeyMap::put(const QString& id, const QList<QKeySequence>& keys)
{
    if (m_keys.value(id) == keys)
        return;
    m_keys[id] = keys;
    Q_EMIT changed(id);
}

KeyMap::EResult KeyMap::setKeys(const QString& id, const QList<QKeySequence>& keys, QString* other)
{
    if (!m_ids.contains(id))
        return EResult::eUnknown;
    for (const QKeySequence& key : keys) {
        if (!mayBeHad(key))
            return EResult::eReserved;
        const QString holder = commandOf(key);
        if (!holder.isEmpty() && holder != id) {
            if (other)
                *other = holder;
            return EResult::eTaken;
        }
    }
    m_wishes.remove(id);
    put(id, keys);
    return EResult::eDone;
}

KeyMap::EResult KeyMap::reset(const QString& id, QString* other)
{
    return setKeys(id, usualKeys(id), other);
}

void KeyMap::resetAll()
{
    m_wishes.clear();
    for (const QString& id : m_ids)
        put(id, m_usual.value(id));
}

QList<QKeySequence> KeyMap::wishOf(const QString& id) const
{
    QList<QKeySequence> keys;
    for (const QString& text : m_wishes.value(id)) {
        const QKeySequence key(text, QKeySequence::PortableText);
        if (mayBeHad(key) && !keys.contains(key))
            keys.append(key);
    }
    // Where none of several can be read, the person did not mean to have none.
    return keys.isEmpty() && !m_wishes.value(id).isEmpty() ? usualKeys(id) : keys;
}

void KeyMap::add(const QString& id, const QList<QKeySequence>& usual)
{
    if (m_ids.contains(id))
        return;
    m_ids.append(id);
    m_usual[id] = usual;
    m_keys[id] = {};
    QList<QKeySequence> free;
    for (const QKeySequence& key : m_wishes.contains(id) ? wishOf(id) : usual) {
        if (commandOf(key).isEmpty())
            free.append(key);
    }
    put(id, free);
}

QMap<QString, QStringList> KeyMap::differences() const
{
    QMap<QString, QStringList> differences;
    for (auto wish = m_wishes.begin(); wish != m_wishes.end(); ++wish) {
        if (!m_ids.contains(wish.key()))
            differences.insert(wish.key(), wish.value());
    }
    for (const QString& id : m_ids) {
        if (isUsual(id))
            continue;
        QStringList texts;
        for (const QKeySequence& key : m_keys.value(id))
            texts.append(key.toString(QKeySequence::PortableText));
        differences.insert(id, texts);
    }
    return differences;
}

/// Commands without a difference keep their keys before others may have them; two commands may exchange
/// theirs.
void KeyMap::setDifferences(const QMap<QString, QStringList>& differences)
{
    m_wishes = differences;
    QHash<QString, QList<QKeySequence>> next;
    QList<QKeySequence> taken;
    for (const QString& id : m_ids) {
        if (!m_wishes.contains(id)) {
            next[id] = m_usual.value(id);
            taken += next[id];
        }
    }
    for (const QString& id : m_ids) {
        if (!m_wishes.contains(id))
            continue;
        for (const QKeySequence& key : wishOf(id)) {
            if (!taken.contains(key)) {
                next[id].append(key);
                taken.append(key);
            }
        }
    }
    for (const QString& id : m_ids)
        put(id, next.value(id));
}

} // namespace host
