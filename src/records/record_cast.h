#pragma once

#include "records/QuoterBase.h"

#include <typeinfo>

namespace quoter {

/// Casts a record to the type that the receiver wants; null for a null record and for one of another type.
/// Nearly every record of a batch is exactly of the wanted type, which one comparison tells; the others take
/// the slow road.
template <class Record>
const Record* recordCast(const QuoterBase* record)
{
    if (!record)
        return nullptr;
    if (typeid(*record) == typeid(Record))
        return static_cast<const Record*>(record);
    return dynamic_cast<const Record*>(record);
}

/// The same for a shared record; the result shares the ownership.
template <class Record>
boost::shared_ptr<Record> recordCast(const QuoterBasePtr& record)
{
    if (!recordCast<Record>(record.get()))
        return {};
    return boost::static_pointer_cast<Record>(record);
}

} // namespace quoter
