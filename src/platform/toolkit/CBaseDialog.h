#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/CEventDeliverer.h"
#include "platform/toolkit/CEventWidgetT.h"
#include "records/DepthExport.h"

#include <QDialog>

namespace Zeb {

/// Base of all dialogs: takes the events of what is in it, none of which leaves the dialog, and follows the
/// theme. GUI thread.
///
/// A dialog ends once: what ends it again while it is hidden, as a button's event and its `clicked` do one
/// after the other, changes neither the result nor is anybody told. The escape key, the window manager's
/// close and `reject` come in as the event of the frame's close button, so that a dialog sees one thing only.
class DEPTH_EXPORT CBaseDialog : public CEventWidgetT<QDialog>,
                                 public CEventDeliverer,
                                 public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    /// Id of the close button in the frame, in event 5.
    static constexpr int kCloseId = 101;

    explicit CBaseDialog(QWidget* parent = nullptr);

    /// Event 5 with the close button's id ends the dialog with result 0 and is taken; nothing else is.
    bool handleEvent(int id, int first, int second, QString text, void* data) override;

    void done(int result) override;
    void reject() override;

    void themeChanged() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void giveFontToEditors();
    bool hasEnded() const { return m_wasShown && !isVisible(); }

    bool m_wasShown = false;
};

} // namespace Zeb
