#include "platform/toolkit/CBaseDialog.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"

#include <QAbstractSpinBox>
#include <QLineEdit>

namespace Zeb {

namespace {
constexpr int kEventPressed = 5;
const QString kFontKey = QStringLiteral("fnt_default_normal");
} // namespace

CBaseDialog::CBaseDialog(QWidget* parent) : CEventWidgetT<QDialog>(parent), CEventDeliverer(this)
{
    CBaseDialog::themeChanged();
}

bool CBaseDialog::handleEvent(int id, int first, int, QString, void*)
{
    if (id != kEventPressed || first != kCloseId)
        return false;
    done(Rejected);
    return true;
}

void CBaseDialog::done(int result)
{
    if (!hasEnded())
        QDialog::done(result);
}

void CBaseDialog::reject()
{
    if (!hasEnded())
        handleEvent(kEventPressed, kCloseId, 0, QString(), nullptr);
}

void CBaseDialog::themeChanged()
{
    setFont(*utils::CSingletonT<CUiResource>::instance().getFont(kFontKey));
    giveSheet(this, windowSheet());
    giveFontToEditors();
    update();
}

void CBaseDialog::giveFontToEditors()
{
    // A widget under a style sheet does not take its parent's font by itself.
    const QFont& font = *utils::CSingletonT<CUiResource>::instance().getFont(kFontKey);
    for (auto* editor : findChildren<QAbstractSpinBox*>()) {
        editor->setFont(font);
        for (auto* line : editor->findChildren<QLineEdit*>())
            line->setFont(font);
    }
}

void CBaseDialog::showEvent(QShowEvent* event)
{
    m_wasShown = true;
    giveFontToEditors();
    QDialog::showEvent(event);
}

} // namespace Zeb
