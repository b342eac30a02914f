#pragma once

#include <QByteArray>
#include <QString>

namespace Zeb {

/// Makes `bytes` a resource of the process under the file name `name` and gives its path, ":/...". For
/// pictures that are made at run time and are wanted by path. The bytes are kept for the life of the process;
/// a name must not be given twice. Empty if Qt turns it away. GUI thread.
QString registerResource(const QString& name, const QByteArray& bytes);

} // namespace Zeb
