#include "tick/CSpliterWidget.h"

#include "tick/tick_resources.h"

#include <QPainter>

namespace Kel {

namespace {
constexpr int kHeight = 10;
constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr const char* kLine = "ic_clr_modelgroup_transaction_splitter";
} // namespace

CSpliterWidget::CSpliterWidget(QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("track_spliter_widget"), parent),
      m_ground(*themeColor(kGround)),
      m_line(*themeColor(kLine))
{
    setFixedHeight(kHeight);
}

void CSpliterWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_ground);
    painter.setPen(m_line);
    painter.drawLine(0, height() / 2, width() - 1, height() / 2);
}

} // namespace Kel
