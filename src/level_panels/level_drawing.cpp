#include "level_panels/level_drawing.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "records/Tolerance.h"

#include <QPainter>
#include <QPixmap>
#include <QThread>
#include <QWidget>

namespace Kel {

namespace {

constexpr const char* kTextFont = "ic_fnt_index_modulegroup_entruststatus_text";
constexpr const char* kPriceFont = "ic_fnt_index_modulegroup_entruststatus_price";
constexpr const char* kAmountFont = "ic_fnt_index_modulegroup_entruststatus_amount";

const Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

} // namespace

const QColor* levelColor(const char* key)
{
    return resource().getColor(QLatin1String(key));
}

const QColor* LevelColors::of(double value, double base) const
{
    if (isLess(value, base))
        return fall;
    return isLess(base, value) ? rise : normal;
}

LevelFonts::LevelFonts()
    : text(resource().getFont(QLatin1String(kTextFont))),
      price(resource().getFont(QLatin1String(kPriceFont))),
      amount(resource().getFont(QLatin1String(kAmountFont)))
{
}

void drawLeft(QPainter& painter, const QRect& box, const QString& text)
{
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, text);
}

void drawRight(QPainter& painter, const QRect& box, const QString& text, const QColor& color)
{
    painter.setPen(color);
    painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter, text);
}

void drawLevel(QPainter& painter, const LevelColumns& columns, int y, int rowHeight,
               const EntrustLevel& level, const EntrustStatusData& data, double close, bool customIndex,
               const LevelColors& colors, const LevelFonts& fonts)
{
    if (!level.valid)
        return;
    const LevelTexts texts = levelTexts(level, data.priceTick, customIndex);
    painter.setFont(*fonts.price);
    drawRight(painter, columns.priceCell(y, rowHeight), texts.price, *colors.of(level.price, close));
    painter.setFont(*fonts.amount);
    drawRight(painter, columns.volumeCell(y, rowHeight), texts.volume, *colors.amount);
    if (!texts.change.isEmpty())
        drawRight(painter, columns.deltaCell(y, rowHeight), texts.change, *colors.of(level.change, 0));
}

void drawLatest(QPainter& painter, const LevelColumns& columns, int y, int rowHeight,
                const EntrustStatusData& data, double close, const LevelColors& colors,
                const LevelFonts& fonts)
{
    if (!isLastPrice(data.lastPrice))
        return;
    painter.setFont(*fonts.price);
    drawRight(painter, columns.priceCell(y, rowHeight),
              Zeb::formatPriceDoubleNumber(data.lastPrice, data.priceTick),
              *colors.of(data.lastPrice, close));
    painter.setFont(*fonts.amount);
    drawRight(painter, columns.newVolumeCell(y, rowHeight), Zeb::formatIntNumber(data.newVolume, 0, 0),
              *colors.newAmount);
}

void drawCellMark(QPainter& painter, const QRect& cell, int topY, const QColor& color)
{
    if (cell.isEmpty())
        return;
    painter.setPen(color);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(cell.translated(0, topY));
}

QPixmap pixmapFor(const QWidget& widget)
{
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap pixmap((QSizeF(widget.size()) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(*levelColor(kLevelGround));
    return pixmap;
}

bool isOfOtherScreen(const QPixmap& pixmap, const QWidget& widget)
{
    return !pixmap.isNull() && pixmap.devicePixelRatioF() != widget.devicePixelRatioF();
}

void AnyThreadUpdate::ask()
{
    if (QThread::currentThread() == m_widget.thread()) {
        m_widget.update();
        return;
    }
    if (m_asked.exchange(true))
        return;
    QMetaObject::invokeMethod(
        &m_widget,
        [this] {
            m_asked = false;
            m_widget.update();
        },
        Qt::QueuedConnection);
}

} // namespace Kel
