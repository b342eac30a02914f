#pragma once

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QSize>
#include <QString>
#include <QStringList>

namespace Zeb {

enum class EPriceColors;

/// What a theme file says, as it was read: names are not yet resolved, so that the colours of rise and fall
/// can be exchanged and a theme can lay its palette over that of another. `themes/README.md` describes the
/// format. Values only; any thread.
struct ThemeFile
{
    struct Font
    {
        int pixels = 0;
        bool bold = false;
        int stretch = 100; ///< width of the letters in percent
    };

    struct Picture
    {
        QString file;
        QSize size;     ///< pixels at 100 % scale
        QByteArray svg; ///< the drawing, its inks not yet filled in
    };

    QString name;
    QString base; ///< the built-in theme that fills what this one leaves out; empty if complete by itself
    QHash<QString, QString> palette;
    QHash<QString, QHash<QString, QString>> hues;
    QStringList usualPair;      ///< hue of a rising and of a falling price
    QStringList colorBlindPair; ///< the same for those who cannot tell the usual pair apart
    QHash<QString, QString> inks;
    QHash<QString, QString> colors;
    QStringList fontFamilies;
    QHash<QString, Font> fonts;
    QHash<QString, int> sizes;
    QHash<QString, Picture> pictures;

    /// The colour that `text` stands for: "#rrggbb", a palette name, or "up." or "down." and the part of a
    /// hue, each with an optional share of opacity, " 40%". Invalid with the reason in `error` if it stands
    /// for none; `error` may be null.
    QColor color(const QString& text, EPriceColors prices, QString* error) const;

    /// What this theme leaves out is taken from `other`.
    void fillFrom(const ThemeFile& other);
};

/// Reads a theme file from `bytes`; `path` is where they came from: pictures are looked for beside it, and
/// every message names it. False with "path: place: reason" in `error`, where the place is line and column
/// or the entry; `theme` is left alone then. Checks the entries by themselves, not yet what they refer to.
bool readThemeFile(const QByteArray& bytes, const QString& path, ThemeFile* theme, QString* error);

/// Checks that everything that `theme` refers to is there, for all choices of price colours. False with the
/// first fault, as above, in `error`.
bool checkTheme(const ThemeFile& theme, const QString& path, QString* error);

} // namespace Zeb
