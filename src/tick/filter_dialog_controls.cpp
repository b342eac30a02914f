// The controls of the filter dialog and where they stand.

#include "platform/toolkit/CCheckBox.h"
#include "platform/toolkit/CComboBox.h"
#include "platform/toolkit/CFrameSplitterLine.h"
#include "platform/toolkit/CIntValidator.h"
#include "platform/toolkit/CLineEdit.h"
#include "platform/toolkit/CMediumNormalButton.h"
#include "platform/toolkit/CSimpleTextWidget.h"
#include "platform/toolkit/CWidgetList.h"
#include "tick/CDepthFilterSettingDialog.h"
#include "tick/filter_dialog_ids.h"
#include "tick/tick_resources.h"

#include <QTimeEdit>

#include <limits>

namespace Kel {

namespace {

// Pixels
constexpr int kRowSpace = 10; // above each row
constexpr int kLeftSpace = 20;
constexpr int kGap = 5;
constexpr int kSmallGap = 2;
constexpr int kWideGap = 10;
constexpr int kCheckGap = 20;
constexpr int kHeight = 24;
constexpr int kCaptionWidth = 80;
constexpr int kShortCaptionWidth = 55;
constexpr int kHintWidth = 180;
constexpr int kVolumeLabelWidth = 36;
constexpr int kAmountLabelWidth = 48;
constexpr int kToWidth = 12;
constexpr int kEditWidth = 80;
constexpr int kComboWidth = 70;
constexpr int kToggleWidth = 24;
constexpr int kButtonWidth = 60;
constexpr int kButtonHeight = 20;
constexpr int kSwatchWidth = 35;
constexpr int kSwatchHeight = 12;
constexpr int kLineThickness = 2;

constexpr int kColors = 4;
constexpr int kMostLots = 1000000;

constexpr const char* kLineColor = "clr_table_split_line_header";

const QString kColorNames[kColors] = {QStringLiteral("浅蓝"), QStringLiteral("紫"), QStringLiteral("深蓝"),
                                      QStringLiteral("黄")};

Zeb::CSimpleTextWidget* label(const QString& text, int width)
{
    auto* const widget = new Zeb::CSimpleTextWidget(text);
    widget->setFixedSize(width, kHeight);
    return widget;
}

Zeb::CMediumNormalButton* button(const QString& text, int id, const QSize& size)
{
    auto* const widget = new Zeb::CMediumNormalButton(text, id, nullptr);
    widget->setFixedSize(size);
    widget->setAutoDefault(false);
    return widget;
}

Zeb::CMediumNormalButton* toggle(const QString& text, int id, const QString& name)
{
    auto* const widget = button(text, id, QSize(kToggleWidth, kHeight));
    widget->setAccessibleName(name);
    return widget;
}

Zeb::CCheckBox* checkBox(const QString& text, int id)
{
    auto* const widget = new Zeb::CCheckBox(text, id, nullptr);
    widget->setFixedSize(kButtonWidth, kButtonHeight);
    widget->setChecked(true);
    return widget;
}

QTimeEdit* timeEdit(const QTime& time, const QString& name)
{
    auto* const widget = new QTimeEdit(time);
    widget->setDisplayFormat(QStringLiteral("hh:mm:ss"));
    widget->setFixedSize(kEditWidth, kHeight);
    widget->setAccessibleName(name);
    return widget;
}

} // namespace

Zeb::CLineEdit* CDepthFilterSettingDialog::numberEdit(int id, int most, const QString& name)
{
    auto* const widget = new Zeb::CLineEdit(id, nullptr);
    widget->setValidator(new Zeb::CIntValidator(0, most, widget));
    widget->setInt(0);
    widget->setFixedSize(kEditWidth, kHeight);
    widget->setAccessibleName(name);
    return widget;
}

void CDepthFilterSettingDialog::createUi()
{
    auto* const column = new Zeb::CWidgetList(Qt::Vertical);
    addMarkRow(column);
    column->addSpace(kRowSpace);
    column->addWidget(new Zeb::CFrameSplitterLine(QLatin1String(kLineColor), kLineThickness, nullptr));
    addFilterRow(column);
    addTimeRow(column);
    if (!isDeals())
        addTypeRow(column);
    column->addStretch();
    addButtonRow(column);
    column->addSpace(kRowSpace);
    setInnerWidget(column);
}

Zeb::CWidgetList* CDepthFilterSettingDialog::addRow(Zeb::CWidgetList* column)
{
    column->addSpace(kRowSpace);
    auto* const row = new Zeb::CWidgetList(Qt::Horizontal);
    column->addWidget(row);
    return row;
}

void CDepthFilterSettingDialog::addMarkRow(Zeb::CWidgetList* column)
{
    const QString caption = isDeals() ? QStringLiteral("成交数量标记") : QStringLiteral("委托数量标记:");
    m_markEdit = numberEdit(eMarkControl, kMostLots, caption);
    m_colorCombo = new Zeb::CComboBox(eColorControl, nullptr);
    m_colorCombo->setFixedSize(kComboWidth, kHeight);
    m_colorCombo->setIconSize(QSize(kSwatchWidth, kSwatchHeight));
    m_colorCombo->setAccessibleName(QStringLiteral("标记颜色"));
    for (int index = 0; index < kColors; ++index)
        m_colorCombo->addColorItem(QLatin1String(markColorKey(index)), kColorNames[index]);
    m_colorCombo->setCurrentIndex(0);
    Zeb::CWidgetList* const row = addRow(column);
    row->addSpace(kLeftSpace);
    row->addWidget(label(caption, kCaptionWidth));
    row->addSpace(kGap);
    row->addWidget(m_markEdit);
    row->addSpace(kWideGap);
    row->addWidget(m_colorCombo);
    row->addSpace(kGap);
    row->addWidget(label(QStringLiteral("高亮标记此委托量,0表示不标记"), kHintWidth));
    row->addStretch();
}

void CDepthFilterSettingDialog::addFilterRow(Zeb::CWidgetList* column)
{
    const QString volume = isDeals() ? QStringLiteral("成交量") : QStringLiteral("委托量");
    const QString amount = isDeals() ? QStringLiteral("成交金额") : QStringLiteral("委托金额");
    m_com1Button = toggle(kAtLeast, eVolumeComparison, volume);
    m_volumeEdit = numberEdit(eVolumeControl, kMostLots, volume);
    m_relateButton = toggle(kOr, eRelation, QStringLiteral("关系"));
    m_com2Button = toggle(kAtLeast, eAmountComparison, amount);
    m_amountEdit = numberEdit(eAmountControl, std::numeric_limits<int>::max(), amount);
    Zeb::CWidgetList* const row = addRow(column);
    row->addSpace(kLeftSpace);
    row->addWidget(
        label(isDeals() ? QStringLiteral("逐笔成交过滤") : QStringLiteral("逐笔委托过滤:"), kCaptionWidth));
    row->addSpace(kGap);
    row->addWidget(label(volume, kVolumeLabelWidth));
    row->addSpace(kSmallGap);
    row->addWidget(m_com1Button);
    row->addSpace(kSmallGap);
    row->addWidget(m_volumeEdit);
    row->addSpace(kWideGap);
    row->addWidget(m_relateButton);
    row->addSpace(kWideGap);
    row->addWidget(label(amount, kAmountLabelWidth));
    row->addSpace(kSmallGap);
    row->addWidget(m_com2Button);
    row->addSpace(kSmallGap);
    row->addWidget(m_amountEdit);
    row->addStretch();
}

void CDepthFilterSettingDialog::addTimeRow(Zeb::CWidgetList* column)
{
    m_startEdit = timeEdit(kStartTime, QStringLiteral("开始时间"));
    m_endEdit = timeEdit(kEndTime, QStringLiteral("结束时间"));
    Zeb::CWidgetList* const row = addRow(column);
    row->addSpace(kLeftSpace);
    row->addWidget(label(QStringLiteral("时间范围:"), kShortCaptionWidth));
    row->addSpace(kGap);
    row->addWidget(m_startEdit);
    row->addSpace(kWideGap);
    row->addWidget(label(QStringLiteral("至"), kToWidth));
    row->addSpace(kWideGap);
    row->addWidget(m_endEdit);
    row->addStretch();
}

void CDepthFilterSettingDialog::addTypeRow(Zeb::CWidgetList* column)
{
    m_buyCheck = checkBox(QStringLiteral("买入"), eBuyControl);
    m_sellCheck = checkBox(QStringLiteral("卖出"), eSellControl);
    m_unbuyCheck = checkBox(QStringLiteral("撤买"), eUnbuyControl);
    m_unsellCheck = checkBox(QStringLiteral("撤卖"), eUnsellControl);
    Zeb::CWidgetList* const row = addRow(column);
    row->addSpace(kLeftSpace);
    row->addWidget(label(QStringLiteral("委托类型:"), kShortCaptionWidth));
    row->addSpace(kGap);
    row->addWidget(m_buyCheck);
    for (Zeb::CCheckBox* const box : {m_sellCheck, m_unsellCheck, m_unbuyCheck}) {
        row->addSpace(kCheckGap);
        row->addWidget(box);
    }
    row->addStretch();
}

void CDepthFilterSettingDialog::addButtonRow(Zeb::CWidgetList* column)
{
    const QSize size(kButtonWidth, kButtonHeight);
    auto* const confirm = button(QStringLiteral("确定"), eConfirmControl, size);
    auto* const cancel = button(QStringLiteral("取消"), eCancelControl, size);
    confirm->setDefault(true);
    connect(confirm, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    Zeb::CWidgetList* const row = addRow(column);
    row->addStretch();
    row->addWidget(confirm);
    row->addSpace(kCheckGap);
    row->addWidget(cancel);
    row->addSpace(kWideGap);
}

} // namespace Kel
