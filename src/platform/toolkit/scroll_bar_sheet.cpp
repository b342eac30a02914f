#include "platform/toolkit/scroll_bar_sheet.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

namespace Kel {

namespace {

constexpr const char* kBarBackground = "clr_scrollbar_background_new";
constexpr const char* kBarSlider = "clr_scrollbar_slider_new";
constexpr const char* kBarSize = "siz_scroll_bar_width";

/// %1 and %3 are the bar's ground, %2 is the slider, %4 the width.
constexpr const char* kBarSheet =
    "QScrollBar:vertical {border: 0px solid %1;background: %3;width: %4px;margin: 2px 2px 2px 2px;}"
    "QScrollBar::handle:vertical {background: %2 ;min-height: 20px;}"
    "QScrollBar::add-page:vertical,QScrollBar::sub-page:vertical {background: none;}"
    "QScrollBar::add-line:vertical {border: 0px solid %1;background: none;height: 0px;"
    "subcontrol-position: right;subcontrol-origin: margin;}"
    "QScrollBar::sub-line:vertical {border: 0px solid %1;background: none;height: 0px;"
    "subcontrol-position: left;subcontrol-origin: margin;}";

} // namespace

QString scrollBarSheet()
{
    const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QString ground = resource.getColorSheetByKey(QLatin1String(kBarBackground));
    return QString::fromLatin1(kBarSheet).arg(ground, resource.getColorSheetByKey(QLatin1String(kBarSlider)),
                                              ground,
                                              QString::number(resource.getSize(QLatin1String(kBarSize))));
}

} // namespace Kel
