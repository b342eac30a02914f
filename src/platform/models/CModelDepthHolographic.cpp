#include "platform/models/CModelDepthHolographic.h"

#include "platform/models/tick_batches.h"
#include "platform/models/tick_values.h"
#include "records/QuoterDepthData.h"
#include "records/Tolerance.h"
#include "records/record_cast.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <vector>

namespace Kel {

namespace {

constexpr int kStatusSnapshot = -1; ///< snapshots as they come

/// Deals that are read while the lock is held.
constexpr int kSlice = 4096;

constexpr std::pair<int, int> kNoPair{-1, -1};

/// One side of a deal as the rule of kinds wants it.
DealNeighbours neighbours(const DepthTransData& deal, int index, bool buy, double previousPrice,
                          double nextPrice)
{
    DealNeighbours side;
    side.orderNo = buy ? deal.buyNo : deal.sellNo;
    side.index = index;
    side.price = deal.price;
    side.previous = buy ? deal.buyPrevious : deal.sellPrevious;
    side.previousPrice = previousPrice;
    side.next = buy ? deal.buyNext : deal.sellNext;
    side.nextPrice = nextPrice;
    return side;
}

} // namespace

bool CModelDepthHolographic::View::operator==(const View& other) const
{
    return first == other.first && last == other.last && extent == other.extent &&
           isEqual(maxPrice, other.maxPrice) && isEqual(minPrice, other.minPrice);
}

void CModelDepthHolographic::setStock(const QString& code)
{
    const std::lock_guard<std::mutex> lock(m_quoteMutex);
    const auto before = detail.load();
    CModelDepthTransaction::setStock(code);
    if (isSameInstrument(before, detail.load()))
        return;
    m_quotes.clear();
    ++m_generation;
}

void CModelDepthHolographic::clear()
{
    {
        const std::lock_guard<std::mutex> lock(m_quoteMutex);
        m_quotes.clear();
        ++m_generation;
    }
    m_begin = -1;
    m_end = -1;
    m_view = View();
    m_summary.truncate(0);
    m_cleared = true;
    lastSeq = -1;
    viewExtent = 0;
    maxPrice = 0;
    minPrice = 0;
    CModelDepthTransaction::clear();
}

void CModelDepthHolographic::quoterCallback(int, int status,
                                            const boost::shared_ptr<MetaCacheDataWrapper>& data)
{
    if (status != kStatusSnapshot && !isBatchStatus(status))
        return;
    unsigned generation = 0;
    {
        const std::lock_guard<std::mutex> lock(m_quoteMutex);
        if (!isOwn(data))
            return;
        generation = m_generation;
    }
    std::vector<std::int32_t> seconds;
    for (const quoter::QuoterBasePtr& record : data->data) {
        const auto* const quote = quoter::recordCast<quoter::QuoterDepthData>(record.get());
        std::int32_t second = 0;
        std::uint16_t rest = 0;
        if (quote != nullptr && timeTag(quote->m_time, second, rest))
            seconds.push_back(second);
    }
    bool changed = false;
    {
        const std::lock_guard<std::mutex> lock(m_quoteMutex);
        if (generation != m_generation)
            return;
        // Published queues come on the same line: a first batch of those says nothing of snapshots.
        const bool anew = status == kStatusAnew && (data->data.empty() || !seconds.empty());
        if (anew && !m_quotes.isEmpty()) {
            m_quotes.clear();
            changed = true;
        }
        if (m_quotes.add(seconds))
            changed = true;
    }
    if (!changed)
        return;
    dirty.store(true); // the interval that is shown as selected may end elsewhere now
    dataChanged();
}

// View
// -------------------------------------------------------------------------------------------------------------------

/// Reads the deals that are not summed up yet. A change that comes meanwhile has asked for another look.
void CModelDepthHolographic::catchUp()
{
    m_summary.truncate(takeFirstChanged());
    for (int before = -1; m_summary.size() != before;) {
        before = m_summary.size();
        visitRows(before, before + kSlice - 1,
                  [this](int, const DepthTransData& row) { m_summary.append(row.volume, row.price); });
    }
    lastSeq = m_summary.size() - 1;
}

std::pair<int, int> CModelDepthHolographic::range() const
{
    std::pair<int, int> deals{0, -1};
    if (m_begin == -1 && m_end == -1) {
        deals = {std::max(lastSeq + 1 - kUsualDeals, 0), lastSeq};
    } else if (m_begin <= m_end) {
        const int first = find(m_begin, true);
        const int last = std::min(find(m_end, false), lastSeq);
        if (first >= 0)
            deals = {first, last};
    }
    return deals.first <= deals.second ? deals : std::pair<int, int>{0, -1};
}

CModelDepthHolographic::View CModelDepthHolographic::makeView() const
{
    View view;
    std::tie(view.first, view.last) = range();
    const DealSums sums = m_summary.sums(view.first, view.last, [this](int first, int last) {
        DealSums part;
        visitRows(first, last, [&part](int, const DepthTransData& row) { part.add(row.volume, row.price); });
        return part;
    });
    view.extent = clampToInt(addShares(sums.lots, sums.deals));
    view.maxPrice = sums.deals > 0 ? sums.maxPrice : preClose;
    view.minPrice = sums.deals > 0 ? sums.minPrice : preClose;
    return view;
}

bool CModelDepthHolographic::recalcMaxMinSeqAndPrice()
{
    catchUp();
    const View view = makeView();
    const bool changed = m_cleared || !(view == m_view);
    m_cleared = false;
    m_view = view;
    viewExtent = view.extent;
    maxPrice = view.maxPrice;
    minPrice = view.minPrice;
    return changed;
}

bool CModelDepthHolographic::setViewTimeRange(const int& begin, const int& end)
{
    m_begin = begin;
    m_end = end;
    return recalcMaxMinSeqAndPrice();
}

void CModelDepthHolographic::setFullHeightHandle(const int& hands)
{
    if (hands >= 1)
        fullHeightHand = hands;
}

// Deals
// ------------------------------------------------------------------------------------------------------------------

E_DEAL_KIND CModelDepthHolographic::getDataKind(const boost::shared_ptr<DepthTransData>& deal, bool buy) const
{
    if (!deal)
        return E_DEAL_OPENING;
    // A row does not say where it stands; its neighbours' links do.
    const auto previous = getData(buy ? deal->buyPrevious : deal->sellPrevious);
    const auto next = getData(buy ? deal->buyNext : deal->sellNext);
    int index = -1;
    if (previous)
        index = buy ? previous->buyNext : previous->sellNext;
    else if (next)
        index = buy ? next->buyPrevious : next->sellPrevious;
    constexpr double kGone = std::numeric_limits<double>::quiet_NaN();
    return dealKind(
        neighbours(*deal, index, buy, previous ? previous->price : kGone, next ? next->price : kGone));
}

void CModelDepthHolographic::visitDeals(int first, int last,
                                        const std::function<void(const HolographicDeal&)>& visit) const
{
    HolographicDeal deal;
    const auto take = [&](int index, const DepthTransData& row, const DealSide& buy, const DealSide& sell) {
        static_cast<DepthTransData&>(deal) = row;
        deal.index = index;
        deal.buyLots = buy.lots;
        deal.sellLots = sell.lots;
        deal.buyKind = dealKind(neighbours(row, index, true, buy.previousPrice, buy.nextPrice));
        deal.sellKind = dealKind(neighbours(row, index, false, sell.previousPrice, sell.nextPrice));
        visit(deal);
    };
    for (int from = std::max(first, 0); from <= last; from += kSlice) {
        const int to = last - from < kSlice ? last : from + kSlice - 1;
        visitSides(from, to, take);
        if (to == last || deal.index < to)
            return;
    }
}

// Quote intervals
// --------------------------------------------------------------------------------------------------------

bool CModelDepthHolographic::hasIntervals() const
{
    const std::lock_guard<std::mutex> lock(m_quoteMutex);
    return !m_quotes.isEmpty();
}

QuoteSeconds::Interval CModelDepthHolographic::intervalAt(int second) const
{
    const std::lock_guard<std::mutex> lock(m_quoteMutex);
    return m_quotes.around(second);
}

std::pair<int, int> CModelDepthHolographic::getCurrSeqPair(const int& seq) const
{
    const auto deal = hasIntervals() ? getData(seq) : nullptr;
    if (!deal)
        return kNoPair;
    const QuoteSeconds::Interval interval = intervalAt(deal->time);
    constexpr std::int64_t kEarliest = std::numeric_limits<int>::min();
    const int begin = clampToInt(std::max(interval.begin, kEarliest - 1) + 1);
    const std::pair<int, int> pair{find(begin, true), find(clampToInt(interval.end), false)};
    // The data may have changed between the look-ups.
    return pair.first >= 0 && pair.first <= pair.second ? pair : kNoPair;
}

std::pair<int, int> CModelDepthHolographic::getPreSeqPair(const int& seq) const
{
    const std::pair<int, int> current = getCurrSeqPair(seq);
    return current.first > 0 ? getCurrSeqPair(current.first - 1) : kNoPair;
}

std::pair<int, int> CModelDepthHolographic::getNextSeqPair(const int& seq) const
{
    const std::pair<int, int> current = getCurrSeqPair(seq);
    return current.second >= 0 ? getCurrSeqPair(current.second + 1) : kNoPair;
}

int CModelDepthHolographic::getCurrQuoterTimgtag(const int& seq) const
{
    const auto deal = hasIntervals() ? getData(seq) : nullptr;
    if (!deal)
        return -1;
    const QuoteSeconds::Interval interval = intervalAt(deal->time);
    if (interval.end <= std::numeric_limits<int>::max())
        return static_cast<int>(interval.end);
    const auto last = getData(count.load() - 1);
    return last ? last->time : -1;
}

std::size_t CModelDepthHolographic::heapBytes() const
{
    const std::lock_guard<std::mutex> lock(m_quoteMutex);
    return CModelDepthTransaction::heapBytes() + m_summary.heapBytes() + m_quotes.heapBytes();
}

} // namespace Kel
