#pragma once

#include "host/SteppedEngine.h"

#include <QString>
#include <QStringList>

#include <nlohmann/json_fwd.hpp>

#include <cstdint>

namespace host {

/// How a page is printed.
struct PageStyle
{
    int levels = 10; ///< rows a side, 1 to 10
    int orders = 12; ///< orders printed of a row; the others are counted
    bool color = false;
};

/// The rows of an engine as they are now, as lines without line ends:
///
///     SH600519 贵州茅台 2023-02-01 10:30:00 最新 1832.00
///     委卖队列(共10档,十档内57笔,2.1手/笔)
///     委买队列(共10档,十档内61笔,1.9手/笔)
///     档位      价格      手    笔     均  队列
///     卖十   1833.50      12     5    2.4  3 1 2(-1) 5 1
///     ...
///
/// Volumes are lots. `*` marks a big order (1000 lots and more), `**` a super one (5000 and more); 2(-1) is
/// the rest of an order of which 1 lot was dealt; x3 was cancelled and v3 dealt since the last refresh; ?120
/// is volume of orders that are not known; ... +8 counts the orders that are not printed. A row without a
/// price is printed empty.
QStringList pageLines(const SteppedEngine& engine, std::int64_t time, const PageStyle& style);

/// The same as a JSON object: time, header lines, and for each row its figures and its first orders.
nlohmann::json pageJson(const SteppedEngine& engine, std::int64_t time, const PageStyle& style);

/// Lots without needless zeros: "12", "0.5", "1234.25".
QString lotsText(double lots);

} // namespace host
