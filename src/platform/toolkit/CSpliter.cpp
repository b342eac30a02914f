#include "platform/toolkit/CSpliter.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"

namespace Zeb {

namespace {
constexpr int kBarPixels = 3;
}

CSpliter::CSpliter(const QString& colorKey, Qt::Orientation orientation, QWidget* parent)
    : QSplitter(orientation, parent), m_colorKey(colorKey)
{
    setChildrenCollapsible(false);
    setHandleWidth(kBarPixels);
    CSpliter::themeChanged();
}

void CSpliter::themeChanged()
{
    giveSheet(this, QStringLiteral("QSplitter::handle {background: %1;}")
                        .arg(utils::CSingletonT<CUiResource>::instance().getColorSheetByKey(m_colorKey)));
}

} // namespace Zeb
