#include "platform/toolkit/CCheckBox.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"

namespace Zeb {

namespace {
constexpr int kEventChecked = 67;
}

CCheckBox::CCheckBox(const QString& text, int id, QWidget* parent)
    : QCheckBox(text, parent), CEventDeliverer(this), m_id(id)
{
    connect(this, &QCheckBox::clicked, this,
            [this] { deliverEvent(kEventChecked, m_id, 0, QString(), nullptr); });
    CCheckBox::themeChanged();
}

void CCheckBox::themeChanged()
{
    setFont(*utils::CSingletonT<CUiResource>::instance().getFont(QStringLiteral("fnt_default_normal")));
    setStyleSheet(checkBoxSheet());
}

} // namespace Zeb
