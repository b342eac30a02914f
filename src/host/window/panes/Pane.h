#pragma once

#include "host/window/DayStore.h"
#include "host/window/FeedHub.h"
#include "platform/toolkit/CBaseWidget.h"
#include "tick/tick_table.h"

#include <boost/function.hpp>

#include <QSize>
#include <QString>

#include <functional>
#include <utility>
#include <vector>

namespace host {

/// A list of a pane that can be written to a file.
struct PaneTable
{
    QString name; ///< as in a menu
    QString file; ///< part of a file's name, without an ending
    Kel::TickTable table;
};

/// The place of one panel in the terminal: it owns the panel, shows an instrument in it, names what the panel
/// takes of a feed, and passes the panel's events to whoever wires the panels. GUI thread.
class Pane : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    /// What becomes of an event of the pane's panel; true if it was taken.
    using Answer = std::function<bool(Pane& from, int id, int first, int second, const QString& text)>;

    /// `id` names the pane in layouts ("ladder"), `title` on the screen.
    Pane(const QString& id, const QString& title, QWidget* parent);

    const QString& id() const { return m_id; }
    const QString& title() const { return m_title; }

    /// Makes the pane the second, third, ... of its kind: "queue#2" with its number in the title. Before it
    /// is taken into a workspace.
    void setNumber(int number);

    /// What the id of a further pane of a kind is.
    static QString furtherId(const QString& kind, int number);

    void setAnswer(Answer answer) { m_answer = std::move(answer); }

    /// The day that comes next, before `setInstrument`; a pane that lives of the feed alone needs nothing of
    /// it.
    virtual void setDay(const DayPtr& /*day*/) {}

    /// Empties the panel and chooses an instrument by its key; the feed begins anew after it. Comes for a
    /// jump within the same day as well.
    virtual void setInstrument(const QString& key) = 0;

    /// The trading date (20230201) that prices are coloured by. Comes before the first instrument.
    virtual void setTradeDate(const boost::function<int()>& /*tradeDate*/) {}

    /// What the panel takes of a feed; valid as long as the pane.
    virtual FeedHub::Receiver receiver() { return {}; }

    /// Called now and then while a day is shown, several times a second.
    virtual void follow() {}

    /// What a copy takes: the selected row, columns divided by tabs. Empty if nothing is selected.
    virtual QString selectedText() const { return {}; }

    /// What can be written to files.
    virtual std::vector<PaneTable> tables() const { return {}; }

    /// Whether the pane can be seen, or lies behind another tab: its panel rests then. The pane keeps its
    /// place.
    void setSeen(bool seen);

    /// Lets the panel look at its models at once instead of at the next tick of its timers.
    void lookNow();

    /// Room that the pane wants, pixels at 100 %.
    QSize sizeHint() const override { return m_wanted; }
    QSize minimumSizeHint() const override;

    bool handleEvent(int id, int first, int second, QString text, void* pointer) override;

protected:
    void setWantedSize(const QSize& size) { m_wanted = size; }

private:
    QString m_id;
    QString m_title;
    Answer m_answer;
    QSize m_wanted{400, 300};
};

} // namespace host
