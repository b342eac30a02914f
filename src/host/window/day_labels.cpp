#include "host/window/day_labels.h"

#include "host/window/language/TerminalLanguage.h"

#include <algorithm>

namespace host {

namespace {

/// The smaller, the sooner a mark has its label.
int rank(EDayPhase phase)
{
    switch (phase) {
    case EDayPhase::eOpen:
        return 0;
    case EDayPhase::eClose:
        return 1;
    case EDayPhase::eBreak:
        return 2;
    case EDayPhase::eResume:
        return 3;
    case EDayPhase::eOpeningAuction:
        return 4;
    case EDayPhase::eClosingAuction:
        return 5;
    case EDayPhase::eOpeningMatch:
        return 6;
    }
    return 7;
}

} // namespace

std::vector<PlacedLabel> placeLabels(const std::vector<PhaseMark>& marks, int width, int gap,
                                     const std::function<int(std::int64_t moment)>& xOf,
                                     const std::function<int(const QString& text)>& widthOf)
{
    std::vector<PhaseMark> order = marks;
    std::stable_sort(order.begin(), order.end(), [](const PhaseMark& left, const PhaseMark& right) {
        return rank(left.phase) < rank(right.phase);
    });
    std::vector<PlacedLabel> placed;
    for (const PhaseMark& mark : order) {
        PlacedLabel label;
        label.text = uiText(mark.label);
        label.width = widthOf(label.text);
        label.left = std::max(std::min(xOf(mark.moment) - label.width / 2, width - label.width), 0);
        const bool free = std::all_of(placed.begin(), placed.end(), [&](const PlacedLabel& other) {
            return label.left >= other.left + other.width + gap ||
                   other.left >= label.left + label.width + gap;
        });
        if (free && label.width <= width)
            placed.push_back(label);
    }
    return placed;
}

} // namespace host
