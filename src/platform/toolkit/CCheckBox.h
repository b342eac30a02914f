#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/CEventDeliverer.h"
#include "records/DepthExport.h"

#include <QCheckBox>

namespace Zeb {

/// Check box that sends event 67 (first number `id`, second 0) when the user turns it over by mouse or key;
/// `setChecked` is silent. GUI thread.
class DEPTH_EXPORT CCheckBox : public QCheckBox, public CEventDeliverer, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    CCheckBox(const QString& text, int id, QWidget* parent);

    int id() const { return m_id; }

    void themeChanged() override;

private:
    int m_id;
};

} // namespace Zeb
