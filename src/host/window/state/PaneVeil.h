#pragma once

#include "host/window/state/data_state_view.h"

#include <QTimer>
#include <QWidget>

namespace host {

/// Lies over a pane whose prices are not current: washes its content out and says why in one line. The mouse
/// goes through it. It follows its parent's size, and shows a load only once that takes long. GUI thread.
class PaneVeil : public QWidget
{
    Q_OBJECT

public:
    explicit PaneVeil(QWidget* pane);

    void setState(const DataStateView& view);

    /// What it says, "" while it is not needed.
    const QString& notice() const { return m_notice; }

    /// The strip of the notice in a veil of this size, for a text of this size.
    static QRect stripOf(const QSize& veil, const QSize& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void lift();

    DataStateView m_view;
    QString m_notice;
    QTimer m_wait;
};

} // namespace host
