#include "information/LocalFileParser.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Kel {

namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
constexpr std::size_t kByteOrderMarkSize = 3;
constexpr ushort kByteOrderMarkCharacter = 0xFEFF;
constexpr char kSeparator = ',';
constexpr char kQuote = '"';
const QString kDateTitle = QStringLiteral("日期");

// Bytes of memory beside the characters, with what the allocator adds.
constexpr std::size_t kRowCost = 64;
constexpr std::size_t kFieldCost = 8;
constexpr std::size_t kTextCost = 48; // of a field that is not empty
constexpr std::size_t kDateCost = 128;

std::size_t costOf(const QString& field)
{
    return kFieldCost +
           (field.isEmpty() ? 0 : kTextCost + sizeof(QChar) * static_cast<std::size_t>(field.size()));
}

bool startsWithMark(const char* begin, const char* end)
{
    return end - begin >= static_cast<std::ptrdiff_t>(kByteOrderMarkSize) &&
           std::memcmp(begin, kByteOrderMark, kByteOrderMarkSize) == 0;
}

QString decoded(const char* begin, const char* end)
{
    QString text = QString::fromUtf8(begin, static_cast<int>(end - begin));
    // Qt takes a mark for one wherever a text begins; inside a file it is a character like others.
    if (startsWithMark(begin, end))
        text.prepend(QChar(kByteOrderMarkCharacter));
    text.replace(QChar(QChar::Null), QChar(QChar::ReplacementCharacter));
    return text;
}

const char* find(const char* begin, const char* end, char wanted)
{
    const void* found = std::memchr(begin, wanted, static_cast<std::size_t>(end - begin));
    return found ? static_cast<const char*>(found) : end;
}

bool endsWithQuote(const char* begin, const char* end)
{
    return begin != end && end[-1] == kQuote;
}

/// Calls `take(field, part)` for each field of a line, where `part` is the index of the last part of the
/// split that the field was made of.
template <class Take>
void forEachField(const char* begin, const char* end, Take take)
{
    int part = 0;
    const char* at = begin;
    for (int fields = 0; fields < LocalFileParser::kMostFields; ++fields) {
        const char* partEnd = find(at, end, kSeparator);
        const char* fieldBegin = at;
        const char* fieldEnd = partEnd;
        if (at != partEnd && *at == kQuote) {
            const char* partBegin = at;
            while (!endsWithQuote(partBegin, partEnd) && partEnd != end) {
                partBegin = partEnd + 1;
                partEnd = find(partBegin, end, kSeparator);
                ++part;
            }
            const bool closed = endsWithQuote(partBegin, partEnd);
            fieldBegin = at + 1;
            fieldEnd = std::max(fieldBegin, closed ? partEnd - 1 : partEnd);
        }
        take(localText(fieldBegin, fieldEnd), part);
        if (partEnd == end)
            return;
        at = partEnd + 1;
        ++part;
    }
}

} // namespace

bool MemoryBudget::take(std::size_t bytes)
{
    std::size_t left = m_left;
    while (left >= bytes) {
        if (m_left.compare_exchange_weak(left, left - bytes))
            return true;
    }
    return false;
}

QString localText(const char* begin, const char* end)
{
    if (begin == end)
        return QString();
    const auto size = static_cast<int>(end - begin);
    QString text(size, Qt::Uninitialized);
    auto* to = reinterpret_cast<ushort*>(text.data());
    for (const char* at = begin; at != end; ++at, ++to) {
        const auto byte = static_cast<unsigned char>(*at);
        if (byte == 0 || byte >= 0x80) // rare in a table of numbers
            return decoded(begin, end);
        *to = byte;
    }
    return text;
}

void LocalFileParser::feed(const char* bytes, std::size_t size)
{
    const char* at = bytes;
    const char* const end = bytes + size;
    while (at != end && !m_isFull) {
        const char* const lineEnd = find(at, end, '\n');
        if (lineEnd == end) {
            keep(at, static_cast<std::size_t>(end - at));
            return;
        }
        if (m_hasCarry) {
            keep(at, static_cast<std::size_t>(lineEnd - at));
            const std::string line = std::exchange(m_carry, std::string());
            m_hasCarry = false;
            takeLine(line.data(), line.data() + line.size());
        } else {
            takeLine(at, at + std::min(static_cast<std::size_t>(lineEnd - at), kMostLineBytes));
        }
        at = lineEnd + 1;
    }
}

void LocalFileParser::keep(const char* bytes, std::size_t size)
{
    m_hasCarry = true;
    m_carry.append(bytes, std::min(size, kMostLineBytes - m_carry.size()));
}

void LocalFileParser::finish()
{
    if (!m_hasCarry || m_isFull)
        return;
    const std::string line = std::exchange(m_carry, std::string());
    m_hasCarry = false;
    // A file of nothing but a mark is empty.
    if (!m_begun && line == kByteOrderMark)
        return;
    takeLine(line.data(), line.data() + line.size());
}

void LocalFileParser::takeLine(const char* begin, const char* end)
{
    if (begin != end && end[-1] == '\r')
        --end;
    if (!m_begun && startsWithMark(begin, end))
        begin += kByteOrderMarkSize;
    m_begun = true;
    m_hasHeader ? takeRow(begin, end) : takeHeader(begin, end);
}

void LocalFileParser::takeHeader(const char* begin, const char* end)
{
    QStringList titles;
    std::size_t cost = 0;
    forEachField(begin, end, [&](const QString& field, int part) {
        titles.append(field);
        cost += costOf(field);
        if (field == kDateTitle)
            m_dateColumn = part;
    });
    if (!pay(cost))
        return;
    m_hasHeader = true;
    m_headers = std::move(titles);
}

void LocalFileParser::takeRow(const char* begin, const char* end)
{
    LocalRow row;
    QString date;
    std::size_t cost = kRowCost;
    forEachField(begin, end, [&](QString field, int part) {
        cost += costOf(field);
        if (part == m_dateColumn)
            date = field;
        row.append(std::move(field));
    });
    if (!m_lastRows || date != m_lastDate)
        cost += kDateCost; // at most: the date may be there already
    if (pay(cost))
        rowsOf(date).append(std::move(row));
}

bool LocalFileParser::pay(std::size_t cost)
{
    m_isFull = m_isFull || !m_budget.take(cost);
    if (!m_isFull)
        m_cost += cost;
    return !m_isFull;
}

QVector<LocalRow>& LocalFileParser::rowsOf(const QString& date)
{
    if (!m_lastRows || date != m_lastDate) {
        m_lastRows = &m_rows[date]; // a map's values stay where they are
        m_lastDate = date;
    }
    return *m_lastRows;
}

} // namespace Kel
