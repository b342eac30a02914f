#include "platform/toolkit/CCommonDialog.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/utils/CSingletonT.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

namespace Zeb {

namespace {

constexpr int kBorder = 1;
constexpr int kTitleLeft = 10; // room before the title
constexpr int kCloseRight = 4; // room behind the close button

CUiResource& resource()
{
    return utils::CSingletonT<CUiResource>::instance();
}

} // namespace

CCommonDialog::CCommonDialog(QWidget* parent) : CCommonDialog(QString(), parent) {}

CCommonDialog::CCommonDialog(const QString& title, QWidget* parent)
    : CBaseDialog(parent), m_closeButton(new CPushButton(QStringLiteral("img_dialog_close"), kCloseId, this))
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setTitle(title);
    // The escape key does the same: the button must not be the first thing that has the focus.
    m_closeButton->setFocusPolicy(Qt::NoFocus);
    m_closeButton->setToolTip(QStringLiteral("关闭"));
    placeChildren();
}

void CCommonDialog::setTitle(const QString& title)
{
    setWindowTitle(title);
}

void CCommonDialog::setCloseButtonEnabled(bool enabled)
{
    m_closeButton->setVisible(enabled);
}

void CCommonDialog::setInnerWidget(QWidget* widget)
{
    if (m_inner == widget)
        return;
    delete m_inner;
    m_inner = widget;
    if (m_inner) {
        m_inner->setParent(this);
        m_inner->show();
    }
    placeChildren();
}

QRect CCommonDialog::titleRect() const
{
    return QRect(kBorder, kBorder, width() - 2 * kBorder,
                 resource().getSize(QStringLiteral("siz_dialog_title_height")));
}

QRect CCommonDialog::innerRect() const
{
    const QRect title = titleRect();
    const int top = title.y() + title.height();
    return QRect(kBorder, top, title.width(), height() - top - kBorder);
}

void CCommonDialog::placeChildren()
{
    const QRect title = titleRect();
    m_closeButton->move(title.x() + title.width() - kCloseRight - m_closeButton->width(),
                        title.y() + (title.height() - m_closeButton->height()) / 2);
    if (m_inner)
        m_inner->setGeometry(innerRect());
}

void CCommonDialog::themeChanged()
{
    CBaseDialog::themeChanged();
    placeChildren();
}

void CCommonDialog::changeEvent(QEvent* event)
{
    CBaseDialog::changeEvent(event);
    if (event->type() == QEvent::WindowTitleChange || event->type() == QEvent::ActivationChange)
        update();
}

void CCommonDialog::resizeEvent(QResizeEvent* event)
{
    CBaseDialog::resizeEvent(event);
    placeChildren();
}

void CCommonDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), *resource().getColor(QStringLiteral("clr_dialog_background")));
    const QRect title = titleRect();
    painter.fillRect(title, *resource().getColor(QStringLiteral("clr_dialog_title_background")));
    painter.setPen(*resource().getColor(QStringLiteral("clr_dialog_title_text")));
    painter.setFont(*resource().getFont(QStringLiteral("fnt_default_bold")));
    const QRect textRect(kTitleLeft, title.y(), m_closeButton->x() - kTitleLeft, title.height());
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter, windowTitle());
    painter.setPen(*resource().getColor(QStringLiteral("clr_dialog_border")));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void CCommonDialog::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !titleRect().contains(event->pos())) {
        CBaseDialog::mousePressEvent(event);
        return;
    }
    event->accept();
    // A window manager moves better than we do, where there is one that can.
    if (windowHandle() && windowHandle()->startSystemMove())
        return;
    m_dragging = true;
    m_dragOffset = event->globalPos() - pos();
}

void CCommonDialog::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging)
        move(event->globalPos() - m_dragOffset);
    else
        CBaseDialog::mouseMoveEvent(event);
}

void CCommonDialog::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragging = false;
    CBaseDialog::mouseReleaseEvent(event);
}

} // namespace Zeb
