#pragma once

#include <QPalette>
#include <QString>

class QWidget;

/// The look of Qt's own widgets in the theme in force, as style sheets. Ask again in `themeChanged`. GUI
/// thread.
namespace Zeb {

QString buttonSheet();
QString checkBoxSheet();
QString comboBoxSheet();
QString lineEditSheet();
QString menuSheet();

/// Editors with arrows: `QSpinBox`, `QTimeEdit` and their like.
QString spinBoxSheet();
QString tableSheet(const QString& groundKey, const QString& numberGroundKey, const QString& headerTextKey);
QString toolTipSheet();

/// All of the above for a window of plain Qt widgets, with sliders, lists, splitters and the scroll bars of
/// lists besides. The toolkit's dialogs bring it; a host gives it to its main window.
QString windowSheet();

/// Gives `widget` the style sheet `sheet` so that all widgets in it show it. Qt's own `setStyleSheet` leaves
/// those that were never shown with the sheet before.
void giveSheet(QWidget* widget, const QString& sheet);

/// The theme as a palette, for what style sheets do not reach.
QPalette themePalette();

} // namespace Zeb
