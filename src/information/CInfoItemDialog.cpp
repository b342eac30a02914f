#include "information/CInfoItemDialog.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

namespace Kel {

namespace {

const QString kTitle = QStringLiteral("资讯信息");

int pixels(const char* key)
{
    return utils::CSingletonT<Zeb::CUiResource>::instance().getSize(QLatin1String(key));
}

} // namespace

CInfoItemDialog::CInfoItemDialog() : Zeb::CCommonDialog(kTitle)
{
    setMinimumSize(pixels("kel_siz_information_widget_width"), pixels("kel_siz_information_widget_height"));
    resize(pixels("kel_siz_mainwindow_width_min"), pixels("kel_siz_mainwindow_height_min"));
    createUi();
}

CInfoItemDialog::~CInfoItemDialog() = default;

void CInfoItemDialog::createUi()
{
    setTitle(kTitle);
}

void CInfoItemDialog::showInfoItem(const QString&, const QString&) {}

} // namespace Kel
