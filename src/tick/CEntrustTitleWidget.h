#pragma once

#include "platform/toolkit/CBaseWidget.h"

#include <QString>

class QPainter;

namespace Zeb {
class CPushButton;
}

namespace Kel {

/// The strip above a list: its title, the number of rows, and the filter button, which raises event 5 (first
/// number 0). GUI thread.
class CEntrustTitleWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    explicit CEntrustTitleWidget(const QString& title, QWidget* parent = nullptr);

    /// Rows of the list; shows at the next paint.
    void setCount(int count) { m_count = count; }
    int count() const { return m_count; }

    void themeChanged() override { update(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    void drawTitle(QPainter& painter);

    int m_count = 0;
    QString m_text;
    Zeb::CPushButton* m_button;
};

} // namespace Kel
