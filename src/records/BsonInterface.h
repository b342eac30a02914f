#pragma once

#include "records/DepthExport.h"

namespace bson {
class BSONObj;
class BSONObjBuilder;
} // namespace bson

namespace quoter {

/// Base of the records that describe a subscription: they write themselves into a BSON document and read
/// themselves back from one.
class DEPTH_EXPORT BsonInterface
{
public:
    virtual ~BsonInterface() = default;

    /// Appends this record's elements, in declaration order.
    virtual void appendElements(bson::BSONObjBuilder& builder) const = 0;

    /// Takes over the elements of `object`. A missing element, or one of another type, leaves its field as it
    /// is.
    virtual void bsonValueFromObj(bson::BSONObj object) = 0;
};

} // namespace quoter
