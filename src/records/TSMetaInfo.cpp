#include "records/TSMetaInfo.h"

#include "records/bson/BSONObj.h"
#include "records/bson/BSONObjBuilder.h"

namespace quoter {

void TSMetaInfo::appendElements(bson::BSONObjBuilder& builder) const
{
    builder.append("market", market)
        .append("instrument", instrument)
        .append("metaId", metaId)
        .append("period", period)
        .append("extra1", extra1)
        .append("extra2", extra2);
}

void TSMetaInfo::bsonValueFromObj(bson::BSONObj object)
{
    market = object.stringField("market").value_or(market);
    instrument = object.stringField("instrument").value_or(instrument);
    metaId = object.intField("metaId").value_or(metaId);
    period = object.intField("period").value_or(period);
    extra1 = object.stringField("extra1").value_or(extra1);
    extra2 = object.stringField("extra2").value_or(extra2);
}

} // namespace quoter
