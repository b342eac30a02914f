#include "host/window/window_style.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

namespace host {

namespace {

Zeb::CUiResource& theme()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

constexpr int kTimePixels = 16; // height of the replay's time at the usual size of fonts

// %1 ground, %2 raised ground, %3 line, %4 text, %5 soft text, %6 accent, %7 selection, %8 hover, %9 field,
// %10 error ground, %11 note ground, %12 message text, %13 popup ground, %14 slider of scroll bars,
// %15 pressed, %16 arrow of a choice, %17 check mark
const char* const kSheet = R"(
QMainWindow { background: %1; }
QMainWindow::separator { background: %3; width: 3px; height: 3px; }
QMainWindow::separator:hover { background: %6; }
#PaneTitle { background: %2; border-bottom: 1px solid %3; }
#PaneTitle QLabel { color: %5; background: transparent; }
#PaneTitle QToolButton { border: 0; padding: 0; }
#Workspace QTabBar { background: %1; qproperty-drawBase: 0; }
#Workspace QTabBar::tab { background: %1; color: %5; border: 0; border-top: 2px solid transparent;
                          padding: 4px 12px; }
#Workspace QTabBar::tab:selected { background: %2; color: %4; border-top-color: %6; }
#Workspace QTabBar::tab:hover { color: %4; }
#LevelRoom, #TicketRoom, #LevelColumn, #TicketColumn { background: %1; }
#OrderTicket { background: %2; border-top: 1px solid %3; }
#OrderTicket QLabel { color: %5; background: transparent; }
#OrderTicket QLabel[field="true"] { color: %4; background: %9; border: 1px solid %3; border-radius: 4px;
                                    padding: 3px 6px; }
QMenuBar { background: %2; color: %4; border-bottom: 1px solid %3; padding: 1px 4px; }
QMenuBar::item { background: transparent; padding: 4px 9px; border-radius: 3px; }
QMenuBar::item:selected { background: %8; }
QMenu { background: %13; color: %4; border: 1px solid %3; padding: 4px; }
QMenu::item { padding: 4px 26px 4px 24px; border-radius: 3px; }
QMenu::item:selected { background: %8; }
QMenu::item:disabled { color: %5; }
QMenu::separator { height: 1px; background: %3; margin: 4px 8px; }
QMenu::indicator { width: 14px; height: 14px; left: 5px; }
QMenu::indicator:checked { %17; }
QToolBar { background: %2; border: 0; border-bottom: 1px solid %3; spacing: 2px; padding: 3px 8px; }
QToolBar::separator { width: 1px; background: %3; margin: 4px 8px; }
QToolButton { color: %4; background: transparent; border: 1px solid transparent; border-radius: 4px;
              padding: 3px 9px; }
QToolButton:hover { background: %8; }
QToolButton:pressed { background: %15; }
QToolButton:checked { background: %7; }
QToolButton:focus { border-color: %6; }
#ReplayBar { background: %2; border: 0; border-top: 1px solid %3; }
#ReplayBar QToolButton { border: 1px solid %3; padding: 2px; }
#ReplayBar QToolButton:focus { border-color: %6; }
#ReplayTime { color: %4; font-size: @time@px; }
QToolButton#CancelLoading { padding: 4px 12px; }
#MessageBar { background: %11; border: 0; }
#MessageBar[error="true"] { background: %10; }
#MessageBar QLabel, #MessageBar QToolButton { color: %12; background: transparent; }
QLineEdit { background: %9; color: %4; border: 1px solid %3; border-radius: 4px; padding: 4px 6px;
            selection-background-color: %7; selection-color: %4; }
QLineEdit:focus { border-color: %6; }
QComboBox { background: %9; color: %4; border: 1px solid %3; border-radius: 4px; padding: 4px 6px;
            min-width: 44px; }
QComboBox:focus { border-color: %6; }
QComboBox::drop-down { border: 0; width: 16px; }
QComboBox::down-arrow { %16; width: 10px; height: 10px; }
QComboBox QAbstractItemView { background: %13; color: %4; border: 1px solid %3; outline: 0;
                              selection-background-color: %8; selection-color: %4; }
QTableView { background: %1; color: %4; border: 0; outline: 0; selection-background-color: %7; }
QTableView::item { padding: 0 6px; border: 0; }
#Pane_information QTableView::item { padding: 0 1px; }
QTableView::item:hover { background: %8; }
QTableView::item:selected { background: %7; }
QHeaderView { background: %2; border: 0; }
QHeaderView::section { background: %2; color: %5; border: 0; border-bottom: 1px solid %3; padding: 4px 6px; }
QProgressBar { background: %9; color: %4; border: 1px solid %3; border-radius: 4px; text-align: center;
               min-height: 20px; }
QProgressBar::chunk { background: %7; border-radius: 3px; }
QToolTip { background: %13; color: %4; border: 1px solid %3; padding: 3px; }
#LevelRoom QScrollBar:vertical, #TicketRoom QScrollBar:vertical,
#InstrumentList QScrollBar:vertical { background: %1; width: 8px; margin: 1px; border: 0; }
#LevelRoom QScrollBar::handle:vertical, #TicketRoom QScrollBar::handle:vertical,
#InstrumentList QScrollBar::handle:vertical { background: %14; min-height: 24px; border-radius: 3px; }
#LevelRoom QScrollBar::add-line:vertical, #LevelRoom QScrollBar::sub-line:vertical,
#TicketRoom QScrollBar::add-line:vertical, #TicketRoom QScrollBar::sub-line:vertical,
#InstrumentList QScrollBar::add-line:vertical, #InstrumentList QScrollBar::sub-line:vertical { height: 0; }
)";

} // namespace

int sizeOfText(int pixels)
{
    return qRound(pixels * theme().fontScale());
}

QString windowStyleSheet()
{
    QString sheet = QString::fromLatin1(kSheet);
    sheet.replace(QLatin1String("@time@"), QString::number(sizeOfText(kTimePixels)));
    // From the last place down: "%1" begins "%12" as well.
    sheet.replace(QLatin1String("%17"), theme().getImageSheet(QStringLiteral("img_menu_check")));
    sheet.replace(QLatin1String("%16"), theme().getImageSheet(QStringLiteral("img_combo_arrow")));
    const char* const keys[] = {
        "clr_window_background",
        "clr_dialog_title_background",
        "kel_clr_depth_module_group_base_widget_split_line",
        "clr_window_text",
        "clr_window_text_soft",
        "clr_focus",
        "clr_edit_selection",
        "clr_button_background_hover",
        "clr_edit_background",
        "clr_message_error_background",
        "clr_message_background",
        "clr_message_text",
        "clr_menubar_background_new",
        "clr_scrollbar_slider_new",
        "clr_button_background_pressed",
    };
    for (int place = static_cast<int>(std::size(keys)); place > 0; --place) {
        sheet.replace(QLatin1Char('%') + QString::number(place),
                      theme().getColorSheetByKey(QString::fromLatin1(keys[place - 1])));
    }
    return sheet;
}

} // namespace host
