#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <cstddef>
#include <string>
#include <utility>

namespace Kel {

/// The fields of one line of a local information file, in file order.
using LocalRow = QVector<QString>;

/// The rows of one file by their date text; rows of the same date are in file order.
using LocalRows = QMap<QString, QVector<LocalRow>>;

/// Bytes of memory, about, that tables may take together. Any thread.
class MemoryBudget
{
public:
    explicit MemoryBudget(std::size_t bytes) : m_left(bytes) {}

    /// False if there is less left; nothing is taken then.
    bool take(std::size_t bytes);
    void give(std::size_t bytes) { m_left += bytes; }

    std::size_t left() const { return m_left; }

private:
    std::atomic<std::size_t> m_left;
};

/// Reads a text table from its bytes, given in pieces of any size.
///
/// The first line is the header, every later one a row. A line ends with LF or CRLF, the last one
/// with CR or nothing as well, and is split at every
/// comma. A part that begins with a double quote is joined with the parts behind it, up to and with the first
/// that ends with one; the two quotes are dropped. Doubled quotes mean nothing, and a quote that is not
/// closed ends with its line. The rows go under the field of the last column whose title is "日期", the first
/// column if there is none; columns are counted by the parts of the split, so a quoted comma before it moves
/// the date. A row without such a field goes under the empty text.
///
/// Bytes are UTF-8 with or without a byte order mark; what is none, and a zero byte, becomes the replacement
/// character. A line ends at `kMostLineBytes` and at `kMostFields` fields: what it has beyond them is left
/// out. The first line that does not fit into the budget of memory ends the table. One thread at a time.
class LocalFileParser
{
public:
    static constexpr std::size_t kMostLineBytes = std::size_t(64) * 1024 * 1024;
    static constexpr int kMostFields = 1000000;

    /// Bytes of memory that a table of a hundred megabytes takes, with room to spare.
    static constexpr std::size_t kUsualBudget = std::size_t(2) * 1024 * 1024 * 1024;

    /// Titles and rows take their memory out of `budget`, which outlives the parser. A line of one byte takes
    /// a hundred bytes, so that the size of a file alone says little.
    explicit LocalFileParser(MemoryBudget& budget) : m_budget(budget) {}

    /// Gives back what is not kept.
    ~LocalFileParser() { m_budget.give(m_cost); }
    LocalFileParser(const LocalFileParser&) = delete;
    LocalFileParser& operator=(const LocalFileParser&) = delete;

    void feed(const char* bytes, std::size_t size);

    /// A last line without an end counts. Call it once, after the last piece.
    void finish();

    /// False while there was not even a header.
    bool hasHeader() const { return m_hasHeader; }

    /// True from the first line on that did not fit into the budget; nothing is taken any more.
    bool isFull() const { return m_isFull; }

    /// Bytes of memory, about, that titles and rows take.
    std::size_t cost() const { return m_cost; }

    /// The same, for who keeps titles and rows: gives them back to the budget when they are gone.
    std::size_t keepCost() { return std::exchange(m_cost, 0); }

    QStringList& headers() { return m_headers; }
    LocalRows& rows() { return m_rows; }

private:
    void keep(const char* bytes, std::size_t size);
    void takeLine(const char* begin, const char* end);
    void takeHeader(const char* begin, const char* end);
    void takeRow(const char* begin, const char* end);
    QVector<LocalRow>& rowsOf(const QString& date);
    bool pay(std::size_t cost);

    MemoryBudget& m_budget;
    std::size_t m_cost = 0;
    bool m_isFull = false;
    std::string m_carry; ///< start of a line that a piece ended in
    bool m_hasHeader = false;
    bool m_hasCarry = false; ///< a line has begun, though `m_carry` may be empty after a byte order mark
    bool m_begun = false;    ///< past the byte order mark
    int m_dateColumn = 0;
    QStringList m_headers;
    LocalRows m_rows;
    QString m_lastDate;
    QVector<LocalRow>* m_lastRows = nullptr; ///< the rows of `m_lastDate`
};

/// Bytes of a file as text, see `LocalFileParser`.
QString localText(const char* begin, const char* end);

} // namespace Kel
