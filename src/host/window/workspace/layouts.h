#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace host {

/// Shares are weights: each gets its part of the sum of all.
///
/// Panes of the same place, as tabs; the first is in front.
struct LayoutCell
{
    QStringList panes;
    int share; ///< of the column's height
};

struct LayoutColumn
{
    std::vector<LayoutCell> cells; ///< from top to bottom; at least one
    int share;                     ///< of the workspace's width
};

/// Where the panes stand. Panes that no column names are closed.
struct Layout
{
    QString id;    ///< as on the command line
    QString title; ///< as in the menu
    std::vector<LayoutColumn> columns;
};

/// The layouts that come with the terminal: for the queue, for orders and deals, for the chart, for two
/// instruments beside each other.
const std::vector<Layout>& shippedLayouts();

/// Null for an unknown id.
const Layout* shippedLayout(const QString& id);

} // namespace host
