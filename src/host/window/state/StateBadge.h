#pragma once

#include "host/window/state/data_state_view.h"

#include <QPainterPath>
#include <QRectF>
#include <QWidget>

namespace host {

/// The mark of a state, so that states are told apart without their colours: a disc for live, a ring for
/// loading, a disc with a piece missing for a gap, half a disc for stale, a square for rebuilt.
QPainterPath stateMark(Kel::EDataState state, const QRectF& room);

/// A mark and a word that tell the state of the data in a pane; the tool tip tells since when and why. Of no
/// width without an instrument. GUI thread.
class StateBadge : public QWidget
{
    Q_OBJECT

public:
    explicit StateBadge(QWidget* parent = nullptr);

    void setState(const DataStateView& view);
    const DataStateView& state() const { return m_view; }

    /// Where there is little room the mark stands alone.
    void setWordShown(bool shown);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    DataStateView m_view;
    bool m_wordShown = true;
};

} // namespace host
