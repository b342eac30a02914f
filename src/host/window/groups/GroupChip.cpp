#include "host/window/groups/GroupChip.h"

#include "host/window/groups/PaneGroups.h"
#include "host/window/language/TerminalLanguage.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QPainter>

namespace host {

namespace {

constexpr int kSide = 18; // pixels
constexpr int kMark = 9;
constexpr double kCorner = 2;
constexpr int kIcon = 16;

QColor colorOf(int group)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(PaneGroups::colorKey(group));
}

void drawMark(QPainter& painter, const QRect& room, int group)
{
    QRectF mark(0, 0, kMark, kMark);
    mark.moveCenter(QRectF(room).center());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colorOf(group));
    painter.drawRoundedRect(mark, kCorner, kCorner);
}

} // namespace

GroupChip::GroupChip(QWidget* parent) : QToolButton(parent)
{
    setObjectName(QStringLiteral("GroupChip"));
    setFixedSize(kSide, kSide);
    setFocusPolicy(Qt::NoFocus); // the window's menu does the same by keys
    keepSaid(this, [this] { setGroup(m_group); });
}

void GroupChip::setGroup(int group)
{
    m_group = group;
    setToolTip(name(group));
    setAccessibleName(name(group));
    update();
}

QString GroupChip::name(int group)
{
    return uiText("联动组 %1").arg(group + 1);
}

QIcon GroupChip::icon(int group)
{
    QPixmap pixmap(kIcon, kIcon);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawMark(painter, pixmap.rect(), group);
    return QIcon(pixmap);
}

QPixmap GroupChip::marks(const std::vector<int>& groups)
{
    constexpr int step = kMark + 2;
    QPixmap pixmap(static_cast<int>(groups.size()) * step, kMark);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QRect room(0, 0, kMark, kMark);
    for (const int group : groups) {
        drawMark(painter, room, group);
        room.translate(step, 0);
    }
    return pixmap;
}

void GroupChip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawMark(painter, rect(), m_group);
}

} // namespace host
