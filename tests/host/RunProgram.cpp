#include "RunProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

namespace testing_support {

ProgramRun runProgram(const QStringList& arguments, const QStringList& environment)
{
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const QString& entry : environment)
        variables.insert(entry.section(QLatin1Char('='), 0, 0), entry.section(QLatin1Char('='), 1));
    process.setProcessEnvironment(variables);
    process.start(QStringLiteral(DEPTH_PROGRAM), arguments);
    ProgramRun run;
    constexpr int kMostMs = 60000;
    if (process.waitForFinished(kMostMs) && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

void writeFile(const QString& path, const std::string& text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text.data(), static_cast<qint64>(text.size()));
}

} // namespace testing_support
