#pragma once

#include "host/window/ReplayPlayer.h"
#include "host/window/groups/PaneGroup.h"

#include <array>

namespace host {

/// The linking groups of the terminal, told apart by colour. Every pane is in one of them; the first is where
/// panes are at the beginning. GUI thread.
class PaneGroups
{
public:
    static constexpr int kCount = 4;

    /// The theme's colour of a group, by its key.
    static QString colorKey(int group);

    PaneGroup& at(int group) { return m_groups[static_cast<std::size_t>(group)]; }
    const PaneGroup& at(int group) const { return m_groups[static_cast<std::size_t>(group)]; }

    /// The group that a pane is in, 0 for one that is in none.
    int groupOf(const Pane* pane) const;
    PaneGroup& of(const Pane& pane) { return at(groupOf(&pane)); }

    /// Whether a pane is in a group.
    bool contains(const Pane* pane) const;

    /// Puts a pane into a group, out of the one it is in. A group without an instrument takes over that of
    /// the pane. The pane's feed changes with the next `begin`.
    void link(Pane* pane, int group);

    /// Whether a group's day is replayed: it has one, and panes; the first needs none.
    bool isPlayed(int group) const;

    /// What is to be replayed: the days of the groups that have panes.
    std::vector<ReplayPart> parts();

    /// The place of a group's day in `parts`; the first one for a group that is not played.
    int partOf(int group) const;

    /// From the first begin to the last end of these days; the first group's alone, if another's is of a
    /// different date.
    DayRange range() const;

    /// Groups with panes but without an instrument show that of the first group.
    void fill();

    /// No group has an instrument any more.
    void clearDays();

    void begin();
    void loaded();
    void follow(std::int64_t now);

    /// All panels look at their models at once.
    void lookNow();

    /// Records that the feeds have delivered.
    std::int64_t records() const;

private:
    std::array<PaneGroup, kCount> m_groups;
};

} // namespace host
