#include "records/TRegionInfo.h"

#include "records/bson/BSONObj.h"
#include "records/bson/BSONObjBuilder.h"

namespace quoter {

void TRegionInfo::appendElements(bson::BSONObjBuilder& builder) const
{
    builder.append("start", start.milliseconds)
        .append("startFraction", start.fraction)
        .append("end", end.milliseconds)
        .append("endFraction", end.fraction)
        .append("limit", limit);
}

void TRegionInfo::bsonValueFromObj(bson::BSONObj object)
{
    start.milliseconds = object.longField("start").value_or(start.milliseconds);
    start.fraction = object.intField("startFraction").value_or(start.fraction);
    end.milliseconds = object.longField("end").value_or(end.milliseconds);
    end.fraction = object.intField("endFraction").value_or(end.fraction);
    limit = object.intField("limit").value_or(limit);
}

} // namespace quoter
