#pragma once

#include "platform/models/LadderInstrument.h"
#include "platform/models/LadderSide.h"
#include "platform/models/ladder_lock.h"
#include "records/EntrustData.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/SingleQueue.h"
#include "records/ThousandData.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

namespace Kel {

/// The ladder of one instrument as the quote service delivers it, ready-made: the best thousand prices a side
/// of the newest record.
///
/// Every operation may be called on any thread; one lock guards everything. Nothing is thrown. A null batch,
/// one of another instrument and records of another type are passed over in silence.
class CModelQuoterDepthThousand
{
public:
    /// Both numbers are kept for the caller and have no effect.
    CModelQuoterDepthThousand(int id, int parent);
    CModelQuoterDepthThousand(const CModelQuoterDepthThousand&) = delete;
    CModelQuoterDepthThousand& operator=(const CModelQuoterDepthThousand&) = delete;

    /// Chooses the instrument by the code that the stock manager knows it by and forgets the ladder. An
    /// unknown code leaves no instrument. Nothing is reported before a record has come; the first report
    /// replaces everything.
    void setStock(const QString& code);

    /// Forgets the ladder; the instrument stays.
    void clear();

    /// Market and code of the instrument, "SH600519"; empty without one.
    QString getStockKey() const;
    double getPriceTick() const; ///< yuan; 0.01 without an instrument
    double getLastClose() const; ///< yuan; 0 without one
    int getVolumeUnit() const;   ///< shares of a lot, at least 1; 100 without an instrument

    /// Depth snapshots: the previous close of the last one is taken, if it has any.
    void quoterCallback(int seq, int status, const MetaCacheDataWrapperPtr& batch);

    /// Ladder records (quoter::ThousandData), of which the last one counts. Status 0 opens a reload: the next
    /// report replaces everything, and the ladder is empty if the batch is. 1, 2 and 3 bring newer ladders.
    void ThousandDataCallback(int seq, int status, const MetaCacheDataWrapperPtr& batch);

    /// As `CModelDepthThousand::checkUpdate` for the full ladder.
    bool checkUpdate(int& flags, std::vector<boost::shared_ptr<EntrustData>>& buys,
                     std::vector<boost::shared_ptr<EntrustData>>& sells, double& latest, int& lastVolume,
                     double& minPrice, double& maxPrice, double& maxAmount);

    /// The orders at a price (yuan) as far as the newest record tells them; null for a price without orders.
    std::shared_ptr<SingleQueue> getQueue(bool isBuy, double price) const;

private:
    void forget();
    std::vector<BookLevel> shownLevels(EOrderQueueType side) const;

    mutable ReaderFirstMutex m_mutex; ///< guards all below
    LadderInstrument m_instrument;
    boost::shared_ptr<quoter::ThousandData> m_record;
    LadderSide m_buys{OQT_BUY};
    LadderSide m_sells{OQT_SELL};
    double m_latest;     ///< yuan, as reported last
    int m_lastVolume;    ///< lots, as reported last
    bool m_fed = false;  ///< something came since the last report
    bool m_cover = true; ///< the next report replaces everything
};

} // namespace Kel
