#include "platform/models/CModelDepthThousand.h"

#include "platform/models/ladder_quotes.h"
#include "platform/models/ladder_units.h"
#include "platform/models/tick_values.h"
#include "platform/services/RPCEngine.h"
#include "records/PriceKey.h"
#include "records/Tolerance.h"
#include "records/record_cast.h"

#include <boost/asio/post.hpp>

#include <algorithm>

namespace Kel {

namespace {

// What `status` says of a batch.
constexpr int kStatusFirst = 0; // opens a reload
constexpr int kStatusLive = 1;
constexpr int kStatusUpdate = 2;
constexpr int kStatusHistory = 3;

constexpr std::size_t kRecordsPerLock = 2000; // half a millisecond for a reader that waits

bool isLive(int status)
{
    return status == kStatusLive || status == kStatusUpdate;
}

} // namespace

CModelDepthThousand::CModelDepthThousand(int /*id*/, int /*parent*/) : m_book(std::make_unique<OrderBook>())
{
}

CModelDepthThousand::~CModelDepthThousand() = default;

void CModelDepthThousand::setStock(const QString& code)
{
    LadderInstrument instrument = LadderInstrument::of(code);
    const ReaderFirstMutex::Reader lock(m_mutex);
    m_instrument = std::move(instrument);
    reset();
}

void CModelDepthThousand::clear()
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    reset();
}

void CModelDepthThousand::reset()
{
    m_reload = Reload();
    emptyBook();
    m_fed = false;
}

/// A new book in place of the old one, which a thread of its own frees.
void CModelDepthThousand::emptyBook()
{
    std::shared_ptr<OrderBook> released = std::move(m_book);
    m_book = std::make_unique<OrderBook>(m_instrument.priceTick);
    ++m_generation;
    m_cover = true;
    if (released && released->heapBytes() > 0)
        net::RPCEngine::getStrand("data_release")->post([book = std::move(released)]() mutable {
            book.reset();
        });
}

// Feed
// ------------------------------------------------------------------------------------------------------

void CModelDepthThousand::open(bool Reload::*opened, bool Reload::*other)
{
    // The second opening of a reload finds what the first one has brought. One that came late may have been
    // the first of the next reload: then the other follows before anything live, and what both bring again
    // counts once.
    const bool joins = m_reload.*other && (!(m_reload.*opened) || m_reload.late);
    if (!joins) {
        m_reload = Reload();
        emptyBook();
    }
    m_reload.late = joins && m_reload.live && !(m_reload.*opened);
    m_reload.live = false;
    m_reload.*opened = true;
    m_reload.waits = true;
    m_cover = true;
}

/// A batch has come to its end.
void CModelDepthThousand::taken(int status)
{
    if (status == kStatusFirst)
        --m_reload.underWay;
    if (isLive(status)) {
        m_reload.live = true;
        m_reload.late = false;
    }
    const bool complete = m_reload.live || (m_reload.ordersOpened && m_reload.dealsOpened);
    if (complete && m_reload.underWay == 0)
        m_reload.waits = false;
}

/// Takes a batch in portions, each under the lock.
template <class Record, class Apply>
void CModelDepthThousand::take(int status, const MetaCacheDataWrapperPtr& batch, bool Reload::*opened,
                               bool Reload::*other, Apply apply)
{
    if (!batch || (status != kStatusFirst && status != kStatusHistory && !isLive(status)))
        return;
    std::uint64_t generation = 0;
    std::size_t at = 0;
    for (bool first = true, last = false; !last; first = false) {
        const ReaderFirstMutex::Writer lock(m_mutex);
        if (!m_instrument.owns(batch))
            return;
        if (first && status == kStatusFirst) {
            open(opened, other);
            ++m_reload.underWay;
        }
        if (first)
            generation = m_generation;
        else if (generation != m_generation)
            return; // the book that this batch was for is gone
        const std::size_t end = std::min(batch->data.size(), at + kRecordsPerLock);
        for (; at < end; ++at) {
            if (const auto* record = quoter::recordCast<Record>(batch->data[at].get()))
                apply(*m_book, *record);
        }
        last = at == batch->data.size();
        m_fed = true;
        if (last)
            taken(status);
    }
}

