#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <string>
#include <vector>

namespace testing_support {

/// What a run of the program `depth` gave.
struct ProgramRun
{
    int exitCode = -1; ///< -1 if it crashed or did not end within a minute
    QString out;
    QString err;

    QStringList lines() const { return out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
    QStringList errorLines() const { return err.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
};

/// Runs the program without a terminal; `environment` has entries like "NO_COLOR=1".
ProgramRun runProgram(const QStringList& arguments, const QStringList& environment = {});

/// Writes a file, with the folders above it.
void writeFile(const QString& path, const std::string& text);

} // namespace testing_support
