#pragma once

#include "records/DepthExport.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace bson {

class Document;

/// A BSON document, never changed after it was made. A value: copies share the bytes. Any thread may read.
///
/// A look-up takes the first element of the name. It gives nothing if there is no such element or it has
/// another type.
class DEPTH_EXPORT BSONObj
{
public:
    /// The empty document.
    BSONObj();

    bool isEmpty() const;
    bool hasField(const std::string& name) const;

    /// The bytes of a string element: UTF-8, possibly with zero bytes inside.
    std::optional<std::string> stringField(const std::string& name) const;

    /// A whole number that fits, stored in either width.
    std::optional<std::int32_t> intField(const std::string& name) const;
    std::optional<std::int64_t> longField(const std::string& name) const;

    /// Any number as a double.
    std::optional<double> numberField(const std::string& name) const;

    std::optional<bool> boolField(const std::string& name) const;

    /// Reads one JSON object with nothing but white space around it. On any other text false, `object` stays
    /// as it is and `error`, if given, tells why.
    static bool fromJson(const std::string& text, BSONObj& object, std::string* error);

    /// The bytes, for the files beside this one.
    const Document& document() const { return *m_document; }

private:
    friend class BSONObjBuilder;
    explicit BSONObj(std::shared_ptr<const Document> document);

    std::shared_ptr<const Document> m_document; ///< never null
};

} // namespace bson
