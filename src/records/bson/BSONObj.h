#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

struct _bson_t;

namespace bson {

/// The C library's document, freed with the last holder.
using DocumentPtr = std::shared_ptr<_bson_t>;
using ConstDocumentPtr = std::shared_ptr<const _bson_t>;

/// A BSON document, never changed after it was made. A value: copies share the bytes. Any thread may read.
///
/// A look-up takes the first element of the name. It gives nothing if there is no such element or it has
/// another type.
class BSONObj
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

    /// The document itself, for who works with the C library.
    const _bson_t* document() const { return m_document.get(); }

private:
    friend class BSONObjBuilder;
    explicit BSONObj(ConstDocumentPtr document);

    ConstDocumentPtr m_document; ///< never null
};

} // namespace bson
