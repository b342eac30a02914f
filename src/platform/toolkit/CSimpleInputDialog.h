#pragma once

#include "platform/toolkit/CCommonDialog.h"
#include "records/DepthExport.h"

#include <functional>

class QValidator;

namespace Zeb {

class CLineEdit;
class CMediumNormalButton;
class CSimpleTextWidget;

/// Dialog that asks for one line of text. It can be confirmed only while the text satisfies its validator.
/// GUI thread.
class DEPTH_EXPORT CSimpleInputDialog : public CCommonDialog
{
    Q_OBJECT

public:
    /// Told of the confirmed text.
    using Callback = std::function<void(const QString&)>;

    /// With an empty `label` the editor has the row to itself.
    CSimpleInputDialog(const QString& title, const QString& label, QWidget* parent);

    /// What may be entered; the dialog becomes the parent. Null allows every text.
    void setValidator(QValidator* validator);

    void setText(const QString& text);
    QString text() const;

    /// Shows the dialog until it ends and, if it was confirmed, calls `callback`. True if it was. Returns
    /// false at once if the dialog is open already.
    bool getInput(const Callback& callback);

    bool handleEvent(int id, int first, int second, QString text, void* payload) override;

private:
    void updateConfirm();

    CLineEdit* m_edit;
    CMediumNormalButton* m_confirm;
};

} // namespace Zeb
