#include "queue_view/OrderQueueTheme.h"

#include "platform/resources/CUiResource.h"
#include "platform/resources/mark_colors.h"
#include "platform/utils/CSingletonT.h"

namespace Kel {

namespace {

constexpr const char* kBack = "ic_clr_graph_kline_bg";
constexpr const char* kSplit = "kel_clr_depth_module_group_base_widget_split_line";
constexpr const char* kSplitRed = "kel_clr_depth_module_group_base_widget_split_line_red";
constexpr const char* kReversedPrice = "kel_clr_depth_module_group_base_widget_bg";
constexpr const char* kCanceled = "ic_clr_depth_queue_cancel";
constexpr const char* kUnknown = "ic_clr_depth_queue_blue";
constexpr const char* kBigBuy = "ic_clr_depth_queue_big_order_buy";
constexpr const char* kBigSell = "ic_clr_depth_queue_big_order_sell";
constexpr const char* kSuperBuy = "ic_clr_depth_queue_super_buy";
constexpr const char* kSuperSell = "ic_clr_depth_queue_super_sell";
constexpr const char* kCallOutFrame = "ic_clr_depth_queue_part_deal_back";
constexpr const char* kCallOutFill = "ic_clr_depth_queue_part_deal";
constexpr const char* kPartDealtPen = "ic_clr_graph_gray";
constexpr const char* kCallOutFont = "ic_fnt_index_modulegroup_today_text";

const Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

const QColor* color(const char* key)
{
    return resource().getColor(QLatin1String(key));
}

} // namespace

OrderQueueTheme::OrderQueueTheme()
    : back(color(kBack)),
      split(color(kSplit)),
      splitRed(color(kSplitRed)),
      reversedPrice(color(kReversedPrice)),
      canceled(color(kCanceled)),
      unknown(color(kUnknown)),
      bigBuy(color(kBigBuy)),
      bigSell(color(kBigSell)),
      superBuy(color(kSuperBuy)),
      superSell(color(kSuperSell)),
      callOutFrame(color(kCallOutFrame)),
      callOutFill(color(kCallOutFill)),
      partDealtPen(color(kPartDealtPen)),
      callOutFont(resource().getFont(QLatin1String(kCallOutFont)))
{
    for (std::size_t i = 0; i < kMarkColorKeys.size(); ++i)
        marks[i] = color(kMarkColorKeys[i]);
}

void OrderQueueTheme::setKeys(const Keys& keys)
{
    text = resource().getColor(keys.text);
    volume = resource().getColor(keys.volume);
    normal = resource().getColor(keys.normal);
    rise = resource().getColor(keys.rise);
    fall = resource().getColor(keys.fall);
    textFont = resource().getFont(keys.fontText);
    volumeFont = resource().getFont(keys.fontVolume);
}

const QColor* OrderQueueTheme::mark(int index) const
{
    const auto last = static_cast<int>(marks.size()) - 1;
    return marks[static_cast<std::size_t>(index < 0 || index > last ? last : index)];
}

const QColor* OrderQueueTheme::ground(EOrderQueueType type, bool isBuy) const
{
    switch (type) {
    case OQT_CANCELED:
        return canceled;
    case OQT_UNKNOWN:
    case OQT_PART_DEALT:
        return unknown;
    case OQT_BIG:
        return isBuy ? bigBuy : bigSell;
    case OQT_SUPER:
        return isBuy ? superBuy : superSell;
    default:
        return back;
    }
}

} // namespace Kel
