#pragma once

#include "host/window/InstrumentModel.h"

#include <QTableView>
#include <QTimer>

namespace host {

/// The list of instruments at the window's left. The arrow keys walk through it; where the cursor rests, or a
/// click falls, is chosen. GUI thread.
class InstrumentList : public QTableView
{
    Q_OBJECT

public:
    explicit InstrumentList(QWidget* parent = nullptr);

    InstrumentModel& instruments() { return *m_model; }

    /// Puts the cursor on a row without choosing it; -1 for none. A cursor that a person moves stays where it
    /// is, and other instruments in the list show none.
    void setShown(int row);
    int shown() const { return m_shown; }

Q_SIGNALS:
    void chosen(int row);

protected:
    void changeEvent(QEvent* event) override;

private:
    void fitTexts();
    void onCursor(int row);
    void choose();

    InstrumentModel* m_model;
    QTimer m_rest; ///< a cursor that walks on chooses nothing
    int m_shown = -1;
    bool m_quiet = false; ///< the list itself moves the cursor
};

} // namespace host
