#pragma once

#include <QObject>
#include <QString>
#include <QTranslator>

#include <functional>

namespace host {

/// A text of the terminal's own, in the language in force. `chinese` is the text as the sources have it, and
/// what is shown where a language lacks it. Texts of tables are plain literals as well and come here when
/// they are shown. What panels paint stays Chinese. GUI thread.
QString uiText(const char* chinese);

/// The same for a text that is not known before the program runs.
QString uiText(const QString& chinese);

/// A text in Chinese as the sources have it, for those who hand it to `uiText` when they show it. Any thread.
inline QString sourceText(const char* chinese)
{
    return QString::fromUtf8(chinese);
}

/// The language of the terminal's texts, one for the whole program. GUI thread.
class TerminalLanguage : public QObject
{
    Q_OBJECT

public:
    static TerminalLanguage& instance();

    /// "zh" for Chinese, which is the first one in force, "en" for English.
    const QString& language() const { return m_language; }

    /// Puts a language in force; `changed` follows. False for a language that is not there, or if its texts
    /// cannot be read; nothing changes then.
    bool setLanguage(const QString& language);

    /// The languages that are there, each with its own name for itself.
    static const QList<QPair<QString, QString>>& languages();

Q_SIGNALS:
    void changed();

private:
    TerminalLanguage();

    QString m_language;
    QTranslator m_texts;
};

/// Calls `say`, which gives texts to widgets, now and at each change of the language until `owner` ends.
void keepSaid(QObject* owner, const std::function<void()>& say);

} // namespace host
