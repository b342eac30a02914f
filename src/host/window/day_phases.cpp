#include "host/window/day_phases.h"

#include "host/DayTimeline.h"
#include "host/window/language/TerminalLanguage.h"
#include "platform/services/trading_sessions.h"
#include "platform/utils/exchange_time.h"
#include "platform/utils/market_predicates.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::int64_t kMinute = 60 * utils::kMSecPerSecond;
constexpr std::int64_t kAuctionBefore = 15 * kMinute; // of the first session
constexpr std::int64_t kMatchBefore = 5 * kMinute;
constexpr std::int64_t kClosingAuction = 3 * kMinute;
constexpr std::int64_t kUsualClose = 15 * 60 * kMinute; // time of day
constexpr std::int64_t kNoon = 12 * 60 * kMinute;
constexpr std::int64_t kGrace = 2000; // ms of the day that going back looks over

PhaseMark mark(EDayPhase phase, std::int64_t moment, const QString& name, const QString& label)
{
    return {phase, moment, name, label};
}

void addBreak(std::vector<PhaseMark>& marks, std::int64_t begin, std::int64_t end)
{
    const bool lunch = utils::timeOfDayMs(begin) <= kNoon && utils::timeOfDayMs(end) >= kNoon;
    marks.push_back(mark(EDayPhase::eBreak, begin, lunch ? sourceText("午间休市") : sourceText("小节休息"),
                         lunch ? sourceText("午休") : sourceText("小休")));
    marks.push_back(mark(EDayPhase::eResume, end, lunch ? sourceText("下午开盘") : sourceText("恢复交易"),
                         lunch ? sourceText("午后") : sourceText("恢复")));
}

} // namespace

std::vector<PhaseMark> phasesOf(const DayRange& range, const Sessions& sessions, const std::string& market)
{
    if (sessions.empty())
        return {};
    std::vector<PhaseMark> marks;
    const bool auctions = utils::isStockMarket(market);
    const std::int64_t open = sessions.front().first;
    const std::int64_t close = sessions.back().second;
    const QString auction = sourceText("竞价");
    if (auctions) {
        marks.push_back(
            mark(EDayPhase::eOpeningAuction, open - kAuctionBefore, sourceText("开盘集合竞价"), auction));
        marks.push_back(mark(EDayPhase::eOpeningMatch, open - kMatchBefore, sourceText("集合竞价结束"),
                             sourceText("撮合")));
    }
    marks.push_back(mark(EDayPhase::eOpen, open, sourceText("开盘"), sourceText("开盘")));
    for (std::size_t i = 1; i < sessions.size(); ++i) {
        if (sessions[i].first > sessions[i - 1].second)
            addBreak(marks, sessions[i - 1].second, sessions[i].first);
    }
    if (auctions && utils::timeOfDayMs(close) == kUsualClose)
        marks.push_back(
            mark(EDayPhase::eClosingAuction, close - kClosingAuction, sourceText("收盘集合竞价"), auction));
    marks.push_back(mark(EDayPhase::eClose, close, sourceText("收盘"), sourceText("收盘")));

    const auto outside = [&range](const PhaseMark& one) {
        return one.moment < range.begin || one.moment > range.end;
    };
    marks.erase(std::remove_if(marks.begin(), marks.end(), outside), marks.end());
    return marks;
}

std::vector<PhaseMark> phasesOf(const feed::InstrumentDay& day)
{
    Sessions sessions = Kel::tradingSessions(day.detail.market, day.detail.code);
    for (auto& session : sessions) {
        session.first += dayStart(day);
        session.second += dayStart(day);
    }
    return phasesOf(dayRange(day), sessions, day.detail.market);
}

std::optional<PhaseMark> nextPhase(const std::vector<PhaseMark>& marks, std::int64_t moment)
{
    const auto found = std::find_if(marks.begin(), marks.end(),
                                    [moment](const PhaseMark& one) { return one.moment > moment; });
    return found != marks.end() ? std::optional<PhaseMark>(*found) : std::nullopt;
}

std::optional<PhaseMark> previousPhase(const std::vector<PhaseMark>& marks, std::int64_t moment)
{
    const auto found = std::find_if(marks.rbegin(), marks.rend(),
                                    [moment](const PhaseMark& one) { return one.moment < moment - kGrace; });
    return found != marks.rend() ? std::optional<PhaseMark>(*found) : std::nullopt;
}

std::vector<PhaseBand> bandsOf(const std::vector<PhaseMark>& marks)
{
    std::vector<PhaseBand> bands;
    for (std::size_t i = 0; i + 1 < marks.size(); ++i) {
        const EDayPhase phase = marks[i].phase;
        const bool auction = phase == EDayPhase::eOpeningAuction || phase == EDayPhase::eClosingAuction;
        if (auction || phase == EDayPhase::eBreak)
            bands.push_back({{marks[i].moment, marks[i + 1].moment}, auction});
    }
    return bands;
}

} // namespace host
