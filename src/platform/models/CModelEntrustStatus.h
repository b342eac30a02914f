#pragma once

#include "records/CFormulaParam.h"
#include "records/CInstrumentDetail.h"
#include "records/DepthExport.h"
#include "records/QuoterBase.h"
#include "records/QuoterDepthData.h"

#include <QString>
#include <QVector>

#include <boost/shared_ptr.hpp>
#include <boost/thread/mutex.hpp>

#include <cstdint>
#include <limits>
#include <vector>

namespace quoter {
struct TransactionData;
}

namespace Kel {

/// One price level of one side as a quote panel shows it.
struct DEPTH_EXPORT EntrustLevel
{
    bool valid = false; ///< there is something to show: a price over a tenth of the tick, or a volume
    double price = 0;   ///< yuan; 0 for none
    int volume = 0;     ///< lots
    int change = 0;     ///< lots more than at this price in the snapshot before; 0 for a price new to it
};

inline bool operator==(const EntrustLevel& a, const EntrustLevel& b)
{
    return a.valid == b.valid && a.price == b.price && a.volume == b.volume && a.change == b.change;
}
inline bool operator!=(const EntrustLevel& a, const EntrustLevel& b)
{
    return !(a == b);
}

/// What a quote panel shows; a cheap copy.
struct DEPTH_EXPORT EntrustStatusData
{
    nelservice::CInstrumentDetailPtr instrument; ///< null before the first `setStock` and for an unknown code
    double lastPrice = std::numeric_limits<double>::max(); ///< yuan; the largest double means none yet
    double priceTick = 0.01;                               ///< yuan
    QVector<EntrustLevel> bidLevels;                       ///< ten; index 0 is buy one
    QVector<EntrustLevel> askLevels;                       ///< ten; index 9 is sell one, index 0 sell ten
    int newVolume = 0; ///< lots of the latest deal or trading step, at least 1; 0 before the first
};

/// The latest quote of one instrument: last price, last volume, and ten levels a side with the change of
/// their volumes since the snapshot before.
///
/// The operations may be called on any thread. The fields are written under a lock by the operations; who
/// reads them plainly must be on the thread that calls the operations, others take `data`.
class DEPTH_EXPORT CModelEntrustStatus : public EntrustStatusData
{
public:
    CModelEntrustStatus();

    /// Chooses the instrument by the code that the stock manager knows it by; an unknown code leaves none.
    /// The quote of the instrument before stays readable until `clear`, but changes begin anew.
    void setStock(const QString& code);

    /// Forgets the quote; the instrument stays.
    void clear();

    /// Puts in what a subscription of the panel's quotes needs: "market" and "instrument". Nothing without an
    /// instrument.
    void getParams(CFormulaParam& params) const;

    /// What prices are coloured against, yuan: the previous close that the snapshots publish, else the one of
    /// the instrument's record for the day of the last snapshot; 0 if neither is known.
    double getLastClosePrice() const;

    /// Takes depth snapshots and deals, oldest first; records of other types are skipped. `status` 0 opens a
    /// reload: changes begin anew, and with no records the changes shown become 0; a batch of nothing but
    /// other types opens none. `seq` counts the calls and is not looked at. True if anything that the panel
    /// shows has changed; always for status 0 without records. Without an instrument nothing is taken.
    bool quoterCallBack(int seq, int status,
                        const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records);

    /// Joins two successive records of the quote service: changes of volume are held against `before`, if
    /// that is a snapshot, and `latest`, a snapshot or a deal, is shown. A `shares` above 0 is what was
    /// traded between the two; otherwise the records tell. Null records are passed over.
    void connectTickData(const quoter::QuoterBasePtr& before, const quoter::QuoterBasePtr& latest,
                         long long shares);

    /// A copy of all fields.
    EntrustStatusData data() const;

private:
    using Levels = QVector<EntrustLevel>;

    void forgetBase();
    bool take(const quoter::QuoterBase* record);
    bool takeSnapshot(const quoter::QuoterDepthData& snapshot);
    bool takeDeal(const quoter::TransactionData& deal);
    bool takeLastPrice(double price);
    bool takeTradedShares(std::int64_t shares);
    Levels levelsOf(const double* prices, const std::int64_t* volumes, const double* basePrices,
                    const std::int64_t* baseVolumes) const;

    mutable boost::mutex m_mutex; ///< guards the public fields and all below
    quoter::QuoterDepthData m_base;
    bool m_hasBase = false;  ///< `m_base` is the snapshot before
    bool m_hasDeals = false; ///< the new volume comes from deals, which are finer than snapshots
    double m_publishedClose = 0;
    std::int64_t m_snapshotTime = 0; ///< ms since 1970-01-01 UTC, 0 before the first snapshot
    int m_volumeUnit = 100;          ///< shares of a lot
};

} // namespace Kel
