#pragma once

#include "platform/toolkit/CCommonDialog.h"
#include "records/DepthExport.h"

#include <QString>

namespace Kel {

/// Dialog for one item of information. Used as `utils::CSingletonT<Kel::CInfoItemDialog>::instance()`. GUI
/// thread.
class DEPTH_EXPORT CInfoItemDialog : public Zeb::CCommonDialog
{
    Q_OBJECT

public:
    CInfoItemDialog();
    ~CInfoItemDialog() override;

    /// Shows nothing yet: it is there so that hosts can be built against it.
    void showInfoItem(const QString& title, const QString& text);

private:
    void createUi();
};

} // namespace Kel
