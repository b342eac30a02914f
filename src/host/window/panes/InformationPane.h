#pragma once

#include "host/window/panes/Pane.h"

#include <cstdint>
#include <string>

namespace Kel {
class CInformationWidget;
}

namespace host {

/// Notices and local tables of the instrument. GUI thread.
class InformationPane : public Pane
{
    Q_OBJECT

public:
    explicit InformationPane(QWidget* parent = nullptr);

    Kel::CInformationWidget& panel() { return *m_panel; }

    /// What was wrong with the notices of the instrument, a line; empty for nothing.
    const QString& failure() const { return m_failure; }

    /// Where the notices come from: made up for a simulated source, read from an archive, none else.
    void setSource(const DaySource& source);

    void setDay(const DayPtr& day) override;
    void setInstrument(const QString& key) override;

    /// The selected rows of the table in view, else all of them.
    QString selectedText() const override;
    std::vector<PaneTable> tables() const override;

private:
    struct Shown;
    std::vector<Shown> shownTables() const;

    Kel::CInformationWidget* m_panel;
    bool m_simulated = false;
    std::uint64_t m_seed = 0;
    std::string m_archive;
    DayPtr m_day;
    QString m_failure;
    QString m_key;
    bool m_opened = false; ///< a page was opened
};

} // namespace host
