#include "host/window/MessageBar.h"

#include "host/window/language/TerminalLanguage.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace host {

namespace {

constexpr int kNoteMs = 6000;                   // life of a note
constexpr int kSideMargin = 12;                 // pixels
constexpr int kTopMargin = 4;                   // pixels
constexpr const char* kErrorProperty = "error"; // style sheets tell errors by it

} // namespace

MessageBar::MessageBar(QWidget* parent)
    : QFrame(parent), m_label(new QLabel(this)), m_close(new QToolButton(this))
{
    setObjectName(QStringLiteral("MessageBar"));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_StyledBackground);
    m_label->setFocusPolicy(Qt::NoFocus);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_close->setFocusPolicy(Qt::NoFocus);
    m_close->setAutoRaise(true);
    m_close->setText(QStringLiteral("✕"));
    keepSaid(m_close, [this] {
        m_close->setToolTip(uiText("关闭提示（Esc）"));
        m_close->setAccessibleName(m_close->toolTip());
    });

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kSideMargin, kTopMargin, kTopMargin, kTopMargin);
    row->addWidget(m_label, 1);
    row->addWidget(m_close);

    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &QWidget::hide);
    connect(m_close, &QToolButton::clicked, this, &QWidget::hide);
    // As long as the bar is hidden, the key is another's.
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &QWidget::hide);
    hide();
}

void MessageBar::showError(const QString& text)
{
    m_timer.stop();
    put(text, true);
}

void MessageBar::showNote(const QString& text)
{
    m_timer.start(kNoteMs);
    put(text, false);
}

void MessageBar::put(const QString& text, bool error)
{
    m_text = text;
    m_error = error;
    setProperty(kErrorProperty, error);
    style()->unpolish(this);
    style()->polish(this);
    setToolTip(text);
    setAccessibleName(text);
    show();
    elide();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void MessageBar::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    elide();
}

/// Cuts in the middle: a path begins and a reason ends a line.
void MessageBar::elide()
{
    const int room = std::max(0, width() - m_close->sizeHint().width() - 2 * kSideMargin - kTopMargin);
    m_label->setText(m_label->fontMetrics().elidedText(m_text.simplified(), Qt::ElideMiddle, room));
}

} // namespace host
