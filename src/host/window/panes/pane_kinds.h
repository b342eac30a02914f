#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace host {

class Pane;

/// A kind of pane, of which the terminal has one from the beginning and may have more.
struct PaneKind
{
    QString id; ///< of its first pane
    QString title;
    std::function<Pane*()> make;
};

/// All kinds, in the order of the menu.
const std::vector<PaneKind>& paneKinds();

/// Kind and number of a pane by its id: "queue#2" is the second "queue".
struct PaneName
{
    QString kind;
    int number = 1;
};

/// Number 0 for an id that is no pane's.
PaneName paneName(const QString& id);

/// Makes the pane of an id; null for one that is no pane's. GUI thread.
Pane* makePane(const QString& id);

} // namespace host
