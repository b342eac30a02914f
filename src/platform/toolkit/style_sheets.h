#pragma once

#include "records/DepthExport.h"

#include <QPalette>
#include <QString>

class QWidget;

/// The look of Qt's own widgets in the theme in force, as style sheets. Ask again in `themeChanged`. GUI
/// thread.
namespace Zeb {

DEPTH_EXPORT QString buttonSheet();
DEPTH_EXPORT QString checkBoxSheet();
DEPTH_EXPORT QString comboBoxSheet();
DEPTH_EXPORT QString lineEditSheet();
DEPTH_EXPORT QString menuSheet();

/// Editors with arrows: `QSpinBox`, `QTimeEdit` and their like.
DEPTH_EXPORT QString spinBoxSheet();
DEPTH_EXPORT QString tableSheet(const QString& groundKey, const QString& numberGroundKey,
                                const QString& headerTextKey);
DEPTH_EXPORT QString toolTipSheet();

/// All of the above for a window of plain Qt widgets, with sliders, lists, splitters and the scroll bars of
/// lists besides. The toolkit's dialogs bring it; a host gives it to its main window.
DEPTH_EXPORT QString windowSheet();

/// Gives `widget` the style sheet `sheet` so that all widgets in it show it. Qt's own `setStyleSheet` leaves
/// those that were never shown with the sheet before.
DEPTH_EXPORT void giveSheet(QWidget* widget, const QString& sheet);

/// The theme as a palette, for what style sheets do not reach.
DEPTH_EXPORT QPalette themePalette();

} // namespace Zeb
