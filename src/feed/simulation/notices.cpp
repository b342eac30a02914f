#include "feed/simulation/notices.h"

#include "feed/simulation/Random.h"
#include "platform/utils/exchange_time.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <iterator>

namespace feed {

namespace {

constexpr const char* kTitles[] = {
    "关于召开股东大会的通知",
    "年度业绩快报公告",
    "关于股东减持股份计划的公告",
    "关于回购股份进展的公告",
    "董事会决议公告",
    "监事会决议公告",
    "关于签订重大合同的公告",
    "关于对外投资的公告",
    "关于获得政府补助的公告",
    "股票交易异常波动公告",
    "关于高级管理人员辞职的公告",
    "关于完成工商变更登记的公告",
};

constexpr int kOlder = 20;
constexpr int kToday = 3;
constexpr std::uint32_t kDaysBack = 45;
constexpr int kFirstHour = 15; // of the evenings before, after the close
constexpr std::uint32_t kEveningMinutes = 8 * 60;
constexpr int kMorningHour = 7;
constexpr std::uint32_t kMorningMinutes = 2 * 60;
constexpr std::int64_t kMSecPerMinute = 60 * utils::kMSecPerSecond;

} // namespace

quoter::NoticeList simulatedNotices(const nelservice::CInstrumentDetail& detail, std::int64_t tradingDay,
                                    std::uint64_t seed)
{
    quoter::NoticeList notices;
    const std::int64_t midnight = utils::exchangeTime(static_cast<int>(tradingDay), 0, 0, 0, 0);
    if (midnight < 0)
        return notices;
    Random random(seed);
    const auto add = [&](std::int64_t time) {
        auto notice = boost::make_shared<quoter::Notice>();
        notice->m_time = time;
        notice->title = detail.name + ": " + kTitles[random.below(std::size(kTitles))];
        notice->link = "https://notices.invalid/" + detail.market + detail.code + "/" +
                       std::to_string(notices.size() + 1);
        notices.append(notice);
    };
    for (int i = 0; i < kOlder; ++i) {
        const std::int64_t day = midnight - (1 + random.below(kDaysBack)) * utils::kMSecPerDay;
        add(day + (kFirstHour * 60 + random.below(kEveningMinutes)) * kMSecPerMinute);
    }
    for (int i = 0; i < kToday; ++i)
        add(midnight + (kMorningHour * 60 + random.below(kMorningMinutes)) * kMSecPerMinute);
    std::stable_sort(notices.begin(), notices.end(),
                     [](const auto& a, const auto& b) { return a->m_time > b->m_time; });
    return notices;
}

} // namespace feed
