#pragma once

class QWidget;

namespace host {

/// Gives a dialog of the terminal the look of the theme in force; again after each change of the theme. GUI
/// thread.
void giveDialogStyle(QWidget* dialog);

} // namespace host
