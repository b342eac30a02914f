#include "platform/toolkit/CMediumNormalButton.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"

namespace Zeb {

namespace {
constexpr int kEventPressed = 5;
}

CMediumNormalButton::CMediumNormalButton(const QString& text, int id, QWidget* parent)
    : QPushButton(text, parent), CEventDeliverer(this), m_id(id)
{
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this,
            [this] { deliverEvent(kEventPressed, m_id, 0, QString(), nullptr); });
    CMediumNormalButton::themeChanged();
}

void CMediumNormalButton::themeChanged()
{
    setFont(*utils::CSingletonT<CUiResource>::instance().getFont(QStringLiteral("fnt_default_normal")));
    setStyleSheet(buttonSheet());
}

} // namespace Zeb
