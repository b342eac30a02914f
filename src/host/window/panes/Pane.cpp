#include "host/window/panes/Pane.h"

#include <QTimer>

namespace host {

namespace {

constexpr QSize kLeast(120, 60); // pixels; less shows nothing of any panel

} // namespace

Pane::Pane(const QString& id, const QString& title, QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("Pane_") + id, parent), m_id(id), m_title(title)
{
}

QString Pane::furtherId(const QString& kind, int number)
{
    return number < 2 ? kind : kind + QLatin1Char('#') + QString::number(number);
}

void Pane::setNumber(int number)
{
    m_id = furtherId(m_id, number);
    if (number > 1)
        m_title += QLatin1Char(' ') + QString::number(number);
    setObjectName(QStringLiteral("Pane_") + m_id);
}

QSize Pane::minimumSizeHint() const
{
    return kLeast;
}

void Pane::setSeen(bool seen)
{
    if (QWidget* panel = contentWidget())
        panel->setVisible(seen);
}

void Pane::lookNow()
{
    for (QTimer* timer : findChildren<QTimer*>()) {
        if (timer->isActive() && !timer->isSingleShot())
            QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
    }
}

bool Pane::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    if (m_answer && m_answer(*this, id, first, second, text))
        return true;
    return Zeb::CBaseWidget::handleEvent(id, first, second, text, pointer);
}

} // namespace host
