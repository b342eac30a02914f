#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "records/DepthExport.h"

#include <QWidget>

namespace Zeb {

/// A line across a dialog in a colour of the theme: as wide as there is room and `thickness` pixels high.
/// GUI thread.
class DEPTH_EXPORT CFrameSplitterLine : public QWidget, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    CFrameSplitterLine(const QString& colorKey, int thickness, QWidget* parent);

    void themeChanged() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_colorKey;
};

} // namespace Zeb
