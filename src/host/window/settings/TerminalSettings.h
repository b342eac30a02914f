#pragma once

#include "host/window/TerminalOptions.h"
#include "host/window/workspace/Workspaces.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <map>
#include <vector>

namespace host {

/// What belongs to an arrangement beside the panes of the main window.
struct DeskState
{
    std::map<QString, int> groups; ///< of every pane by its id, from 0
    std::vector<WindowState> windows;
    QStringList instruments; ///< keys by group, empty for none
};

/// An arrangement of the panes that a person has named, with the place of the replay at that time.
struct SavedLayout
{
    QString name;
    QByteArray state; ///< of the main window's workspace
    DeskState desk;
    std::int64_t timeOfDay = -1; ///< ms since midnight at the exchange; below 0 for none
};

// What a person may choose; other values of a file are passed over.
constexpr int kLeastRefreshMs = 50;
constexpr int kMostRefreshMs = 5000;
constexpr int kLeastFontPercent = 80;
constexpr int kMostFontPercent = 200;

/// What the terminal remembers from one run to the next.
struct TerminalSettings
{
    QString theme = QStringLiteral("dark");
    Zeb::EPriceColors colors = Zeb::EPriceColors::eRedUp;
    bool concise = false;                    ///< panels take their concise colours
    int refreshMs = 100;                     ///< between two looks of a panel at its model
    int fontPercent = 100;                   ///< of the usual size
    QString language = QStringLiteral("zh"); ///< of the terminal's texts
    QMap<QString, QStringList> keys;         ///< of commands that do not have the usual ones, portable text
    QueueModes modes;
    QByteArray geometry; ///< of the window; empty for the usual one
    QByteArray state;    ///< of the main window's workspace; empty for a shipped layout
    DeskState desk;      ///< as it was left; its instruments are none
    std::vector<SavedLayout> layouts;
};

/// Reads settings from a file of JSON. A missing file leaves the settings as they are. A file that cannot be
/// read, or is no such JSON, is set aside as FILE.broken and leaves them as well; `problem` then has a line
/// for a person. Single values that mean nothing are passed over.
void readSettings(const QString& file, TerminalSettings& settings, QString& problem);

/// Writes them, and the folder that is missing. False with a line in `problem` if that fails; the file is
/// then as it was.
bool writeSettings(const QString& file, const TerminalSettings& settings, QString& problem);

/// Where a person's settings are kept.
QString usualSettingsFile();

/// Takes over what the command line does not name.
void mergeSettings(const TerminalSettings& settings, TerminalOptions& options);

/// Takes the looks over that a run begins with.
void takeLook(const TerminalOptions& options, TerminalSettings& settings);

} // namespace host
