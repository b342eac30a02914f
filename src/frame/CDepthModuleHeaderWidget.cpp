#include "frame/CDepthModuleHeaderWidget.h"

#include "frame/CDepthModuleGroupBaseWidget.h"
#include "records/EQueueMode.h"

#include <utility>

namespace Kel {

namespace {

constexpr int kEventButton = 5;
constexpr int kEventTitle = 1395;
constexpr int kEventLevelSelected = 3223;

} // namespace

CDepthModuleHeaderWidget::CDepthModuleHeaderWidget(QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("CDepthModuleHeaderWidget"), parent),
      m_group(new CDepthModuleGroupBaseWidget(this))
{
    setContentWidget(m_group, 0, 0, true);
    m_group->setParent(this);
}

CDepthModuleHeaderWidget::~CDepthModuleHeaderWidget() = default;

void CDepthModuleHeaderWidget::setWidget(QWidget* widget)
{
    if (m_group)
        m_group->setWidget(widget);
}

void CDepthModuleHeaderWidget::setHeader(const QString& header)
{
    if (m_group)
        m_group->setHeader(header);
}

void CDepthModuleHeaderWidget::setDrawSplit(bool draw)
{
    if (m_group)
        m_group->setDrawSplit(draw);
}

void CDepthModuleHeaderWidget::setActionHandler(std::function<void(int)> handler)
{
    if (m_group)
        m_group->setActionHandler(std::move(handler));
}

void CDepthModuleHeaderWidget::showExtendShrinkImage(bool show)
{
    if (m_group)
        m_group->showExtendShrinkImage(show);
}

void CDepthModuleHeaderWidget::showFilterImage(bool show)
{
    if (m_group)
        m_group->showFilterImage(show);
}

void CDepthModuleHeaderWidget::showQueueActionImage(bool show)
{
    if (m_group)
        m_group->showQueueActionImage(show);
}

void CDepthModuleHeaderWidget::setQueueModeLevel(int level)
{
    if (m_group)
        m_group->setQueueModel(level);
}

void CDepthModuleHeaderWidget::setQueueModeStyle(int style)
{
    if (m_group)
        m_group->setQueueModel(style + eQueueDetailFirst);
}

bool CDepthModuleHeaderWidget::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    if (id == kEventTitle) {
        setHeader(text);
        return true;
    }
    if ((id == kEventButton || id == kEventLevelSelected) && first != eQueueFilter) {
        m_sigEvent(id, first, second, text, pointer);
        return true;
    }
    return Zeb::CBaseWidget::handleEvent(id, first, second, text, pointer);
}

} // namespace Kel
