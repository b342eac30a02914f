#pragma once

#include <QString>
#include <QWidget>

class QLabel;

namespace host {

/// Words of the number by which a trade's parameters name the kind of their price ("卖一", "限价"); empty for
/// the number of a click that gave no price, and for numbers that stand for nothing.
QString priceTypeWords(int type);

/// A small order ticket: it shows what a click on the quote panel would fill in, and sends nothing. A price
/// leaves the volume that was taken before, and a volume the price. GUI thread.
class OrderTicket : public QWidget
{
    Q_OBJECT

public:
    explicit OrderTicket(QWidget* parent = nullptr);

    /// Takes the parameters of a trade, a line of JSON with the texts "stockcode", "pricetype", "price" and
    /// "vol". What is not such a line, or lacks one of them, changes nothing.
    void take(const QString& parameters);

    /// Empties the ticket for an instrument.
    void clear(const QString& stock);

    // What the fields show; "--" for nothing.
    QString stock() const;
    QString priceType() const;
    QString price() const;  ///< yuan
    QString volume() const; ///< lots

private:
    QLabel* addField(const char* name, const QString& objectName);

    QLabel* m_stock = nullptr;
    QLabel* m_priceType = nullptr;
    QLabel* m_price = nullptr;
    QLabel* m_volume = nullptr;
};

} // namespace host
