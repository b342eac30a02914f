#pragma once

#include "host/window/settings/TerminalSettings.h"
#include "platform/resources/CUiResourceChangeHandler.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QSlider;
class QSpinBox;
class QTabWidget;

namespace host {

class TerminalActions;

/// What a person may set: looks, data, language, keys. Each change is told at once, and there is nothing to
/// confirm. GUI thread.
class SettingsDialog : public QDialog, public Zeb::CUiResourceChangeHandler
{
    Q_OBJECT

public:
    /// Begins with these settings. `actions`, whose keys can be changed in it, outlives the dialog.
    SettingsDialog(const TerminalSettings& settings, TerminalActions* actions, QWidget* parent);

    /// The settings as the dialog shows them; keys and layouts are those that it began with.
    const TerminalSettings& settings() const { return m_settings; }

    /// Theme and colours may be changed elsewhere while the dialog is open.
    void themeChanged() override;

Q_SIGNALS:
    /// A person has set something; nothing is said where `themeChanged` brought it.
    void changed(const host::TerminalSettings& settings);

private:
    QWidget* lookPage();
    QWidget* dataPage();
    QWidget* languagePage();
    void makeButtons();
    void sayRow(QFormLayout* form, QWidget* field, const char* text);
    void sayItems(QComboBox* box, const std::vector<const char*>& texts);
    void connectControls();
    void take();
    void tell();
    void showSettings();
    void restoreUsual();

    TerminalSettings m_settings;
    bool m_showing = false; ///< what changes now is no wish of a person
    QTabWidget* m_tabs;
    QComboBox* m_theme;
    QComboBox* m_colors;
    QCheckBox* m_concise;
    QSlider* m_fontSlider;
    QSpinBox* m_font;
    QSpinBox* m_refresh;
    QComboBox* m_language;
    QDialogButtonBox* m_buttons;
};

} // namespace host
