#include "platform/resources/CUiResource.h"

#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/resources/ThemeFile.h"
#include "platform/resources/pictures.h"
#include "platform/utils/Log.h"

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Out of any namespace, as the macro wants it.
static void initThemeResources()
{
    Q_INIT_RESOURCE(themes);
}

namespace Zeb {

namespace {

const QStringList kBuiltIn{QStringLiteral("dark"), QStringLiteral("light")};
const QColor kUnknownColor(255, 0, 255);
constexpr int kUnknownPicturePixels = 16;
constexpr double kLeastFontScale = 0.5;
constexpr double kMostFontScale = 3;

/// Sizes of lines that hold text, which grow and shrink with it.
const QStringList kTextSizes{QStringLiteral("siz_dialog_title_height")};

ThemeFile builtIn(const QString& name)
{
    const QString path = QStringLiteral(":/depth/%1.json").arg(name);
    QFile file(path);
    ThemeFile theme;
    QString error;
    if (!file.open(QIODevice::ReadOnly) || !readThemeFile(file.readAll(), path, &theme, &error) ||
        !checkTheme(theme, path, &error)) {
        DEPTH_LOG(utils::kLogError, "CUiResource",
                  boost::format("built-in theme: %1%") % error.toStdString());
    }
    return theme;
}

/// A value of the theme at an address that stays, whatever theme comes next.
template <class Value>
struct Place
{
    Value value;
    bool known = false;
};

template <class Value>
using Places = std::unordered_map<QString, Place<Value>>;

template <class Value>
void forgetAll(Places<Value>* places, const Value& unknown)
{
    for (auto& place : *places)
        place.second = {unknown, false};
}

} // namespace

struct CUiResource::Private
{
    ThemeFile theme;
    QString name;
    EPriceColors prices = EPriceColors::eRedUp;
    double fontScale = 1;
    Places<QColor> colors;
    Places<QFont> fonts;
    QHash<QString, QByteArray> drawings;         // inks filled in
    QHash<QString, QHash<int, QPixmap>> pixmaps; // by key and by ratio in thousandths
    std::unordered_set<QString> reported;
    std::vector<CUiResourceChangeHandler*> handlers;
    int notifying = 0;

    void report(const QString& key)
    {
        if (reported.insert(key).second)
            DEPTH_LOG(utils::kLogError, "CUiResource",
                      boost::format("theme %1% has no key %2%") % name.toStdString() % key.toStdString());
    }

    template <class Value>
    const Value* find(Places<Value>* places, const QString& key, const Value& unknown)
    {
        auto found = places->find(key);
        if (found == places->end())
            found = places->emplace(key, Place<Value>{unknown, false}).first;
        if (!found->second.known)
            report(key);
        return &found->second.value;
    }

    int scaled(int pixels) const { return std::max(1, qRound(pixels * fontScale)); }

    QFont fontOf(const ThemeFile::Font& spec) const
    {
        QFont font(theme.fontFamilies.value(0));
        font.setFamilies(theme.fontFamilies);
        font.setPixelSize(scaled(spec.pixels));
        font.setBold(spec.bold);
        font.setStretch(spec.stretch);
        return font;
    }

    /// Puts what `theme` and `prices` say into the places.
    void apply()
    {
        forgetAll(&colors, kUnknownColor);
        for (auto entry = theme.colors.begin(); entry != theme.colors.end(); ++entry)
            colors[entry.key()] = {theme.color(entry.value(), prices, nullptr), true};
        forgetAll(&fonts, QFont());
        for (auto entry = theme.fonts.begin(); entry != theme.fonts.end(); ++entry)
            fonts[entry.key()] = {fontOf(entry.value()), true};
        QHash<QString, QColor> inks;
        for (auto entry = theme.inks.begin(); entry != theme.inks.end(); ++entry)
            inks.insert(entry.key(), theme.color(entry.value(), prices, nullptr));
        drawings.clear();
        for (auto entry = theme.pictures.begin(); entry != theme.pictures.end(); ++entry)
            drawings.insert(entry.key(), fillInks(entry.value().svg, inks));
        pixmaps.clear();
    }

    /// A handler may make and destroy others, itself included, and may change the theme again.
    void notify()
    {
        ++notifying;
        const std::size_t count = handlers.size();
        for (std::size_t index = 0; index < count; ++index) {
            if (handlers[index])
                handlers[index]->themeChanged();
        }
        if (--notifying == 0)
            handlers.erase(std::remove(handlers.begin(), handlers.end(), nullptr), handlers.end());
    }

