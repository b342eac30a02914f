#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"

#include <QDialog>

namespace host {

class KeyTable;
class TerminalActions;

/// All keys of the window on one sheet. GUI thread.
class KeySheet : public QDialog, public Zeb::CUiResourceChangeHandler
{
    Q_OBJECT

public:
    /// `actions` outlives the sheet.
    KeySheet(TerminalActions* actions, QWidget* parent);

    void themeChanged() override;

    KeyTable& table() { return *m_table; }

private:
    KeyTable* m_table;
};

} // namespace host
