#pragma once

#include <QString>

#include <cmath>
#include <cstdint>
#include <cstring>

namespace host {

/// FNV-1a over whole words; a double counts by its bits, with one pattern for 0 and one for not-a-number. The
/// same on every machine.
class WordHash
{
public:
    void add(std::uint64_t word)
    {
        for (int shift = 0; shift < 64; shift += 8) {
            m_hash ^= (word >> shift) & 0xff;
            m_hash *= 0x100000001b3ull;
        }
    }
    void add(std::int64_t number) { add(static_cast<std::uint64_t>(number)); }
    void add(int number) { add(static_cast<std::int64_t>(number)); }
    void add(double number)
    {
        std::uint64_t bits = 0x7ff8000000000000ull;
        if (number == 0)
            bits = 0;
        else if (!std::isnan(number))
            std::memcpy(&bits, &number, sizeof bits);
        add(bits);
    }
    void add(const QString& text)
    {
        for (const QChar character : text)
            add(static_cast<int>(character.unicode()));
    }

    /// Several in a row.
    template <class First, class Second, class... More>
    void add(const First& first, const Second& second, const More&... more)
    {
        add(first);
        add(second, more...);
    }

    std::uint64_t value() const { return m_hash; }

private:
    std::uint64_t m_hash = 0xcbf29ce484222325ull;
};

} // namespace host
