#pragma once

#include "platform/models/LadderModelBase.h"
#include "records/DepthExport.h"
#include "records/EntrustData.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/SingleQueue.h"
#include "records/ThousandData.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <memory>
#include <vector>

namespace Kel {

/// The ladder of one instrument as the quote service delivers it, ready-made: the best thousand prices a side
/// of the newest record.
///
/// Every operation may be called on any thread; one lock guards everything. Nothing is thrown. A null batch,
/// one of another instrument and records of another type are passed over in silence.
class DEPTH_EXPORT CModelQuoterDepthThousand : public LadderModelBase
{
public:
    /// Both numbers are kept for the caller and have no effect.
    CModelQuoterDepthThousand(int id, int parent);

    /// Chooses the instrument by the code that the stock manager knows it by and forgets the ladder. An
    /// unknown code leaves no instrument. Nothing is reported before a record has come; the first report
    /// replaces everything.
    void setStock(const QString& code);

    /// Forgets the ladder; the instrument stays.
    void clear();

    /// Ladder records (quoter::ThousandData), of which the last one counts. Status 0 opens a reload: the next
    /// report replaces everything, and the ladder is empty if the batch is. 1, 2 and 3 bring newer ladders.
    void ThousandDataCallback(int seq, int status, const MetaCacheDataWrapperPtr& batch);

    /// As `CModelDepthThousand::checkUpdate` for the full ladder; a record that says again what was reported
    /// is no change, one of a later moment is, though its rows may be the same.
    bool checkUpdate(int& flags, std::vector<boost::shared_ptr<EntrustData>>& buys,
                     std::vector<boost::shared_ptr<EntrustData>>& sells, double& latest, int& lastVolume,
                     double& minPrice, double& maxPrice, double& maxAmount);

    /// The orders at a price (yuan) as far as the newest record tells them; null for a price without orders.
    std::shared_ptr<SingleQueue> getQueue(bool isBuy, double price) const;

private:
    void forget();
    std::vector<BookLevel> levels(EOrderQueueType side) const;

    boost::shared_ptr<quoter::ThousandData> m_record;
    std::int64_t m_reportedTime = 0; ///< milliseconds, of the record reported last; 0 for none
};

} // namespace Kel
