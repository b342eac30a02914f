#include "host/window/workspace/layouts.h"

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
    static const std::vector<Layout> layouts = {
        {QStringLiteral("queue"),
         QStringLiteral("队列台"),
         {{{cell(100, {"list"})}, 15},
          {{cell(70, {"queue"}), cell(30, {"information", "orders"})}, 45},
          {{cell(100, {"ladder"})}, 21},
          {{cell(100, {"ticket", "levels"})}, 19}}},
        {QStringLiteral("tick"),
         QStringLiteral("逐笔台"),
         {{{cell(50, {"list"}), cell(50, {"levels"})}, 16},
          {{cell(52, {"queue"}), cell(48, {"orders"})}, 52},
          {{cell(100, {"deals"})}, 32}}},
        {QStringLiteral("chart"),
         QStringLiteral("全息台"),
         {{{cell(100, {"list", "levels"})}, 15},
          {{cell(58, {"chart"}), cell(42, {"zoom"})}, 58},
          {{cell(100, {"deals"})}, 27}}},
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
