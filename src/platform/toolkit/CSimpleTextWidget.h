#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "records/DepthExport.h"

#include <QLabel>

namespace Zeb {

/// A text in a font and a colour of the theme, "fnt_default_normal" and "clr_dialog_text" at first, left
/// aligned and vertically centred. GUI thread.
class DEPTH_EXPORT CSimpleTextWidget : public QLabel, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    explicit CSimpleTextWidget(const QString& text, QWidget* parent = nullptr);

    void setFontKey(const QString& key);
    void setColorKey(const QString& key);

    void themeChanged() override;

private:
    QString m_fontKey;
    QString m_colorKey;
};

} // namespace Zeb
