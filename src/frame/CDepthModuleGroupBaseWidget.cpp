#include "frame/CDepthModuleGroupBaseWidget.h"

#include "frame/header_title.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/CIndexScrollBar.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/utils/CSingletonT.h"
#include "records/EQueueMode.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace Kel {

namespace {

constexpr int kEventButton = 5;
constexpr int kEventModeWanted = 1396;
constexpr int kSecondApply = 1; // second number of event 5 that makes a panel take the mode over

constexpr const char* kImageTenLevels = "kel_img_depth_data_ten";
constexpr const char* kImageFiveLevels = "kel_img_depth_data_five";
constexpr const char* kImageFirst = "kel_img_depth_detai_first";
constexpr const char* kImageList = "kel_img_depth_detail_list";
constexpr const char* kImageVertical = "kel_img_depth_detail_vertical";
constexpr const char* kImageHorizontal = "kel_img_depth_detail_horizontal";
constexpr const char* kImageFilter = "kel_img_depth_filter_first";
constexpr const char* kImageShrink = "kel_img_depth_panel_shrink";
constexpr const char* kImageExtend = "kel_img_depth_panel_extend";

Zeb::CUiResource& theme()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

/// The modes' buttons have no tips, so a screen reader would have nothing to say of their pictures.
void nameForReaders(const std::list<Zeb::CPushButton*>& buttons, std::initializer_list<const char*> names)
{
    auto name = names.begin();
    for (Zeb::CPushButton* button : buttons)
        button->setAccessibleName(QString::fromUtf8(*name++));
}

} // namespace

CDepthModuleGroupBaseWidget::CDepthModuleGroupBaseWidget(QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("CDepthModuleGroupBaseWidget"), parent)
{
    addButton(m_levelButtons, kImageTenLevels, eQueueTenLevels, QString());
    addButton(m_levelButtons, kImageFiveLevels, eQueueFiveLevels, QString());
    addButton(m_styleButtons, kImageFirst, eQueueDetailFirst, QString());
    addButton(m_styleButtons, kImageList, eQueueDetailList, QString());
    addButton(m_styleButtons, kImageVertical, eQueueDetailVertical, QString());
    addButton(m_styleButtons, kImageHorizontal, eQueueDetailHorizontal, QString());
    nameForReaders(m_levelButtons, {"十档", "五档"});
    nameForReaders(m_styleButtons, {"首档明细", "列表", "纵向", "横向"});
    m_filterButton = new Zeb::CPushButton(QString::fromLatin1(kImageFilter), eQueueFilter, this);
    m_filterButton->setToolTip(QStringLiteral("逐笔成交过滤"));
    m_filterButton->hide();
    addButton(m_panelButtons, kImageShrink, eQueuePanelShrink, QStringLiteral("收起买卖单"));
    addButton(m_panelButtons, kImageExtend, eQueuePanelExtend, QStringLiteral("显示买卖单"));
    CIndexScrollBar::attachWidget(this, this, true, true);
}

CDepthModuleGroupBaseWidget::~CDepthModuleGroupBaseWidget()
{
    m_actionHandler = nullptr;
}

void CDepthModuleGroupBaseWidget::addButton(ButtonList& list, const char* imageKey, int id,
                                            const QString& toolTip)
{
    auto* button = new Zeb::CPushButton(QString::fromLatin1(imageKey), id, this);
    button->setToolTip(toolTip);
    button->hide();
    list.push_back(button);
}

void CDepthModuleGroupBaseWidget::setWidget(QWidget* widget)
{
    m_widget = widget;
}

void CDepthModuleGroupBaseWidget::setHeader(const QString& header)
{
    m_header = header;
    update();
}

void CDepthModuleGroupBaseWidget::setDrawSplit(bool draw)
{
    m_drawSplit = draw;
    update();
}

void CDepthModuleGroupBaseWidget::setActionHandler(std::function<void(int)> handler)
{
    m_actionHandler = std::move(handler);
}

void CDepthModuleGroupBaseWidget::setQueueModel(int mode)
{
    for (ButtonList* list : {&m_levelButtons, &m_styleButtons, &m_panelButtons}) {
        while (holds(*list, mode) && list->front()->id() != mode)
            cycle(*list);
    }
    deliverEvent(kEventButton, mode, kSecondApply, QString(), nullptr);
}

void CDepthModuleGroupBaseWidget::showQueueActionImage(bool show)
{
    m_showQueueAction = show;
    if (show)
        m_showExtendShrink = false;
    refreshImages();
}

void CDepthModuleGroupBaseWidget::showExtendShrinkImage(bool show)
{
    m_showExtendShrink = show;
    if (show)
        m_showQueueAction = false;
    refreshImages();
}

