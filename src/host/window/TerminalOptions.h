#pragma once

#include "host/DaySource.h"
#include "platform/resources/CUiResource.h"
#include "records/EQueueMode.h"

#include <QSize>
#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace host {

/// How the queue panel shows its levels.
struct QueueModes
{
    Kel::EQueueMode levels = Kel::eQueueTenLevels;
    Kel::EQueueMode style = Kel::eQueueDetailFirst;
    bool full = false; ///< all levels list their orders
};

/// Takes a word of `--mode` over: five, ten, first, horizontal, vertical, list, full, cut. False for another.
bool takeModeWord(const std::string& word, QueueModes& modes);

/// The words that `takeModeWord` knows.
const std::vector<std::string>& modeWords();

/// What the terminal was asked for.
struct TerminalOptions
{
    DaySource source;
    std::int64_t at = -1; ///< ms since midnight at the exchange; below 0 for the usual moment
    double speed = 1;     ///< times real time; 0 as fast as possible
    bool playing = true;  ///< once the first day is there
    QString theme = QStringLiteral("dark");
    Zeb::EPriceColors colors = Zeb::EPriceColors::eRedUp;
    QString language = QStringLiteral("zh"); ///< of the terminal's texts
    int fontPercent = 100;                   ///< of the usual size
    QueueModes modes;
    QString layout = QStringLiteral("queue"); ///< id of a shipped one
    QString externalData;                     ///< folder of local information files; empty for none
    QString settingsFile;                     ///< what is remembered between runs; empty for nothing

    /// What the command line names; the rest is as it was in the last run.
    struct Given
    {
        bool theme = false;
        bool colors = false;
        bool modes = false;
        bool layout = false;
        bool language = false;
        bool fontPercent = false;
    } given;
    QSize size; ///< of the window, pixels at 100 %; empty for the usual one

    QString shot;         ///< file of a picture; empty for a window
    QString pane;         ///< id of the pane that the picture is of, `size` its size; empty for the window
    bool concise = false; ///< panels in the picture take the concise style's colours
    double scale = 1;     ///< of the picture
    double measureStalls = 0; ///< seconds over which the event loop is watched; 0 for a usual run
    bool probe = false;       ///< only finds out whether a window can be opened
    bool tour = false;        ///< goes through the window's commands by itself and closes it
};

} // namespace host
