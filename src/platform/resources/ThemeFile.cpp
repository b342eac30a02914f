#include "platform/resources/ThemeFile.h"

#include "platform/resources/CUiResource.h"
#include "platform/resources/pictures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace Zeb {

namespace {

constexpr int kSmallestFont = 6;
constexpr int kLargestFont = 72;
constexpr int kNarrowestStretch = 50;
constexpr int kWidestStretch = 200;
constexpr int kLargestSize = 10000;
constexpr int kLargestPicture = 512;

const QString kUp = QStringLiteral("up.");
const QString kDown = QStringLiteral("down.");

/// Walks the entries of one file and keeps the first fault.
class Reader
{
public:
    Reader(const QString& path, ThemeFile* theme) : m_path(path), m_theme(theme) {}

    bool read(const QJsonObject& root)
    {
        static const QStringList known{"name",   "base",          "palette", "hues",  "price_colors", "inks",
                                       "colors", "font_families", "fonts",   "sizes", "pictures"};
        for (const QString& key : root.keys()) {
            if (!known.contains(key))
                return fail(key, QStringLiteral("there is no section of this name"));
        }
        if (!root["name"].isString() || root["name"].toString().isEmpty())
            return fail(QStringLiteral("name"), QStringLiteral("a text is expected"));
        m_theme->name = root["name"].toString();
        if (root.contains("base") && !root["base"].isString())
            return fail(QStringLiteral("base"), QStringLiteral("a text is expected"));
        m_theme->base = root["base"].toString();
        return readTexts(root, "palette", &m_theme->palette) && readHues(root) && readPairs(root) &&
               readTexts(root, "inks", &m_theme->inks) && readTexts(root, "colors", &m_theme->colors) &&
               readFamilies(root) && readFonts(root) && readSizes(root) && readPictures(root);
    }

    QString error() const { return m_error; }

private:
    bool fail(const QString& place, const QString& reason)
    {
        m_error = QStringLiteral("%1: %2: %3").arg(m_path, place, reason);
        return false;
    }

    bool section(const QJsonObject& parent, const QString& name, const QString& place, QJsonObject* object)
    {
        const QJsonValue value = parent[name];
        if (!value.isUndefined() && !value.isObject())
            return fail(place, QStringLiteral("an object is expected"));
        *object = value.toObject();
        return true;
    }

    bool texts(const QJsonObject& object, const QString& place, QHash<QString, QString>* into)
    {
        for (auto entry = object.begin(); entry != object.end(); ++entry) {
            if (!entry.value().isString())
                return fail(place + '.' + entry.key(), QStringLiteral("a text is expected"));
            into->insert(entry.key(), entry.value().toString());
        }
        return true;
    }

    bool readTexts(const QJsonObject& root, const QString& name, QHash<QString, QString>* into)
    {
        QJsonObject object;
        return section(root, name, name, &object) && texts(object, name, into);
    }

    bool readHues(const QJsonObject& root)
    {
        QJsonObject hues;
        if (!section(root, "hues", "hues", &hues))
            return false;
        for (const QString& name : hues.keys()) {
            QJsonObject parts;
            const QString place = "hues." + name;
            if (!section(hues, name, place, &parts) || !texts(parts, place, &m_theme->hues[name]))
                return false;
        }
        return true;
    }

    bool readPairs(const QJsonObject& root)
    {
        QJsonObject pairs;
        return section(root, "price_colors", "price_colors", &pairs) &&
               readPair(pairs, "usual", &m_theme->usualPair) &&
               readPair(pairs, "color_blind", &m_theme->colorBlindPair);
    }

    bool readPair(const QJsonObject& pairs, const QString& name, QStringList* into)
    {
        if (!pairs.contains(name))
            return true;
        const QJsonArray pair = pairs[name].toArray();
        if (pair.size() != 2 || !pair[0].isString() || !pair[1].isString())
            return fail("price_colors." + name, QStringLiteral("two names of hues are expected"));
        *into = QStringList{pair[0].toString(), pair[1].toString()};
        return true;
    }

    bool readFamilies(const QJsonObject& root)
    {
        if (!root.contains("font_families"))
            return true;
        for (const QJsonValue& family : root["font_families"].toArray()) {
            if (!family.isString())
                return fail(QStringLiteral("font_families"), QStringLiteral("texts are expected"));
            m_theme->fontFamilies.append(family.toString());
        }
        if (m_theme->fontFamilies.isEmpty())
            return fail(QStringLiteral("font_families"), QStringLiteral("a list of names is expected"));
        return true;
    }

