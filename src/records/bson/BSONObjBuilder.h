#pragma once

#include "records/DepthExport.h"
#include "records/bson/BSONObj.h"

#include <QString>

#include <memory>
#include <string>

namespace bson {

/// Puts a document together, element by element, in the order of the calls. Belongs to one thread.
///
/// Texts are UTF-8. Bytes that are none are replaced by the replacement character, so that the document is
/// always valid; a zero byte may stand in a value, while a name ends at it. What would make the document
/// larger than 2 GB is left out.
class DEPTH_EXPORT BSONObjBuilder
{
public:
    BSONObjBuilder();

    BSONObjBuilder& append(const std::string& name, double value);
    BSONObjBuilder& append(const std::string& name, int value);
    BSONObjBuilder& append(const std::string& name, long value);
    BSONObjBuilder& append(const std::string& name, long long value);
    BSONObjBuilder& append(const std::string& name, bool value);

    /// A null pointer is an empty text.
    BSONObjBuilder& append(const std::string& name, const char* value);
    BSONObjBuilder& append(const std::string& name, const std::string& value);
    BSONObjBuilder& append(const std::string& name, const QString& value);

    /// The document of what was appended so far; the builder goes on from there.
    BSONObj obj() const;

private:
    std::shared_ptr<Document> m_document;
};

} // namespace bson
