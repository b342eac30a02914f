#include "platform/toolkit/CPushButton.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/focus_ring.h"
#include "platform/utils/CSingletonT.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

namespace Zeb {

namespace {

constexpr int kEventPressed = 5;
constexpr int kGap = 4;             // between picture and text
constexpr qreal kDisabledInk = 0.4; // opacity of the picture of a disabled button

const CPushButton::StateKeys kCommonGrounds{"clr_button_background", "clr_button_background_hover",
                                            "clr_button_background_pressed", "clr_button_background"};
const CPushButton::StateKeys kCommonTexts{"clr_button_text", "clr_button_text", "clr_button_text",
                                          "clr_button_text_disabled"};
const QString kBorder = QStringLiteral("clr_button_border");

CUiResource& resource()
{
    return utils::CSingletonT<CUiResource>::instance();
}

QSize logicalSize(const QPixmap& picture)
{
    return (QSizeF(picture.size()) / picture.devicePixelRatio()).toSize();
}

} // namespace

CPushButton::CPushButton(const QString& imageKey, int id, QWidget* parent)
    : QPushButton(parent),
      CEventDeliverer(this),
      m_imageKey(imageKey),
      m_id(id),
      m_clickEvent(kEventPressed),
      m_clickFirst(id),
      m_grounds(kCommonGrounds),
      m_texts(kCommonTexts)
{
    setFlat(true);
    setAutoDefault(false);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    connect(this, &QPushButton::clicked, this, &CPushButton::send);
    CPushButton::themeChanged();
}

void CPushButton::setAutoRaise(bool autoRaise)
{
    m_autoRaise = autoRaise;
    update();
}

void CPushButton::setColorKeys(const StateKeys& grounds, const StateKeys& texts)
{
    m_grounds = grounds;
    m_texts = texts;
    m_ownGround = true;
    update();
}

void CPushButton::setClickEvent(int event, int first, int second)
{
    m_clickEvent = event;
    m_clickFirst = first;
    m_clickSecond = second;
}

void CPushButton::themeChanged()
{
    setFont(*resource().getFont(QStringLiteral("fnt_default_normal")));
    if (!m_imageKey.isEmpty() && text().isEmpty())
        setFixedSize(logicalSize(resource().getPixmap(m_imageKey)));
    update();
}

bool CPushButton::event(QEvent* event)
{
    // A picture says nothing to those who do not see it: the tip does.
    if (event->type() == QEvent::ToolTipChange && text().isEmpty())
        setAccessibleName(toolTip());
    // The key that presses a focused button is the button's, whatever the window uses it for.
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space)
        event->accept();
    return QPushButton::event(event);
}

const QString& CPushButton::stateKey(const StateKeys& keys) const
{
    if (!isEnabled())
        return keys.disable;
    if (isDown() || isChecked())
        return keys.press;
    return underMouse() ? keys.hover : keys.normal;
}

void CPushButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool raised = isEnabled() && (isDown() || isChecked() || underMouse());
    if (m_ownGround || !m_autoRaise || raised)
        painter.fillRect(rect(), *resource().getColor(stateKey(m_grounds)));
    if (!m_autoRaise && !m_ownGround) {
        painter.setPen(*resource().getColor(kBorder));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    QRect textRect = rect();
    if (!m_imageKey.isEmpty()) {
        const QPixmap picture = resource().getPixmap(m_imageKey, devicePixelRatioF());
        const QSize size = logicalSize(picture);
        const int left = text().isEmpty() ? (width() - size.width()) / 2 : kGap;
        painter.setOpacity(isEnabled() ? 1 : kDisabledInk);
        painter.drawPixmap(QPoint(left, (height() - size.height()) / 2), picture);
        painter.setOpacity(1);
        textRect.setLeft(left + size.width() + kGap);
    }
    if (!text().isEmpty()) {
        painter.setPen(*resource().getColor(stateKey(m_texts)));
        painter.drawText(textRect, Qt::AlignCenter | Qt::TextShowMnemonic, text());
    }
    if (hasFocus())
        drawFocusRing(painter, rect());
}

void CPushButton::send()
{
    deliverEvent(m_clickEvent, m_clickFirst, m_clickSecond, QString(), nullptr);
}

} // namespace Zeb
