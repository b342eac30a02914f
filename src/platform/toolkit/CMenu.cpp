#include "platform/toolkit/CMenu.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"

namespace Zeb {

CMenu::CMenu(QWidget* parent) : CMenu(QString(), parent) {}

CMenu::CMenu(const QString& title, QWidget* parent) : QMenu(title, parent)
{
    CMenu::themeChanged();
}

void CMenu::themeChanged()
{
    setFont(*utils::CSingletonT<CUiResource>::instance().getFont(QStringLiteral("fnt_default_normal")));
    setStyleSheet(menuSheet());
}

} // namespace Zeb
