#include "host/window/workspace/layouts.h"

#include "host/window/language/TerminalLanguage.h"

#include <algorithm>
#include <initializer_list>

namespace host {

namespace {

LayoutCell cell(int share, std::initializer_list<const char*> ids)
{
    LayoutCell result{{}, share};
    for (const char* id : ids)
        result.panes.append(QString::fromLatin1(id));
    return result;
}

} // namespace

const std::vector<Layout>& shippedLayouts()
{
    // Shares are pixels of a window of the usual size.
    static const std::vector<Layout> layouts = {
        {QStringLiteral("queue"),
         sourceText("队列台"),
         {{{cell(100, {"list"})}, 285},
          {{cell(66, {"queue"}), cell(34, {"information", "orders"})}, 800},
          {{cell(100, {"ladder"})}, 265},
          {{cell(100, {"ticket", "levels"})}, 250}}},
        {QStringLiteral("tick"),
         sourceText("逐笔台"),
         {{{cell(45, {"list"}), cell(55, {"levels"})}, 290},
          {{cell(52, {"queue"}), cell(48, {"orders"})}, 880},
          {{cell(100, {"deals"})}, 430}}},
        {QStringLiteral("chart"),
         sourceText("全息台"),
         {{{cell(45, {"list"}), cell(55, {"levels"})}, 290},
          {{cell(58, {"chart"}), cell(42, {"zoom"})}, 910},
          {{cell(100, {"deals"})}, 400}}},
        {QStringLiteral("pair"),
         sourceText("双品种台"),
         {{{cell(45, {"list"}), cell(55, {"levels", "levels#2"})}, 330},
          {{cell(60, {"queue"}), cell(40, {"deals"})}, 635},
          {{cell(60, {"queue#2"}), cell(40, {"deals#2"})}, 635}}},
    };
    return layouts;
}

const Layout* shippedLayout(const QString& id)
{
    const auto found = std::find_if(shippedLayouts().begin(), shippedLayouts().end(),
                                    [&id](const Layout& layout) { return layout.id == id; });
    return found == shippedLayouts().end() ? nullptr : &*found;
}

} // namespace host
