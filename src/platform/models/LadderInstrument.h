#pragma once

#include "records/CInstrumentDetail.h"
#include "records/MetaCacheDataWrapper.h"

#include <QString>

namespace Kel {

/// What a ladder model knows of its instrument. A value; the model guards it.
struct LadderInstrument
{
    double priceTick = 0.01; ///< yuan
    double lastClose = 0;    ///< yuan
    int volumeUnit = 100;    ///< shares of a lot, at least 1
    QString stockKey;        ///< "SH600519"; empty without an instrument
    nelservice::CInstrumentDetailPtr detail;

    /// The instrument that the stock manager knows by `code`; an unknown code gives the initial values.
    static LadderInstrument of(const QString& code);

    /// Whether the batch is one of this instrument; never without one.
    bool owns(const MetaCacheDataWrapperPtr& batch) const;

    /// Takes the previous close of the last snapshot in the batch that has one.
    void takeLastClose(const MetaCacheDataWrapper& batch);
};

} // namespace Kel
