#pragma once

#include "platform/toolkit/CBaseWidget.h"
#include "records/DepthExport.h"

#include <QPointer>
#include <QString>

#include <boost/signals2/optional_last_value.hpp>
#include <boost/signals2/signal.hpp>

#include <functional>

namespace Kel {

class CDepthModuleGroupBaseWidget;

/// What a host places in its layout for one panel: a frame that fills it. Passes the frame's settings on and
/// routes events: a panel's title (1395) goes to the strip, buttons and modes (5) and a selected level (3223)
/// go to whoever is connected to `m_sigEvent`, and everything else goes on upward.
///
/// Make the panel with the header as its parent, so that its title finds the strip, hand it to `setWidget`
/// before the header gets its first size, and connect the panel's `handleEvent` to `m_sigEvent`. GUI thread.
class DEPTH_EXPORT CDepthModuleHeaderWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    using EventSignal =
        boost::signals2::signal<bool(int, int, int, QString, void*),
                                boost::signals2::optional_last_value<bool>, int, std::less<int>>;

    explicit CDepthModuleHeaderWidget(QWidget* parent = nullptr);
    ~CDepthModuleHeaderWidget() override;

    // Settings of the frame; see CDepthModuleGroupBaseWidget.
    void setWidget(QWidget* widget);
    void setHeader(const QString& header);
    void setDrawSplit(bool draw);
    void setActionHandler(std::function<void(int)> handler);
    void showExtendShrinkImage(bool show);
    void showFilterImage(bool show);
    void showQueueActionImage(bool show);

    /// Puts a number of levels in force: 0 five, 1 ten.
    void setQueueModeLevel(int level);

    /// Puts a style in force: 0 first-level detail, 1 horizontal, 2 vertical, 3 list.
    void setQueueModeStyle(int style);

    /// True for 1395, 5 and 3223, whatever the listeners answer; 5 with the filter button's number 9 is not
    /// taken.
    bool handleEvent(int id, int first, int second, QString text, void* pointer) override;

    /// Events 5 and 3223 for the host: id, first and second number, text, data. What a listener answers is
    /// not looked at.
    EventSignal m_sigEvent;

private:
    QPointer<CDepthModuleGroupBaseWidget> m_group;
};

} // namespace Kel
