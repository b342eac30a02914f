#pragma once

#include <QString>
#include <QTime>

/// What the controls of the filter dialog are known by. For the files of the dialog and its tests.
namespace Kel {

enum EFilterControl
{
    eMarkControl = 0, ///< this and the next six: the place of the field that they edit
    eColorControl = 1,
    eVolumeComparison = 2,
    eVolumeControl = 3,
    eRelation = 4,
    eAmountComparison = 5,
    eAmountControl = 6,
    eBuyControl = 7,
    eSellControl = 8,
    eUnbuyControl = 9,
    eUnsellControl = 10,
    eConfirmControl = 11,
    eCancelControl = 12,
};

// Texts of the toggles
inline const QString kAtLeast = QStringLiteral("≥");
inline const QString kMoreThan = QStringLiteral("＞");
inline const QString kExactly = QStringLiteral("=");
inline const QString kOr = QStringLiteral("或");
inline const QString kAnd = QStringLiteral("且");

// Where the time editors start
inline const QTime kStartTime(9, 15, 0);
inline const QTime kEndTime(15, 40, 0);

} // namespace Kel
