#pragma once

#include "records/DepthExport.h"

#include <QColor>
#include <QFont>
#include <QHash>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <memory>

namespace Zeb {

class CUiResourceChangeHandler;

/// Which of two colours stands for a rising price.
enum class EPriceColors
{
    eRedUp,     ///< red rises, green falls: the custom of mainland exchanges
    eGreenUp,   ///< the two swapped
    eColorBlind ///< orange rises, blue falls: told apart by all common kinds of colour blindness
};

/// Colours, fonts, sizes and pictures of the current theme by key; the prefix of a key tells its kind
/// (`ic_clr_`, `kel_clr_`, `clr_`; `ic_fnt_`, `fnt_`; `kel_siz_`, `siz_`; `kel_img_`, `img_`). Use it as
/// `utils::CSingletonT<Zeb::CUiResource>::instance()`. GUI thread.
///
/// An unknown key gives a loud fallback (magenta, the default font, size 0, a magenta picture) and one log
/// line for the key. `themes/README.md` lists what a theme file says.
class DEPTH_EXPORT CUiResource
{
public:
    CUiResource();
    ~CUiResource();
    CUiResource(const CUiResource&) = delete;
    CUiResource& operator=(const CUiResource&) = delete;

    /// Names of the built-in themes: "dark", which is the first one in force, and "light".
    QStringList themes() const;
    QString theme() const;

    /// Puts a built-in theme in force and calls every `themeChanged`. False if there is none of that name;
    /// nothing changes then.
    bool setTheme(const QString& name);

    /// Reads a theme file; the format is described in `themes/README.md`. On success the theme is in force
    /// and every `themeChanged` was called; keys that the file does not have keep the values of the built-in
    /// theme that it names as its base. False leaves all as it was, with file, place and reason in `error`.
    bool loadThemeFile(const QString& path, QString* error);

    EPriceColors priceColors() const;
    void setPriceColors(EPriceColors colors);

    /// Share of their usual size that the fonts of `getFont` have, and with them the sizes of lines that hold
    /// text; 1 until a host asks for another.
    double fontScale() const;

    /// Puts a share of 0.5 to 3 in force and calls every `themeChanged`. False for another number; nothing
    /// changes then. Fonts keep whole pixels, at least one.
    bool setFontScale(double scale);

    /// Addresses stay valid for the life of the process; what stands there changes with the theme.
    const QColor* getColor(const QString& key) const;
    const QFont* getFont(const QString& key) const;

    /// Pixels at 100 % scale of the screen; the heights of lines that hold text follow the share of the
    /// fonts.
    int getSize(const QString& key) const;

    /// The picture at its own size, for the device pixel ratio of the application's screens (the largest,
    /// if they differ).
    QPixmap getPixmap(const QString& key) const;

    /// The same for a device of `ratio` device pixels to a pixel, as `QPaintDevice::devicePixelRatioF` tells.
    QPixmap getPixmap(const QString& key, qreal ratio) const;

    /// The colour as style sheets write it, "rgba(r, g, b, a)".
    QString getColorSheetByKey(const QString& key) const;

    /// The picture as the declaration of a style sheet, "image: url(...)", to stand between the braces of a
    /// rule. The path in it belongs to the colours in force: ask again in `themeChanged`.
    QString getImageSheet(const QString& key) const;

    /// All keys of the theme in force, sorted.
    QStringList keys() const;

private:
    friend class CUiResourceChangeHandler;
    void add(CUiResourceChangeHandler* handler);
    void remove(CUiResourceChangeHandler* handler);

    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace Zeb
