#pragma once

#include "host/window/day_phases.h"

#include <QString>

#include <functional>
#include <vector>

namespace host {

/// A text below or above a line of time, in pixels of the widget.
struct PlacedLabel
{
    int left = 0;
    int width = 0;
    QString text;
};

/// Labels of the marks over their places, within [0, width): where two would come closer than `gap`, only
/// that of the more important mark is there. Open and close come first, then lunch, then the auctions. `xOf`
/// gives the place of a moment, `widthOf` the width of a text.
std::vector<PlacedLabel> placeLabels(const std::vector<PhaseMark>& marks, int width, int gap,
                                     const std::function<int(std::int64_t moment)>& xOf,
                                     const std::function<int(const QString& text)>& widthOf);

} // namespace host
