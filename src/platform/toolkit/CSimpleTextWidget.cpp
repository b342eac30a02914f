#include "platform/toolkit/CSimpleTextWidget.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

namespace Zeb {

CSimpleTextWidget::CSimpleTextWidget(const QString& text, QWidget* parent)
    : QLabel(text, parent),
      m_fontKey(QStringLiteral("fnt_default_normal")),
      m_colorKey(QStringLiteral("clr_dialog_text"))
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    CSimpleTextWidget::themeChanged();
}

void CSimpleTextWidget::setFontKey(const QString& key)
{
    m_fontKey = key;
    themeChanged();
}

void CSimpleTextWidget::setColorKey(const QString& key)
{
    m_colorKey = key;
    themeChanged();
}

void CSimpleTextWidget::themeChanged()
{
    const auto& resource = utils::CSingletonT<CUiResource>::instance();
    setFont(*resource.getFont(m_fontKey));
    setStyleSheet(QStringLiteral("QLabel {color: %1; background: transparent;}")
                      .arg(resource.getColorSheetByKey(m_colorKey)));
}

} // namespace Zeb
