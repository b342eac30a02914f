#pragma once

#include "records/OrderQueueData.h"
#include "records/QuoterDepthData.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace testing_support {

/// What a pass over a level reads and writes beside the level: plain maps.
struct ReferenceCaches
{
    std::map<int, std::map<std::int64_t, double>> dealt;
    std::set<std::int64_t> cancelled;
    std::map<int, std::set<std::int64_t>> cached;
    std::int64_t lastFeedTime = 0;
    std::int64_t refreshClock = 0;
    std::int64_t depthTime = 0;
    const quoter::QuoterDepthData* depth = nullptr;
};

/// A price level kept in the plainest way: a vector, every step written out, nothing remembered. The real
/// level is held against it on random queues. For ordinary volumes only.
struct ReferenceLevel
{
    double price = 0;
    double sumVol = 0;
    double levelVol = 0;
    double avgVol = 0;
    double unknownVol = 0;
    std::vector<Kel::COrderVol> orders;
    std::set<std::int64_t> ids;
    int level = 0;
    Kel::EOrderQueueType type = Kel::OQT_BUY;
    int count = 0;
    int startIndex = 0;
    bool hasPartDeal = false;

    void addOrderVol(const Kel::COrderVol& order);
    void resetByLevelVols(const std::vector<int>& volumes);
    void mergeLevelVols(const std::vector<int>& volumes);
    void calcUnknownVol();
    bool trimToLevelVol();
    bool dropBeforePartDeal(bool onlyTenLevels);
    void recount();
    bool updateVolList(ReferenceCaches& caches);

    /// Fields and orders as `levelText` prints them.
    std::string text() const;
};

} // namespace testing_support
