#pragma once

#include "frame/EModuleTroupTabID.h"
#include "platform/toolkit/CBaseWidget.h"
#include "records/DepthExport.h"

#include <QString>

namespace Kel {

/// The abstract face of a module: a host drives a group of panels of one instrument by it, whatever the
/// group holds. Nothing here does anything; a derived module overrides what concerns it. GUI thread.
class DEPTH_EXPORT CBaseModuleGroupWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    explicit CBaseModuleGroupWidget(QWidget* parent = nullptr);

    /// Forget the instrument's data; true to empty what is shown as well.
    virtual void clear(bool clearView);

    /// Show another instrument, by the code that the stock manager knows it by.
    virtual void setStock(QString code);

    /// Follow the ticks of a connection that the host knows by this number.
    virtual void connectTick(long long connection);

    /// Take over what is known of the instrument already.
    virtual void initAllQuoterData();

    /// Ask for the instrument's data; true to ask again for what was asked for before.
    virtual void request(bool again);

    /// Preset the order's price by the latest close, yuan.
    virtual void setEntrustByLatestClose(double price);

    /// Grade of market data that the user may see, a number of the host's.
    virtual void setLevelStatus(int status);

    /// Preset the parameters that follow from the last close, yuan.
    virtual void setParamByLastClose(double price);

    /// Bring a tab to the front.
    virtual void showTab(EModuleTroupTabID tab);

    /// Give up what `request` asked for.
    virtual void unrequest();

    /// Paint anew what is shown.
    virtual void updateView();

    /// What the host's module does at the end of its own set-up. This library never calls it.
    virtual void initModule() = 0;
};

} // namespace Kel
