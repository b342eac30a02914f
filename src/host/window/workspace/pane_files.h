#pragma once

#include "host/window/panes/Pane.h"

class QWidget;

/// What a pane gives to files, written before a person's eyes. GUI thread.
namespace host {

/// What became of a wish for a file.
struct FileResult
{
    bool written = false;
    QString text; ///< for the message bar; empty if the person stopped it
};

/// Writes a table to a file, with a window that shows the progress of a long one and stops it. A stopped or
/// failed writing leaves no file behind, and an existing one as it was.
FileResult writeTable(const PaneTable& table, const QString& file, bool gbk, QWidget* window);

/// Writes a picture of a pane as it looks now.
FileResult writePicture(QWidget& pane, const QString& file);

} // namespace host
