#include "arguments.h"
#include "display.h"

#include "host/commands/commands.h"
#include "host/window/settings/TerminalSettings.h"
#include "host/window/shot.h"
#include "host/window/window_runs.h"

#include <QApplication>
#include <QStyleFactory>

#include <clocale>
#include <iostream>

namespace {

/// What Qt reads when the application is made: the scale of a picture, and that it needs no display. Sizes of
/// fonts are pixels of the theme, whatever a display says of its density.
void prepareQt(const host::TerminalOptions& options)
{
    qputenv("QT_FONT_DPI", "96");
    if (options.shot.isEmpty()) {
        QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
        QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
            Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    } else {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
    }
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

/// What Qt has to remark on the desktop's folders, and on what a picture without a display cannot do, says
/// nothing about the day, and errors are single lines.
void dropRemarksOnDesktop(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QLatin1String("QStandardPaths:")) &&
        !text.startsWith(QLatin1String("This plugin does not support")))
        std::cerr << qFormatLogMessage(type, context, text).toStdString() << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, "");
    host::TerminalOptions options;
    int exitCode = host::kExitDone;
    if (!readArguments(argc, argv, options, exitCode, std::cout, std::cerr))
        return exitCode;
    if (options.probe)
        return displayAnswers(argc, argv) ? host::kExitDone : host::kExitError;
    if (options.shot.isEmpty() && !displayAnswers(argc, argv))
        return host::fail(std::cerr, "no display; --shot FILE.png makes a picture without one");

    qInstallMessageHandler(dropRemarksOnDesktop);
    prepareQt(options);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("depth-terminal"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (!options.shot.isEmpty())
        return host::takeShot(options, std::cerr); // looks as the arguments say, whatever is remembered
    if (options.measureStalls > 0)
        return host::runStallMeasurement(options, std::cout, std::cerr);
    if (options.tour)
        return host::runTour(options, std::cout, std::cerr);
    if (options.settingsFile.isEmpty())
        options.settingsFile = host::usualSettingsFile();
    return host::runWindow(options, std::cerr);
}
