#include "feed/csv/CsvReader.h"

#include <QTextCodec>

#include <algorithm>
#include <cstring>
#include <set>

namespace feed {

namespace {

constexpr std::size_t kChunk = 256 * 1024;
constexpr std::size_t kSmallestChunk = 4096;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    return text;
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameName(std::string_view a, std::string_view b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lower(x) == lower(y); });
}

bool isAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

std::string utf8Text(std::string_view bytes)
{
    if (isAscii(bytes))
        return std::string(bytes);
    const int size = static_cast<int>(std::min<std::size_t>(bytes.size(), CsvReader::kLongestLine));
    QTextCodec::ConverterState state;
    const QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    const QString text = utf8->toUnicode(bytes.data(), size, &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return text.toStdString();
    // GB18030 contains GBK and knows the rarer characters of names too.
    const QTextCodec* gbk = QTextCodec::codecForName("GB18030");
    if (gbk == nullptr)
        gbk = QTextCodec::codecForName("GBK");
    return (gbk != nullptr ? gbk->toUnicode(bytes.data(), size) : text).toStdString();
}

CsvReader::CsvReader(std::unique_ptr<ByteSource> source, std::string fileName)
    : m_source(std::move(source)), m_fileName(std::move(fileName))
{
    // A small table needs no large buffer; that of a compressed one grows as its text comes out.
    const std::int64_t total = m_source->bytesTotal();
    if (total <= 0 || static_cast<std::uint64_t>(total) >= kChunk)
        m_buffer.resize(kChunk);
    else
        m_buffer.resize(std::max<std::size_t>(kSmallestChunk, static_cast<std::size_t>(total) + 1));
}

bool CsvReader::readHeader(Error& error)
{
    std::string_view line;
    do {
        if (!nextLine(line)) {
            const std::string why = failure();
            error = {m_fileName, 0, why.empty() ? "has no header" : why};
            return false;
        }
        if (m_lineNumber == 1 && line.substr(0, kByteOrderMark.size()) == kByteOrderMark)
            line.remove_prefix(kByteOrderMark.size());
    } while (trimmed(line).empty() && !m_lineTooLong);
    if (m_lineTooLong || line.find('\0') != std::string_view::npos) {
        error = {m_fileName, m_lineNumber, "is no table of text"};
        return false;
    }
    split(line);
    // The encoding is told by the whole line: a single name in GBK may happen to be valid UTF-8.
    const bool gbk = utf8Text(line) != line;
    std::set<std::string> seen;
    std::vector<std::string> names;
    for (const std::string_view field : m_fields) {
        QTextCodec* const codec = gbk ? QTextCodec::codecForName("GB18030") : nullptr;
        std::string name = codec != nullptr
                               ? codec->toUnicode(field.data(), static_cast<int>(field.size())).toStdString()
                               : utf8Text(field);
        if (!name.empty() && !seen.insert(name).second) {
            error = {m_fileName, m_lineNumber, "has two columns named " + name};
            return false;
        }
        names.push_back(std::move(name));
    }
    while (!names.empty() && names.back().empty())
        names.pop_back();
    m_columns = std::move(names);
    return true;
}

int CsvReader::column(std::string_view name) const
{
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (sameName(m_columns[i], name))
            return static_cast<int>(i);
    }
    return -1;
}

bool CsvReader::nextRow()
{
    std::string_view line;
    do {
        if (!nextLine(line))
            return false;
    } while (trimmed(line).empty() && !m_lineTooLong);
    m_rowFault = nullptr;
    if (m_lineTooLong) {
        m_fields.clear();
        m_rowFault = "line too long";
        return true;
    }
    split(line);
    if (m_quoteOpen)
        m_rowFault = m_lineTerminated ? "quote not closed" : "cut last line";
    else if (m_fields.size() < m_columns.size())
        m_rowFault = m_lineTerminated ? "too few columns" : "cut last line";
    for (std::size_t i = m_columns.size(); i < m_fields.size(); ++i) {
        if (!m_fields[i].empty())
            m_rowFault = "too many columns";
    }
    return true;
}

std::string CsvReader::text(int column) const
{
    return utf8Text(field(column));
}

bool CsvReader::nextLine(std::string_view& line)
{
    m_lineTooLong = false;
    std::size_t searched = 0;
    for (;;) {
        const char* const from = m_buffer.data() + m_begin;
        const void* const found = std::memchr(from + searched, '\n', m_end - m_begin - searched);
        if (found != nullptr) {
            const std::size_t size = static_cast<std::size_t>(static_cast<const char*>(found) - from);
            line = std::string_view(from, size);
            m_begin += size + 1;
            m_lineTerminated = true;
            break;
        }
        searched = m_end - m_begin;
        if (searched > kLongestLine) {
            m_lineTooLong = true;
            m_begin = m_end;
            searched = 0;
        }
        if (!refill()) {
            line = std::string_view(m_buffer.data() + m_begin, m_end - m_begin);
            m_begin = m_end;
            m_lineTerminated = false;
            if (line.empty() && !m_lineTooLong)
                return false;
            break;
        }
    }
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    ++m_lineNumber;
    return true;
}

bool CsvReader::refill()
{
    if (m_sourceEnded)
        return false;
    if (m_begin > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
    }
    if (m_end == m_buffer.size())
        m_buffer.resize(m_buffer.size() * 2);
    const std::size_t got = m_source->read(m_buffer.data() + m_end, m_buffer.size() - m_end);
    m_end += got;
    m_sourceEnded = got == 0;
    return got > 0;
}

void CsvReader::split(std::string_view line)
{
    m_fields.clear();
    m_unquoted.clear();
    m_quoteOpen = false;
    const char* const begin = line.data();
    const std::size_t size = line.size();
    std::size_t at = 0;
    for (;;) {
        while (at < size && (begin[at] == ' ' || begin[at] == '\t'))
            ++at;
        if (at < size && begin[at] == '"') {
            m_fields.push_back(quotedField(line, at));
        } else {
            const std::size_t from = at;
            while (at < size && begin[at] != ',')
                ++at;
            std::size_t to = at;
            while (to > from && (begin[to - 1] == ' ' || begin[to - 1] == '\t'))
                --to;
            m_fields.emplace_back(begin + from, to - from);
        }
        if (at >= size)
            return;
        ++at; // the comma
    }
}

std::string_view CsvReader::quotedField(std::string_view line, std::size_t& at)
{
    const std::size_t from = ++at;
    std::string* undoubled = nullptr;
    std::string_view value;
    for (;;) {
        const std::size_t quote = line.find('"', at);
        if (quote == std::string_view::npos) {
            m_quoteOpen = true;
            at = line.size();
            return line.substr(from);
        }
        const bool doubled = quote + 1 < line.size() && line[quote + 1] == '"';
        if (doubled && undoubled == nullptr)
            undoubled = &m_unquoted.emplace_back(line.substr(from, quote - from));
        else if (undoubled != nullptr)
            undoubled->append(line.substr(at, quote - at));
        at = quote + (doubled ? 2 : 1);
        if (doubled) {
            undoubled->push_back('"');
            continue;
        }
        value = undoubled != nullptr ? std::string_view(*undoubled) : line.substr(from, quote - from);
        break;
    }
    // What stands between the closing quote and the comma belongs to no value.
    at = std::min(line.find(',', at), line.size());
    return trimmed(value);
}

} // namespace feed
