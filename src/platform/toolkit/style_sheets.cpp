#include "platform/toolkit/style_sheets.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QRegularExpression>
#include <QWidget>

namespace Zeb {

namespace {

// In the sheets below `@key@` stands for the colour or the picture of that key.
const QString kButton =
    QStringLiteral("QPushButton {color: @clr_button_text@; background: @clr_button_background@;"
                   " border: 1px solid @clr_button_border@; border-radius: 2px; padding: 0px 4px;}"
                   "QPushButton:hover {background: @clr_button_background_hover@;}"
                   "QPushButton:pressed {background: @clr_button_background_pressed@;}"
                   "QPushButton:checked {background: @clr_button_background_checked@;}"
                   "QPushButton:default, QPushButton:focus {border-color: @clr_focus@;}"
                   "QPushButton:disabled {color: @clr_button_text_disabled@;}");

const QString kCheckBox =
    QStringLiteral("QCheckBox {color: @clr_dialog_text@; background: transparent; spacing: 4px;}"
                   "QCheckBox:disabled {color: @clr_button_text_disabled@;}"
                   "QCheckBox::indicator {width: 12px; height: 12px; border: 1px solid @clr_check_border@;"
                   " background: @clr_edit_background@;}"
                   "QCheckBox::indicator:focus, QCheckBox::indicator:hover {border-color: @clr_focus@;}"
                   "QCheckBox:focus {color: @clr_focus@;}"
                   "QCheckBox::indicator:checked {@img_check@;}");

const QString kComboBox =
    QStringLiteral("QComboBox {color: @clr_edit_text@; background: @clr_edit_background@;"
                   " border: 1px solid @clr_edit_border@; border-radius: 2px; padding-left: 4px;}"
                   "QComboBox:focus, QComboBox:on {border-color: @clr_focus@;}"
                   "QComboBox:disabled {color: @clr_button_text_disabled@;}"
                   "QComboBox::drop-down {border: none; width: 16px;}"
                   "QComboBox::down-arrow {@img_combo_arrow@; width: 10px; height: 10px;}"
                   "QComboBox QAbstractItemView {color: @clr_edit_text@; background: @clr_edit_background@;"
                   " border: 1px solid @clr_edit_border@; selection-color: @clr_edit_text@;"
                   " selection-background-color: @clr_edit_selection@; outline: none;}");

const QString kLineEdit =
    QStringLiteral("QLineEdit {color: @clr_edit_text@; background: @clr_edit_background@;"
                   " border: 1px solid @clr_edit_border@; border-radius: 2px; padding: 0px 3px;"
                   " selection-color: @clr_edit_text@; selection-background-color: @clr_edit_selection@;}"
                   "QLineEdit:focus {border-color: @clr_focus@;}"
                   "QLineEdit:disabled {color: @clr_button_text_disabled@;}");

const QString kSpinBox =
    QStringLiteral("QAbstractSpinBox {color: @clr_edit_text@; background: @clr_edit_background@;"
                   " border: 1px solid @clr_edit_border@; border-radius: 2px; padding: 0px 2px;"
                   " selection-color: @clr_edit_text@; selection-background-color: @clr_edit_selection@;}"
                   "QAbstractSpinBox QLineEdit {border: none; background: transparent; padding: 0px;}"
                   "QAbstractSpinBox:focus {border-color: @clr_focus@;}"
                   "QAbstractSpinBox:disabled {color: @clr_button_text_disabled@;}"
                   "QAbstractSpinBox::up-button, QAbstractSpinBox::down-button"
                   " {border: none; background: transparent; width: 14px; subcontrol-origin: border;}"
                   "QAbstractSpinBox::up-button {subcontrol-position: top right;}"
                   "QAbstractSpinBox::down-button {subcontrol-position: bottom right;}"
                   "QAbstractSpinBox::up-arrow {@img_spin_up@; width: 8px; height: 8px;}"
                   "QAbstractSpinBox::down-arrow {@img_spin_down@; width: 8px; height: 8px;}");

const QString kMenu = QStringLiteral(
    "QMenu {background-color: @clr_menubar_background_new@; border: 1px solid @clr_menubar_border_new@;}"
    "QMenu::item {color: @clr_menubar_item_text_new@; padding: 6px 34px;"
    " background-color: @clr_menubar_item_background_normal_new@;}"
    "QMenu::item:selected {background-color: @clr_menubar_item_background_selected_new@;}"
    "QMenu::item:pressed {background-color: @clr_menubar_item_background_pressed_new@;}"
    "QMenu::item:disabled {color: @clr_button_text_disabled@;}"
    "QMenu::separator {height: 1px; margin: 4px 8px; background: @clr_menubar_border_new@;}"
    "QMenu::indicator {left: 10px; width: 14px; height: 14px;}"
    "QMenu::indicator:checked {@img_menu_check@;}"
    "QMenu::right-arrow {@img_menu_arrow@; width: 10px; height: 10px;}");

const QString kToolTip = QStringLiteral("QToolTip {color: @clr_tip_text@; background: @clr_tip_background@;"
                                        " border: 1px solid @clr_tip_border@; padding: 2px;}");

const QString kTable =
    QStringLiteral("QTableView {color: @HEADER@; background: @GROUND@; alternate-background-color: @NUMBERS@;"
                   " border: none; gridline-color: @clr_table_split_line_header@; selection-color: @HEADER@;"
                   " selection-background-color: @clr_edit_selection@; outline: none;}"
                   "QHeaderView {background: @NUMBERS@; border: none;}"
                   "QHeaderView::section {color: @HEADER@; background: @NUMBERS@; border: none;"
                   " border-right: 1px solid @clr_table_split_line_header@;"
                   " border-bottom: 1px solid @clr_table_split_line_header@; padding: 0px 4px;}"
                   "QTableCornerButton::section {background: @NUMBERS@; border: none;}");

const QString kBars = QStringLiteral(
    "QScrollBar {background: @clr_scrollbar_background_new@; border: none; margin: 0px;}"
    "QScrollBar:vertical {width: 10px;} QScrollBar:horizontal {height: 10px;}"
    "QScrollBar::handle {background: @clr_scrollbar_slider_new@; min-height: 20px; min-width: 20px;}"
    "QScrollBar::add-page, QScrollBar::sub-page {background: none;}"
    "QScrollBar::add-line, QScrollBar::sub-line {width: 0px; height: 0px;}");

const QString kWindow =
    QStringLiteral("QMainWindow, QDialog {background: @clr_window_background@; color: @clr_window_text@;}"
                   "QLabel {color: @clr_window_text@; background: transparent;}"
                   "QListView, QTreeView {color: @clr_window_text@; background: @clr_edit_background@;"
                   " border: 1px solid @clr_edit_border@; selection-color: @clr_edit_text@;"
                   " selection-background-color: @clr_edit_selection@; outline: none;}"
                   "QSplitter::handle {background: @ic_clr_modulegroup_spliter@;}"
                   "QSlider::groove:horizontal {height: 4px; background: @clr_scrollbar_background_new@;"
                   " border: 1px solid @clr_edit_border@; border-radius: 2px;}"
                   "QSlider::sub-page:horizontal {background: @clr_focus@; border-radius: 2px;}"
                   "QSlider::handle:horizontal {width: 10px; margin: -5px 0px; border-radius: 5px;"
                   " background: @clr_button_text@;}"
                   "QSlider::handle:horizontal:focus {background: @clr_focus@;}");

CUiResource& resource()
{
    return utils::CSingletonT<CUiResource>::instance();
}

QString filled(const QString& sheet)
{
    static const QRegularExpression pattern(QStringLiteral("@([a-z_]+)@"));
    QString result;
    int copied = 0;
    auto matches = pattern.globalMatch(sheet);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QString key = match.captured(1);
        result += sheet.mid(copied, match.capturedStart() - copied);
        result += key.startsWith(QLatin1String("img_")) ? resource().getImageSheet(key)
                                                        : resource().getColorSheetByKey(key);
        copied = match.capturedEnd();
    }
    return result + sheet.mid(copied);
}

} // namespace

