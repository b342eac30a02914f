#include "tick/CEntrustTitleWidget.h"

#include "platform/toolkit/CPushButton.h"
#include "tick/tick_resources.h"

#include <QPainter>

namespace Kel {

namespace {

constexpr int kHeight = 22;
constexpr int kTextLeft = 5;
constexpr int kButtonRoom = 20; // from the right edge
constexpr int kButtonTop = 1;
constexpr int kFilterButton = 0;

constexpr const char* kFont = "fnt_default_normal";
constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr const char* kTextColor = "kel_clr_depth_module_group_base_widget_header";
constexpr const char* kLineColor = "kel_clr_depth_module_group_base_widget_split_line";
constexpr const char* kFilterImage = "kel_img_depth_filter_first";

} // namespace

CEntrustTitleWidget::CEntrustTitleWidget(const QString& title, QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("entrust_title_widget"), parent),
      m_text(title),
      m_button(new Zeb::CPushButton(QLatin1String(kFilterImage), kFilterButton, this))
{
    setFixedHeight(kHeight);
    m_button->setToolTip(QStringLiteral("过滤"));
    m_button->setAccessibleName(title + QStringLiteral("过滤"));
}

void CEntrustTitleWidget::resizeEvent(QResizeEvent* event)
{
    Zeb::CBaseWidget::resizeEvent(event);
    m_button->move(width() - kButtonRoom, kButtonTop);
}

void CEntrustTitleWidget::paintEvent(QPaintEvent*)
{
    if (!isVisible())
        return;
    QPainter painter(this);
    drawTitle(painter);
}

void CEntrustTitleWidget::drawTitle(QPainter& painter)
{
    painter.fillRect(rect(), *themeColor(kGround));
    painter.setPen(*themeColor(kLineColor));
    painter.drawLine(0, height() - 1, width() - 1, height() - 1);
    painter.setPen(*themeColor(kTextColor));
    painter.setFont(*themeFont(kFont));
    painter.drawText(QRect(kTextLeft, 0, width(), height()), Qt::AlignLeft | Qt::AlignVCenter,
                     m_text + QStringLiteral(" - ") + QString::number(m_count) + QStringLiteral("笔"));
}

} // namespace Kel
