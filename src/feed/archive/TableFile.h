#pragma once

#include "feed/csv/Error.h"

#include <cstdio>
#include <string>

struct ZSTD_CCtx_s;

namespace feed {

/// A text file in the making. It is written under a temporary name beside its place and takes the place only
/// in `commit`, so that a write that breaks off leaves what was there before. For one thread at a time.
class TableFile
{
public:
    TableFile() = default;
    ~TableFile();
    TableFile(const TableFile&) = delete;
    TableFile& operator=(const TableFile&) = delete;

    /// Begins the file at `path`, compressed with zstd if asked for. False if it cannot be created.
    bool open(const std::string& path, bool compress);
    bool isOpen() const { return m_file != nullptr; }

    /// Text to append to; `flushIfLarge` hands it on once it has grown.
    std::string& text() { return m_text; }
    bool flushIfLarge();

    /// Writes the rest and brings it to the disk, still under the temporary name. Done for several files
    /// before any of them is committed, a full disk leaves all their places as they were. False if it failed;
    /// then the temporary file is gone.
    bool complete();

    /// Completes the file if that was not done and puts it into its place. False if anything of it failed;
    /// then the temporary file is gone and the place is as it was.
    bool commit();

    /// Gives the file up.
    void discard();

    const std::string& path() const { return m_path; }
    const Error& error() const { return m_error; }

private:
    bool flush(bool last);
    bool write(const char* bytes, std::size_t size);
    bool fail(const std::string& what);

    std::FILE* m_file = nullptr;
    bool m_temporaryExists = false;
    ZSTD_CCtx_s* m_zstd = nullptr;
    std::string m_path;
    std::string m_temporary;
    std::string m_text;
    std::string m_packed;
    Error m_error;
};

} // namespace feed
