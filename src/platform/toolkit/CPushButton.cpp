#include "platform/toolkit/CPushButton.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

namespace Zeb {

namespace {
constexpr int kEventPressed = 5;
}

CPushButton::CPushButton(const QString& imageKey, int id, QWidget* parent)
    : QPushButton(parent), CEventDeliverer(this), m_imageKey(imageKey), m_id(id)
{
    setFlat(true);
    connect(this, &QPushButton::clicked, this,
            [this] { deliverEvent(kEventPressed, m_id, 0, QString(), nullptr); });
    CPushButton::themeChanged();
}

void CPushButton::themeChanged()
{
    const QPixmap picture = utils::CSingletonT<CUiResource>::instance().getPixmap(m_imageKey);
    const QSize size = (QSizeF(picture.size()) / picture.devicePixelRatio()).toSize();
    setIcon(picture);
    setIconSize(size);
    setFixedSize(size);
}

} // namespace Zeb
