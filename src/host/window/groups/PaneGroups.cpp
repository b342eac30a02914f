#include "host/window/groups/PaneGroups.h"

#include "platform/resources/mark_colors.h"
#include "platform/utils/exchange_time.h"

#include <algorithm>

namespace host {

QString PaneGroups::colorKey(int group)
{
    return QString::fromLatin1(Kel::markColorKey(group));
}

int PaneGroups::groupOf(const Pane* pane) const
{
    for (int group = 0; group < kCount; ++group) {
        const std::vector<Pane*>& panes = at(group).panes();
        if (std::find(panes.begin(), panes.end(), pane) != panes.end())
            return group;
    }
    return 0;
}

bool PaneGroups::contains(const Pane* pane) const
{
    const std::vector<Pane*>& panes = at(groupOf(pane)).panes();
    return std::find(panes.begin(), panes.end(), pane) != panes.end();
}

void PaneGroups::link(Pane* pane, int group)
{
    PaneGroup& from = of(*pane);
    PaneGroup& to = at(group);
    if (!to.day())
        to.setDay(from.row(), from.day());
    from.wiring().remove(pane);
    to.wiring().add(pane);
}

bool PaneGroups::isPlayed(int group) const
{
    return at(group).day() && (group == 0 || !at(group).panes().empty());
}

std::vector<ReplayPart> PaneGroups::parts()
{
    std::vector<ReplayPart> parts;
    for (int group = 0; group < kCount; ++group) {
        if (isPlayed(group))
            parts.push_back(ReplayPart{at(group).day(), &at(group).hub()});
    }
    return parts;
}

int PaneGroups::partOf(int group) const
{
    int part = 0;
    for (int before = 0; before < group && isPlayed(group); ++before)
        part += isPlayed(before) ? 1 : 0;
    return part;
}

DayRange PaneGroups::range() const
{
    DayRange range = at(0).range();
    for (int group = 1; group < kCount; ++group) {
        const DayRange& other = at(group).range();
        if (!isPlayed(group) || utils::exchangeDayStart(other.begin) != utils::exchangeDayStart(range.begin))
            continue;
        range.begin = std::min(range.begin, other.begin);
        range.end = std::max(range.end, other.end);
    }
    return range;
}

void PaneGroups::fill()
{
    for (PaneGroup& group : m_groups) {
        if (!group.day() && !group.panes().empty())
            group.setDay(at(0).row(), at(0).day());
    }
}

void PaneGroups::clearDays()
{
    for (PaneGroup& group : m_groups)
        group.setDay(-1, nullptr);
}

void PaneGroups::begin()
{
    for (PaneGroup& group : m_groups)
        group.begin();
}

void PaneGroups::loaded()
{
    for (PaneGroup& group : m_groups)
        group.loaded();
}

void PaneGroups::follow(std::int64_t now)
{
    for (PaneGroup& group : m_groups)
        group.follow(now);
}

void PaneGroups::lookNow()
{
    for (const PaneGroup& group : m_groups) {
        for (Pane* pane : group.panes())
            pane->lookNow();
    }
}

std::int64_t PaneGroups::records() const
{
    std::int64_t sum = 0;
    for (const PaneGroup& group : m_groups)
        sum += group.hub().records();
    return sum;
}

} // namespace host
