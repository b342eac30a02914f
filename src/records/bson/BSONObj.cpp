#include "records/bson/BSONObj.h"

#include "records/bson/Document.h"

#include <limits>
#include <utility>

namespace bson {

namespace {

bool find(const Document& document, const std::string& name, bson_iter_t& element)
{
    return bson_iter_init(&element, document.get()) &&
           bson_iter_find_w_len(&element, name.data(), static_cast<int>(name.size()));
}

constexpr const char* kJsonSpace = " \t\r\n";

bool fail(std::string* error, const char* why)
{
    if (error != nullptr)
        *error = why;
    return false;
}

using Reader = std::unique_ptr<bson_json_reader_t, decltype(&bson_json_reader_destroy)>;

} // namespace

BSONObj::BSONObj() : m_document(std::make_shared<Document>()) {}

BSONObj::BSONObj(std::shared_ptr<const Document> document) : m_document(std::move(document)) {}

bool BSONObj::isEmpty() const
{
    return bson_empty(m_document->get());
}

bool BSONObj::hasField(const std::string& name) const
{
    bson_iter_t element;
    return find(*m_document, name, element);
}

std::optional<std::string> BSONObj::stringField(const std::string& name) const
{
    bson_iter_t element;
    if (!find(*m_document, name, element) || !BSON_ITER_HOLDS_UTF8(&element))
        return std::nullopt;
    std::uint32_t length = 0;
    const char* const text = bson_iter_utf8(&element, &length);
    return std::string(text, length);
}

std::optional<std::int64_t> BSONObj::longField(const std::string& name) const
{
    bson_iter_t element;
    if (!find(*m_document, name, element))
        return std::nullopt;
    if (BSON_ITER_HOLDS_INT32(&element))
        return bson_iter_int32(&element);
    if (BSON_ITER_HOLDS_INT64(&element))
        return bson_iter_int64(&element);
    return std::nullopt;
}

std::optional<std::int32_t> BSONObj::intField(const std::string& name) const
{
    const std::optional<std::int64_t> value = longField(name);
    if (!value || *value < std::numeric_limits<std::int32_t>::min() ||
        *value > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(*value);
}

std::optional<double> BSONObj::numberField(const std::string& name) const
{
    bson_iter_t element;
    if (find(*m_document, name, element) && BSON_ITER_HOLDS_DOUBLE(&element))
        return bson_iter_double(&element);
    const std::optional<std::int64_t> whole = longField(name);
    if (whole)
        return static_cast<double>(*whole);
    return std::nullopt;
}

std::optional<bool> BSONObj::boolField(const std::string& name) const
{
    bson_iter_t element;
    if (!find(*m_document, name, element) || !BSON_ITER_HOLDS_BOOL(&element))
        return std::nullopt;
    return bson_iter_bool(&element);
}

bool BSONObj::fromJson(const std::string& text, BSONObj& object, std::string* error)
{
    // The reader also takes a bare array for a document, and a comma after one.
    const std::size_t first = text.find_first_not_of(kJsonSpace);
    if (first == std::string::npos || text[first] != '{' || text[text.find_last_not_of(kJsonSpace)] != '}')
        return fail(error, "not a JSON object");
    const Reader reader(bson_json_data_reader_new(true, 0), bson_json_reader_destroy);
    bson_json_data_reader_ingest(reader.get(), reinterpret_cast<const std::uint8_t*>(text.data()),
                                 text.size());
    bson_error_t failure;
    const auto document = std::make_shared<Document>();
    const int read = bson_json_reader_read(reader.get(), document->get(), &failure);
    if (read < 0)
        return fail(error, failure.message);
    if (read == 0)
        return fail(error, "the object is not complete");
    Document rest;
    if (bson_json_reader_read(reader.get(), rest.get(), &failure) != 0)
        return fail(error, "text after the end of the object");
    object = BSONObj(document);
    return true;
}

} // namespace bson
