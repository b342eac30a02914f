#include "host/window/settings/dialog_style.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"

#include <QWidget>

namespace host {

namespace {

// %1 ground, %2 text, %3 soft text, %4 line, %5 accent, %6 hover, %7 selection
const char* const kSheet = R"(
QDialog { background: %1; color: %2; }
QLabel { color: %2; background: transparent; }
QPushButton { padding: 4px 12px; }
QLineEdit { padding: 4px 6px; }
QComboBox, QAbstractSpinBox { padding: 3px 6px; min-width: 120px; }
QTabWidget::pane { border: 0; border-top: 1px solid %4; top: -1px; }
QTabBar { qproperty-drawBase: 0; }
QTabBar::tab { background: transparent; color: %3; border: 0; border-bottom: 2px solid transparent;
               padding: 6px 14px; }
QTabBar::tab:selected { color: %2; border-bottom-color: %5; }
QTabBar::tab:hover, QTabBar::tab:focus { color: %5; }
QScrollArea, #KeySheetPage { background: transparent; border: 0; }
#KeyMenu { color: %3; border-bottom: 1px solid %4; padding: 3px 6px; font-weight: bold; }
#KeyRow { background: transparent; border: 0; border-radius: 3px; }
#KeyRow:hover { background: %6; }
#KeyRow:focus { background: %7; }
#KeyText { color: %2; }
#KeyText[changed="true"] { color: %5; font-weight: bold; }
#KeyNote, #SettingHint { color: %3; }
)";

} // namespace

void giveDialogStyle(QWidget* dialog)
{
    const auto& theme = utils::CSingletonT<Zeb::CUiResource>::instance();
    const auto color = [&theme](const char* key) {
        return theme.getColorSheetByKey(QString::fromLatin1(key));
    };
    const QString sheet = QString::fromLatin1(kSheet).arg(
        color("clr_window_background"), color("clr_window_text"), color("clr_window_text_soft"),
        color("kel_clr_depth_module_group_base_widget_split_line"), color("clr_focus"),
        color("clr_button_background_hover"), color("clr_edit_selection"));
    Zeb::giveSheet(dialog, Zeb::windowSheet() + sheet);
}

} // namespace host
