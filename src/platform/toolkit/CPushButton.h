#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/CEventDeliverer.h"

#include <QPushButton>

namespace Zeb {

/// Button that shows a picture of the theme and sends event 5 (first number `id`, second 0) when clicked. It
/// has the size of its picture. GUI thread.
class CPushButton : public QPushButton, public CEventDeliverer, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    CPushButton(const QString& imageKey, int id, QWidget* parent);

    int id() const { return m_id; }
    const QString& imageKey() const { return m_imageKey; }

    void themeChanged() override;

private:
    QString m_imageKey;
    int m_id;
};

} // namespace Zeb
