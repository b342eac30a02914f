#include "host/window/settings/TerminalSettings.h"

#include "host/window/language/TerminalLanguage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>

namespace host {

namespace {

constexpr qint64 kMostBytes = 16 << 20; // of a settings file; more is none of ours
constexpr std::int64_t kDayMs = 24 * 60 * 60 * std::int64_t(1000);

QByteArray bytesOf(const QJsonValue& value)
{
    return QByteArray::fromBase64(value.toString().toLatin1());
}

QString textOf(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

struct ColorsWord
{
    Zeb::EPriceColors colors;
    const char* word;
};

constexpr ColorsWord kColors[] = {
    {Zeb::EPriceColors::eRedUp, "red-up"},
    {Zeb::EPriceColors::eGreenUp, "green-up"},
    {Zeb::EPriceColors::eColorBlind, "color-blind"},
};

QString wordOf(Zeb::EPriceColors colors)
{
    for (const ColorsWord& entry : kColors) {
        if (entry.colors == colors)
            return QString::fromLatin1(entry.word);
    }
    return {};
}

QJsonArray wordsOf(const QueueModes& modes)
{
    QJsonArray words;
    for (const std::string& word : modeWords()) {
        QueueModes changed = modes;
        takeModeWord(word, changed);
        const bool inForce =
            changed.levels == modes.levels && changed.style == modes.style && changed.full == modes.full;
        if (inForce)
            words.append(QString::fromStdString(word));
    }
    return words;
}

QStringList textsOf(const QJsonValue& value)
{
    QStringList texts;
    for (const QJsonValue& text : value.toArray())
        texts.append(text.toString());
    return texts;
}

DeskState deskOf(const QJsonObject& saved)
{
    DeskState desk;
    const QJsonObject groups = saved.value(QLatin1String("groups")).toObject();
    for (auto entry = groups.begin(); entry != groups.end(); ++entry)
        desk.groups[entry.key()] = entry.value().toInt(-1);
    for (const QJsonValue& value : saved.value(QLatin1String("windows")).toArray()) {
        const QJsonObject window = value.toObject();
        desk.windows.push_back({bytesOf(window.value(QLatin1String("geometry"))),
                                bytesOf(window.value(QLatin1String("state"))),
                                textsOf(window.value(QLatin1String("panes")))});
    }
    desk.instruments = textsOf(saved.value(QLatin1String("instruments")));
    return desk;
}

void put(QJsonObject& saved, const DeskState& desk)
{
    QJsonObject groups;
    for (const auto& [pane, group] : desk.groups)
        groups.insert(pane, group);
    QJsonArray windows;
    for (const WindowState& state : desk.windows) {
        QJsonObject window;
        window.insert(QStringLiteral("geometry"), textOf(state.geometry));
        window.insert(QStringLiteral("state"), textOf(state.panes));
        window.insert(QStringLiteral("panes"), QJsonArray::fromStringList(state.ids));
        windows.append(window);
    }
    saved.insert(QStringLiteral("groups"), groups);
    saved.insert(QStringLiteral("windows"), windows);
    saved.insert(QStringLiteral("instruments"), QJsonArray::fromStringList(desk.instruments));
}

void takeNumber(const QJsonObject& root, const char* name, int least, int most, int& number)
{
    const double value = root.value(QLatin1String(name)).toDouble(least - 1);
    if (value >= least && value <= most)
        number = static_cast<int>(value);
}

/// Whether commands and keys mean something is for the map of keys to say.
QMap<QString, QStringList> keysOf(const QJsonObject& object)
{
    QMap<QString, QStringList> keys;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (!entry.value().isArray())
            continue;
        QStringList texts;
        for (const QJsonValue& text : entry.value().toArray())
            texts.append(text.toString());
        keys.insert(entry.key(), texts);
    }
    return keys;
}

QJsonObject objectOf(const QMap<QString, QStringList>& keys)
{
    QJsonObject object;
    for (auto entry = keys.begin(); entry != keys.end(); ++entry)
        object.insert(entry.key(), QJsonArray::fromStringList(entry.value()));
    return object;
}

void take(const QJsonObject& root, TerminalSettings& settings)
{
    const QString theme = root.value(QLatin1String("theme")).toString();
    if (theme == QLatin1String("dark") || theme == QLatin1String("light"))
        settings.theme = theme;
    for (const ColorsWord& entry : kColors) {
        if (root.value(QLatin1String("colors")).toString() == QLatin1String(entry.word))
            settings.colors = entry.colors;
    }
    settings.concise = root.value(QLatin1String("concise")).toBool(settings.concise);
    takeNumber(root, "refreshMs", kLeastRefreshMs, kMostRefreshMs, settings.refreshMs);
    takeNumber(root, "fontPercent", kLeastFontPercent, kMostFontPercent, settings.fontPercent);
    for (const auto& language : TerminalLanguage::languages()) {
        if (root.value(QLatin1String("language")).toString() == language.first)
            settings.language = language.first;
    }
    settings.keys = keysOf(root.value(QLatin1String("keys")).toObject());
    for (const QJsonValue& word : root.value(QLatin1String("modes")).toArray())
        takeModeWord(word.toString().toStdString(), settings.modes);
    settings.geometry = bytesOf(root.value(QLatin1String("geometry")));
    settings.state = bytesOf(root.value(QLatin1String("state")));
    settings.desk = deskOf(root);
    settings.layouts.clear();
    for (const QJsonValue& value : root.value(QLatin1String("layouts")).toArray()) {
        const QJsonObject saved = value.toObject();
        SavedLayout layout;
        layout.name = saved.value(QLatin1String("name")).toString();
        layout.state = bytesOf(saved.value(QLatin1String("state")));
        layout.desk = deskOf(saved);
        // Written before there were groups.
        if (layout.desk.instruments.isEmpty())
            layout.desk.instruments.append(saved.value(QLatin1String("instrument")).toString());
        const double time = saved.value(QLatin1String("timeOfDay")).toDouble(-1);
        if (time >= 0 && time < static_cast<double>(kDayMs))
            layout.timeOfDay = static_cast<std::int64_t>(time);
        if (!layout.name.isEmpty() && !layout.state.isEmpty())
            settings.layouts.push_back(layout);
    }
}

QString setAside(const QString& file, const QString& reason)
{
    const QString aside = file + QStringLiteral(".broken");
    QFile::remove(aside);
    QFile::rename(file, aside);
    return uiText("设置文件已损坏（%1），已另存为 %2").arg(reason, QDir::toNativeSeparators(aside));
}

} // namespace

void readSettings(const QString& file, TerminalSettings& settings, QString& problem)
{
    QFile source(file);
    if (!source.exists())
        return;
    if (source.size() > kMostBytes || !QFileInfo(file).isFile()) {
        problem = setAside(file, uiText("不是设置文件"));
        return;
    }
    if (!source.open(QIODevice::ReadOnly)) {
        problem = uiText("无法读取设置 %1：%2").arg(QDir::toNativeSeparators(file), source.errorString());
        return;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(source.readAll(), &error);
    source.close();
    if (!document.isObject()) {
        problem = setAside(file, error.error == QJsonParseError::NoError ? uiText("不是对象")
                                                                         : error.errorString());
        return;
    }
    take(document.object(), settings);
}

bool writeSettings(const QString& file, const TerminalSettings& settings, QString& problem)
{
    QJsonObject root;
    root.insert(QStringLiteral("theme"), settings.theme);
    root.insert(QStringLiteral("colors"), wordOf(settings.colors));
    root.insert(QStringLiteral("concise"), settings.concise);
    root.insert(QStringLiteral("refreshMs"), settings.refreshMs);
    root.insert(QStringLiteral("fontPercent"), settings.fontPercent);
    root.insert(QStringLiteral("language"), settings.language);
    root.insert(QStringLiteral("keys"), objectOf(settings.keys));
    root.insert(QStringLiteral("modes"), wordsOf(settings.modes));
    root.insert(QStringLiteral("geometry"), textOf(settings.geometry));
    root.insert(QStringLiteral("state"), textOf(settings.state));
    put(root, settings.desk);
    QJsonArray layouts;
    for (const SavedLayout& layout : settings.layouts) {
        QJsonObject saved;
        saved.insert(QStringLiteral("name"), layout.name);
        saved.insert(QStringLiteral("state"), textOf(layout.state));
        put(saved, layout.desk);
        saved.insert(QStringLiteral("timeOfDay"), static_cast<double>(layout.timeOfDay));
        layouts.append(saved);
    }
    root.insert(QStringLiteral("layouts"), layouts);

    QDir().mkpath(QFileInfo(file).path());
    QSaveFile target(file);
    const QByteArray text = QJsonDocument(root).toJson();
    if (target.open(QIODevice::WriteOnly) && target.write(text) == text.size() && target.commit())
        return true;
    problem = uiText("无法写入设置 %1：%2").arg(QDir::toNativeSeparators(file), target.errorString());
    return false;
}

QString usualSettingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/depth-terminal/settings.json");
}

void mergeSettings(const TerminalSettings& settings, TerminalOptions& options)
{
    if (!options.given.theme)
        options.theme = settings.theme;
    if (!options.given.colors)
        options.colors = settings.colors;
    if (!options.given.modes)
        options.modes = settings.modes;
    if (!options.given.language)
        options.language = settings.language;
    if (!options.given.fontPercent)
        options.fontPercent = settings.fontPercent;
}

void takeLook(const TerminalOptions& options, TerminalSettings& settings)
{
    settings.theme = options.theme;
    settings.colors = options.colors;
    settings.language = options.language;
    settings.fontPercent = options.fontPercent;
    settings.concise = settings.concise || options.concise;
}

} // namespace host
