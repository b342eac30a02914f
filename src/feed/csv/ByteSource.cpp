#include "feed/csv/ByteSource.h"

#include <zstd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <vector>

namespace feed {

namespace {

constexpr char kZstdMagic[] = {'\x28', '\xB5', '\x2F', '\xFD'};

bool beginsWithZstdMagic(const char* bytes, std::size_t size)
{
    return size >= sizeof kZstdMagic && std::memcmp(bytes, kZstdMagic, sizeof kZstdMagic) == 0;
}

class FileSource : public ByteSource
{
public:
    FileSource(std::FILE* file, std::int64_t total) : m_file(file), m_total(total) {}
    ~FileSource() override { std::fclose(m_file); }
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    std::size_t read(char* buffer, std::size_t size) override
    {
        const std::size_t got = std::fread(buffer, 1, size, m_file);
        if (got < size && std::ferror(m_file) != 0 && m_failure.empty())
            m_failure = std::strerror(errno);
        m_done += static_cast<std::int64_t>(got);
        return got;
    }
    std::string failure() const override { return m_failure; }
    std::int64_t bytesDone() const override { return m_done; }
    std::int64_t bytesTotal() const override { return m_total; }

private:
    std::FILE* m_file;
    std::int64_t m_total;
    std::int64_t m_done = 0;
    std::string m_failure;
};

class MemorySource : public ByteSource
{
public:
    explicit MemorySource(std::string_view bytes) : m_bytes(bytes) {}

    std::size_t read(char* buffer, std::size_t size) override
    {
        const std::size_t count = std::min(size, m_bytes.size() - m_done);
        if (count > 0)
            std::memcpy(buffer, m_bytes.data() + m_done, count);
        m_done += count;
        return count;
    }
    std::int64_t bytesDone() const override { return static_cast<std::int64_t>(m_done); }
    std::int64_t bytesTotal() const override { return static_cast<std::int64_t>(m_bytes.size()); }

private:
    std::string_view m_bytes;
    std::size_t m_done = 0;
};

/// Decompresses one or more frames that follow each other.
class ZstdSource : public ByteSource
{
public:
    explicit ZstdSource(std::unique_ptr<ByteSource> packed)
        : m_packed(std::move(packed)), m_stream(ZSTD_createDStream()), m_input(ZSTD_DStreamInSize())
    {
        if (m_stream == nullptr || ZSTD_isError(ZSTD_initDStream(m_stream)) != 0)
            m_failure = "no memory to decompress";
    }
    ~ZstdSource() override { ZSTD_freeDStream(m_stream); }
    ZstdSource(const ZstdSource&) = delete;
    ZstdSource& operator=(const ZstdSource&) = delete;

    std::size_t read(char* buffer, std::size_t size) override
    {
        ZSTD_outBuffer out{buffer, size, 0};
        while (out.pos < out.size && m_failure.empty()) {
            if (m_in.pos == m_in.size && !m_outputPending) {
                m_in = {m_input.data(), m_packed->read(m_input.data(), m_input.size()), 0};
                if (m_in.size == 0) {
                    m_failure = m_packed->failure();
                    m_truncated = m_insideFrame;
                    break;
                }
            }
            const std::size_t before = out.pos;
            const std::size_t result = ZSTD_decompressStream(m_stream, &out, &m_in);
            if (ZSTD_isError(result) != 0) {
                m_failure = std::string("damaged zstd data: ") + ZSTD_getErrorName(result);
                break;
            }
            m_insideFrame = result != 0;
            m_outputPending = out.pos == out.size && out.pos != before && m_insideFrame;
        }
        return out.pos;
    }
    std::string failure() const override { return m_failure; }
    bool truncated() const override { return m_truncated; }
    std::int64_t bytesDone() const override { return m_packed->bytesDone(); }
    std::int64_t bytesTotal() const override { return m_packed->bytesTotal(); }

private:
    std::unique_ptr<ByteSource> m_packed;
    ZSTD_DStream* m_stream;
    std::vector<char> m_input;
    ZSTD_inBuffer m_in{nullptr, 0, 0};
    bool m_insideFrame = false;
    bool m_outputPending = false; ///< the output was full: more may come without further input
    bool m_truncated = false;
    std::string m_failure;
};

} // namespace

std::unique_ptr<ByteSource> openFile(const std::string& path, Error& error)
{
    // Looked at before it is opened: opening a pipe would wait for somebody who writes to it.
    struct stat info = {};
    const bool known = stat(path.c_str(), &info) == 0;
    if (known && !S_ISREG(info.st_mode)) {
        error = {path, 0, "is not a file"};
        return nullptr;
    }
    std::FILE* const file = known ? std::fopen(path.c_str(), "rb") : nullptr;
    if (file == nullptr) {
        error = {path, 0, std::string("cannot be opened: ") + std::strerror(errno)};
        return nullptr;
    }
    char first[sizeof kZstdMagic] = {};
    const std::size_t got = std::fread(first, 1, sizeof first, file);
    std::rewind(file);
    std::unique_ptr<ByteSource> source = std::make_unique<FileSource>(file, std::int64_t(info.st_size));
    if (beginsWithZstdMagic(first, got))
        return std::make_unique<ZstdSource>(std::move(source));
    return source;
}

std::unique_ptr<ByteSource> openMemory(std::string_view bytes)
{
    std::unique_ptr<ByteSource> source = std::make_unique<MemorySource>(bytes);
    if (beginsWithZstdMagic(bytes.data(), bytes.size()))
        return std::make_unique<ZstdSource>(std::move(source));
    return source;
}

} // namespace feed
