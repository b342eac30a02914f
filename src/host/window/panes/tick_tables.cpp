#include "host/window/panes/tick_tables.h"

namespace host {

PaneTable tickPaneTable(const QString& name, const QString& file, const Kel::TickTable& table)
{
    PaneTable result;
    result.name = name;
    result.file = file;
    result.write = [table](QIODevice& device, bool gbk, const std::function<bool(int, int)>& progress) {
        return Kel::writeCsv(table, device,
                             gbk ? Kel::ETableEncoding::eGbk : Kel::ETableEncoding::eUtf8WithMark, progress);
    };
    return result;
}

} // namespace host
