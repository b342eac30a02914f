#include "thousand/scroll_bar_sheet.h"

#include "platform/toolkit/scroll_bar_sheet.h"

namespace Kel {

namespace {

constexpr int kBarWidth = 6; // pixels

} // namespace

CIndexScrollBar* makeScrollBar(QWidget* owner)
{
    auto* const bar = new CIndexScrollBar(0, Qt::Vertical, owner);
    bar->setFixedWidth(kBarWidth);
    bar->setSingleStep(1);
    bar->setRange(0, 0);
    bar->hide();
    applyScrollBarSheet(*bar);
    return bar;
}

void applyScrollBarSheet(CIndexScrollBar& bar)
{
    bar.setStyleSheet(scrollBarSheet());
}

} // namespace Kel
