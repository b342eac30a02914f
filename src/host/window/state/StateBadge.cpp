#include "host/window/state/StateBadge.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QPainter>

#include <algorithm>

namespace host {

namespace {

constexpr int kMark = 8;   // width of the mark, pixels
constexpr int kMargin = 4; // left and right
constexpr int kGap = 4;    // between mark and word
constexpr double kRing = 2;
constexpr double kDegreesLeft = 290; // of a disc with a piece missing

Zeb::CUiResource& theme()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

/// A piece of a disc, degrees counted from three o'clock against the clock.
QPainterPath piece(const QRectF& room, double from, double degrees)
{
    QPainterPath path(room.center());
    path.arcTo(room, from, degrees);
    path.closeSubpath();
    return path;
}

} // namespace

QPainterPath stateMark(Kel::EDataState state, const QRectF& room)
{
    QPainterPath path;
    switch (state) {
    case Kel::eDataEmpty:
        break;
    case Kel::eDataLoading:
        path.addEllipse(room);
        path.addEllipse(room.adjusted(kRing, kRing, -kRing, -kRing));
        break;
    case Kel::eDataLive:
        path.addEllipse(room);
        break;
    case Kel::eDataGap:
        path = piece(room, (360 - kDegreesLeft) / 2, kDegreesLeft);
        break;
    case Kel::eDataStale:
        path = piece(room, 180, 180);
        break;
    case Kel::eDataRebuilt:
        path.addRect(room.adjusted(kRing / 2, kRing / 2, -kRing / 2, -kRing / 2));
        break;
    }
    return path;
}

StateBadge::StateBadge(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("StateBadge"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    setFocusPolicy(Qt::NoFocus);
}

void StateBadge::setState(const DataStateView& view)
{
    if (view == m_view)
        return;
    const bool sameWord = view.state == m_view.state;
    m_view = view;
    setToolTip(stateReason(view));
    setAccessibleName(toolTip());
    if (sameWord)
        return;
    updateGeometry();
    update();
}

void StateBadge::setWordShown(bool shown)
{
    if (shown == m_wordShown)
        return;
    m_wordShown = shown;
    updateGeometry();
    update();
}

QSize StateBadge::sizeHint() const
{
    if (m_view.state == Kel::eDataEmpty)
        return QSize(0, kMark);
    const int word = m_wordShown ? kGap + fontMetrics().horizontalAdvance(stateWord(m_view.state)) : 0;
    return QSize(kMargin + kMark + word + kMargin, std::max(kMark, fontMetrics().height()));
}

void StateBadge::paintEvent(QPaintEvent*)
{
    const QColor color = *theme().getColor(stateColorKey(m_view.state));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(stateMark(m_view.state, QRectF(kMargin, (height() - kMark) / 2, kMark, kMark)), color);
    if (!m_wordShown)
        return;
    // A word that says that all is well needs no colour.
    painter.setPen(m_view.state == Kel::eDataLive ? *theme().getColor(QStringLiteral("clr_window_text_soft"))
                                                  : color);
    painter.drawText(rect().adjusted(kMargin + kMark + kGap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     stateWord(m_view.state));
}

} // namespace host