    void use(const ThemeFile& file)
    {
        theme = file;
        name = file.name;
        reported.clear();
        apply();
        notify();
    }
};

CUiResource::CUiResource() : m_d(std::make_unique<Private>())
{
    initThemeResources();
    m_d->theme = builtIn(kBuiltIn.first());
    m_d->name = kBuiltIn.first();
    m_d->apply();
}

CUiResource::~CUiResource() = default;

QStringList CUiResource::themes() const
{
    return kBuiltIn;
}

QString CUiResource::theme() const
{
    return m_d->name;
}

bool CUiResource::setTheme(const QString& name)
{
    if (!kBuiltIn.contains(name))
        return false;
    m_d->use(builtIn(name));
    return true;
}

bool CUiResource::loadThemeFile(const QString& path, QString* error)
{
    const auto fail = [&](const QString& reason) {
        if (error)
            *error = reason;
        return false;
    };
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("%1: file: %2").arg(path, file.errorString()));
    ThemeFile theme;
    QString reason;
    if (!readThemeFile(file.readAll(), path, &theme, &reason))
        return fail(reason);
    const QString base = theme.base.isEmpty() ? kBuiltIn.first() : theme.base;
    if (!kBuiltIn.contains(base))
        return fail(QStringLiteral("%1: base: there is no built-in theme \"%2\"").arg(path, base));
    theme.fillFrom(builtIn(base));
    if (!checkTheme(theme, path, &reason))
        return fail(reason);
    m_d->use(theme);
    return true;
}

EPriceColors CUiResource::priceColors() const
{
    return m_d->prices;
}

void CUiResource::setPriceColors(EPriceColors colors)
{
    if (m_d->prices == colors)
        return;
    m_d->prices = colors;
    m_d->apply();
    m_d->notify();
}

double CUiResource::fontScale() const
{
    return m_d->fontScale;
}

bool CUiResource::setFontScale(double scale)
{
    if (!(scale >= kLeastFontScale && scale <= kMostFontScale))
        return false;
    if (m_d->fontScale == scale)
        return true;
    m_d->fontScale = scale;
    m_d->apply();
    m_d->notify();
    return true;
}

const QColor* CUiResource::getColor(const QString& key) const
{
    return m_d->find(&m_d->colors, key, kUnknownColor);
}

const QFont* CUiResource::getFont(const QString& key) const
{
    return m_d->find(&m_d->fonts, key, QFont());
}

int CUiResource::getSize(const QString& key) const
{
    const auto found = m_d->theme.sizes.constFind(key);
    if (found != m_d->theme.sizes.constEnd())
        return kTextSizes.contains(key) ? m_d->scaled(*found) : *found;
    m_d->report(key);
    return 0;
}

QPixmap CUiResource::getPixmap(const QString& key) const
{
    return getPixmap(key, qGuiApp ? qGuiApp->devicePixelRatio() : 1);
}

QPixmap CUiResource::getPixmap(const QString& key, qreal ratio) const
{
    constexpr qreal kThousandths = 1000;
    const auto drawing = m_d->drawings.constFind(key);
    if (drawing == m_d->drawings.constEnd()) {
        m_d->report(key);
        QPixmap unknown(kUnknownPicturePixels, kUnknownPicturePixels);
        unknown.fill(kUnknownColor);
        return unknown;
    }
    QPixmap& kept = m_d->pixmaps[key][qRound(ratio * kThousandths)];
    if (kept.isNull())
        kept = renderDrawing(*drawing, m_d->theme.pictures[key].size, ratio);
    return kept;
}

QString CUiResource::getColorSheetByKey(const QString& key) const
{
    const QColor* color = getColor(key);
    return QStringLiteral("rgba(%1, %2, %3, %4)")
        .arg(color->red())
        .arg(color->green())
        .arg(color->blue())
        .arg(color->alpha());
}

QString CUiResource::getImageSheet(const QString& key) const
{
    const auto drawing = m_d->drawings.constFind(key);
    if (drawing == m_d->drawings.constEnd()) {
        m_d->report(key);
        return QStringLiteral("background: %1").arg(kUnknownColor.name());
    }
    return QStringLiteral("image: url(%1)").arg(pathOfDrawing(*drawing));
}

QStringList CUiResource::keys() const
{
    QStringList result = m_d->theme.colors.keys() + m_d->theme.fonts.keys() + m_d->theme.sizes.keys() +
                         m_d->theme.pictures.keys();
    result.sort();
    return result;
}

void CUiResource::add(CUiResourceChangeHandler* handler)
{
    m_d->handlers.push_back(handler);
}

void CUiResource::remove(CUiResourceChangeHandler* handler)
{
    auto& handlers = m_d->handlers;
    const auto found = std::find(handlers.rbegin(), handlers.rend(), handler);
    if (found == handlers.rend())
        return;
    if (m_d->notifying > 0)
        *found = nullptr;
    else
        handlers.erase(std::next(found).base());
}

} // namespace Zeb
