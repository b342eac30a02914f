// Mouse, tool tip and menu of the ladder.

#include "thousand/CDepthThousandDataWidget.h"

#include "platform/resources/CUiResource.h"
#include "platform/services/CUserConfig.h"
#include "platform/utils/CSingletonT.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

namespace Kel {

namespace {

constexpr int kEventLevel = 3223;

/// The menu's look; %9 and %10 are pictures, the others colours.
constexpr const char* kMenuSheet =
    " QMenu {menu-scrollable: 1; background-color: %1; border:1px solid %2;}"
    "QMenu::icon {left:10px}"
    "QMenu::item {color: %8; spacing: 20px; padding: 6px 34px;background-color: %4;border:%3;}"
    "QMenu::item:selected {background-color: %5;}"
    "QMenu::item:hover {background-color: %6;}"
    "QMenu::item:pressed {background-color: %7;}"
    "QMenu::indicator:non-exclusive:checked {%9;}"
    "QMenu::right-arrow {%10;}";

QString menuSheet()
{
    const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    QString sheet = QString::fromLatin1(kMenuSheet);
    for (const char* key :
         {"clr_menubar_background_new", "clr_menubar_border_new", "clr_menubar_item_border_new",
          "clr_menubar_item_background_normal_new", "clr_menubar_item_background_selected_new",
          "clr_menubar_item_background_hover_new", "clr_menubar_item_background_pressed_new",
          "clr_menubar_item_text_new"})
        sheet = sheet.arg(resource.getColorSheetByKey(QLatin1String(key)));
    for (const char* key : {"img_menu_check", "img_menu_arrow"})
        sheet = sheet.arg(resource.getImageSheet(QLatin1String(key)));
    return sheet;
}

} // namespace

bool CDepthThousandDataWidget::getCursorData(int x, int y, int& row, boost::shared_ptr<EntrustData>& queue,
                                             int& side, int& column) const
{
    const LadderLayout current = layout();
    row = current.rowAt(y);
    column = LadderLayout::eNoColumn;
    queue.reset();
    if (row < 0)
        return false;
    if (current.isLatest(row)) {
        row = -1;
        return false;
    }
    side = current.isSell(row) ? 0 : 1;
    const auto& rows = side == 0 ? m_sellQueues : m_buyQueues;
    const int index = side == 0 ? current.sellIndex(row) : current.buyIndex(row);
    if (index >= 0 && index < static_cast<int>(rows.size()))
        queue = rows[static_cast<std::size_t>(index)];
    column = current.columnAt(x, queue && queue->orderCount >= 1);
    return column != LadderLayout::eNoColumn;
}

void CDepthThousandDataWidget::mouseMoveEvent(QMouseEvent* event)
{
    m_cursorPos = event->pos();
    const bool hadTip = m_showTip;
    m_showTip = false;
    int row = -1;
    int side = 0;
    int column = LadderLayout::eNoColumn;
    boost::shared_ptr<EntrustData> queue;
    if (getCursorData(m_cursorPos.x(), m_cursorPos.y(), row, queue, side, column)) {
        m_hoverRow = row;
        m_hoverColumn = column;
        setCursor(m_handCursor);
        update();
        return;
    }
    const bool hadHover = m_hoverRow != -1;
    m_hoverRow = -1;
    setCursor(m_arrowCursor);
    if (hadHover || hadTip)
        update();
}

void CDepthThousandDataWidget::leaveEvent(QEvent* event)
{
    Zeb::CBaseWidget::leaveEvent(event);
    setCursor(m_arrowCursor);
    const bool changed = m_showTip || m_hoverRow != -1;
    m_showTip = false;
    m_hoverRow = -1;
    if (changed)
        update();
}

bool CDepthThousandDataWidget::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return Zeb::CBaseWidget::event(event);
    int row = -1;
    int side = 0;
    int column = LadderLayout::eNoColumn;
    boost::shared_ptr<EntrustData> queue;
    if (getCursorData(m_cursorPos.x(), m_cursorPos.y(), row, queue, side, column)) {
        if (column == LadderLayout::eCount) {
            m_showTip = true;
            m_tipText = QStringLiteral("点击查看详细队列");
        }
        update();
    }
    return true;
}

void CDepthThousandDataWidget::mousePressEvent(QMouseEvent* event)
{
    m_cursorPos = event->pos();
    const bool hadTip = m_showTip;
    m_showTip = false;
    if (event->button() != Qt::LeftButton) { // of the menu, which leaves the selection alone
        if (hadTip)
            update();
        return;
    }
    int row = -1;
    int side = 0;
    int column = LadderLayout::eNoColumn;
    boost::shared_ptr<EntrustData> queue;
    const bool hit = getCursorData(m_cursorPos.x(), m_cursorPos.y(), row, queue, side, column);
    const QPointer<CDepthThousandDataWidget> alive(this);
    if (hit && queue && column == LadderLayout::eCount) {
        m_selected = queue;
        m_selectedSide = side;
        deliverEvent(kEventLevel, 0, layout().clickedTop(m_cursorPos.y()), QString(), nullptr);
    } else if (m_selected) {
        dropSelection();
    } else {
        if (hadTip)
            update();
        return;
    }
    if (!alive)
        return;
    drawBackground(m_clientRect);
    update();
}

void CDepthThousandDataWidget::contextMenuEvent(QContextMenuEvent* event)
{
    const CUserConfig* const config = getUserConfig();
    if (!config)
        return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setStyleSheet(menuSheet());
    QAction* const action = menu->addAction(QStringLiteral("千档委托金额分布"));
    action->setCheckable(true);
    action->setChecked(config->showDistribution());
    connect(action, &QAction::triggered, this, &CDepthThousandDataWidget::slotThousandDataDistribution);
    menu->popup(event->globalPos());
}

} // namespace Kel
