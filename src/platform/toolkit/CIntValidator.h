#pragma once

#include "records/DepthExport.h"

#include <QIntValidator>

namespace Zeb {

/// Lets whole numbers from `least` to `most` pass, in plain digits: no blanks, no separators, a minus sign
/// only if `least` is negative. A text that could still become such a number may be typed but is not
/// acceptable; one that is beyond the far limit cannot be typed at all.
class DEPTH_EXPORT CIntValidator : public QIntValidator
{
    Q_OBJECT

public:
    CIntValidator(int least, int most, QObject* parent);

    State validate(QString& text, int& position) const override;
};

} // namespace Zeb
