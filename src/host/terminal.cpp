#include "host/terminal.h"

#include "platform/utils/exchange_time.h"

#include <QVector>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace host {
namespace {

constexpr int kBarWidth = 30;
constexpr std::int64_t kPaintEveryMs = 100;

struct Range
{
    uint first;
    uint last;
};

// Blocks whose characters take two columns: Unicode's East Asian wide and full-width ranges that texts of
// this library can hold.
constexpr Range kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},  {0x3041, 0x33FF}, {0x3400, 0x4DBF},
                           {0x4E00, 0x9FFF},   {0xA000, 0xA4CF},  {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},
                           {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F},
                           {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

int widthOf(uint character)
{
    if (character < 0x20 || (character >= 0x7F && character < 0xA0))
        return 0;
    if (QChar::isSurrogate(character))
        return 1;
    const QChar::Category category = QChar::category(character);
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing ||
        category == QChar::Other_Format)
        return 0;
    for (const Range& range : kWide) {
        if (character >= range.first && character <= range.last)
            return 2;
    }
    return 1;
}

} // namespace

bool isTerminal(int descriptor)
{
    return isatty(descriptor) == 1;
}

bool useColor(ColorMode mode, int descriptor)
{
    if (mode != ColorMode::Auto)
        return mode == ColorMode::Always;
    const char* noColor = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    const bool dumb = terminal && std::strcmp(terminal, "dumb") == 0;
    return isTerminal(descriptor) && !dumb && !(noColor && *noColor);
}

int displayWidth(const QString& text)
{
    int width = 0;
    for (const uint character : text.toUcs4())
        width += widthOf(character);
    return width;
}

QString padLeft(const QString& text, int width)
{
    return QString(std::max(0, width - displayWidth(text)), QLatin1Char(' ')) + text;
}

QString padRight(const QString& text, int width)
{
    return text + QString(std::max(0, width - displayWidth(text)), QLatin1Char(' '));
}

QString colored(const QString& text, const char* code, bool color)
{
    if (!color)
        return text;
    return QStringLiteral("\x1b[") + QLatin1String(code) + QLatin1Char('m') + text +
           QStringLiteral("\x1b[0m");
}

ProgressBar::ProgressBar(std::string title) : m_title(std::move(title)), m_enabled(isTerminal(STDERR_FILENO))
{
}

ProgressBar::~ProgressBar()
{
    if (m_shown)
        std::fputs("\r\x1b[K", stderr);
}

void ProgressBar::show(std::int64_t done, std::int64_t total)
{
    if (!m_enabled)
        return;
    const std::int64_t now = utils::clockMSec();
    if (m_shown && now - m_lastPaint < kPaintEveryMs)
        return;
    m_lastPaint = now;
    m_shown = true;
    if (total <= 0) {
        std::fprintf(stderr, "\r%s ...\x1b[K", m_title.c_str());
        return;
    }
    const double share = std::clamp(static_cast<double>(done) / static_cast<double>(total), 0.0, 1.0);
    const auto filled = static_cast<std::size_t>(share * kBarWidth);
    const std::string bar = std::string(filled, '#') + std::string(kBarWidth - filled, '.');
    std::fprintf(stderr, "\r%s [%s] %3d %%\x1b[K", m_title.c_str(), bar.c_str(),
                 static_cast<int>(share * 100));
}

feed::Progress ProgressBar::callback()
{
    return [this](std::int64_t done, std::int64_t total) {
        show(done, total);
        return true;
    };
}

} // namespace host
