#pragma once

#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthTransaction.h"
#include "records/DepthExport.h"

#include <boost/shared_ptr.hpp>

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <vector>

class QIODevice;

/// The lists as tables for files. May be used on any thread.
namespace Kel {

/// Gives the cells of the next rows of a walk over a list, at most so many; none at its end. False when the
/// list has become another one since the walk began.
using TickTableWalk = std::function<bool(int most, std::vector<QStringList>& rows)>;

/// A list as filtered: names of its columns, number of its rows at this moment, and walks over them. Holds
/// the model. To be made on the GUI thread, with the instrument that the model has then.
struct DEPTH_EXPORT TickTable
{
    QStringList columns;
    std::function<int()> rowCount;
    std::function<TickTableWalk()> walk;
};

DEPTH_EXPORT TickTable dealTable(const boost::shared_ptr<CModelDepthTransaction>& model);
DEPTH_EXPORT TickTable orderTable(const boost::shared_ptr<CModelDepthEntrust>& model);
DEPTH_EXPORT TickTable cancelTable(const boost::shared_ptr<CModelDepthEntrust>& model);

enum class ETableEncoding
{
    eUtf8WithMark, ///< with the byte order mark that spreadsheets look for
    eGbk,
};

enum class ETableResult
{
    eWritten,
    eStopped,     ///< by `progress`
    eDeviceFull,  ///< the device did not take all
    eListChanged, ///< the list was cleared, filtered or delivered anew: what was written is not worth keeping
};

/// Writes a table as comma-separated values, lines ended by CR and LF. `progress(done, total)` is called now
/// and then, at the end too, and stops the writing by answering false; it may be empty. The list may grow
/// meanwhile, and `total` with it: no row is written twice, and none is left out but those that come while
/// the file is written and belong before what was written.
DEPTH_EXPORT ETableResult writeCsv(const TickTable& table, QIODevice& device, ETableEncoding encoding,
                                   const std::function<bool(int, int)>& progress);

/// A cell as it stands in such a file: in quotes if it holds a comma, a quote or a line end.
QString csvCell(const QString& cell);

} // namespace Kel
