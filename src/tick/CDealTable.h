#pragma once

#include "platform/toolkit/CIndexScrollBar.h"
#include "records/TransactionData.h"
#include "tick/CTrackWidget.h"

#include <list>
#include <vector>

namespace Kel {

/// The deals of the order, one a row, from the first one on. A click or the keys select a row. GUI thread.
class CDealTable : public CTrackWidget
{
    Q_OBJECT

public:
    using Record = boost::shared_ptr<quoter::TransactionData>;

    CDealTable(const TrackSubject* subject, QWidget* parent);

    /// Takes the deals among the records.
    void setRecords(const std::list<Record>& records);

    bool handleEvent(int id, int first, int second, QString text, void* data) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void drawContent(QPainter& painter) override;

    std::vector<Record> m_rows;
    int m_total = 0;
    int m_firstIndex = 0;
    int m_selectedIndex = -1;
    int m_rowHeight = 20;
    int m_rowCount = 1; ///< rows that the table has room for
    CIndexScrollBar* m_scrollBar;

private:
    int top() const { return (height() - m_rowCount * m_rowHeight) / 2; }
    int rowAt(int y) const;
    void updateScroll();
    void select(int row);

    QSize m_size; ///< at the last layout
};

} // namespace Kel
