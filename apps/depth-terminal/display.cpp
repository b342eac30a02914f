#include "display.h"

#include <QGuiApplication>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned kPatienceSeconds = 10; // a display of another machine that never answers

bool nothingNamesADisplay()
{
    return qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
           qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// Qt aborts after a fatal message; a child that was to find out needs no core dump.
void endAtFatalMessage(QtMsgType type, const QMessageLogContext&, const QString&)
{
    if (type == QtFatalMsg)
        _exit(EXIT_FAILURE);
}

/// What the child does: it opens the display and ends.
[[noreturn]] void tryDisplay(int argc, char** argv)
{
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (nowhere >= 0) {
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
    }
    alarm(kPatienceSeconds);
    qInstallMessageHandler(endAtFatalMessage);
    const QGuiApplication application(argc, argv);
    _exit(EXIT_SUCCESS);
}

} // namespace

bool displayAnswers(int argc, char** argv)
{
    if (nothingNamesADisplay())
        return false;
    const pid_t child = fork();
    if (child < 0)
        return true; // whether it answers is seen when the window opens
    if (child == 0)
        tryDisplay(argc, argv);
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            return true;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}