    bool number(const QJsonObject& object, const QString& name, const QString& place, int least, int most,
                int* into)
    {
        return number(object[name], place + '.' + name, least, most, into);
    }

    bool number(const QJsonValue& value, const QString& place, int least, int most, int* into)
    {
        const double given = value.toDouble(std::nan(""));
        if (!(given >= least && given <= most) || given != std::floor(given)) {
            return fail(place,
                        QStringLiteral("a whole number from %1 to %2 is expected").arg(least).arg(most));
        }
        *into = static_cast<int>(given);
        return true;
    }

    bool readFonts(const QJsonObject& root)
    {
        QJsonObject fonts;
        if (!section(root, "fonts", "fonts", &fonts))
            return false;
        for (const QString& key : fonts.keys()) {
            const QString place = "fonts." + key;
            QJsonObject entry;
            ThemeFile::Font font;
            if (!section(fonts, key, place, &entry) ||
                !number(entry, "size", place, kSmallestFont, kLargestFont, &font.pixels))
                return false;
            if (entry.contains("stretch") &&
                !number(entry, "stretch", place, kNarrowestStretch, kWidestStretch, &font.stretch))
                return false;
            if (entry.contains("bold") && !entry["bold"].isBool())
                return fail(place + ".bold", QStringLiteral("true or false is expected"));
            font.bold = entry["bold"].toBool();
            m_theme->fonts.insert(key, font);
        }
        return true;
    }

    bool readSizes(const QJsonObject& root)
    {
        QJsonObject sizes;
        if (!section(root, "sizes", "sizes", &sizes))
            return false;
        for (const QString& key : sizes.keys()) {
            if (!number(sizes, key, "sizes", 0, kLargestSize, &m_theme->sizes[key]))
                return false;
        }
        return true;
    }

    bool readPictures(const QJsonObject& root)
    {
        QJsonObject pictures;
        if (!section(root, "pictures", "pictures", &pictures))
            return false;
        for (const QString& key : pictures.keys()) {
            if (!readPicture(pictures, key))
                return false;
        }
        return true;
    }

    bool readPicture(const QJsonObject& pictures, const QString& key)
    {
        const QString place = "pictures." + key;
        QJsonObject entry;
        if (!section(pictures, key, place, &entry))
            return false;
        const QJsonArray size = entry["size"].toArray();
        ThemeFile::Picture picture;
        if (size.size() != 2)
            return fail(place + ".size", QStringLiteral("width and height are expected"));
        if (!number(size[0], place + ".size", 1, kLargestPicture, &picture.size.rwidth()) ||
            !number(size[1], place + ".size", 1, kLargestPicture, &picture.size.rheight()))
            return false;
        if (!entry["file"].isString())
            return fail(place + ".file", QStringLiteral("a text is expected"));
        picture.file = entry["file"].toString();
        QFile file(QFileInfo(m_path).dir().filePath(picture.file));
        if (!file.open(QIODevice::ReadOnly))
            return fail(place + ".file",
                        QStringLiteral("cannot read %1: %2").arg(file.fileName(), file.errorString()));
        picture.svg = file.readAll();
        if (!isDrawing(picture.svg))
            return fail(place + ".file", QStringLiteral("%1 is no SVG drawing").arg(file.fileName()));
        m_theme->pictures.insert(key, picture);
        return true;
    }

    QString m_path;
    ThemeFile* m_theme;
    QString m_error;
};

QString placeOf(const QByteArray& bytes, int offset)
{
    const QByteArray before = bytes.left(offset);
    const int line = before.count('\n') + 1;
    const int column = offset - before.lastIndexOf('\n');
    return QStringLiteral("line %1, column %2").arg(line).arg(column);
}

void setReason(QString* error, const QString& reason)
{
    if (error)
        *error = reason;
}

template <class Map>
void fillMap(Map* map, const Map& other)
{
    for (auto entry = other.begin(); entry != other.end(); ++entry) {
        if (!map->contains(entry.key()))
            map->insert(entry.key(), entry.value());
    }
}

void fillList(QStringList* list, const QStringList& other)
{
    if (list->isEmpty())
        *list = other;
}

} // namespace

