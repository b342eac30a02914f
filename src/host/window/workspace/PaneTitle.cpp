#include "host/window/workspace/PaneTitle.h"

#include "host/window/bar_icons.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/state/StateBadge.h"
#include "host/window/window_style.h"
#include "host/window/workspace/PaneMenu.h"

#include <QDockWidget>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace host {

namespace {

constexpr int kHeight = 24; // pixels
constexpr int kLeastWidth = 60;
constexpr int kMargin = 8;
constexpr int kWordFrom = 160; // narrower titles keep their room for the name
constexpr int kButton = 18;
constexpr int kIcon = 12;

} // namespace

PaneTitle::PaneTitle(QDockWidget* dock)
    : QWidget(dock),
      m_row(new QHBoxLayout(this)),
      m_name(new QLabel(dock->windowTitle(), this)),
      m_badge(new StateBadge(this)),
      m_float(addButton(QStringLiteral("PaneFloat"), "浮动或放回")),
      m_close(addButton(QStringLiteral("PaneClose"), "关闭窗格"))
{
    setObjectName(QStringLiteral("PaneTitle"));
    setAttribute(Qt::WA_StyledBackground);
    m_name->setTextFormat(Qt::PlainText);
    // A narrow pane cuts its name, not the other way about.
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_name->setMinimumWidth(1);
    m_row->setContentsMargins(kMargin, 0, 2, 0);
    m_row->setSpacing(1);
    m_row->addWidget(m_name, 1);
    m_row->addWidget(m_badge);
    m_row->addWidget(m_float);
    m_row->addWidget(m_close);
    connect(m_float, &QToolButton::clicked, dock, [dock] { dock->setFloating(!dock->isFloating()); });
    connect(m_close, &QToolButton::clicked, dock, &QWidget::close);
    connect(dock, &QWidget::windowTitleChanged, m_name, &QLabel::setText);
    new PaneMenu(dock, this);
    refreshIcons();
}

void PaneTitle::addLeft(QWidget* mark)
{
    m_row->insertWidget(0, mark);
    m_row->setContentsMargins(2, 0, 2, 0);
}

void PaneTitle::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_badge->setWordShown(width() >= kWordFrom);
}

QSize PaneTitle::sizeHint() const
{
    return QSize(kLeastWidth, std::max(kHeight, sizeOfText(kHeight)));
}

QToolButton* PaneTitle::addButton(const QString& name, const char* tip)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    keepSaid(button, [button, tip] {
        button->setToolTip(uiText(tip));
        button->setAccessibleName(button->toolTip());
    });
    button->setFixedSize(kButton, kButton);
    button->setIconSize(QSize(kIcon, kIcon));
    button->setFocusPolicy(Qt::NoFocus); // the panes' menu does the same by keys
    return button;
}

void PaneTitle::refreshIcons()
{
    m_float->setIcon(floatIcon());
    m_close->setIcon(closeIcon());
    updateGeometry(); // fonts may be of another size
}

} // namespace host
