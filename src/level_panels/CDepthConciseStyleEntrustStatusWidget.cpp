#include "level_panels/CDepthConciseStyleEntrustStatusWidget.h"

#include "level_panels/level_rules.h"
#include "platform/services/instrument_functions.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

#include <utility>

namespace Kel {

namespace {

constexpr const char* kText = "ic_clr_concise_entrust_default_text";
constexpr const char* kRise = "ic_clr_concise_entrust_text_rise";
constexpr const char* kFall = "ic_clr_concise_entrust_text_fall";
constexpr const char* kAmount = "ic_clr_concise_entrust_amount";

constexpr int kMinimumHeight = 60; // pixels
constexpr int kFiveLevels = 5;
constexpr int kTenLevels = 10;
constexpr int kFiveLevelStatus = 1;

/// The labels of ten levels a side, built once for all panels.
const QList<QString>& allLabels()
{
    static const QList<QString> labels = {
        QStringLiteral("卖十"), QStringLiteral("卖九"), QStringLiteral("卖八"), QStringLiteral("卖七"),
        QStringLiteral("卖六"), QStringLiteral("卖五"), QStringLiteral("卖四"), QStringLiteral("卖三"),
        QStringLiteral("卖二"), QStringLiteral("卖一"), QStringLiteral("买一"), QStringLiteral("买二"),
        QStringLiteral("买三"), QStringLiteral("买四"), QStringLiteral("买五"), QStringLiteral("买六"),
        QStringLiteral("买七"), QStringLiteral("买八"), QStringLiteral("买九"), QStringLiteral("买十"),
    };
    return labels;
}

} // namespace

CDepthConciseStyleEntrustStatusWidget::CDepthConciseStyleEntrustStatusWidget(QWidget* parent, bool tenLevels)
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
    m_colors.newAmount = levelColor(kAmount);
    setMinimumHeight(kMinimumHeight);
}

CDepthConciseStyleEntrustStatusWidget::~CDepthConciseStyleEntrustStatusWidget()
{
    m_model.clear();
}

void CDepthConciseStyleEntrustStatusWidget::setStock(const QString& code)
{
    m_model.setStock(code);
    m_clickRect = QRect();
    resetShelves();
    update();
}

void CDepthConciseStyleEntrustStatusWidget::clear(bool redraw)
{
    m_model.clear();
    if (!redraw)
        return;
    drawBackground();
    update();
}

void CDepthConciseStyleEntrustStatusWidget::setLevelStatus(int status)
{
    m_tenLevels = status != kFiveLevelStatus;
    resetShelves();
    update();
}

void CDepthConciseStyleEntrustStatusWidget::resetShelves()
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

void CDepthConciseStyleEntrustStatusWidget::getParams(CFormulaParam& params)
{
    m_model.getParams(params);
}

void CDepthConciseStyleEntrustStatusWidget::setPairParamFunc(boost::function<void(QString)> function)
{
    m_pairParamFunc = std::move(function);
}

void CDepthConciseStyleEntrustStatusWidget::setCurrentTradeDateFunc(boost::function<int()> function)
{
    m_currentTradeDateFunc = std::move(function);
}

void CDepthConciseStyleEntrustStatusWidget::quoterCallBack(
    int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records, bool force)
{
    if (!m_model.quoterCallBack(seq, status, records))
        return;
    if (!force && (status != 0 || !records.empty()))
        return;
    m_update.ask();
    logQuoteUpdate(this, "CDepthConciseStyleEntrustStatusWidget",
                   "Kel::CDepthConciseStyleEntrustStatusWidget::quoterCallBack", m_model, status, records);
}

void CDepthConciseStyleEntrustStatusWidget::connectTickData(boost::shared_ptr<quoter::QuoterBase> before,
                                                            boost::shared_ptr<quoter::QuoterBase> latest,
                                                            long long shares)
{
    m_model.connectTickData(before, latest, shares);
    m_update.ask();
}

// Size and visibility
// ---------------------------------------------------------------------------------------------

void CDepthConciseStyleEntrustStatusWidget::paintEvent(QPaintEvent* event)
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

void CDepthConciseStyleEntrustStatusWidget::resizeEvent(QResizeEvent* event)
{
    Zeb::CBaseWidget::resizeEvent(event);
    if (width() == 0 || height() == 0 || size() == m_panelRect.size())
        return;
    m_panelRect = rect();
    m_clickRect = QRect();
    m_priceZoneWidth = columns().roomForPrice();
    m_topY = 0;
    m_background = pixmapFor(*this);
    if (m_shown)
        drawBackground();
}

