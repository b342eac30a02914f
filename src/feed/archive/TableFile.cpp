#include "feed/archive/TableFile.h"

#include <zstd.h>

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace feed {

namespace {

constexpr std::size_t kFlushSize = 256 * 1024;
constexpr int kCompressionLevel = 3;

} // namespace

TableFile::~TableFile()
{
    discard();
}

bool TableFile::open(const std::string& path, bool compress)
{
    discard();
    m_error = {};
    m_path = path;
    m_temporary = path + ".part" + std::to_string(::getpid());
    m_text.clear();
    m_file = std::fopen(m_temporary.c_str(), "wb");
    if (m_file == nullptr)
        return fail("cannot be created");
    m_temporaryExists = true;
    if (compress) {
        m_zstd = ZSTD_createCCtx();
        if (m_zstd == nullptr || ZSTD_isError(ZSTD_CCtx_setParameter(m_zstd, ZSTD_c_checksumFlag, 1)) != 0 ||
            ZSTD_isError(ZSTD_CCtx_setParameter(m_zstd, ZSTD_c_compressionLevel, kCompressionLevel)) != 0) {
            errno = ENOMEM;
            return fail("cannot be compressed");
        }
        m_packed.resize(ZSTD_CStreamOutSize());
    }
    return true;
}

bool TableFile::flushIfLarge()
{
    return m_text.size() < kFlushSize || flush(false);
}

bool TableFile::complete()
{
    if (m_file == nullptr || !flush(true))
        return false;
    if (std::fflush(m_file) != 0 || ::fsync(::fileno(m_file)) != 0)
        return fail("cannot be written");
    std::FILE* const file = m_file;
    m_file = nullptr;
    return std::fclose(file) == 0 || fail("cannot be written");
}

bool TableFile::commit()
{
    if (m_file != nullptr && !complete())
        return false;
    if (!m_temporaryExists)
        return false;
    if (std::rename(m_temporary.c_str(), m_path.c_str()) != 0)
        return fail("cannot be written");
    m_temporaryExists = false;
    discard();
    return true;
}

void TableFile::discard()
{
    if (m_file != nullptr)
        std::fclose(m_file);
    m_file = nullptr;
    if (m_temporaryExists)
        std::remove(m_temporary.c_str());
    m_temporaryExists = false;
    ZSTD_freeCCtx(m_zstd);
    m_zstd = nullptr;
}

bool TableFile::flush(bool last)
{
    if (m_file == nullptr)
        return false;
    if (m_zstd == nullptr) {
        const bool written = write(m_text.data(), m_text.size());
        m_text.clear();
        return written;
    }
    ZSTD_inBuffer in{m_text.data(), m_text.size(), 0};
    for (;;) {
        ZSTD_outBuffer out{m_packed.data(), m_packed.size(), 0};
        const std::size_t rest = ZSTD_compressStream2(m_zstd, &out, &in, last ? ZSTD_e_end : ZSTD_e_continue);
        if (ZSTD_isError(rest) != 0) {
            errno = ENOMEM;
            return fail(std::string("cannot be compressed: ") + ZSTD_getErrorName(rest));
        }
        if (!write(m_packed.data(), out.pos))
            return false;
        if (last ? rest == 0 : in.pos == in.size)
            break;
    }
    m_text.clear();
    return true;
}

bool TableFile::write(const char* bytes, std::size_t size)
{
    return size == 0 || std::fwrite(bytes, 1, size, m_file) == size || fail("cannot be written");
}

bool TableFile::fail(const std::string& what)
{
    m_error = {m_path, 0, what + ": " + std::strerror(errno)};
    discard();
    return false;
}

} // namespace feed
