#include "platform/toolkit/CLineEdit.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"

namespace Zeb {

namespace {
constexpr int kEventEdited = 100;
}

CLineEdit::CLineEdit(int id, QWidget* parent) : QLineEdit(parent), CEventDeliverer(this), m_id(id)
{
    connect(this, &QLineEdit::textEdited, this,
            [this] { deliverEvent(kEventEdited, m_id, 0, QString(), nullptr); });
    CLineEdit::themeChanged();
}

void CLineEdit::setInt(int value)
{
    setText(QString::number(value));
}

int CLineEdit::toInt() const
{
    return text().toInt();
}

void CLineEdit::themeChanged()
{
    setFont(*utils::CSingletonT<CUiResource>::instance().getFont(QStringLiteral("fnt_default_normal")));
    setStyleSheet(lineEditSheet());
}

} // namespace Zeb
