#include "host/window/panes/pane_kinds.h"

#include "host/window/language/TerminalLanguage.h"
#include "host/window/panes/ChartPane.h"
#include "host/window/panes/DealsPane.h"
#include "host/window/panes/EntrustPane.h"
#include "host/window/panes/InformationPane.h"
#include "host/window/panes/LadderPane.h"
#include "host/window/panes/LevelPane.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/panes/TicketPane.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kMostOfKind = 9; // one figure names them

const PaneKind* kindOf(const QString& id)
{
    const auto found = std::find_if(paneKinds().begin(), paneKinds().end(),
                                    [&id](const PaneKind& kind) { return kind.id == id; });
    return found == paneKinds().end() ? nullptr : &*found;
}

} // namespace

const std::vector<PaneKind>& paneKinds()
{
    static const std::vector<PaneKind> kinds = {
        {QStringLiteral("queue"), sourceText("委托队列"), [] { return new QueueCell; }},
        {QStringLiteral("ladder"), sourceText("千档盘口"), [] { return new LadderPane; }},
        {QStringLiteral("deals"), sourceText("逐笔成交"), [] { return new DealsPane; }},
        {QStringLiteral("orders"), sourceText("逐笔委托与撤单"), [] { return new EntrustPane; }},
        {QStringLiteral("chart"), sourceText("全息成交图"),
         [] { return new ChartPane(ChartPane::EView::eDay); }},
        {QStringLiteral("zoom"), sourceText("全息放大图"),
         [] { return new ChartPane(ChartPane::EView::eZoomed); }},
        {QStringLiteral("levels"), sourceText("买卖盘"), [] { return new LevelPane; }},
        {QStringLiteral("ticket"), sourceText("盘口下单"), [] { return new TicketPane; }},
        {QStringLiteral("information"), sourceText("资讯"), [] { return new InformationPane; }},
    };
    return kinds;
}

PaneName paneName(const QString& id)
{
    PaneName name;
    name.kind = id.section(QLatin1Char('#'), 0, 0);
    if (id.contains(QLatin1Char('#'))) {
        name.number = id.section(QLatin1Char('#'), 1).toInt();
        if (name.number < 2 || name.number > kMostOfKind)
            name.number = 0;
    }
    if (!kindOf(name.kind))
        name.number = 0;
    return name;
}

Pane* makePane(const QString& id)
{
    const PaneName name = paneName(id);
    if (name.number < 1)
        return nullptr;
    Pane* pane = kindOf(name.kind)->make();
    pane->setNumber(name.number);
    return pane;
}

} // namespace host
