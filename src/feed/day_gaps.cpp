#include "feed/day_gaps.h"

#include <algorithm>
#include <limits>

namespace feed {

namespace {

constexpr std::int64_t kUsualStep = 1;
constexpr std::int64_t kStepWithRoom = 2; ///< where every second number is kept for a restored order

/// Goes through orders and deals in the order of their numbers; `visit` answers whether to go on.
template <class Visit>
void walkNumbers(const InstrumentDay& day, Visit visit)
{
    auto order = day.orders.begin();
    auto deal = day.deals.begin();
    while (order != day.orders.end() || deal != day.deals.end()) {
        const bool orderNext =
            deal == day.deals.end() || (order != day.orders.end() && order->seq <= deal->seq);
        const std::int64_t number = orderNext ? order->seq : deal->seq;
        const std::int64_t time = orderNext ? order->time : deal->time;
        if (orderNext)
            ++order;
        else
            ++deal;
        if (!visit(number, time))
            return;
    }
}

/// b - a for b > a, or the greatest number where that does not fit.
std::int64_t stepFrom(std::int64_t a, std::int64_t b)
{
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    return a < 0 && b > kMost + a ? kMost : b - a;
}

/// The usual step of dense numbers; 0 if they are not dense.
std::int64_t denseStep(const InstrumentDay& day)
{
    const std::size_t count = day.orders.size() + day.deals.size();
    if (count < kLeastNumbered)
        return 0;
    const std::size_t mostGaps = count / kStepsPerGap;
    std::size_t twos = 0;
    std::size_t longer = 0;
    bool first = true;
    std::int64_t before = 0;
    walkNumbers(day, [&](std::int64_t number, std::int64_t) {
        const std::int64_t step = first ? 0 : stepFrom(before, number);
        first = false;
        before = number;
        twos += step == kStepWithRoom ? 1 : 0;
        longer += step > kStepWithRoom ? 1 : 0;
        return longer <= mostGaps;
    });
    if (longer > mostGaps)
        return 0;
    if (twos + longer <= mostGaps)
        return kUsualStep;
    return 2 * twos > count ? kStepWithRoom : 0;
}

} // namespace

std::vector<DayGap> findGaps(const InstrumentDay& day)
{
    std::vector<DayGap> gaps;
    const std::int64_t usual = denseStep(day);
    if (usual == 0)
        return gaps;
    bool first = true;
    std::int64_t before = 0;
    std::int64_t latest = std::numeric_limits<std::int64_t>::min();
    walkNumbers(day, [&](std::int64_t number, std::int64_t time) {
        const std::int64_t step = first ? 0 : stepFrom(before, number);
        const std::int64_t moment = std::max(latest, time);
        if (step > usual)
            gaps.push_back({latest, moment, (step - 1) / usual, number});
        first = false;
        before = number;
        latest = moment;
        return true;
    });
    return gaps;
}

} // namespace feed
