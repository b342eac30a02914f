#include "host/window/panes/PanelCell.h"

#include "records/EQueueMode.h"

namespace host {

namespace {

constexpr int kEventModeWanted = 1396;

} // namespace

PanelCell::PanelCell(const QString& id, const QString& title, QWidget* parent)
    : Pane(id, title, parent), m_header(new Kel::CDepthModuleHeaderWidget(this))
{
    setContentWidget(m_header, 0, 0, true);
}

bool PanelCell::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    if (id == kEventModeWanted) {
        if (first == Kel::eQueueFiveLevels || first == Kel::eQueueTenLevels) {
            m_header->setQueueModeLevel(first);
            return true;
        }
        if (first >= Kel::eQueueDetailFirst && first <= Kel::eQueueDetailList) {
            m_header->setQueueModeStyle(first - Kel::eQueueDetailFirst);
            return true;
        }
    }
    return Pane::handleEvent(id, first, second, text, pointer);
}

} // namespace host
