#include "platform/toolkit/CSimpleInputDialog.h"

#include "platform/toolkit/CLineEdit.h"
#include "platform/toolkit/CMediumNormalButton.h"
#include "platform/toolkit/CSimpleTextWidget.h"
#include "platform/toolkit/CWidgetList.h"

#include <QValidator>

namespace Zeb {

namespace {

constexpr int kEventPressed = 5;
constexpr int kEditId = 0;
constexpr int kConfirmId = 11;
constexpr int kCancelId = 12;

constexpr int kWidth = 280;
constexpr int kHeight = 128;
constexpr int kSide = 20;
constexpr int kGap = 10;
constexpr int kEditHeight = 24;
constexpr int kButtonWidth = 60;
constexpr int kButtonHeight = 22;

} // namespace

CSimpleInputDialog::CSimpleInputDialog(const QString& title, const QString& label, QWidget* parent)
    : CCommonDialog(title, parent)
{
    setFixedSize(kWidth, kHeight);
    auto* column = new CWidgetList(Qt::Vertical, this);
    column->setMargins(kSide, kSide, kSide, kGap);

    auto* row = new CWidgetList(Qt::Horizontal, column);
    row->setSpacing(label.isEmpty() ? 0 : kGap);
    m_edit = new CLineEdit(kEditId, row);
    m_edit->setFixedHeight(kEditHeight);
    m_edit->setAccessibleName(label.isEmpty() ? title : label);
    if (!label.isEmpty())
        row->addWidget(new CSimpleTextWidget(label, row));
    row->addWidget(m_edit, 1);

    auto* buttons = new CWidgetList(Qt::Horizontal, column);
    buttons->setSpacing(kGap);
    m_confirm = new CMediumNormalButton(QStringLiteral("确定"), kConfirmId, buttons);
    auto* cancel = new CMediumNormalButton(QStringLiteral("取消"), kCancelId, buttons);
    m_confirm->setFixedSize(kButtonWidth, kButtonHeight);
    m_confirm->setDefault(true);
    cancel->setFixedSize(kButtonWidth, kButtonHeight);
    buttons->addStretch();
    buttons->addWidget(m_confirm);
    buttons->addWidget(cancel);

    column->addWidget(row);
    column->addStretch();
    column->addWidget(buttons);
    setInnerWidget(column);
    connect(m_edit, &QLineEdit::textChanged, this, &CSimpleInputDialog::updateConfirm);
    m_edit->setFocus();
}

void CSimpleInputDialog::setValidator(QValidator* validator)
{
    if (validator)
        validator->setParent(this);
    m_edit->setValidator(validator);
    updateConfirm();
}

void CSimpleInputDialog::setText(const QString& text)
{
    m_edit->setText(text);
}

QString CSimpleInputDialog::text() const
{
    return m_edit->text();
}

bool CSimpleInputDialog::getInput(const Callback& callback)
{
    if (isVisible())
        return false;
    m_edit->selectAll();
    m_edit->setFocus();
    const QPointer<CSimpleInputDialog> self = this;
    const bool confirmed = exec() == Accepted;
    if (!self || !confirmed)
        return false;
    if (callback)
        callback(text());
    return true;
}

bool CSimpleInputDialog::handleEvent(int id, int first, int second, QString text, void* payload)
{
    if (id == kEventPressed && first == kConfirmId) {
        if (m_edit->hasAcceptableInput())
            accept();
        return true;
    }
    if (id == kEventPressed && first == kCancelId) {
        reject();
        return true;
    }
    return CCommonDialog::handleEvent(id, first, second, text, payload);
}

void CSimpleInputDialog::updateConfirm()
{
    m_confirm->setEnabled(m_edit->hasAcceptableInput());
}

} // namespace Zeb
