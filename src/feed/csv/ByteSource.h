#pragma once

#include "feed/csv/Error.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace feed {

/// Where the bytes of a table come from. Each source is used by one thread at a time.
class ByteSource
{
public:
    virtual ~ByteSource() = default;

    /// Reads up to `size` bytes of text. Returns the number read, 0 at the end; after a failure 0 as well,
    /// and `failure` tells why.
    virtual std::size_t read(char* buffer, std::size_t size) = 0;

    /// Why reading ended before the end; empty if it did not.
    virtual std::string failure() const { return {}; }

    /// True once the end was reached in the middle of a compressed frame.
    virtual bool truncated() const { return false; }

    virtual std::int64_t bytesDone() const = 0;  ///< of the stored (perhaps compressed) bytes
    virtual std::int64_t bytesTotal() const = 0; ///< 0 if unknown
};

/// Opens a file. One that begins with the magic number of zstd is decompressed while it is read, whatever its
/// name. Returns null, with `error` filled, if it cannot be opened or is no regular file: a pipe could keep
/// the caller waiting for ever.
std::unique_ptr<ByteSource> openFile(const std::string& path, Error& error);

/// Reads from memory, decompressing zstd like `openFile`; `bytes` must stay valid as long as the source.
std::unique_ptr<ByteSource> openMemory(std::string_view bytes);

} // namespace feed
