#include "host/window/settings/SettingsDialog.h"

#include "host/window/TerminalActions.h"
#include "host/window/keys/KeyTable.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/settings/dialog_style.h"
#include "host/window/window_style.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace host {

namespace {

constexpr QSize kUsualSize(680, 560); // pixels at 100 %
constexpr int kMargin = 14;           // pixels
constexpr int kRowGap = 10;           // pixels
constexpr int kFontStep = 5;          // per cent
constexpr int kRefreshStep = 50;      // ms
constexpr int kKeyColumns = 2;
constexpr const char* kThemes[] = {"dark", "light"};
constexpr Zeb::EPriceColors kColors[] = {Zeb::EPriceColors::eRedUp, Zeb::EPriceColors::eGreenUp,
                                         Zeb::EPriceColors::eColorBlind};

/// A form with the usual margins.
QFormLayout* formOn(QWidget* page)
{
    auto* form = new QFormLayout(page);
    form->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    form->setVerticalSpacing(kRowGap);
    form->setHorizontalSpacing(2 * kRowGap);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    return form;
}

/// A line below a form that says more about its fields.
void addHint(QFormLayout* form, const char* text)
{
    auto* hint = new QLabel;
    hint->setObjectName(QStringLiteral("SettingHint"));
    hint->setWordWrap(true);
    form->addRow(hint);
    keepSaid(hint, [hint, text] { hint->setText(uiText(text)); });
}

} // namespace

SettingsDialog::SettingsDialog(const TerminalSettings& settings, TerminalActions* actions, QWidget* parent)
    : QDialog(parent),
      m_settings(settings),
      m_tabs(new QTabWidget),
      m_theme(new QComboBox),
      m_colors(new QComboBox),
      m_concise(new QCheckBox),
      m_fontSlider(new QSlider(Qt::Horizontal)),
      m_font(new QSpinBox),
      m_refresh(new QSpinBox),
      m_language(new QComboBox),
      m_buttons(new QDialogButtonBox)
{
    setObjectName(QStringLiteral("SettingsDialog"));
    m_tabs->addTab(lookPage(), QString());
    m_tabs->addTab(dataPage(), QString());
    m_tabs->addTab(languagePage(), QString());
    auto* keys = new KeyTable(actions, kKeyColumns);
    keys->layout()->setContentsMargins(kMargin, kMargin, kMargin, 0);
    m_tabs->addTab(keys, QString());
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_tabs, 1);
    column->addWidget(m_buttons);
    makeButtons();
    keepSaid(this, [this] {
        setWindowTitle(uiText("设置"));
        const char* const titles[] = {"外观", "数据", "语言", "快捷键"};
        for (int i = 0; i < m_tabs->count(); ++i)
            m_tabs->setTabText(i, uiText(titles[i]));
    });
    showSettings();
    connectControls();
    giveDialogStyle(this);
    resize(QSize(sizeOfText(kUsualSize.width()), sizeOfText(kUsualSize.height()))
               .boundedTo(QGuiApplication::primaryScreen()->availableSize()));
}

void SettingsDialog::makeButtons()
{
    QPushButton* usual = m_buttons->addButton(QString(), QDialogButtonBox::ResetRole);
    QPushButton* close = m_buttons->addButton(QString(), QDialogButtonBox::RejectRole);
    usual->setAutoDefault(false);
    close->setDefault(true);
    connect(usual, &QPushButton::clicked, this, &SettingsDialog::restoreUsual);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    keepSaid(m_buttons, [usual, close] {
        usual->setText(uiText("恢复默认"));
        close->setText(uiText("关闭"));
    });
}

void SettingsDialog::sayRow(QFormLayout* form, QWidget* field, const char* text)
{
    auto* label = new QLabel;
    label->setBuddy(field);
    form->addRow(label, field);
    keepSaid(label, [label, field, text] {
        label->setText(uiText(text));
        field->setAccessibleName(uiText(text));
    });
}

void SettingsDialog::sayItems(QComboBox* box, const std::vector<const char*>& texts)
{
    for (int i = 0; i < static_cast<int>(texts.size()); ++i)
        box->addItem(QString());
    keepSaid(box, [box, texts] {
        for (int i = 0; i < box->count(); ++i)
            box->setItemText(i, uiText(texts[static_cast<std::size_t>(i)]));
    });
}

