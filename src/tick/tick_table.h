#pragma once

#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthTransaction.h"

#include <boost/shared_ptr.hpp>

#include <QByteArray>
#include <QStringList>

#include <functional>

class QIODevice;

/// The lists as tables for files. May be used on any thread.
namespace Kel {

/// A list as filtered: names of its columns, number of its rows, and the cells of a row, empty for a row
/// that is not there. Holds the model.
struct TickTable
{
    QStringList columns;
    std::function<int()> rowCount;
    std::function<QStringList(int)> row;
};

TickTable dealTable(const boost::shared_ptr<CModelDepthTransaction>& model);
TickTable orderTable(const boost::shared_ptr<CModelDepthEntrust>& model);
TickTable cancelTable(const boost::shared_ptr<CModelDepthEntrust>& model);

enum class ETableEncoding
{
    eUtf8WithMark, ///< with the byte order mark that spreadsheets look for
    eGbk,
};

/// Writes a table as comma-separated values, lines ended by CR and LF. `progress(done, total)` is called now
/// and then, at the end too, and stops the writing by answering false; it may be empty. Rows that come while
/// the file is written are left out. False if it was stopped or the device did not take all.
bool writeCsv(const TickTable& table, QIODevice& device, ETableEncoding encoding,
              const std::function<bool(int, int)>& progress);

/// A cell as it stands in such a file: in quotes if it holds a comma, a quote or a line end.
QString csvCell(const QString& cell);

} // namespace Kel
