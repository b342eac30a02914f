#pragma once

#include "platform/models/LadderInstrument.h"
#include "platform/models/LadderSide.h"
#include "platform/models/ladder_flags.h"
#include "platform/models/ladder_lock.h"
#include "records/DepthExport.h"
#include "records/MetaCacheDataWrapper.h"

#include <QString>

namespace Kel {

/// What both ladders have in common: an instrument, the rows as reported last, and the lock that guards them.
/// The public operations may be called on any thread and throw nothing.
class DEPTH_EXPORT LadderModelBase
{
public:
    LadderModelBase(const LadderModelBase&) = delete;
    LadderModelBase& operator=(const LadderModelBase&) = delete;

    /// Market and code of the instrument, "SH600519"; empty without one.
    QString getStockKey() const;
    double getPriceTick() const; ///< yuan; 0.01 without an instrument
    double getLastClose() const; ///< yuan; 0 without one
    int getVolumeUnit() const;   ///< shares of a lot, at least 1; 100 without an instrument

    /// Depth snapshots: the previous close of the last one is taken, if it has any. A null batch, one of
    /// another instrument and records of another type are passed over.
    void quoterCallback(int seq, int status, const MetaCacheDataWrapperPtr& batch);

protected:
    LadderModelBase() = default;
    ~LadderModelBase() = default;

    /// Sets the lists and bounds that a report hands out. The lock is held.
    void handOut(LadderSide::Rows& buys, LadderSide::Rows& sells, double& minPrice, double& maxPrice,
                 double& maxAmount) const;

    /// The flags of `checkUpdate` for what was found in the rows of a side.
    static int flagsOf(const LadderSide::News& news);

    mutable ReaderFirstMutex m_mutex; ///< guards everything in here and in the classes derived from it
    LadderInstrument m_instrument;
    LadderSide m_buys{OQT_BUY};
    LadderSide m_sells{OQT_SELL};
    double m_latest = kNoPrice;   ///< yuan, as reported last
    int m_lastVolume = kNoVolume; ///< lots, as reported last
    bool m_fed = false;           ///< something came since the last report
    bool m_cover = true;          ///< the next report replaces everything
};

} // namespace Kel