void CDepthModuleGroupBaseWidget::showFilterImage(bool show)
{
    m_filterButton->setVisible(show);
    refreshImages();
}

void CDepthModuleGroupBaseWidget::refreshImages()
{
    repaint();
    QPainter unused; // the buttons paint themselves
    if (m_showQueueAction)
        drawQueueActionImage(unused);
    if (m_showExtendShrink)
        drawExtendShrinkActionImage(unused);
}

void CDepthModuleGroupBaseWidget::drawQueueActionImage(QPainter&)
{
    m_levelButtons.front()->show();
    m_styleButtons.front()->show();
}

void CDepthModuleGroupBaseWidget::drawExtendShrinkActionImage(QPainter&)
{
    m_panelButtons.front()->show();
}

bool CDepthModuleGroupBaseWidget::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    if (id != kEventButton)
        return Zeb::CBaseWidget::handleEvent(id, first, second, text, pointer);
    if (first == eQueueFilter)
        return false;
    for (ButtonList* list : {&m_levelButtons, &m_styleButtons}) {
        if (holds(*list, first)) {
            deliverEvent(kEventModeWanted, cycle(*list), 0, QString(), nullptr);
            return true;
        }
    }
    if (holds(m_panelButtons, first)) {
        // The handler may replace itself, and may end the frame.
        const QPointer<CDepthModuleGroupBaseWidget> self = this;
        if (const std::function<void(int)> handler = m_actionHandler)
            handler(first);
        if (self)
            cycle(m_panelButtons);
        return true;
    }
    deliverEvent(kEventModeWanted, first, 0, QString(), nullptr);
    return true;
}

bool CDepthModuleGroupBaseWidget::holds(const ButtonList& list, int id)
{
    return std::any_of(list.begin(), list.end(),
                       [id](const Zeb::CPushButton* button) { return button->id() == id; });
}

/// Shows the next button of a cycle and gives its id.
int CDepthModuleGroupBaseWidget::cycle(ButtonList& list)
{
    list.front()->hide();
    if (list.size() > 1)
        list.splice(list.end(), list, list.begin());
    list.front()->show();
    return list.front()->id();
}

void CDepthModuleGroupBaseWidget::resizeEvent(QResizeEvent* event)
{
    Zeb::CBaseWidget::resizeEvent(event);
    resizeLayout();
}

void CDepthModuleGroupBaseWidget::resizeLayout()
{
    if (m_widget)
        m_widget->setGeometry(0, m_headerHeight, width(), height() - m_headerHeight);

    const int modeWidth = m_levelButtons.front()->width();
    for (Zeb::CPushButton* button : m_levelButtons)
        button->move(width() - 2 * modeWidth, 0);
    for (Zeb::CPushButton* button : m_styleButtons)
        button->move(width() - modeWidth, 0);

    const int foldWidth = m_panelButtons.front()->width();
    for (Zeb::CPushButton* button : m_panelButtons)
        button->move(width() - foldWidth, 0);
    if (m_filterButton)
        m_filterButton->move(width() - foldWidth - m_filterButton->width(), 0);
}

void CDepthModuleGroupBaseWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawFrame(painter);
}

void CDepthModuleGroupBaseWidget::drawFrame(QPainter& painter)
{
    // Grounds
    painter.fillRect(0, m_headerHeight, width(), height() - m_headerHeight, *theme().getColor(m_clrBg));
    painter.fillRect(0, 0, width(), m_headerHeight, *theme().getColor(m_clrHeaderBg));

    drawHeader(painter);

    if (m_drawSplit) {
        painter.setPen(*theme().getColor(m_clrSplit));
        painter.drawLine(0, m_headerHeight, width(), m_headerHeight);
    }
}

void CDepthModuleGroupBaseWidget::drawHeader(QPainter& painter)
{
    const QColor text = *theme().getColor(m_clrHeader);
    painter.setPen(text);
    painter.setFont(*theme().getFont(m_fntHeader));
    const QFontMetrics metrics = painter.fontMetrics();

    const QStringList parts = m_header.split(QLatin1Char('\n'), Qt::KeepEmptyParts);
    if (parts.size() < 2) {
        painter.drawText(titleOrigin(m_header, width(), m_headerHeight, metrics), m_header);
        return;
    }
    for (const TitleColumn& column : titleColumns(parts, width(), m_levelButtons.front()->width(), metrics)) {
        painter.setPen(text);
        painter.drawText(column.rect, Qt::AlignHCenter | Qt::AlignTop, column.text);
        if (column.splitLine >= 0) {
            painter.setPen(*theme().getColor(m_clrSplit));
            painter.drawLine(column.splitLine, 0, column.splitLine, m_headerHeight);
        }
    }
}

} // namespace Kel
