#include "host/window/state/data_state_view.h"

#include "host/window/language/TerminalLanguage.h"
#include "platform/utils/exchange_time.h"

namespace host {

namespace {

struct StateWords
{
    Kel::EDataState state;
    const char* word;
    const char* reason; ///< %1 the time with its preposition
    const char* notice;
    const char* color;
};

const StateWords kWords[] = {
    {Kel::eDataEmpty, "", "", "", "clr_state_loading"},
    {Kel::eDataLoading, "载入", "历史数据尚未到齐", "正在载入历史数据", "clr_state_loading"},
    {Kel::eDataLive, "实时", "%1数据完整", "", "clr_state_live"},
    {Kel::eDataGap, "缺口", "%1数据缺失，价格可能不准，等待下一快照或重新载入", "数据缺口，%1等待下一快照",
     "clr_state_gap"},
    {Kel::eDataStale, "陈旧", "%1没有新数据，价格可能已过时", "没有新数据，%1价格可能已过时",
     "clr_state_stale"},
    {Kel::eDataRebuilt, "重建", "%1十档已与快照一致，缺口中的单笔委托仍缺失，重新载入后完整", "",
     "clr_state_rebuilt"},
};

const StateWords& wordsOf(Kel::EDataState state)
{
    for (const StateWords& words : kWords) {
        if (words.state == state)
            return words;
    }
    return kWords[0];
}

QString sinceText(std::int64_t since)
{
    return since == 0 ? QString() : uiText("%1 起，").arg(utils::clockText(since, false));
}

QString filled(const char* text, const DataStateView& view)
{
    const QString words = uiText(text);
    return words.contains(QLatin1String("%1")) ? words.arg(sinceText(view.since)) : words;
}

} // namespace

DataStateView viewOf(const Kel::CDataStateWatch& watch)
{
    DataStateView view;
    view.state = watch.state();
    view.since = watch.since();
    for (const Kel::SDataGap& gap : watch.gaps()) {
        // Of the quotes nothing stays missing behind a gap that is over.
        if (!gap.reloaded && (!gap.healed || gap.channel != Kel::eDataQuotes))
            view.missing += gap.missing;
    }
    return view;
}

QString stateWord(Kel::EDataState state)
{
    return uiText(wordsOf(state).word);
}

QString stateReason(const DataStateView& view)
{
    QString text = stateWord(view.state);
    if (text.isEmpty())
        return text;
    text += uiText("：") + filled(wordsOf(view.state).reason, view);
    if (view.missing > 0 && (view.state == Kel::eDataGap || view.state == Kel::eDataRebuilt))
        text += uiText("（缺 %1 批）").arg(view.missing);
    return text;
}

QString stateNotice(const DataStateView& view)
{
    return filled(wordsOf(view.state).notice, view);
}

QString stateColorKey(Kel::EDataState state)
{
    return QString::fromLatin1(wordsOf(state).color);
}

} // namespace host
