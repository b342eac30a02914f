#include "records/bson/jsonString.h"

#include "records/bson/BSONObj.h"

#include "records/bson/Document.h"

#include <memory>

namespace bson {

std::string jsonString(const BSONObj& object)
{
    std::size_t length = 0;
    const std::unique_ptr<char, decltype(&bson_free)> text(bson_as_json(object.document().get(), &length),
                                                           bson_free);
    return text ? std::string(text.get(), length) : std::string();
}

} // namespace bson
