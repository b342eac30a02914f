#include "host/window/language/TerminalLanguage.h"

#include <QCoreApplication>

/// Out of any namespace, as the macro wants it.
static void initTexts()
{
    Q_INIT_RESOURCE(languages);
}

namespace host {

namespace {

constexpr const char* kContext = "terminal"; // of all texts in the files of translations

QString fileOf(const QString& language)
{
    return QStringLiteral(":/depth-terminal/terminal_") + language + QStringLiteral(".qm");
}

} // namespace

QString uiText(const char* chinese)
{
    return QCoreApplication::translate(kContext, chinese);
}

QString uiText(const QString& chinese)
{
    return uiText(chinese.toUtf8().constData());
}

TerminalLanguage::TerminalLanguage()
{
    initTexts();
    setLanguage(languages().first().first);
}

TerminalLanguage& TerminalLanguage::instance()
{
    static TerminalLanguage language;
    return language;
}

const QList<QPair<QString, QString>>& TerminalLanguage::languages()
{
    static const QList<QPair<QString, QString>> all{
        {QStringLiteral("zh"), QStringLiteral("中文")},
        {QStringLiteral("en"), QStringLiteral("English")},
    };
    return all;
}

/// The file of Chinese has the texts of Qt's own dialogs; the terminal's are those of the sources.
bool TerminalLanguage::setLanguage(const QString& language)
{
    if (language == m_language)
        return true;
    bool known = false;
    for (const auto& entry : languages())
        known = known || entry.first == language;
    QTranslator probe;
    if (!known || !probe.load(fileOf(language)))
        return false;
    QCoreApplication::removeTranslator(&m_texts);
    m_texts.load(fileOf(language));
    QCoreApplication::installTranslator(&m_texts);
    m_language = language;
    Q_EMIT changed();
    return true;
}

void keepSaid(QObject* owner, const std::function<void()>& say)
{
    say();
    QObject::connect(&TerminalLanguage::instance(), &TerminalLanguage::changed, owner, say);
}

} // namespace host
