#pragma once

#include "records/DepthExport.h"

#include <string>

namespace bson {

class BSONObj;

/// The document as one line of JSON, names in the order of the document, UTF-8 characters as they are:
/// `{ "a" : 1, "b" : "x", "c" : true }`, or `{ }` when it is empty. Numbers are written the way libbson's
/// legacy JSON does: a double with up to 20 digits, one that is not finite as nan or inf, which JSON does not
/// have. Any thread.
DEPTH_EXPORT std::string jsonString(const BSONObj& object);

} // namespace bson
