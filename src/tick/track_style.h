#pragma once

#include "records/CInstrumentDetail.h"
#include "records/DepthOrderData.h"

#include <boost/shared_ptr.hpp>

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

/// What the widgets of the track dialog write alike. GUI thread.
namespace Kel {

/// Colours and font of a widget of the dialog, read when it is made: they stay until the dialog is made anew.
/// On a light ground what is white is black, with the same opacity.
struct TrackStyle
{
    TrackStyle();

    /// As `priceColor` and `sideColor` of the theme that the widget was made in.
    const QColor& ofPrice(double price, double reference) const;
    const QColor& ofSide(int side) const;

    QFont font;
    QColor ground;
    QColor caption;
    QColor text;
    QColor ink; ///< over the pie
    QColor rise;
    QColor fall;
    QColor plain;     ///< neither
    QColor selection; ///< outline of a row
    QColor cancelled; ///< of the pie
};

/// The order and the instrument that all widgets of the dialog show. Either may be null.
struct TrackSubject
{
    boost::shared_ptr<nelservice::CInstrumentDetail> detail;
    int volumeUnit = 1; ///< shares per lot
};

/// Lots and "手": 0 for no shares, 1 below a lot, else to the nearest.
QString lotsText(qint64 shares, int unit);

/// The same for a row of a deal, an order or a cancel, which has shares: 1 below a lot.
QString rowLotsText(qint64 shares, int unit);

/// What a row shows.
struct TrackRow
{
    qint64 time = 0; ///< seconds since 1970-01-01 UTC
    double price = 0;
    int side = 0;
    qint64 shares = 0;
};

/// Time, price, lots and amount of one row from `x` to `right`, `height` high. Texts are in the painter's
/// font.
void drawTrackRow(QPainter& painter, const TrackStyle& style, int x, int y, int right, int height,
                  const TrackRow& row, const TrackSubject& subject);

} // namespace Kel
