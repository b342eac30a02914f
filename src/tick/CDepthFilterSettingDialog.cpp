#include "tick/CDepthFilterSettingDialog.h"

#include "platform/toolkit/CCheckBox.h"
#include "platform/toolkit/CComboBox.h"
#include "platform/toolkit/CLineEdit.h"
#include "platform/toolkit/CMediumNormalButton.h"
#include "records/bson/BSONObj.h"
#include "records/bson/BSONObjBuilder.h"
#include "records/bson/jsonString.h"
#include "tick/filter_dialog_ids.h"

#include <QTimeEdit>

namespace Kel {

namespace {

constexpr int kEventPressed = 5;
constexpr int kEventChecked = 67;
constexpr int kEventChosen = 70;
constexpr int kEventEdited = 100;

constexpr int kConfirmed = 1;
constexpr int kCancelled = 0;

constexpr int kWidth = 500;
constexpr int kOrderHeight = 300; // pixels, with the row of order types
constexpr int kDealHeight = 265;

void restore(Zeb::CLineEdit* edit, const bson::BSONObj& object, const char* key)
{
    const auto value = object.intField(key);
    if (edit != nullptr && value)
        edit->setText(QString::number(*value));
}

void restore(Zeb::CMediumNormalButton* button, const bson::BSONObj& object, const char* key)
{
    const auto value = object.stringField(key);
    if (button != nullptr && value)
        button->setText(QString::fromStdString(*value));
}

void restore(QTimeEdit* edit, const bson::BSONObj& object, const char* key)
{
    const auto value = object.intField(key);
    if (edit != nullptr && value)
        edit->setTime(QTime::fromMSecsSinceStartOfDay(*value));
}

void restore(Zeb::CCheckBox* box, const bson::BSONObj& object, const char* key)
{
    const auto value = object.boolField(key);
    if (box != nullptr && value)
        box->setChecked(*value);
}

} // namespace

CDepthFilterSettingDialog::CDepthFilterSettingDialog(eDepthFilterType type, QWidget* parent)
    : Zeb::CCommonDialog(type == eDepthFilterTransaction ? QStringLiteral("逐笔成交过滤")
                                                         : QStringLiteral("逐笔委托过滤"),
                         parent),
      m_filterType(type)
{
    setFixedSize(kWidth, isDeals() ? kDealHeight : kOrderHeight);
    createUi();
}

CDepthFilterSettingDialog::~CDepthFilterSettingDialog() = default;

SDepthFilterParam& CDepthFilterSettingDialog::getFilterParam()
{
    if (m_startEdit != nullptr)
        m_param.start = m_startEdit->time().msecsSinceStartOfDay();
    if (m_endEdit != nullptr)
        m_param.end = m_endEdit->time().msecsSinceStartOfDay();
    return m_param;
}

// Events
// -----------------------------------------------------------------------------------------------------------------------

bool CDepthFilterSettingDialog::handleEvent(int id, int first, int second, QString text, void* payload)
{
    if (id == kEventPressed && first == kCloseId) {
        setParam();
        CCommonDialog::handleEvent(id, first, second, text, payload);
        return true;
    }
    if (id == kEventPressed && controlPressed(first))
        return true;
    if (id == kEventChecked && first >= eBuyControl && first <= eUnsellControl) {
        checked(first);
        return true;
    }
    if (id == kEventChosen && first == eColorControl) {
        m_param.color = m_colorCombo->currentIndex();
        return true;
    }
    if (id == kEventEdited && (first == eMarkControl || first == eVolumeControl || first == eAmountControl)) {
        edited(first);
        return true;
    }
    return CCommonDialog::handleEvent(id, first, second, text, payload);
}

bool CDepthFilterSettingDialog::controlPressed(int id)
{
    switch (id) {
    case eConfirmControl:
        saveParam();
        done(kConfirmed);
        return true;
    case eCancelControl:
        setParam();
        done(kCancelled);
        return true;
    case eVolumeComparison:
    case eAmountComparison:
    case eRelation:
        pressed(id);
        return true;
    default:
        return false;
    }
}

void CDepthFilterSettingDialog::pressed(int id)
{
    const auto set = [](Zeb::CMediumNormalButton* button, const QString& text, std::int32_t& field,
                        int value) {
        button->setText(text);
        field = value;
    };
    if (id == eVolumeComparison) {
        const QString text = m_com1Button->text();
        if (text == kAtLeast)
            set(m_com1Button, kMoreThan, m_param.com1, 1);
        else if (text == kExactly)
            set(m_com1Button, kAtLeast, m_param.com1, 0);
        else
            set(m_com1Button, kExactly, m_param.com1, 2);
    } else if (id == eAmountComparison) {
        const bool more = m_com2Button->text() == kAtLeast;
        set(m_com2Button, more ? kMoreThan : kAtLeast, m_param.com2, more ? 1 : 0);
    } else {
        const bool both = m_relateButton->text() == kOr;
        set(m_relateButton, both ? kAnd : kOr, m_param.relate, both ? 1 : 0);
    }
}

void CDepthFilterSettingDialog::checked(int id)
{
    Zeb::CCheckBox* const boxes[] = {m_buyCheck, m_sellCheck, m_unbuyCheck, m_unsellCheck};
    bool* const flags[] = {&m_param.buy, &m_param.sell, &m_param.unbuy, &m_param.unsell};
    const int at = id - eBuyControl;
    if (boxes[at] != nullptr)
        *flags[at] = boxes[at]->isChecked();
}

void CDepthFilterSettingDialog::edited(int id)
{
    if (id == eMarkControl)
        m_param.mark = m_markEdit->toInt();
    else if (id == eVolumeControl)
        m_param.volume = m_volumeEdit->toInt();
    else
        m_param.amount = m_amountEdit->toInt();
}

// What was confirmed
// -----------------------------------------------------------------------------------------------------------

void CDepthFilterSettingDialog::saveParam()
{
    bson::BSONObjBuilder builder;
    builder.append("mark", m_markEdit->toInt());
    builder.append("color", m_colorCombo->currentIndex());
    builder.append("com1", m_com1Button->text());
    builder.append("volume", m_volumeEdit->toInt());
    builder.append("relate", m_relateButton->text());
    builder.append("com2", m_com2Button->text());
    builder.append("amount", m_amountEdit->toInt());
    builder.append("start", m_startEdit->time().msecsSinceStartOfDay());
    builder.append("end", m_endEdit->time().msecsSinceStartOfDay());
    if (m_buyCheck != nullptr)
        builder.append("buy", m_buyCheck->isChecked());
    if (m_sellCheck != nullptr)
        builder.append("sell", m_sellCheck->isChecked());
    if (m_unbuyCheck != nullptr)
        builder.append("unbuy", m_unbuyCheck->isChecked());
    if (m_unsellCheck != nullptr)
        builder.append("unsell", m_unsellCheck->isChecked());
    m_paramJson = bson::jsonString(builder.obj());
}

void CDepthFilterSettingDialog::setParam()
{
    if (m_paramJson.empty())
        return;
    clear();
    bson::BSONObj object;
    bson::BSONObj::fromJson(m_paramJson, object, nullptr);
    restore(m_markEdit, object, "mark");
    if (const auto color = object.intField("color"))
        m_colorCombo->setCurrentIndex(*color);
    restore(m_com1Button, object, "com1");
    restore(m_volumeEdit, object, "volume");
    restore(m_relateButton, object, "relate");
    restore(m_com2Button, object, "com2");
    restore(m_amountEdit, object, "amount");
    restore(m_startEdit, object, "start");
    restore(m_endEdit, object, "end");
    restore(m_buyCheck, object, "buy");
    restore(m_sellCheck, object, "sell");
    restore(m_unbuyCheck, object, "unbuy");
    restore(m_unsellCheck, object, "unsell");
}

void CDepthFilterSettingDialog::clear()
{
    m_markEdit->setText(QString());
    m_colorCombo->setCurrentIndex(0);
    m_com1Button->setText(kAtLeast);
    m_volumeEdit->setText(QStringLiteral("0"));
    m_relateButton->setText(kOr);
    m_com2Button->setText(kAtLeast);
    m_amountEdit->setText(QStringLiteral("0"));
    m_startEdit->setTime(kStartTime);
    m_endEdit->setTime(kEndTime);
    for (Zeb::CCheckBox* const box : {m_buyCheck, m_sellCheck, m_unbuyCheck, m_unsellCheck}) {
        if (box != nullptr)
            box->setChecked(true);
    }
}

} // namespace Kel
