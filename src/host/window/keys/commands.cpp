#include "host/window/keys/commands.h"

namespace host {

// The identifiers stand in files of settings: a new name forgets what a person has chosen.
const std::vector<Command>& commands()
{
    constexpr bool kLineAbove = true;
    static const std::vector<Command> all = {
        {"openArchive", EMenu::eFile, "打开日档案…", "Ctrl+O"},
        {"openImport", EMenu::eFile, "导入行情文件夹…", "Ctrl+I"},
        {"openSimulation", EMenu::eFile, "模拟交易所", "Ctrl+N"},
        {"newWindow", EMenu::eFile, "新窗口", "Ctrl+Shift+N", nullptr, kLineAbove},
        {"settings", EMenu::eFile, "设置…", "Ctrl+;", nullptr, kLineAbove},
        {"quit", EMenu::eFile, "退出", "Ctrl+Q", nullptr, kLineAbove},

        {"play", EMenu::eReplay, "播放", "Space"},
        {"faster", EMenu::eReplay, "加快", "Ctrl+Up"},
        {"slower", EMenu::eReplay, "放慢", "Ctrl+Down"},
        {"fastest", EMenu::eReplay, "最快速度", "Ctrl+Shift+Up"},
        {"stepOrder", EMenu::eReplay, "下一笔委托", ".", nullptr, kLineAbove},
        {"backOrder", EMenu::eReplay, "上一笔委托", ","},
        {"stepDeal", EMenu::eReplay, "下一笔成交", "]"},
        {"backDeal", EMenu::eReplay, "上一笔成交", "["},
        {"stepSnapshot", EMenu::eReplay, "下一个快照", "Ctrl+."},
        {"backSnapshot", EMenu::eReplay, "上一个快照", "Ctrl+,"},
        {"stepSeconds", EMenu::eReplay, "前进十秒", "Shift+Right", nullptr, kLineAbove},
        {"backSeconds", EMenu::eReplay, "后退十秒", "Shift+Left"},
        {"forward", EMenu::eReplay, "前进一分钟", "Ctrl+Right"},
        {"back", EMenu::eReplay, "后退一分钟", "Ctrl+Left"},
        {"jump", EMenu::eReplay, "跳到时间…", "Ctrl+G", nullptr, kLineAbove},
        {"phaseAuction", EMenu::ePhase, "集合竞价", ""},
        {"phaseOpen", EMenu::ePhase, "开盘", "Ctrl+Shift+O"},
        {"phaseLunch", EMenu::ePhase, "午间休市", ""},
        {"phaseClose", EMenu::ePhase, "收盘", ""},
        {"nextPhase", EMenu::ePhase, "下一阶段", "Ctrl+PgDown", nullptr, kLineAbove},
        {"previousPhase", EMenu::ePhase, "上一阶段", "Ctrl+PgUp"},

        {"mode0", EMenu::eQueue, "五档", "Ctrl+5", "levels"},
        {"mode1", EMenu::eQueue, "十档", "Ctrl+0", "levels"},
        {"mode2", EMenu::eQueue, "首档明细", "Ctrl+1", "style", kLineAbove},
        {"mode3", EMenu::eQueue, "横向", "Ctrl+2", "style"},
        {"mode4", EMenu::eQueue, "纵向", "Ctrl+3", "style"},
        {"mode5", EMenu::eQueue, "列表", "Ctrl+4", "style"},
        {"full", EMenu::eQueue, "全部委托", "Ctrl+F", "", kLineAbove},
        {"center", EMenu::eQueue, "回到盘口中央", "Ctrl+Home", nullptr, kLineAbove},

        {"layout_queue", EMenu::ePane, "队列台", "Ctrl+Shift+1"},
        {"layout_tick", EMenu::ePane, "逐笔台", "Ctrl+Shift+2"},
        {"layout_chart", EMenu::ePane, "全息台", "Ctrl+Shift+3"},
        {"layout_pair", EMenu::ePane, "双品种台", "Ctrl+Shift+4"},
        {"saveLayout", EMenu::ePane, "保存布局…", "Ctrl+Shift+S", nullptr, kLineAbove},
        {"removeLayout", EMenu::ePane, "删除布局…", ""},
        {"group1", EMenu::eGroup, "联动组 1", "Alt+Shift+1", "group"},
        {"group2", EMenu::eGroup, "联动组 2", "Alt+Shift+2", "group"},
        {"group3", EMenu::eGroup, "联动组 3", "Alt+Shift+3", "group"},
        {"group4", EMenu::eGroup, "联动组 4", "Alt+Shift+4", "group"},
        {"filter", EMenu::ePane, "筛选逐笔列表…", "Ctrl+L", nullptr, kLineAbove},
        {"wholeDay", EMenu::ePane, "全息图显示全天", "Ctrl+D"},
        {"latestDeals", EMenu::ePane, "全息图显示最近成交", "Ctrl+R"},
        {"strip", EMenu::ePane, "全息条", "Ctrl+H"},
        {"copy", EMenu::ePane, "复制选中行", "Ctrl+C", nullptr, kLineAbove},
        {"csvUtf8", EMenu::ePane, "导出 CSV（UTF-8）…", "Ctrl+E"},
        {"csvGbk", EMenu::ePane, "导出 CSV（GBK）…", "Ctrl+Shift+E"},
        {"picture", EMenu::ePane, "导出图片…", "Ctrl+P"},
        {"track", EMenu::ePane, "跟踪委托…", "Ctrl+K", nullptr, kLineAbove},
        {"trackEnd", EMenu::ePane, "结束跟踪", "Ctrl+Shift+K"},

        {"dark", EMenu::eLook, "深色", "", "theme"},
        {"light", EMenu::eLook, "浅色", "", "theme"},
        {"otherTheme", EMenu::eLook, "切换深浅", "Ctrl+T"},
        {"colors0", EMenu::eLook, "红涨绿跌", "Alt+1", "colors", kLineAbove},
        {"colors1", EMenu::eLook, "绿涨红跌", "Alt+2", "colors"},
        {"colors2", EMenu::eLook, "色盲友好（橙涨蓝跌）", "Alt+3", "colors"},

        {"keys", EMenu::eHelp, "快捷键", "F1"},
        {"about", EMenu::eHelp, "关于", ""},
    };
    return all;
}

const char* menuTitle(EMenu menu)
{
    switch (menu) {
    case EMenu::eFile:
        return "文件(&F)";
    case EMenu::eReplay:
        return "回放(&P)";
    case EMenu::ePhase:
        return "跳到阶段";
    case EMenu::eQueue:
        return "队列(&Q)";
    case EMenu::ePane:
        return "窗格(&W)";
    case EMenu::eNewPane:
        return "新增窗格";
    case EMenu::eGroup:
        return "联动组";
    case EMenu::eLook:
        return "外观(&V)";
    case EMenu::eHelp:
        break;
    }
    return "帮助(&H)";
}

} // namespace host