QColor ThemeFile::color(const QString& text, EPriceColors prices, QString* error) const
{
    const QStringList words = text.split(' ', Qt::SkipEmptyParts);
    if (words.isEmpty() || words.size() > 2) {
        setReason(error, QStringLiteral("\"%1\" is no colour").arg(text));
        return {};
    }
    const QString& word = words[0];
    QString value = word;
    if (!word.startsWith('#')) {
        if (word.startsWith(kUp) || word.startsWith(kDown)) {
            const QStringList& pair = prices == EPriceColors::eColorBlind ? colorBlindPair : usualPair;
            const bool first = word.startsWith(kUp) != (prices == EPriceColors::eGreenUp);
            value = hues.value(pair.value(first ? 0 : 1)).value(word.mid(word.indexOf('.') + 1));
        } else {
            value = palette.value(word);
        }
    }
    QColor result;
    if (value.size() == 7 && value.startsWith('#'))
        result.setNamedColor(value);
    if (!result.isValid()) {
        setReason(error, QStringLiteral("\"%1\" stands for no colour").arg(word));
        return {};
    }
    if (words.size() == 2) {
        bool isNumber = false;
        const int share = words[1].endsWith('%') ? words[1].chopped(1).toInt(&isNumber) : 0;
        if (!isNumber || share < 0 || share > 100) {
            setReason(error, QStringLiteral("\"%1\" is no opacity from 0% to 100%").arg(words[1]));
            return {};
        }
        result.setAlpha((255 * share + 50) / 100);
    }
    return result;
}

void ThemeFile::fillFrom(const ThemeFile& other)
{
    fillMap(&palette, other.palette);
    for (auto hue = other.hues.begin(); hue != other.hues.end(); ++hue)
        fillMap(&hues[hue.key()], hue.value());
    fillList(&usualPair, other.usualPair);
    fillList(&colorBlindPair, other.colorBlindPair);
    fillMap(&inks, other.inks);
    fillMap(&colors, other.colors);
    fillList(&fontFamilies, other.fontFamilies);
    fillMap(&fonts, other.fonts);
    fillMap(&sizes, other.sizes);
    fillMap(&pictures, other.pictures);
}

bool readThemeFile(const QByteArray& bytes, const QString& path, ThemeFile* theme, QString* error)
{
    QJsonParseError parse;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parse);
    if (parse.error != QJsonParseError::NoError) {
        setReason(error,
                  QStringLiteral("%1: %2: %3").arg(path, placeOf(bytes, parse.offset), parse.errorString()));
        return false;
    }
    if (!document.isObject()) {
        setReason(error, QStringLiteral("%1: line 1, column 1: an object is expected").arg(path));
        return false;
    }
    ThemeFile result;
    Reader reader(path, &result);
    if (!reader.read(document.object())) {
        setReason(error, reader.error());
        return false;
    }
    *theme = result;
    return true;
}

bool checkTheme(const ThemeFile& theme, const QString& path, QString* error)
{
    const auto fail = [&](const QString& place, const QString& reason) {
        setReason(error, QStringLiteral("%1: %2: %3").arg(path, place, reason));
        return false;
    };
    const auto checkColors = [&](const QHash<QString, QString>& colors, const QString& section) {
        for (auto entry = colors.begin(); entry != colors.end(); ++entry) {
            for (const auto prices :
                 {EPriceColors::eRedUp, EPriceColors::eGreenUp, EPriceColors::eColorBlind}) {
                QString reason;
                if (!theme.color(entry.value(), prices, &reason).isValid())
                    return fail(section + '.' + entry.key(), reason);
            }
        }
        return true;
    };
    if (theme.fontFamilies.isEmpty())
        return fail(QStringLiteral("font_families"), QStringLiteral("a list of names is expected"));
    if (!checkColors(theme.colors, QStringLiteral("colors")) ||
        !checkColors(theme.inks, QStringLiteral("inks")))
        return false;
    for (auto entry = theme.palette.begin(); entry != theme.palette.end(); ++entry) {
        QString reason;
        if (!entry.value().startsWith('#') ||
            !theme.color(entry.value(), EPriceColors::eRedUp, &reason).isValid())
            return fail("palette." + entry.key(),
                        QStringLiteral("\"%1\" is not of the form #rrggbb").arg(entry.value()));
    }
    for (auto entry = theme.pictures.begin(); entry != theme.pictures.end(); ++entry) {
        for (const QString& ink : inksOf(entry.value().svg)) {
            if (!theme.inks.contains(ink))
                return fail("pictures." + entry.key(), QStringLiteral("there is no ink \"%1\"").arg(ink));
        }
    }
    return true;
}

} // namespace Zeb
