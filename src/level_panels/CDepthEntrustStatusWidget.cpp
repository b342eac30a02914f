#include "level_panels/CDepthEntrustStatusWidget.h"

#include "level_panels/level_rules.h"
#include "platform/services/CStockManager.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <utility>

namespace Kel {

namespace {

constexpr const char* kLine = "ic_clr_dialog_stock_splitter";
constexpr const char* kLatestText = "ic_clr_entrust_lastest_text";
constexpr const char* kText = "ic_clr_entrust_default_text";
constexpr const char* kRise = "ic_clr_entrust_text_rise";
constexpr const char* kFall = "ic_clr_entrust_text_fall";
constexpr const char* kAmount = "ic_clr_entrust_amount";
constexpr const char* kNewAmount = "ic_clr_entrust_newvol_amount";

constexpr int kMinimumHeight = 60; // pixels
constexpr int kClipInset = 2;      // pixels at each edge that nothing but the ground is drawn in
constexpr int kLabelX = 3;
constexpr int kFiveLevels = 5;
constexpr int kTenLevels = 10;
constexpr int kFiveLevelStatus = 1;

/// The labels of ten levels a side, built once for all panels.
const QList<QString>& allLabels()
{
    static const QList<QString> labels = {
        QStringLiteral("卖⑩"), QStringLiteral("卖⑨"), QStringLiteral("卖⑧"), QStringLiteral("卖⑦"),
        QStringLiteral("卖⑥"), QStringLiteral("卖⑤"), QStringLiteral("卖④"), QStringLiteral("卖③"),
        QStringLiteral("卖②"), QStringLiteral("卖①"), QStringLiteral("买①"), QStringLiteral("买②"),
        QStringLiteral("买③"), QStringLiteral("买④"), QStringLiteral("买⑤"), QStringLiteral("买⑥"),
        QStringLiteral("买⑦"), QStringLiteral("买⑧"), QStringLiteral("买⑨"), QStringLiteral("买⑩"),
    };
    return labels;
}

} // namespace

CDepthEntrustStatusWidget::CDepthEntrustStatusWidget(QWidget* parent, bool tenLevels)
    : Zeb::CBaseWidget(QStringLiteral("CDepthEntrustStatusWidget"), parent),
      m_tenLevels(tenLevels),
      m_labels(&m_labels1),
      m_labels1(labelsOf(allLabels(), 1)),
      m_labels5(labelsOf(allLabels(), kFiveLevels)),
      m_labels10(labelsOf(allLabels(), kTenLevels))
{
    m_colors.normal = levelColor(kText);
    m_colors.rise = levelColor(kRise);
    m_colors.fall = levelColor(kFall);
    m_colors.amount = levelColor(kAmount);
    m_colors.newAmount = levelColor(kNewAmount);
    setMinimumHeight(kMinimumHeight);
}

CDepthEntrustStatusWidget::~CDepthEntrustStatusWidget()
{
    m_model.clear();
}

void CDepthEntrustStatusWidget::setStock(const QString& code)
{
    m_model.setStock(code);
    m_clickRect = QRect();
    resetShelves();
    update();
}

void CDepthEntrustStatusWidget::clear(bool redraw)
{
    m_model.clear();
    if (!redraw)
        return;
    drawBackground();
    update();
}

void CDepthEntrustStatusWidget::setLevelStatus(int status)
{
    m_tenLevels = status != kFiveLevelStatus;
    resetShelves();
    update();
}

void CDepthEntrustStatusWidget::resetShelves()
{
    const auto instrument = m_model.data().instrument;
    if (!instrument)
        return;
    const QList<QString>* const before = m_labels;
    m_shelves = shelvesOf(getDetailMarket(instrument), m_tenLevels);
    m_labels = m_shelves == kTenLevels ? &m_labels10 : m_shelves == kFiveLevels ? &m_labels5 : &m_labels1;
    if (m_labels != before)
        drawBackground();
}

void CDepthEntrustStatusWidget::getParams(CFormulaParam& params)
{
    m_model.getParams(params);
}

void CDepthEntrustStatusWidget::setPairParamFunc(boost::function<void(QString)> function)
{
    m_pairParamFunc = std::move(function);
}

void CDepthEntrustStatusWidget::setCurrentTradeDateFunc(boost::function<int()> function)
{
    m_currentTradeDateFunc = std::move(function);
}

// Quotes
// ----------------------------------------------------------------------------------------------------------

void CDepthEntrustStatusWidget::quoterCallBack(
    int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records, bool force)
{
    if (!m_model.quoterCallBack(seq, status, records))
        return;
    if (!force && (status != 0 || !records.empty()))
        return;
    m_update.ask();
    logQuoteUpdate(this, "CDepthEntrustStatusWidget", "Kel::CDepthEntrustStatusWidget::quoterCallBack",
                   m_model, status, records);
}

void CDepthEntrustStatusWidget::connectTickData(boost::shared_ptr<quoter::QuoterBase> before,
                                                boost::shared_ptr<quoter::QuoterBase> latest,
                                                long long shares)
{
    m_model.connectTickData(before, latest, shares);
    m_update.ask();
}

// Picture
// ---------------------------------------------------------------------------------------------------------

LevelColumns CDepthEntrustStatusWidget::columns() const
{
    LevelColumns columns;
    columns.panelWidth = m_panelRect.width();
    columns.labelWidth = m_labelWidth;
    columns.priceWidth = m_priceWidth;
    columns.volumeWidth = m_volumeWidth;
    columns.deltaWidth = m_deltaWidth;
    columns.spacing = m_spacing;
    columns.priceZoneWidth = m_priceZoneWidth;
    return columns;
}

std::vector<LevelRow> CDepthEntrustStatusWidget::rows() const
{
    return levelRows(m_shelves, m_rowHeight, m_topY, m_panelRect.bottom(), m_rowHeight);
}

const QColor* CDepthEntrustStatusWidget::getPriceColor(double value, double base) const
{
    return m_colors.of(value, base);
}

void CDepthEntrustStatusWidget::drawBackground()
{
    if (!hasRoom() || m_labels->isEmpty() || m_background.isNull())
        return;
    QPainter painter(&m_background);
    drawBackground(painter);
}

void CDepthEntrustStatusWidget::drawBackground(QPainter& painter)
{
    painter.fillRect(m_panelRect, *levelColor(kLevelGround));
    const int midY = m_rowHeight * m_shelves + m_topY;
    painter.setPen(*levelColor(kLine));
    for (const int y : {midY, midY + m_rowHeight})
        painter.drawLine(m_panelRect.left(), y, m_panelRect.right(), y);
    painter.setClipRect(m_panelRect.adjusted(kClipInset, kClipInset, -kClipInset, -kClipInset));

    painter.setPen(*levelColor(kLatestText));
    painter.setFont(*m_fonts.text);
    drawLeft(painter, QRect(kLabelX, midY, m_labelWidth, m_rowHeight), QStringLiteral("最新"));
    drawLeft(painter, columns().newVolumeLabelCell(midY, m_rowHeight), QStringLiteral("现手"));

    painter.setPen(*levelColor(kText));
    for (const LevelRow& row : rows()) {
        if (row.y + m_rowHeight >= 0)
            drawLeft(painter, QRect(kLabelX, row.y, m_labelWidth, m_rowHeight),
                     labelAt(*m_labels, row.index));
    }
}

void CDepthEntrustStatusWidget::drawForeground(QPainter* painter)
{
    painter->setClipRect(m_panelRect.adjusted(kClipInset, kClipInset, -kClipInset, -kClipInset));
    const EntrustStatusData quote = m_model.data();
    const double close = m_model.getLastClosePrice();
    const bool custom =
        utils::CSingletonT<CStockManager>::instance().isCustomIndex(getDetailQsKey(quote.instrument));

    drawLatest(*painter, columns(), m_shelves * m_rowHeight + m_topY, m_rowHeight, quote, close, m_colors,
               m_fonts);
    drawCellMark(*painter, m_clickRect, m_topY, *m_colors.amount);
    drawCellMark(*painter, m_hoverRect, m_topY, *m_colors.amount);
    for (const LevelRow& row : rows())
        drawLevel(*painter, columns(), row.y, m_rowHeight, levelOfRow(quote, row.index, m_shelves), quote,
                  close, custom, m_colors, m_fonts);
}

void CDepthEntrustStatusWidget::paintEvent(QPaintEvent* event)
{
    if (!isVisible())
        return;
    Zeb::CBaseWidget::paintEvent(event);
    if (isOfOtherScreen(m_background, *this)) {
        m_background = pixmapFor(*this);
        drawBackground();
    }
    QPainter painter(this);
    painter.drawPixmap(m_panelRect, m_background);
    drawForeground(&painter);
}

void CDepthEntrustStatusWidget::resizeEvent(QResizeEvent* event)
{
    Zeb::CBaseWidget::resizeEvent(event);
    if (width() == 0 || height() == 0 || size() == m_panelRect.size())
        return;
    m_panelRect = rect();
    m_clickRect = QRect();
    m_priceZoneWidth = columns().roomForPrice();
    m_topY = (m_panelRect.height() - (2 * m_shelves + 1) * m_rowHeight) / 2;
    m_background = pixmapFor(*this);
    drawBackground();
}

void CDepthEntrustStatusWidget::themeChanged()
{
    drawBackground();
    update();
}

void CDepthEntrustStatusWidget::showEvent(QShowEvent* event)
{
    Zeb::CBaseWidget::showEvent(event);
    m_shown = true;
    drawBackground();
}

void CDepthEntrustStatusWidget::hideEvent(QHideEvent* event)
{
    Zeb::CBaseWidget::hideEvent(event);
    m_shown = false;
}

// Mouse
// -----------------------------------------------------------------------------------------------------------

QRect CDepthEntrustStatusWidget::getCursorRect(int x, int y)
{
    const int row = (y - m_topY) / m_rowHeight;
    if (row < 0 || row > 2 * m_shelves)
        return QRect();
    const LevelColumns current = columns();
    if (current.isLabel(x))
        return QRect(kLabelX, row * m_rowHeight, m_labelWidth, m_rowHeight);
    return current.numberCellAt(x, row * m_rowHeight, m_rowHeight, row == m_shelves);
}

bool CDepthEntrustStatusWidget::doTradeFunc(int, int y, QString& message)
{
    const int row = (y - m_topY) / m_rowHeight;
    if (row < 0 || row > 2 * m_shelves) {
        message = QStringLiteral("不在有效报价范围内!");
        return false;
    }
    const EntrustStatusData quote = m_model.data();
    const QString invalid = QStringLiteral("价无效!");
    if (row == m_shelves) {
        if (isLastPrice(quote.lastPrice))
            return true;
        message = QStringLiteral("最新") + invalid;
        return false;
    }
    // Only the sell side names its level in the message.
    const bool isSell = row < m_shelves;
    if (levelOfRow(quote, isSell ? row : row - 1, m_shelves).valid)
        return true;
    message = isSell ? labelAt(*m_labels, row) + invalid : invalid;
    return false;
}

void CDepthEntrustStatusWidget::mouseMoveEvent(QMouseEvent* event)
{
    Zeb::CBaseWidget::mouseMoveEvent(event);
    const QRect cell = getCursorRect(event->x(), event->y());
    if (!isOtherCell(cell, m_hoverRect))
        return;
    m_hoverRect = cell;
    update();
}

void CDepthEntrustStatusWidget::mousePressEvent(QMouseEvent* event)
{
    Zeb::CBaseWidget::mousePressEvent(event);
    const QRect cell = getCursorRect(event->x(), event->y());
    if (!cell.isEmpty()) {
        QString message;
        doTradeFunc(event->x(), event->y(), message);
    }
    if (!isOtherCell(cell, m_clickRect))
        return;
    m_clickRect = cell;
    update();
}

void CDepthEntrustStatusWidget::leaveEvent(QEvent* event)
{
    Zeb::CBaseWidget::leaveEvent(event);
    m_hoverRect = QRect();
    update();
}

void CDepthEntrustStatusWidget::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

} // namespace Kel
