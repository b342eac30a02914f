#pragma once

#include "TickPanels.h"

#include "platform/toolkit/CCheckBox.h"
#include "platform/toolkit/CComboBox.h"
#include "platform/toolkit/CFrameSplitterLine.h"
#include "platform/toolkit/CLineEdit.h"
#include "platform/toolkit/CMediumNormalButton.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/toolkit/CSimpleTextWidget.h"
#include "tick/CDepthFilterSettingDialog.h"
#include "tick/filter_dialog_ids.h"

#include <QTimeEdit>
#include <QTimer>

/// Both filter dialogs, with their protected side open and hands for mouse and keys.
namespace testing_support {

using namespace Kel;

/// The control of a class with this id.
template <class Control>
Control* controlIn(const QWidget& dialog, int id)
{
    for (auto* const found : dialog.findChildren<Control*>()) {
        if (found->id() == id)
            return found;
    }
    return nullptr;
}

class OpenDialog : public CDepthFilterSettingDialog
{
public:
    using CDepthFilterSettingDialog::CDepthFilterSettingDialog;
    using CDepthFilterSettingDialog::clear;
    using CDepthFilterSettingDialog::handleEvent;
    using CDepthFilterSettingDialog::m_amountEdit;
    using CDepthFilterSettingDialog::m_buyCheck;
    using CDepthFilterSettingDialog::m_colorCombo;
    using CDepthFilterSettingDialog::m_com1Button;
    using CDepthFilterSettingDialog::m_com2Button;
    using CDepthFilterSettingDialog::m_endEdit;
    using CDepthFilterSettingDialog::m_markEdit;
    using CDepthFilterSettingDialog::m_param;
    using CDepthFilterSettingDialog::m_paramJson;
    using CDepthFilterSettingDialog::m_relateButton;
    using CDepthFilterSettingDialog::m_sellCheck;
    using CDepthFilterSettingDialog::m_startEdit;
    using CDepthFilterSettingDialog::m_unbuyCheck;
    using CDepthFilterSettingDialog::m_unsellCheck;
    using CDepthFilterSettingDialog::m_volumeEdit;
    using CDepthFilterSettingDialog::saveParam;
    using CDepthFilterSettingDialog::setParam;

    /// The button with this id.
    Zeb::CMediumNormalButton* button(int id) const { return controlIn<Zeb::CMediumNormalButton>(*this, id); }

    Zeb::CPushButton* closeButton() const { return findChild<Zeb::CPushButton*>(); }

    QStringList labels() const
    {
        QStringList texts;
        for (const auto* const label : findChildren<Zeb::CSimpleTextWidget*>())
            texts.append(label->text());
        return texts;
    }
};

class FilterDialog : public testing::Test
{
protected:
    void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

    /// Clicks at the left end, where the box itself is.
    void turn(Zeb::CCheckBox* box)
    {
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    }

    void type(Zeb::CLineEdit* edit, const char* text)
    {
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Backspace);
        QTest::keyClicks(edit, QString::fromLatin1(text));
    }

    void confirm()
    {
        dialog.show();
        click(dialog.button(eConfirmControl));
    }

    void cancel()
    {
        dialog.show();
        click(dialog.button(eCancelControl));
    }

    OpenDialog dialog{eDepthFilterEntrust, nullptr};
    OpenDialog deals{eDepthFilterTransaction, nullptr};
};

} // namespace testing_support
