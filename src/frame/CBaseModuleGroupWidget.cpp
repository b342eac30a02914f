#include "frame/CBaseModuleGroupWidget.h"

namespace Kel {

CBaseModuleGroupWidget::CBaseModuleGroupWidget(QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("CBaseModuleGroupWidget"), parent)
{
}

void CBaseModuleGroupWidget::clear(bool) {}

void CBaseModuleGroupWidget::setStock(QString) {}

void CBaseModuleGroupWidget::connectTick(long long) {}

void CBaseModuleGroupWidget::initAllQuoterData() {}

void CBaseModuleGroupWidget::request(bool) {}

void CBaseModuleGroupWidget::setEntrustByLatestClose(double) {}

void CBaseModuleGroupWidget::setLevelStatus(int) {}

void CBaseModuleGroupWidget::setParamByLastClose(double) {}

void CBaseModuleGroupWidget::showTab(EModuleTroupTabID) {}

void CBaseModuleGroupWidget::unrequest() {}

void CBaseModuleGroupWidget::updateView() {}

} // namespace Kel
