#pragma once

#include "records/BsonInterface.h"
#include "records/DepthExport.h"

#include <cstdint>
#include <string>

namespace quoter {

/// Data series by number, as `TSMetaInfo::metaId` names them.
enum EMetaId : std::int32_t
{
    eMetaProxyLookup = 1010, ///< look-up of the proxy that serves a market
    eMetaLevel2Queue = 1804, ///< level-2 queue: orders, deals and published queues
};

/// What a subscription asks for. Written to BSON as "market", "instrument", "metaId", "period", "extra1",
/// "extra2".
class DEPTH_EXPORT TSMetaInfo : public BsonInterface
{
public:
    std::string market;      ///< market code of the instrument, such as "SH"
    std::string instrument;  ///< instrument code, such as "600519"
    std::int32_t metaId = 0; ///< the data series, see `EMetaId`
    std::int32_t period = 0; ///< period of a bar series; 0 for tick data
    std::string extra1;      ///< reserved for series with further parameters; empty
    std::string extra2;      ///< reserved for series with further parameters; empty

    void appendElements(bson::BSONObjBuilder& builder) const override;
    void bsonValueFromObj(bson::BSONObj object) override;
};

} // namespace quoter
