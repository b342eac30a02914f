#pragma once

#include "platform/toolkit/CCommonDialog.h"
#include "records/DepthExport.h"
#include "records/SDepthFilterParam.h"

#include <string>

class QTimeEdit;

namespace Zeb {
class CCheckBox;
class CComboBox;
class CLineEdit;
class CMediumNormalButton;
class CWidgetList;
} // namespace Zeb

namespace Kel {

/// Edits what a tick list keeps and marks. Modal; ends with 1 when it was confirmed, else with 0. After a
/// confirmation take the record by `getFilterParam`, which alone reads the time editors.
///
/// What was confirmed last is kept as JSON text and put back into the controls when the user cancels; before
/// the first confirmation nothing is put back. The text restores controls alone: the record keeps what the
/// user has changed in it. GUI thread.
class DEPTH_EXPORT CDepthFilterSettingDialog : public Zeb::CCommonDialog
{
    Q_OBJECT

public:
    CDepthFilterSettingDialog(eDepthFilterType type, QWidget* parent);
    ~CDepthFilterSettingDialog() override;

    /// The record, its time range as the editors show it.
    SDepthFilterParam& getFilterParam();

protected:
    void createUi();

    /// Puts the controls at their start values, the mark's editor empty; the record stays.
    void clear();

    /// Puts what was confirmed last into the controls; nothing before the first confirmation.
    void setParam();

    /// Keeps what the controls show as what was confirmed last.
    void saveParam();

    bool handleEvent(int id, int first, int second, QString text, void* data) override;

    eDepthFilterType m_filterType;
    Zeb::CLineEdit* m_markEdit = nullptr;
    Zeb::CLineEdit* m_volumeEdit = nullptr;
    Zeb::CLineEdit* m_amountEdit = nullptr;
    Zeb::CComboBox* m_colorCombo = nullptr;
    Zeb::CMediumNormalButton* m_com1Button = nullptr;
    Zeb::CMediumNormalButton* m_com2Button = nullptr;
    Zeb::CMediumNormalButton* m_relateButton = nullptr;
    QTimeEdit* m_startEdit = nullptr;
    QTimeEdit* m_endEdit = nullptr;
    Zeb::CCheckBox* m_buyCheck = nullptr; ///< this and the next three are null for the deal list
    Zeb::CCheckBox* m_sellCheck = nullptr;
    Zeb::CCheckBox* m_unbuyCheck = nullptr;
    Zeb::CCheckBox* m_unsellCheck = nullptr;
    std::string m_paramJson; ///< empty until the first confirmation
    SDepthFilterParam m_param;

private:
    bool isDeals() const { return m_filterType == eDepthFilterTransaction; }
    Zeb::CWidgetList* addRow(Zeb::CWidgetList* column);
    void addMarkRow(Zeb::CWidgetList* column);
    void addFilterRow(Zeb::CWidgetList* column);
    void addTimeRow(Zeb::CWidgetList* column);
    void addTypeRow(Zeb::CWidgetList* column);
    void addButtonRow(Zeb::CWidgetList* column);
    Zeb::CLineEdit* numberEdit(int id, int most, const QString& name);
    void pressed(int id);
    bool controlPressed(int id);
    void checked(int id);
    void edited(int id);
};

} // namespace Kel