void CModelDepthThousand::entrustCallback(int /*seq*/, int status, const MetaCacheDataWrapperPtr& batch)
{
    take<quoter::OrderData>(status, batch, &Reload::ordersOpened, &Reload::dealsOpened,
                            [](OrderBook& book, const quoter::OrderData& record) { book.addOrder(record); });
}

void CModelDepthThousand::transactionCallback(int /*seq*/, int status, const MetaCacheDataWrapperPtr& batch)
{
    take<quoter::TransactionData>(
        status, batch, &Reload::dealsOpened, &Reload::ordersOpened,
        [](OrderBook& book, const quoter::TransactionData& record) { book.addDeal(record); });
}

// Reading
// ---------------------------------------------------------------------------------------------------

bool CModelDepthThousand::checkUpdate(int& flags, std::vector<boost::shared_ptr<EntrustData>>& buys,
                                      std::vector<boost::shared_ptr<EntrustData>>& sells, double& latest,
                                      int& lastVolume, double& minPrice, double& maxPrice, double& maxAmount,
                                      bool shortForm)
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    if (m_reload.waits)
        return false;
    const bool switched = shortForm != m_shortForm;
    const std::optional<OrderBook::Deal>& deal = m_book->newestDeal();
    const double newLatest = deal ? deal->price : kNoPrice;
    const int newVolume = deal ? lotsFromShares(deal->volume, m_instrument.volumeUnit) : kNoVolume;
    const bool newDeal = newLatest != m_latest || newVolume != m_lastVolume;
    if (m_cover ? !m_fed : !switched && !newDeal && !m_book->changed())
        return false;

    m_latest = newLatest;
    m_lastVolume = newVolume;
    m_cover |= switched;
    m_shortForm = shortForm;
    flags = report(shortForm) | (newDeal ? kLadderRowData : 0);
    m_cover = false;
    m_fed = false;
    handOut(buys, sells, minPrice, maxPrice, maxAmount);
    latest = m_latest;
    lastVolume = m_lastVolume;
    return true;
}

/// Brings the rows up to the book and tells by flags what that changed.
int CModelDepthThousand::report(bool shortForm)
{
    const auto most = static_cast<std::size_t>(shortForm ? getLevelDisplayCount(kShortForm) : kLadderLevels);
    const int unit = m_instrument.volumeUnit;
    const OrderBook::Changes changes = m_book->takeChanges();
    int flags = m_cover ? kLadderCover : 0;
    const auto bring = [&](LadderSide& rows, EOrderQueueType side, const std::vector<int>& keys) {
        LadderSide::News news;
        if (m_cover)
            news = rows.cover(m_book->best(side, most), most, unit);
        else if (changes.everything)
            news = rows.replace(m_book->best(side, m_book->levelCount(side)), most, unit);
        else if (!keys.empty())
            news = rows.update(*m_book, keys, most, unit);
        flags |= flagsOf(news);
    };
    bring(m_buys, OQT_BUY, changes.buys);
    bring(m_sells, OQT_SELL, changes.sells);
    return flags;
}

std::shared_ptr<SingleQueue> CModelDepthThousand::getQueue(bool isBuy, double price) const
{
    std::vector<BookOrder> orders;
    auto queue = std::make_shared<SingleQueue>();
    {
        const ReaderFirstMutex::Reader lock(m_mutex);
        const EOrderQueueType side = isBuy ? OQT_BUY : OQT_SELL;
        const int key = priceKey(price, m_instrument.priceTick);
        const std::optional<BookLevel> level = m_book->level(side, key);
        if (!level)
            return {};
        orders = m_book->orders(side, key);
        queue->price = level->price;
        queue->totalVolume = clampToInt(level->volume);
        queue->time = m_book->newestTime();
    }
    queue->isBuy = isBuy ? 1 : 0;
    setQuotes(*queue, orders);
    return queue;
}

std::size_t CModelDepthThousand::heapBytes() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_book->heapBytes();
}

} // namespace Kel
