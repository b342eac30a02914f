#pragma once

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

namespace test {

inline Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

/// Puts the first theme and red up in force, and again at its end.
class ThemeGuard
{
public:
    ThemeGuard() { reset(); }
    ~ThemeGuard() { reset(); }
    ThemeGuard(const ThemeGuard&) = delete;
    ThemeGuard& operator=(const ThemeGuard&) = delete;

private:
    static void reset()
    {
        resource().setPriceColors(Zeb::EPriceColors::eRedUp);
        resource().setTheme(QStringLiteral("dark"));
    }
};

} // namespace test
