#include "platform/toolkit/CBaseTableColumnSimpleTextDelegate.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/focus_ring.h"
#include "platform/utils/CSingletonT.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace Zeb {

namespace {

constexpr int kSide = 4; // room at both sides of a text
const QString kDefaultColor = QStringLiteral("ic_clr_table_text_default");
const QString kSelected = QStringLiteral("clr_edit_selection");

// Laying a text out takes microseconds, and there may be thousands: only those are measured whose letters
// together are the widest.
constexpr std::size_t kTextsMeasured = 32;

CUiResource& resource()
{
    return utils::CSingletonT<CUiResource>::instance();
}

/// Sums the widths of a text's letters, each of which is measured once.
class LetterWidths
{
public:
    explicit LetterWidths(const QFont& font) : m_metrics(font), m_widths(kLetters, kUnknown) {}

    double of(const QString& text)
    {
        double sum = 0;
        for (const QChar letter : text) {
            float& width = m_widths[letter.unicode()];
            if (width < 0)
                width = static_cast<float>(letter.isSurrogate() ? m_metrics.maxWidth() / 2
                                                                : m_metrics.horizontalAdvance(letter));
            sum += static_cast<double>(width);
        }
        return sum;
    }

private:
    static constexpr std::size_t kLetters = 0x10000;
    static constexpr float kUnknown = -1;

    QFontMetricsF m_metrics;
    std::vector<float> m_widths;
};

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
    if (m_items.isEmpty())
        return 0;
    const QFont font = *resource().getFont(m_fontKey);
    LetterWidths letters(font);
    std::vector<std::pair<double, const QString*>> texts; // with about what each takes
    texts.reserve(static_cast<std::size_t>(m_items.size()));
    for (const Item& item : m_items)
        texts.emplace_back(letters.of(item.text), &item.text);
    const std::size_t measured = std::min(texts.size(), kTextsMeasured);
    const auto end = texts.begin() + static_cast<std::ptrdiff_t>(measured);
    std::partial_sort(texts.begin(), end, texts.end(),
                      [](const auto& a, const auto& b) { return a.first > b.first; });
    const QFontMetrics metrics(font);
    int widest = 0;
    for (auto text = texts.begin(); text != end; ++text)
        widest = std::max(widest, metrics.horizontalAdvance(*text->second));
    return widest + 2 * kSide;
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
