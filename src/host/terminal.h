#pragma once

#include "feed/csv/ImportReport.h"

#include <QString>

#include <cstdint>
#include <string>

/// What a program needs to know of the terminal that it writes to.
namespace host {

enum class ColorMode
{
    Auto, ///< on a terminal, unless NO_COLOR is set or the terminal is a dumb one
    Always,
    Never,
};

bool isTerminal(int descriptor);
bool useColor(ColorMode mode, int descriptor);

/// Columns that a text takes on a terminal: Chinese characters and full-width signs take two, combining marks
/// none.
int displayWidth(const QString& text);

/// The text filled up with blanks to a width in columns, before or behind it; a longer one stays as it is.
QString padLeft(const QString& text, int width);
QString padRight(const QString& text, int width);

/// The text between the codes of a colour ("1;31"), or as it is.
QString colored(const QString& text, const char* code, bool color);

/// A bar on the standard error output while long work runs; nothing where that is no terminal. The bar is
/// wiped when the object ends.
class ProgressBar
{
public:
    explicit ProgressBar(std::string title);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// `total` 0 for unknown. Repaints ten times a second at most.
    void show(std::int64_t done, std::int64_t total);

    /// The bar as the callback of a reading; it must outlive the reading.
    feed::Progress callback();

private:
    std::string m_title;
    bool m_shown = false;
    const bool m_enabled;
    std::int64_t m_lastPaint = 0; ///< ms of a clock that only goes forward
};

} // namespace host
