#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/CEventDeliverer.h"
#include "records/DepthExport.h"

#include <QLineEdit>

namespace Zeb {

/// Editor of one line that sends event 100 (first number `id`, second 0) at every edit of the user; `setText`
/// and `setInt` are silent. GUI thread.
class DEPTH_EXPORT CLineEdit : public QLineEdit, public CEventDeliverer, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    CLineEdit(int id, QWidget* parent);

    int id() const { return m_id; }

    /// The number as its decimal digits.
    void setInt(int value);

    /// The text as a decimal number; 0 for a text that is none.
    int toInt() const;

    void themeChanged() override;

private:
    int m_id;
};

} // namespace Zeb