QWidget* SettingsDialog::lookPage()
{
    auto* page = new QWidget;
    QFormLayout* form = formOn(page);
    sayItems(m_theme, {"深色", "浅色"});
    sayRow(form, m_theme, "主题");
    sayItems(m_colors, {"红涨绿跌", "绿涨红跌", "色盲友好（橙涨蓝跌）"});
    m_colors->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    sayRow(form, m_colors, "涨跌颜色");
    sayRow(form, m_concise, "简洁风格");
    auto* size = new QWidget;
    auto* row = new QHBoxLayout(size);
    row->setContentsMargins(0, 0, 0, 0);
    m_fontSlider->setRange(kLeastFontPercent / kFontStep, kMostFontPercent / kFontStep);
    m_fontSlider->setMinimumWidth(kUsualSize.width() / 4);
    m_font->setRange(kLeastFontPercent, kMostFontPercent);
    m_font->setSingleStep(kFontStep);
    m_font->setSuffix(QStringLiteral(" %"));
    m_font->setKeyboardTracking(false);
    row->addWidget(m_fontSlider);
    row->addWidget(m_font);
    sayRow(form, size, "字体大小");
    addHint(form, "行高固定的面板在大字体下可能显示不全。");
    return page;
}

QWidget* SettingsDialog::dataPage()
{
    auto* page = new QWidget;
    QFormLayout* form = formOn(page);
    m_refresh->setRange(kLeastRefreshMs, kMostRefreshMs);
    m_refresh->setSingleStep(kRefreshStep);
    m_refresh->setKeyboardTracking(false);
    keepSaid(m_refresh, [this] { m_refresh->setSuffix(uiText(" 毫秒")); });
    sayRow(form, m_refresh, "刷新周期");
    addHint(form, "面板查看新数据的间隔，50 毫秒到 5 秒。行情本身不受影响。");
    return page;
}

QWidget* SettingsDialog::languagePage()
{
    auto* page = new QWidget;
    QFormLayout* form = formOn(page);
    for (const auto& language : TerminalLanguage::languages())
        m_language->addItem(language.second, language.first);
    sayRow(form, m_language, "界面语言");
    addHint(form, "面板内的文字始终为中文。");
    return page;
}

void SettingsDialog::connectControls()
{
    const auto chosen = QOverload<int>::of(&QComboBox::currentIndexChanged);
    const auto set = QOverload<int>::of(&QSpinBox::valueChanged);
    for (QComboBox* box : {m_theme, m_colors, m_language})
        connect(box, chosen, this, &SettingsDialog::take);
    connect(m_concise, &QCheckBox::toggled, this, &SettingsDialog::take);
    connect(m_fontSlider, &QSlider::valueChanged, m_font,
            [this](int steps) { m_font->setValue(steps * kFontStep); });
    connect(m_font, set, this, &SettingsDialog::take);
    connect(m_refresh, set, this, &SettingsDialog::take);
}

/// What the controls show is what a person wants.
void SettingsDialog::take()
{
    if (m_showing)
        return;
    m_settings.theme = QString::fromLatin1(kThemes[m_theme->currentIndex()]);
    m_settings.colors = kColors[m_colors->currentIndex()];
    m_settings.concise = m_concise->isChecked();
    m_settings.fontPercent = m_font->value();
    m_settings.refreshMs = m_refresh->value();
    m_settings.language = m_language->currentData().toString();
    const QSignalBlocker quiet(m_fontSlider);
    m_fontSlider->setValue(m_settings.fontPercent / kFontStep);
    tell();
}

/// While a change takes effect, `themeChanged` may write into the dialog's own settings.
void SettingsDialog::tell()
{
    const TerminalSettings wanted = m_settings;
    Q_EMIT changed(wanted);
}

void SettingsDialog::showSettings()
{
    m_showing = true;
    m_theme->setCurrentIndex(m_settings.theme == QLatin1String(kThemes[1]) ? 1 : 0);
    m_colors->setCurrentIndex(static_cast<int>(m_settings.colors));
    m_concise->setChecked(m_settings.concise);
    m_font->setValue(m_settings.fontPercent);
    m_refresh->setValue(m_settings.refreshMs);
    m_language->setCurrentIndex(m_language->findData(m_settings.language));
    const QSignalBlocker quiet(m_fontSlider);
    m_fontSlider->setValue(m_settings.fontPercent / kFontStep);
    m_showing = false;
}

/// Looks, data and language; keys have buttons of their own.
void SettingsDialog::restoreUsual()
{
    const TerminalSettings usual;
    m_settings.theme = usual.theme;
    m_settings.colors = usual.colors;
    m_settings.concise = usual.concise;
    m_settings.fontPercent = usual.fontPercent;
    m_settings.refreshMs = usual.refreshMs;
    m_settings.language = usual.language;
    showSettings();
    tell();
}

void SettingsDialog::themeChanged()
{
    const auto& look = utils::CSingletonT<Zeb::CUiResource>::instance();
    m_settings.theme = look.theme();
    m_settings.colors = look.priceColors();
    showSettings();
    giveDialogStyle(this);
}

} // namespace host
