#include "records/bson/BSONObjBuilder.h"

#include "records/bson/Document.h"

#include <limits>

namespace bson {

namespace {

/// Valid UTF-8, zero bytes allowed.
std::string validText(const std::string& text)
{
    if (bson_utf8_validate(text.data(), text.size(), true))
        return text;
    return QString::fromUtf8(text.data(), static_cast<int>(text.size())).toUtf8().toStdString();
}

/// Valid UTF-8 up to the first zero byte.
std::string validName(const std::string& name)
{
    return validText(name.substr(0, name.find('\0')));
}

/// What an int counts, with room for what replacement adds; a longer text does not fit a document.
constexpr std::size_t kLongestText = std::numeric_limits<int>::max() / 4;

} // namespace

BSONObjBuilder::BSONObjBuilder() : m_document(std::make_shared<Document>()) {}

BSONObjBuilder& BSONObjBuilder::append(const std::string& name, double value)
{
    bson_append_double(m_document->get(), validName(name).c_str(), -1, value);
    return *this;
}

BSONObjBuilder& BSONObjBuilder::append(const std::string& name, int value)
{
    bson_append_int32(m_document->get(), validName(name).c_str(), -1, value);
    return *this;
}

BSONObjBuilder& BSONObjBuilder::append(const std::string& name, long value)
{
    return append(name, static_cast<long long>(value));
}

BSONObjBuilder& BSONObjBuilder::append(const std::string& name, long long value)
{
    bson_append_int64(m_document->get(), validName(name).c_str(), -1, value);
    return *this;
}

BSONObjBuilder& BSONObjBuilder::append(const std::string& name, bool value)
{
    bson_append_bool(m_document->get(), validName(name).c_str(), -1, value);
    return *this;
}

BSONObjBuilder& BSONObjBuilder::append(const std::string& name, const char* value)
{
    return append(name, std::string(value == nullptr ? "" : value));
}

BSONObjBuilder& BSONObjBuilder::append(const std::string& name, const std::string& value)
{
    if (value.size() > kLongestText)
        return *this;
    const std::string text = validText(value);
    bson_append_utf8(m_document->get(), validName(name).c_str(), -1, text.data(),
                     static_cast<int>(text.size()));
    return *this;
}

BSONObjBuilder& BSONObjBuilder::append(const std::string& name, const QString& value)
{
    return append(name, value.toUtf8().toStdString());
}

BSONObj BSONObjBuilder::obj() const
{
    return BSONObj(std::make_shared<const Document>(m_document->get()));
}

} // namespace bson
