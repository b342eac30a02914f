#include "host/window/workspace/TrackOrderDialog.h"

#include "host/window/language/TerminalLanguage.h"
#include "platform/resources/CUiResource.h"
#include "platform/resources/mark_colors.h"
#include "platform/utils/CSingletonT.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPixmap>
#include <QPushButton>
#include <QTimeEdit>

#include <cmath>

namespace host {

namespace {

constexpr int kBuy = 1;
constexpr int kSell = 2;
constexpr int kMostLots = 100000000;
constexpr double kMostPrice = 1000000; // yuan
constexpr double kUsualTick = 0.01;    // yuan
constexpr int kSwatch = 14;            // pixels
constexpr int kMostDecimals = 4;
const char* const kColorNames[] = {"浅蓝", "紫", "深蓝", "黄"};

int decimalsOf(double tick)
{
    int decimals = 0;
    while (decimals < kMostDecimals && std::fabs(tick - std::round(tick)) > 1e-6) {
        tick *= 10;
        ++decimals;
    }
    return decimals;
}

} // namespace

TrackOrderDialog::TrackOrderDialog(QWidget* parent)
    : QDialog(parent),
      m_time(new QTimeEdit),
      m_price(new QDoubleSpinBox),
      m_lots(new QSpinBox),
      m_side(new QComboBox),
      m_color(new QComboBox)
{
    setObjectName(QStringLiteral("TrackOrderDialog"));
    setWindowTitle(uiText("跟踪委托"));
    m_time->setDisplayFormat(QStringLiteral("HH:mm:ss"));
    m_price->setRange(0, kMostPrice);
    m_lots->setRange(1, kMostLots);
    m_side->addItem(uiText("买入"), kBuy);
    m_side->addItem(uiText("卖出"), kSell);
    auto& theme = utils::CSingletonT<Zeb::CUiResource>::instance();
    for (int i = 0; i < static_cast<int>(std::size(kColorNames)); ++i) {
        QPixmap swatch(kSwatch, kSwatch);
        swatch.fill(*theme.getColor(QString::fromLatin1(Kel::markColorKey(i))));
        m_color->addItem(swatch, uiText(kColorNames[i]), i);
    }
    setPriceTick(kUsualTick);

    auto* form = new QFormLayout(this);
    form->addRow(uiText("时间"), m_time);
    form->addRow(uiText("价格（元）"), m_price);
    form->addRow(uiText("数量（手）"), m_lots);
    form->addRow(uiText("方向"), m_side);
    form->addRow(uiText("颜色"), m_color);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(uiText("跟踪"));
    buttons->button(QDialogButtonBox::Cancel)->setText(uiText("取消"));
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void TrackOrderDialog::setPriceTick(double tick)
{
    m_price->setDecimals(decimalsOf(tick));
    m_price->setSingleStep(tick);
}

void TrackOrderDialog::setOrder(int timeMs, double price, int lots, int side)
{
    m_time->setTime(QTime::fromMSecsSinceStartOfDay(timeMs));
    m_price->setValue(price);
    m_given = price;
    m_lots->setValue(lots);
    m_side->setCurrentIndex(m_side->findData(side == kSell ? kSell : kBuy));
}

int TrackOrderDialog::timeMs() const
{
    const QTime time = m_time->time();
    return QTime(time.hour(), time.minute(), time.second()).msecsSinceStartOfDay();
}

double TrackOrderDialog::price() const
{
    // What stands in the field is rounded; orders are found by their exact price.
    const double shown = m_price->value();
    return std::fabs(shown - m_given) < m_price->singleStep() / 2 ? m_given : shown;
}

int TrackOrderDialog::lots() const
{
    return m_lots->value();
}

int TrackOrderDialog::side() const
{
    return m_side->currentData().toInt();
}

int TrackOrderDialog::color() const
{
    return m_color->currentData().toInt();
}

} // namespace host
