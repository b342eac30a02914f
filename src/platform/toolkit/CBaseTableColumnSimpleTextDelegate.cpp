#include "platform/toolkit/CBaseTableColumnSimpleTextDelegate.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/focus_ring.h"
#include "platform/utils/CSingletonT.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace Zeb {

namespace {

constexpr int kSide = 4; // room at both sides of a text
const QString kDefaultColor = QStringLiteral("ic_clr_table_text_default");
const QString kSelected = QStringLiteral("clr_edit_selection");

CUiResource& resource()
{
    return utils::CSingletonT<CUiResource>::instance();
}

} // namespace

CBaseTableColumnSimpleTextDelegate::CBaseTableColumnSimpleTextDelegate(const QString& fontKey,
                                                                       QObject* parent)
    : QStyledItemDelegate(parent), m_fontKey(fontKey)
{
}

void CBaseTableColumnSimpleTextDelegate::setItemText(const QString& key, const QString& text)
{
    m_items[key].text = text;
    emit itemTextChanged(key, text);
}

QString CBaseTableColumnSimpleTextDelegate::itemText(const QString& key) const
{
    return m_items.value(key).text;
}

void CBaseTableColumnSimpleTextDelegate::setItemClickable(const QString& key, bool clickable)
{
    m_items[key].clickable = clickable;
}

bool CBaseTableColumnSimpleTextDelegate::isItemClickable(const QString& key) const
{
    return m_items.value(key).clickable;
}

void CBaseTableColumnSimpleTextDelegate::setItemColorKey(const QString& key, const QString& colorKey)
{
    m_items[key].colorKey = colorKey;
}

int CBaseTableColumnSimpleTextDelegate::preferredWidth() const
{
    const QFontMetrics metrics(*resource().getFont(m_fontKey));
    // Texts are measured from the longest down, until none that is left can be wider.
    const int widestLetter = std::max(metrics.maxWidth(), 1);
    std::vector<const QString*> texts;
    texts.reserve(static_cast<std::size_t>(m_items.size()));
    for (const Item& item : m_items)
        texts.push_back(&item.text);
    std::sort(texts.begin(), texts.end(), [](const auto* a, const auto* b) { return a->size() > b->size(); });
    int widest = 0;
    for (const QString* text : texts) {
        if (text->size() * widestLetter <= widest)
            break;
        widest = std::max(widest, metrics.horizontalAdvance(*text));
    }
    return texts.empty() ? 0 : widest + 2 * kSide;
}

void CBaseTableColumnSimpleTextDelegate::clear()
{
    m_items.clear();
}

void CBaseTableColumnSimpleTextDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                               const QModelIndex& index) const
{
    const Item item = m_items.value(QString::number(index.row()));
    painter->save();
    if (option.state & QStyle::State_Selected)
        painter->fillRect(option.rect, *resource().getColor(kSelected));
    QFont font = *resource().getFont(m_fontKey);
    font.setUnderline(item.clickable && (option.state & QStyle::State_MouseOver));
    painter->setFont(font);
    painter->setPen(*resource().getColor(item.colorKey.isEmpty() ? kDefaultColor : item.colorKey));
    const QRect rect = option.rect.adjusted(kSide, 0, -kSide, 0);
    const QString text = QFontMetrics(font).elidedText(item.text, Qt::ElideRight, rect.width());
    painter->drawText(rect, Qt::AlignLeft | Qt::AlignVCenter, text);
    painter->restore();
    if (option.state & QStyle::State_HasFocus)
        drawFocusRing(*painter, option.rect);
}

QSize CBaseTableColumnSimpleTextDelegate::sizeHint(const QStyleOptionViewItem&,
                                                   const QModelIndex& index) const
{
    const QFontMetrics metrics(*resource().getFont(m_fontKey));
    const QString text = itemText(QString::number(index.row()));
    return QSize(metrics.horizontalAdvance(text) + 2 * kSide, metrics.height());
}

void CBaseTableColumnSimpleTextDelegate::activate(int row)
{
    const QString key = QString::number(row);
    if (!isItemClickable(key))
        return;
    // Later: a listener may open a dialog, in which the table can go, and the view is in the middle of the
    // event.
    QMetaObject::invokeMethod(
        this, [this, key] { emit itemClicked(key); }, Qt::QueuedConnection);
}

bool CBaseTableColumnSimpleTextDelegate::editorEvent(QEvent* event, QAbstractItemModel*,
                                                     const QStyleOptionViewItem&, const QModelIndex& index)
{
    if (event->type() != QEvent::MouseButtonRelease ||
        static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton ||
        !isItemClickable(QString::number(index.row())))
        return false;
    activate(index.row());
    return true;
}

} // namespace Zeb
