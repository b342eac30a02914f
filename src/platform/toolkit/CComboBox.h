#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/CEventDeliverer.h"
#include "records/DepthExport.h"

#include <QComboBox>

namespace Zeb {

/// Combo box that sends event 70 (first number `id`, second 0) when the user chooses an item by mouse, wheel
/// or key; `setCurrentIndex` is silent. GUI thread.
class DEPTH_EXPORT CComboBox : public QComboBox, public CEventDeliverer, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    CComboBox(int id, QWidget* parent);

    int id() const { return m_id; }

    /// Adds an item without text whose icon is filled with the theme's colour `colorKey`, in the icon size of
    /// the box, and follows the theme. `name` is what the item is called for those who do not see it.
    void addColorItem(const QString& colorKey, const QString& name);

    void themeChanged() override;

private:
    QIcon colorIcon(const QString& colorKey) const;

    int m_id;
};

} // namespace Zeb
