#include "platform/toolkit/CComboBox.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"

#include <QAbstractItemView>

namespace Zeb {

namespace {

constexpr int kEventChosen = 70;
constexpr int kColorKeyRole = Qt::UserRole + 70;

CUiResource& resource()
{
    return utils::CSingletonT<CUiResource>::instance();
}

} // namespace

CComboBox::CComboBox(int id, QWidget* parent) : QComboBox(parent), CEventDeliverer(this), m_id(id)
{
    connect(this, QOverload<int>::of(&QComboBox::activated), this,
            [this] { deliverEvent(kEventChosen, m_id, 0, QString(), nullptr); });
    CComboBox::themeChanged();
}

void CComboBox::addColorItem(const QString& colorKey, const QString& name)
{
    const int index = count();
    addItem(colorIcon(colorKey), QString());
    setItemData(index, colorKey, kColorKeyRole);
    setItemData(index, name, Qt::AccessibleTextRole);
}

void CComboBox::themeChanged()
{
    setFont(*resource().getFont(QStringLiteral("fnt_default_normal")));
    giveSheet(this, comboBoxSheet());
    for (int index = 0; index < count(); ++index) {
        const QString colorKey = itemData(index, kColorKeyRole).toString();
        if (!colorKey.isEmpty())
            setItemIcon(index, colorIcon(colorKey));
    }
}

QIcon CComboBox::colorIcon(const QString& colorKey) const
{
    QPixmap picture(iconSize());
    picture.fill(*resource().getColor(colorKey));
    return QIcon(picture);
}

} // namespace Zeb
