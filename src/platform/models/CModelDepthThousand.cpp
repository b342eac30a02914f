#include "platform/models/CModelDepthThousand.h"

#include "platform/models/ladder_flags.h"
#include "platform/models/ladder_quotes.h"
#include "platform/models/ladder_units.h"
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

CModelDepthThousand::CModelDepthThousand(int /*id*/, int /*parent*/)
    : m_book(std::make_unique<OrderBook>()), m_latest(kNoPrice), m_lastVolume(kNoVolume)
{
}

CModelDepthThousand::~CModelDepthThousand() = default;

void CModelDepthThousand::setStock(const QString& code)
{
    LadderInstrument instrument = LadderInstrument::of(code);
    const ReaderFirstMutex::Writer lock(m_mutex);
    m_instrument = std::move(instrument);
    m_reload = Reload();
    emptyBook();
    m_fed = false;
}

void CModelDepthThousand::clear()
{
    const ReaderFirstMutex::Writer lock(m_mutex);
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

QString CModelDepthThousand::getStockKey() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.stockKey;
}

double CModelDepthThousand::getPriceTick() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.priceTick;
}

double CModelDepthThousand::getLastClose() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.lastClose;
}

int CModelDepthThousand::getVolumeUnit() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.volumeUnit;
}

// Feed
// ------------------------------------------------------------------------------------------------------

void CModelDepthThousand::quoterCallback(int /*seq*/, int /*status*/, const MetaCacheDataWrapperPtr& batch)
{
    const ReaderFirstMutex::Writer lock(m_mutex);
    if (m_instrument.owns(batch))
        m_instrument.takeLastClose(*batch);
}

void CModelDepthThousand::open(bool Reload::*opened, bool Reload::*other)
{
    // The second opening of a reload finds what the first one has brought.
    if (!m_reload.running || m_reload.*opened || !(m_reload.*other)) {
        m_reload = Reload();
        m_reload.running = true;
        emptyBook();
    }
    m_reload.*opened = true;
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
        if (first && status == kStatusFirst)
            open(opened, other);
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
        if (last && (isLive(status) || (m_reload.ordersOpened && m_reload.dealsOpened)))
            m_reload.running = false;
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
    if (m_reload.running)
        return false;
    const bool switched = shortForm != m_shortForm;
    const std::optional<OrderBook::Deal>& deal = m_book->newestDeal();
    const double newLatest = deal ? deal->price : kNoPrice;
    const int newVolume = deal ? toLots(deal->volume, m_instrument.volumeUnit) : kNoVolume;
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
    m_buys.handOut(buys);
    m_sells.handOut(sells);
    latest = m_latest;
    lastVolume = m_lastVolume;
    minPrice = kNoLowestPrice;
    maxPrice = 0;
    maxAmount = 0;
    m_buys.addBounds(minPrice, maxPrice, maxAmount);
    m_sells.addBounds(minPrice, maxPrice, maxAmount);
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
            news = rows.cover(m_book->best(side, most), unit);
        else if (changes.everything)
            news = rows.replace(m_book->best(side, most), unit);
        else if (!keys.empty())
            news = rows.update(*m_book, keys, most, unit);
        flags |= (news.size ? kLadderRowCount : 0) | (news.rows ? kLadderRowData : 0);
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
