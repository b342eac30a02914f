#include "host/window/panes/OrderTicket.h"

#include "host/window/language/TerminalLanguage.h"

#include <QFormLayout>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>

namespace host {

namespace {

constexpr int kTypeOfVolume = -1; // a click that gave a volume and no price
constexpr int kMargin = 10;       // pixels
constexpr int kSpacing = 6;

const QString kNothing = QStringLiteral("--");

struct PriceWords
{
    int type;
    const char* words;
};

constexpr PriceWords kWords[] = {
    {0, "卖五"},      {1, "卖四"},    {2, "卖三"},  {3, "卖二"},  {4, "卖一"},  {5, "最新价"},
    {6, "买一"},      {7, "买二"},    {8, "买三"},  {9, "买四"},  {10, "买五"}, {11, "限价"},
    {12, "涨跌停价"}, {14, "对手价"}, {30, "卖六"}, {31, "卖七"}, {32, "卖八"}, {33, "卖九"},
    {34, "卖十"},     {35, "买六"},   {36, "买七"}, {37, "买八"}, {38, "买九"}, {39, "买十"},
};

} // namespace

QString priceTypeWords(int type)
{
    for (const PriceWords& entry : kWords) {
        if (entry.type == type)
            return uiText(entry.words);
    }
    return {};
}

OrderTicket::OrderTicket(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("OrderTicket"));
    setAttribute(Qt::WA_StyledBackground);
    auto* form = new QFormLayout(this);
    form->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    form->setSpacing(kSpacing);
    m_stock = addField("证券", QStringLiteral("TicketStock"));
    m_priceType = addField("报价方式", QStringLiteral("TicketPriceType"));
    m_price = addField("价格（元）", QStringLiteral("TicketPrice"));
    m_volume = addField("数量（手）", QStringLiteral("TicketVolume"));
    auto* note = new QLabel(this);
    keepSaid(note, [note] { note->setText(uiText("点击盘口填入；本票据不发送委托")); });
    note->setObjectName(QStringLiteral("TicketNote"));
    note->setWordWrap(true);
    form->addRow(note);
    clear({});
}

QLabel* OrderTicket::addField(const char* name, const QString& objectName)
{
    auto* field = new QLabel(this);
    field->setObjectName(objectName);
    field->setProperty("field", true);
    field->setTextFormat(Qt::PlainText);
    field->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* label = new QLabel(this);
    static_cast<QFormLayout*>(layout())->addRow(label, field);
    keepSaid(label, [label, field, name] {
        label->setText(uiText(name));
        field->setAccessibleName(label->text());
    });
    return field;
}

void OrderTicket::take(const QString& parameters)
{
    const QJsonObject fields = QJsonDocument::fromJson(parameters.toUtf8()).object();
    const auto read = [&fields](const char* key, QString& to) {
        const QJsonValue value = fields.value(QLatin1String(key));
        to = value.toString();
        return value.isString();
    };
    QString stock;
    QString type;
    QString price;
    QString volume;
    if (!read("stockcode", stock) || !read("pricetype", type) || !read("price", price) ||
        !read("vol", volume))
        return;
    bool number = false;
    const int priceType = type.toInt(&number);
    if (!number)
        return;
    if (stock != m_stock->text())
        clear(stock);
    if (priceType == kTypeOfVolume) {
        m_volume->setText(volume);
        return;
    }
    const QString words = priceTypeWords(priceType);
    m_priceType->setText(words.isEmpty() ? type : words);
    // A click on a label right of the panel's middle gives a volume with it, any other a price.
    if (price.toDouble() != 0)
        m_price->setText(price);
    if (volume.toInt() != 0)
        m_volume->setText(volume);
}

void OrderTicket::clear(const QString& stock)
{
    m_stock->setText(stock.isEmpty() ? kNothing : stock);
    for (QLabel* field : {m_priceType, m_price, m_volume})
        field->setText(kNothing);
}

QString OrderTicket::stock() const
{
    return m_stock->text();
}

QString OrderTicket::priceType() const
{
    return m_priceType->text();
}

QString OrderTicket::price() const
{
    return m_price->text();
}

QString OrderTicket::volume() const
{
    return m_volume->text();
}

} // namespace host
