// What a person sets in the dialog, what a file remembers of it, and what it brings about at once.

#include "host/window/settings/SettingsDialog.h"

#include "host/window/TerminalActions.h"
#include "host/window/TerminalServices.h"
#include "host/window/keys/KeySheet.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/settings/applied_look.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"
#include "support/picture_folder.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QMainWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>

namespace window_tests {
namespace {

Zeb::CUiResource& theme()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

/// Looks as they are usually, afterwards too.
class Look : public ::testing::Test
{
protected:
    ~Look() override { host::applyLook({}, services); }

    host::TerminalServices services;
};

/// Counts what panels hear.
class Listener : public Zeb::CUiResourceChangeHandler
{
public:
    void themeChanged() override
    {
        ++heard;
        concise = Kel::getConfig()->conciseStyle();
        pixels = theme().getFont(QStringLiteral("fnt_default_normal"))->pixelSize();
    }

    int heard = 0;
    bool concise = false;
    int pixels = 0;
};

TEST_F(Look, IsInForceAtOnceWhenItIsApplied)
{
    Listener panel;
    QSignalSpy period(&services.userConfig(), &Kel::CUserConfig::sigRefreshTimer);
    host::TerminalSettings settings;
    settings.theme = QStringLiteral("light");
    settings.colors = Zeb::EPriceColors::eGreenUp;
    settings.concise = true;
    settings.refreshMs = 1250;
    settings.fontPercent = 150;
    settings.language = QStringLiteral("en");
    host::applyLook(settings, services);
    EXPECT_EQ(theme().theme(), QStringLiteral("light"));
    EXPECT_EQ(theme().priceColors(), Zeb::EPriceColors::eGreenUp);
    EXPECT_TRUE(panel.concise);
    EXPECT_EQ(panel.pixels, 18);
    ASSERT_EQ(period.size(), 1);
    EXPECT_EQ(period[0][0].toInt(), 1250);
    EXPECT_EQ(host::TerminalLanguage::instance().language(), QStringLiteral("en"));
}

TEST_F(Look, ThatIsInForceAlreadyIsNotToldAgain)
{
    host::TerminalSettings settings;
    settings.fontPercent = 90;
    host::applyLook(settings, services);
    Listener panel;
    QSignalSpy period(&services.userConfig(), &Kel::CUserConfig::sigRefreshTimer);
    QSignalSpy language(&host::TerminalLanguage::instance(), &host::TerminalLanguage::changed);
    host::applyLook(settings, services);
    EXPECT_EQ(panel.heard, 0);
    EXPECT_TRUE(period.isEmpty());
    EXPECT_TRUE(language.isEmpty());
}

TEST_F(Look, OfTheConciseStyleAloneIsToldToThePanels)
{
    Listener panel;
    host::TerminalSettings settings;
    settings.concise = true;
    host::applyLook(settings, services);
    EXPECT_EQ(panel.heard, 1);
    EXPECT_TRUE(panel.concise);
}

TEST_F(Look, TellsEveryPeriodInWholeMilliseconds)
{
    QSignalSpy period(&services.userConfig(), &Kel::CUserConfig::sigRefreshTimer);
    for (int ms = host::kLeastRefreshMs; ms <= host::kMostRefreshMs; ms += 7) {
        period.clear();
        host::TerminalSettings settings;
        settings.refreshMs = ms;
        host::applyLook(settings, services);
        if (!period.isEmpty()) {
            EXPECT_EQ(period[0][0].toInt(), ms);
        }
        EXPECT_EQ(static_cast<int>(services.userConfig().refreshInterval() * 1000), ms);
    }
}

class Dialog : public Look
{
protected:
    Dialog()
        : actions(new host::TerminalActions(&window)),
          dialog({}, actions, &window),
          changed(&dialog, &host::SettingsDialog::changed)
    {
        QObject::connect(
            &dialog, &host::SettingsDialog::changed, &dialog,
            [this](const host::TerminalSettings& settings) { host::applyLook(settings, services); });
    }

    template <class Control>
    Control* control(const char* name)
    {
        for (Control* found : dialog.findChildren<Control*>()) {
            if (found->accessibleName() == QString::fromUtf8(name))
                return found;
        }
        return nullptr;
    }

