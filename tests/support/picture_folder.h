#pragma once

#include <QDir>
#include <QString>

namespace testing_support {

/// Where a test puts pictures for the eye: the folder that DEPTH_PICTURES names, else one of this name in the
/// folder of the test. It is there afterwards.
inline QString pictureFolder(const QString& name)
{
    const QString given = qEnvironmentVariable("DEPTH_PICTURES");
    const QString path = given.isEmpty() ? name : given;
    QDir().mkpath(path);
    return path;
}

} // namespace testing_support
