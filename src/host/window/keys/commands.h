#pragma once

#include <vector>

namespace host {

/// Menus of the window, and those inside of them.
enum class EMenu
{
    eFile,
    eReplay,
    ePhase, ///< inside of eReplay
    eQueue,
    ePane,
    eNewPane, ///< inside of ePane
    eGroup,   ///< inside of ePane
    eLook,
    eHelp,
};

/// Something that a person can tell the window to do.
struct Command
{
    const char* id; ///< of the action, and in the file of settings
    EMenu menu;
    const char* text;             ///< in Chinese, for `uiText`
    const char* keys;             ///< the usual ones, as `QKeySequence::PortableText`; empty for none
    const char* choice = nullptr; ///< of commands with the same name here one is checked; "" is checked alone
    bool beginsPart = false;      ///< a line stands above it
};

/// All commands in the order of the menus. Those that are made at run time, as for each kind of pane, are
/// besides.
const std::vector<Command>& commands();

/// Title of a menu in Chinese, for `uiText`; those of the menu bar have a mnemonic.
const char* menuTitle(EMenu menu);

} // namespace host
