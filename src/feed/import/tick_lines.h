#pragma once

#include "feed/csv/CsvReader.h"
#include "feed/import/TickLine.h"
#include "feed/import/file_kinds.h"

#include <string>
#include <string_view>

namespace feed {

/// Market and instrument of a line.
struct LineInstrument
{
    std::string_view market; ///< "SH", "SZ"
    std::string_view code;
};

/// Reads one line of an order or deal file of any layout. `market` is that of the line's instrument. Answers
/// null, the reason for rejecting the line, or `kSkippedLine` for a status message.
const char* readTickLine(const FileKind& kind, const FieldColumns& columns, std::string_view market,
                         const CsvReader& row, TickLine& tick);

/// A code of one character, which tables may also give as its ASCII number (49 for '1', 85 for 'U'). 0 for
/// anything else.
char codeOf(std::string_view cell);

/// Buy side of an order or of the active party: B, 1, 66; sell: S, 2, 83; both as characters or ASCII
/// numbers. Answers 1, 2, or 0 for anything else.
int sideOf(std::string_view cell);

} // namespace feed