    QMainWindow window;
    host::TerminalActions* actions;
    host::SettingsDialog dialog;
    QSignalSpy changed;
};

TEST_F(Dialog, TellsEachChangeAtOnce)
{
    control<QComboBox>("主题")->setCurrentIndex(1);
    EXPECT_EQ(theme().theme(), QStringLiteral("light"));
    control<QComboBox>("涨跌颜色")->setCurrentIndex(2);
    EXPECT_EQ(theme().priceColors(), Zeb::EPriceColors::eColorBlind);
    control<QCheckBox>("简洁风格")->setChecked(true);
    EXPECT_TRUE(services.config().conciseStyle());
    control<QSpinBox>("刷新周期")->setValue(800);
    EXPECT_EQ(services.userConfig().refreshInterval(), 0.80025);
    EXPECT_EQ(changed.size(), 4);
}

TEST_F(Dialog, SetsTheFontByNumberOrSlider)
{
    auto* slider = dialog.findChild<QSlider*>();
    QSpinBox* number = nullptr;
    for (QSpinBox* box : dialog.findChildren<QSpinBox*>()) {
        if (box->suffix().contains(QLatin1Char('%')))
            number = box;
    }
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number->minimum(), 80);
    EXPECT_EQ(number->maximum(), 200);
    slider->setValue(slider->maximum());
    EXPECT_EQ(number->value(), 200);
    EXPECT_EQ(theme().fontScale(), 2);
    number->setValue(93);
    EXPECT_EQ(theme().fontScale(), 0.93);
    EXPECT_EQ(number->value(), 93) << "the slider follows in its own steps";
}

TEST_F(Dialog, SpeaksTheChosenLanguageAtOnce)
{
    control<QComboBox>("界面语言")->setCurrentIndex(1);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Settings"));
    EXPECT_EQ(dialog.findChild<QTabWidget*>()->tabText(3), QStringLiteral("Keyboard shortcuts"));
    EXPECT_NE(control<QComboBox>("Theme"), nullptr);
    EXPECT_EQ(control<QComboBox>("Theme")->itemText(0), QStringLiteral("Dark"));
}

TEST_F(Dialog, FollowsAThemeThatIsChangedElsewhereAndSaysNothing)
{
    theme().setTheme(QStringLiteral("light"));
    theme().setPriceColors(Zeb::EPriceColors::eGreenUp);
    EXPECT_EQ(control<QComboBox>("主题")->currentIndex(), 1);
    EXPECT_EQ(control<QComboBox>("涨跌颜色")->currentIndex(), 1);
    EXPECT_EQ(dialog.settings().theme, QStringLiteral("light"));
    EXPECT_TRUE(changed.isEmpty());
}

TEST_F(Dialog, GoesBackToTheUsualLookButKeepsKeysAndLayouts)
{
    control<QComboBox>("主题")->setCurrentIndex(1);
    control<QSpinBox>("刷新周期")->setValue(800);
    dialog.findChild<QSlider*>()->setValue(30);
    actions->keyMap().setKeys(QStringLiteral("jump"), {QKeySequence(Qt::Key_F7)});
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
        if (button->text() == QStringLiteral("恢复默认"))
            button->click();
    }
    EXPECT_EQ(theme().theme(), QStringLiteral("dark"));
    EXPECT_EQ(theme().fontScale(), 1);
    EXPECT_EQ(control<QSpinBox>("刷新周期")->value(), 100);
    EXPECT_EQ(actions->action(QStringLiteral("jump"))->shortcut(), QKeySequence(Qt::Key_F7));
}

/// For the eye: every page and the sheet of keys, in both themes, both languages and two sizes of fonts.
TEST_F(Dialog, IsShownInPictures)
{
    const QString folder = testing_support::pictureFolder(QStringLiteral("settings_pictures"));
    int written = 0;
    for (const char* name : {"dark", "light"}) {
        for (const int percent : {100, 150}) {
            host::TerminalSettings settings;
            settings.theme = QString::fromLatin1(name);
            settings.fontPercent = percent;
            settings.language = percent == 100 ? QStringLiteral("zh") : QStringLiteral("en");
            host::applyLook(settings, services);
            QApplication::setPalette(Zeb::themePalette());
            QApplication::setFont(*theme().getFont(QStringLiteral("fnt_default_normal")));
            host::SettingsDialog shown(settings, actions, nullptr);
            host::KeySheet sheet(actions, nullptr);
            const QString ending = QStringLiteral("_%1_%2.png").arg(settings.theme).arg(percent);
            auto* tabs = shown.findChild<QTabWidget*>();
            for (int i = 0; i < tabs->count(); ++i) {
                tabs->setCurrentIndex(i);
                written += shown.grab().save(folder + QStringLiteral("/settings%1").arg(i) + ending);
            }
            written += sheet.grab().save(folder + QStringLiteral("/keys") + ending);
        }
    }
    EXPECT_EQ(written, 20);
}

TEST(SettingsFile, KeepsLooksAndKeys)
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("settings.json"));
    host::TerminalSettings settings;
    settings.concise = true;
    settings.refreshMs = 50;
    settings.fontPercent = 200;
    settings.language = QStringLiteral("en");
    settings.keys = {{QStringLiteral("jump"), {QStringLiteral("F7"), QStringLiteral("Ctrl+J")}},
                     {QStringLiteral("play"), {}}};
    QString problem;
    ASSERT_TRUE(host::writeSettings(file, settings, problem)) << problem.toStdString();
    host::TerminalSettings read;
    host::readSettings(file, read, problem);
    EXPECT_TRUE(read.concise);
    EXPECT_EQ(read.refreshMs, 50);
    EXPECT_EQ(read.fontPercent, 200);
    EXPECT_EQ(read.language, QStringLiteral("en"));
    EXPECT_EQ(read.keys, settings.keys);
}

TEST(SettingsFile, PassesLooksAndKeysThatMeanNothingOver)
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("settings.json"));
    const char* const texts[] = {
        R"({"concise": 1, "refreshMs": 49, "fontPercent": 201, "language": "tlh", "keys": []})",
        R"({"concise": "x", "refreshMs": 5001, "fontPercent": 79, "language": 3, "keys": {"jump": "F7"}})",
        R"({"refreshMs": "100", "fontPercent": 1e300, "keys": 3})",
    };
    for (const char* text : texts) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        host::TerminalSettings read;
        QString problem;
        host::readSettings(name, read, problem);
        EXPECT_EQ(problem, QString()) << text;
        EXPECT_FALSE(read.concise) << text;
        EXPECT_EQ(read.refreshMs, 100) << text;
        EXPECT_EQ(read.fontPercent, 100) << text;
        EXPECT_EQ(read.language, QStringLiteral("zh")) << text;
        EXPECT_TRUE(read.keys.isEmpty()) << text;
    }
}

} // namespace
} // namespace window_tests
