#pragma once

#include <bson/bson.h>

namespace bson {

/// Owns a document of the C library. For the files of this folder: it brings the C library's header.
class Document
{
public:
    Document() : m_document(bson_new()) {}

    /// A copy of the bytes.
    explicit Document(const bson_t* other) : m_document(bson_copy(other)) {}
    ~Document() { bson_destroy(m_document); }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    bson_t* get() { return m_document; }
    const bson_t* get() const { return m_document; }

private:
    bson_t* const m_document;
};

} // namespace bson
