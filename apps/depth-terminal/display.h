#pragma once

/// Whether a window can be opened in this environment. Qt itself would end the process with a signal where no
/// display answers, so a child process tries it, for ten seconds at most. To be called before there is an
/// application or a second thread.
bool displayAnswers(int argc, char** argv);
