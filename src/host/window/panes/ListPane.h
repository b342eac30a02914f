#pragma once

#include "host/window/panes/Pane.h"

namespace host {

class InstrumentList;

/// The place of the list of instruments: it shows no instrument of its own, and gives away what the list
/// shows. GUI thread.
class ListPane : public Pane
{
    Q_OBJECT

public:
    /// Takes the list over.
    explicit ListPane(InstrumentList* list, QWidget* parent = nullptr);

    void setInstrument(const QString&) override {}

    /// The row under the cursor, else all rows.
    QString selectedText() const override;
    std::vector<PaneTable> tables() const override;

private:
    QStringList cells(int row) const;
    Kel::TickTable table() const;

    InstrumentList* m_list;
};

} // namespace host