QString buttonSheet()
{
    return filled(kButton);
}

QString checkBoxSheet()
{
    return filled(kCheckBox);
}

QString comboBoxSheet()
{
    return filled(kComboBox);
}

QString lineEditSheet()
{
    return filled(kLineEdit);
}

QString menuSheet()
{
    return filled(kMenu);
}

QString spinBoxSheet()
{
    return filled(kSpinBox);
}

QString tableSheet(const QString& groundKey, const QString& numberGroundKey, const QString& headerTextKey)
{
    QString sheet = kTable;
    sheet.replace(QLatin1String("GROUND"), groundKey);
    sheet.replace(QLatin1String("NUMBERS"), numberGroundKey);
    sheet.replace(QLatin1String("HEADER"), headerTextKey);
    return filled(sheet) + filled(kBars);
}

QString toolTipSheet()
{
    return filled(kToolTip);
}

QString windowSheet()
{
    return filled(kWindow) + filled(kBars) + toolTipSheet() + buttonSheet() + checkBoxSheet() +
           comboBoxSheet() + lineEditSheet() + spinBoxSheet() + menuSheet() +
           tableSheet(QStringLiteral("ic_clr_table_background"),
                      QStringLiteral("ic_clr_table_number_background"),
                      QStringLiteral("ic_clr_table_text_default"));
}

void giveSheet(QWidget* widget, const QString& sheet)
{
    widget->ensurePolished();
    for (QWidget* child : widget->findChildren<QWidget*>())
        child->ensurePolished();
    widget->setStyleSheet(sheet);
}

QPalette themePalette()
{
    const auto color = [](const char* key) { return *resource().getColor(QString::fromLatin1(key)); };
    QPalette palette;
    palette.setColor(QPalette::Window, color("clr_window_background"));
    palette.setColor(QPalette::WindowText, color("clr_window_text"));
    palette.setColor(QPalette::Base, color("clr_edit_background"));
    palette.setColor(QPalette::AlternateBase, color("ic_clr_table_number_background"));
    palette.setColor(QPalette::Text, color("clr_edit_text"));
    palette.setColor(QPalette::Button, color("clr_button_background"));
    palette.setColor(QPalette::ButtonText, color("clr_button_text"));
    palette.setColor(QPalette::Highlight, color("clr_edit_selection"));
    palette.setColor(QPalette::HighlightedText, color("clr_edit_text"));
    palette.setColor(QPalette::ToolTipBase, color("clr_tip_background"));
    palette.setColor(QPalette::ToolTipText, color("clr_tip_text"));
    palette.setColor(QPalette::PlaceholderText, color("clr_window_text_soft"));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, color("clr_button_text_disabled"));
    return palette;
}

} // namespace Zeb
