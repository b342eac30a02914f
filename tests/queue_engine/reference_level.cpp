#include "queue_engine/reference_level.h"

#include "support/LevelText.h"

#include <algorithm>
#include <cmath>

namespace testing_support {

namespace {

constexpr double kNothing = 0.00001;

bool less(double a, double b)
{
    return a - b < -kNothing;
}

bool positive(double a)
{
    return a > kNothing;
}

bool zero(double a)
{
    return std::fabs(a) <= kNothing;
}

int rounded(double volume)
{
    return static_cast<int>(volume + 0.5);
}

bool amongTen(int level)
{
    return level >= 1 && level <= 10;
}

Kel::EOrderQueueType sizeClass(double lots)
{
    const int whole = static_cast<int>(lots);
    if (whole < 1000)
        return Kel::OQT_NORMAL;
    return whole < 5000 ? Kel::OQT_BIG : Kel::OQT_SUPER;
}

bool finished(Kel::EOrderQueueType type)
{
    return type == Kel::OQT_CANCELED || type == Kel::OQT_DEALT || type == Kel::OQT_PART_DEALT;
}

/// The value of a number in one kind of the deal cache; null if there is none.
double* find(ReferenceCaches& caches, int kind, std::int64_t number)
{
    const auto entries = caches.dealt.find(kind);
    if (entries == caches.dealt.end())
        return nullptr;
    const auto entry = entries->second.find(number);
    return entry == entries->second.end() ? nullptr : &entry->second;
}

} // namespace

void ReferenceLevel::addOrderVol(const Kel::COrderVol& order)
{
    if (!ids.insert(order.m_entrustNo).second)
        return;
    sumVol += order.m_vol;
    count += 1;
    avgVol = sumVol / count;
    orders.push_back(order);
}

void ReferenceLevel::resetByLevelVols(const std::vector<int>& volumes)
{
    sumVol = 0;
    orders.clear();
    for (const int volume : volumes) {
        Kel::COrderVol order;
        order.m_entrustNo = 0;
        order.m_vol = volume;
        order.m_type = Kel::OQT_UNKNOWN;
        orders.push_back(order);
        sumVol += volume;
    }
    count = static_cast<int>(volumes.size());
    avgVol = volumes.empty() ? 0 : sumVol / count;
}

void ReferenceLevel::mergeLevelVols(const std::vector<int>& volumes)
{
    const int n = static_cast<int>(volumes.size());
    const int m = static_cast<int>(orders.size());
    if (n < 1)
        return;

    const int w = std::min({m, n, 7});
    int anchor = m - 1;
    bool found = false;
    int i = 0;
    int j = 1;
    int miss = 0;
    bool matching = false;
    bool raise = false;
    while (i < m) {
        if (!matching) {
            anchor = i;
            raise = volumes[0] > rounded(orders[i].m_vol);
            matching = true;
            i += 1;
        }
        while (j < w && i < m) {
            if (volumes[j] != rounded(orders[i].m_vol)) {
                miss += 1;
                break;
            }
            i += 1;
            j += 1;
        }
        if (miss >= 5) {
            matching = false;
            j = 1;
            miss = 0;
            i = anchor + 2;
            continue;
        }
        if (j >= w) {
            found = true;
            if (raise)
                orders[anchor].m_vol = volumes[0];
            break;
        }
        i += 1;
    }

    if (!found) {
        if (n >= 50) {
            resetByLevelVols(volumes);
            return;
        }
        anchor = m - 1;
    }

    int k = 0;
    int p = 0;
    while (k < m && p < n) {
        Kel::COrderVol& order = orders[k];
        if (k < anchor) {
            order.m_type = Kel::OQT_DEALT;
            sumVol -= order.m_vol;
            count -= 1;
        } else if (k == anchor) {
            if (volumes[p] >= rounded(order.m_vol))
                order.m_type = sizeClass(order.m_vol);
            else {
                order.m_type = Kel::OQT_PART_DEALT;
                order.m_partDealVol = order.m_vol - volumes[p];
                if (positive(order.m_partDealVol))
                    hasPartDeal = true;
                order.m_vol -= order.m_partDealVol;
                sumVol -= order.m_partDealVol;
            }
            p += 1;
        } else if (volumes[p] == rounded(order.m_vol)) {
            order.m_type = sizeClass(order.m_vol);
            p += 1;
        } else {
            order.m_type = Kel::OQT_CANCELED;
            sumVol -= order.m_vol;
            count -= 1;
        }
        k += 1;
    }
    for (; p < n; ++p) {
        Kel::COrderVol order;
        order.m_vol = volumes[p];
        orders.push_back(order);
        sumVol += volumes[p];
        count += 1;
    }
    avgVol = sumVol / count;
    if (!zero(levelVol - sumVol) && m != 0 && n < 50 && !found)
        resetByLevelVols(volumes);
    if (avgVol < -kNothing)
        avgVol = 0;
}

void ReferenceLevel::calcUnknownVol()
{
    if (zero(levelVol) || !amongTen(level))
        return;
    startIndex = 0;
    double acc = 0;
    for (int i = static_cast<int>(orders.size()) - 1; i >= 0; --i) {
        const Kel::COrderVol& order = orders[i];
        if (order.m_type == Kel::OQT_CANCELED || order.m_type == Kel::OQT_DEALT)
            continue;
        acc += order.m_vol;
        if (!less(acc, levelVol) || order.m_type == Kel::OQT_PART_DEALT) {
            startIndex = i;
            break;
        }
    }
    count = std::max(0, static_cast<int>(orders.size()) - startIndex);
    unknownVol = levelVol - acc;
    if (!zero(unknownVol) && less(std::fabs(unknownVol), 1))
        unknownVol = 0;
    if (positive(unknownVol))
        count += (static_cast<int>(unknownVol + 0.5) + 999) / 1000;
}

bool ReferenceLevel::trimToLevelVol()
{
    if (zero(levelVol) || !amongTen(level))
        return false;
    double acc = 0;
    for (int i = static_cast<int>(orders.size()) - 1; i >= 0; --i) {
        acc += orders[i].m_vol;
        if (!less(acc, levelVol)) {
            orders[i].m_vol -= acc - levelVol;
            orders.erase(orders.begin(), orders.begin() + i);
            return true;
        }
    }
    return false;
}

bool ReferenceLevel::dropBeforePartDeal(bool onlyTenLevels)
{
    if (zero(levelVol) || (onlyTenLevels && !amongTen(level)))
        return false;
    bool marked = false;
    std::int64_t cutNo = 0;
    int stop = -1;
    for (int i = static_cast<int>(orders.size()) - 1; i >= 0 && stop < 0; --i) {
        if (!marked) {
            if (orders[i].m_type == Kel::OQT_PART_DEALT && i > 0) {
                marked = true;
                cutNo = orders[i].m_entrustNo;
            }
        } else if (orders[i].m_type != Kel::OQT_DEALT)
            stop = i;
    }
    if (stop < 0)
        return false;
    std::vector<Kel::COrderVol> kept;
    for (int i = 0; i < static_cast<int>(orders.size()); ++i) {
        if (i <= stop && orders[i].m_entrustNo < cutNo) {
            sumVol -= orders[i].m_vol;
            count -= 1;
        } else
            kept.push_back(orders[i]);
    }
    orders = kept;
    if (count >= 1)
        avgVol = sumVol / count;
    return true;
}

void ReferenceLevel::recount()
{
    count = 0;
    sumVol = 0;
    for (const Kel::COrderVol& order : orders) {
        if (order.m_type == Kel::OQT_CANCELED || order.m_type == Kel::OQT_DEALT)
            continue;
        count += 1;
        sumVol += order.m_vol;
    }
    avgVol = sumVol / count;
}

bool ReferenceLevel::updateVolList(ReferenceCaches& caches)
{
    double sum = 0;
    int cut = 0;
    bool seenLive = false;
    bool changed = false;
    std::vector<Kel::COrderVol> kept;
    for (Kel::COrderVol o : orders) {
        if (!finished(o.m_type)) {
            if (caches.cancelled.count(o.m_entrustNo) != 0) {
                o.m_type = Kel::OQT_CANCELED;
                cut += 1;
                changed = true;
                kept.push_back(o);
                continue;
            }
            if (const double* const d = find(caches, type, o.m_entrustNo)) {
                if (less(*d, o.m_vol)) {
                    if (positive(*d)) {
                        o.m_partDealVol = *d;
                        hasPartDeal = true;
                        o.m_type = Kel::OQT_PART_DEALT;
                        sum += o.m_vol;
                        changed = true;
                    }
                    kept.push_back(o);
                    continue;
                }
                changed = true;
                o.m_type = Kel::OQT_DEALT;
                if (!seenLive) {
                    cut += 1;
                    kept.push_back(o);
                }
                continue;
            }
        }
        if (o.m_type == Kel::OQT_UNKNOWN) {
            o.m_type = sizeClass(o.m_vol);
            sum += o.m_vol;
            changed = true;
        } else if (!finished(o.m_type)) {
            sum += o.m_vol;
            seenLive = true;
        } else {
            double removed = 0;
            if (o.m_type == Kel::OQT_CANCELED) {
                if (const double* const lots = find(caches, 3, o.m_entrustNo)) {
                    o.m_vol -= *lots;
                    changed = true;
                }
            }
            if (const double* const d = find(caches, type, o.m_entrustNo)) {
                if (o.m_type != Kel::OQT_CANCELED)
                    o.m_vol -= *d;
                removed = *d;
                caches.dealt[type].erase(o.m_entrustNo);
            }
            if (!positive(o.m_vol)) {
                caches.cached[type].erase(o.m_entrustNo);
                caches.cancelled.erase(o.m_entrustNo);
                ids.erase(o.m_entrustNo);
                changed = true;
                continue;
            }
            if (!zero(o.m_partDealVol) || !zero(removed))
                changed = true;
            hasPartDeal = !zero(removed);
            o.m_partDealVol = removed;
            o.m_type = Kel::OQT_PART_DEALT;
            sum += o.m_vol;
        }
        kept.push_back(o);
    }
    orders = kept;

    if (caches.depthTime <= caches.lastFeedTime) {
        startIndex = 0;
        unknownVol = 0;
        count = static_cast<int>(orders.size()) - cut;
        levelVol = sum;
    } else {
        if (caches.refreshClock - caches.lastFeedTime >= 5 && caches.depth != nullptr && amongTen(level)) {
            const bool buys = type == Kel::OQT_BUY;
            const double shown = buys ? caches.depth->bidPrice[level - 1] : caches.depth->askPrice[level - 1];
            if (zero(price - shown))
                levelVol = static_cast<double>(buys ? caches.depth->bidVolume[level - 1]
                                                    : caches.depth->askVolume[level - 1]);
        }
        calcUnknownVol();
    }
    sumVol = sum;
    avgVol = count == 0 ? 0 : sum / count;
    return changed;
}

std::string ReferenceLevel::text() const
{
    Kel::OrderQueueData printed;
    printed.m_price = price;
    printed.m_sumVol = sumVol;
    printed.m_levelVol = levelVol;
    printed.m_avgVol = avgVol;
    printed.m_unknownVol = unknownVol;
    printed.m_level = level;
    printed.m_type = type;
    printed.m_count = count;
    printed.m_startIndex = startIndex;
    printed.m_hasPartDeal = hasPartDeal;
    for (const Kel::COrderVol& order : orders)
        printed.m_orders.append(order);
    return levelText(printed);
}

} // namespace testing_support
