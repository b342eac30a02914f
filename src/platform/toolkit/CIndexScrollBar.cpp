#include "platform/toolkit/CIndexScrollBar.h"

namespace Kel {

namespace {
constexpr int kEventScrolled = 15;
}

CIndexScrollBar::CIndexScrollBar(int id, Qt::Orientation orientation, QWidget* parent)
    : QScrollBar(orientation, parent), CEventDeliverer(this), m_id(id)
{
    connect(this, &QScrollBar::valueChanged, this,
            [this] { deliverEvent(kEventScrolled, m_id, 0, QString(), nullptr); });
}

void CIndexScrollBar::attachWidget(QWidget*, QWidget*, bool, bool) {}

} // namespace Kel