void CDepthConciseStyleEntrustStatusWidget::themeChanged()
{
    drawBackground();
    update();
}

void CDepthConciseStyleEntrustStatusWidget::showEvent(QShowEvent* event)
{
    Zeb::CBaseWidget::showEvent(event);
    m_shown = true;
    drawBackground();
}

void CDepthConciseStyleEntrustStatusWidget::hideEvent(QHideEvent* event)
{
    Zeb::CBaseWidget::hideEvent(event);
    m_shown = false;
}

// Mouse
// -----------------------------------------------------------------------------------------------------------

QRect CDepthConciseStyleEntrustStatusWidget::getCursorRect(int x, int y)
{
    const int row = rowAt(y);
    m_showTip = row == 0;
    if (row <= 0)
        return QRect();
    return columns().numberCellAt(x, row * m_rowHeight, m_rowHeight, row - 1 == m_shelves);
}

bool CDepthConciseStyleEntrustStatusWidget::doTradeFunc(int x, int y, QString& message)
{
    const int row = rowAt(y) - 1;
    if (row < 0 || row > 2 * m_shelves) {
        message = QStringLiteral("不在有效报价范围内!");
        return false;
    }
    const EntrustStatusData quote = m_model.data();
    const bool middleRow = row == m_shelves;
    const bool isSell = row < m_shelves;
    QString label = QStringLiteral("最新");
    bool valid = isLastPrice(quote.lastPrice);
    double rowPrice = quote.lastPrice;
    int rowVolume = quote.newVolume;
    if (!middleRow) {
        const int index = isSell ? row : row - 1;
        const EntrustLevel level = levelOfRow(quote, index, m_shelves);
        label = labelAt(*m_labels, index);
        valid = level.valid;
        rowPrice = level.price;
        rowVolume = level.volume;
    }
    if (!valid) {
        // The buy side's message does not name its level.
        message = (isSell || middleRow ? label : QString()) + QStringLiteral("价无效!");
        return false;
    }

    // Either a price or a volume goes out, by the half of the panel that was clicked.
    const bool leftHalf = x < width() / 2;
    const double price = leftHalf ? rowPrice : 0;
    const int volume = leftHalf ? 0 : rowVolume;
    const LevelColumns current = columns();
    int type = 0;
    if (current.isLabel(x))
        type = priceTypeOf(label);
    else if (current.isPrice(x))
        type = kOtherPriceType;
    else if (middleRow ? current.isNewVolume(x) : current.isVolume(x))
        type = kVolumePriceType;
    else
        return true;
    // The rows of a former instrument stay though the code set last is unknown: nobody can trade by them.
    if (m_pairParamFunc && quote.instrument) {
        const auto send = m_pairParamFunc; // the host may set another one meanwhile
        send(tradeText(getDetailQsKey(quote.instrument), type, price, volume));
    }
    return true;
}

void CDepthConciseStyleEntrustStatusWidget::mouseMoveEvent(QMouseEvent* event)
{
    Zeb::CBaseWidget::mouseMoveEvent(event);
    const bool showedTip = m_showTip;
    const QRect cell = getCursorRect(event->x(), event->y());
    const bool isOther = isOtherCell(cell, m_hoverRect);
    if (isOther)
        m_hoverRect = cell;
    if (isOther || m_showTip != showedTip)
        update();
}

void CDepthConciseStyleEntrustStatusWidget::mousePressEvent(QMouseEvent* event)
{
    Zeb::CBaseWidget::mousePressEvent(event);
    const bool showedTip = m_showTip;
    const QRect cell = getCursorRect(event->x(), event->y());
    // A label is no cell that is marked, but it gives its price type.
    if (!cell.isEmpty() || columns().isLabel(event->x())) {
        const QPointer<QWidget> self = this; // who receives the parameters may close the panel
        const QString stock = getDetailQsKey(m_model.data().instrument);
        QString message;
        doTradeFunc(event->x(), event->y(), message);
        if (!self) {
            event->accept(); // or it would go on to a parent that nobody can ask for any more
            return;
        }
        if (getDetailQsKey(m_model.data().instrument) != stock)
            return; // or may choose another instrument, of which no cell was clicked
    }
    const bool isOther = isOtherCell(cell, m_clickRect);
    if (isOther)
        m_clickRect = cell;
    if (isOther || m_showTip != showedTip)
        update();
}

void CDepthConciseStyleEntrustStatusWidget::leaveEvent(QEvent* event)
{
    Zeb::CBaseWidget::leaveEvent(event);
    m_hoverRect = QRect();
    m_showTip = false;
    update();
}

void CDepthConciseStyleEntrustStatusWidget::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

} // namespace Kel
