#pragma once

#include "platform/toolkit/CBaseDialog.h"
#include "records/DepthExport.h"

#include <QPoint>
#include <QPointer>

namespace Zeb {

class CPushButton;

/// Dialog with a frame of its own: a title strip, by which it is moved, with a close button (event 5, first
/// number `kCloseId`), and below it one inner widget that fills the rest. Sizes of the dialog include the
/// frame. GUI thread.
class DEPTH_EXPORT CCommonDialog : public CBaseDialog
{
    Q_OBJECT

public:
    explicit CCommonDialog(QWidget* parent = nullptr);
    explicit CCommonDialog(const QString& title, QWidget* parent = nullptr);

    /// The title, in the strip and for the window list.
    void setTitle(const QString& title);
    QString title() const { return windowTitle(); }

    /// Whether the close button is shown, as it is at first. Without it the escape key still closes.
    void setCloseButtonEnabled(bool enabled);

    /// Makes `widget` the inner widget and a child; the one before is deleted. Null leaves the dialog empty.
    void setInnerWidget(QWidget* widget);
    QWidget* innerWidget() const { return m_inner; }

    /// Where the inner widget stands.
    QRect innerRect() const;

    void themeChanged() override;

protected:
    void changeEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRect titleRect() const;
    void placeChildren();

    CPushButton* m_closeButton;
    QPointer<QWidget> m_inner;
    bool m_dragging = false;
    QPoint m_dragOffset; ///< from the dialog's corner to the cursor
};

} // namespace Zeb
