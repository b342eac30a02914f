#include "host/window/state/PaneVeil.h"

#include "host/window/state/StateBadge.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace host {

namespace {

constexpr int kLoadingMs = 400; // a load that is shorter does not flicker
constexpr int kPadX = 12;       // around the notice, pixels
constexpr int kPadY = 5;
constexpr int kFromTop = 8; // of the strip, in a pane that is high enough
constexpr double kRound = 4;
constexpr int kMark = 8; // width of the state's mark before the words
constexpr int kMarkGap = 7;
constexpr int kBesideWords = kPadX + kMark + kMarkGap + kPadX;
constexpr int kWordFlags = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap;

QColor color(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QString::fromLatin1(key));
}

} // namespace

PaneVeil::PaneVeil(QWidget* pane) : QWidget(pane)
{
    setObjectName(QStringLiteral("PaneVeil"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    m_wait.setSingleShot(true);
    m_wait.setInterval(kLoadingMs);
    connect(&m_wait, &QTimer::timeout, this, &PaneVeil::lift);
    pane->installEventFilter(this);
}

void PaneVeil::setState(const DataStateView& view)
{
    if (view == m_view)
        return;
    m_view = view;
    m_notice = stateNotice(view);
    setAccessibleName(m_notice);
    m_wait.stop();
    if (m_notice.isEmpty())
        hide();
    else if (view.state == Kel::eDataLoading && isHidden())
        m_wait.start();
    else
        lift();
}

void PaneVeil::lift()
{
    setGeometry(parentWidget()->rect());
    raise();
    show();
    update();
}

bool PaneVeil::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

QRect PaneVeil::stripOf(const QSize& veil, const QSize& text)
{
    const QSize wanted(text.width() + kBesideWords, text.height() + 2 * kPadY);
    const QSize size = wanted.boundedTo(veil);
    const int top = std::clamp(veil.height() - size.height(), 0, kFromTop);
    return QRect(QPoint((veil.width() - size.width()) / 2, top), size);
}

void PaneVeil::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), color("clr_state_veil"));
    const QRect room(0, 0, std::max(1, width() - kBesideWords), height());
    const QSize text = fontMetrics().boundingRect(room, kWordFlags, m_notice).size();
    const QRect strip = stripOf(size(), text);
    const bool bad = m_view.state != Kel::eDataLoading;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color(bad ? "clr_message_error_background" : "clr_message_background"));
    painter.drawRoundedRect(strip, kRound, kRound);
    const QColor words = color("clr_message_text");
    const QRectF mark(strip.left() + kPadX, strip.center().y() + 1 - kMark / 2, kMark, kMark);
    painter.fillPath(stateMark(m_view.state, mark), words);
    painter.setPen(words);
    painter.drawText(strip.adjusted(kPadX + kMark + kMarkGap, 0, -kPadX, 0), kWordFlags, m_notice);
}

} // namespace host
