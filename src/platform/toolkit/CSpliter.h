#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "records/DepthExport.h"

#include <QSplitter>

namespace Zeb {

/// Panes side by side or one above the other with a bar of the theme's colour between them; no pane can be
/// pushed away whole. GUI thread.
class DEPTH_EXPORT CSpliter : public QSplitter, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    CSpliter(const QString& colorKey, Qt::Orientation orientation, QWidget* parent);

    void themeChanged() override;

private:
    QString m_colorKey;
};

} // namespace Zeb
