#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "records/DepthExport.h"

#include <QMenu>

namespace Zeb {

/// Menu in the colours of the theme. GUI thread.
class DEPTH_EXPORT CMenu : public QMenu, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    explicit CMenu(QWidget* parent = nullptr);
    CMenu(const QString& title, QWidget* parent);

    void themeChanged() override;
};

} // namespace Zeb
