#pragma once

#include <QDialog>

class QComboBox;
class QDoubleSpinBox;
class QSpinBox;
class QTimeEdit;

namespace host {

/// Asks which order to track: its time, price, lots and side, and the colour of the mark. GUI thread.
class TrackOrderDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TrackOrderDialog(QWidget* parent = nullptr);

    /// What the fields begin with: ms since midnight, yuan, lots, side.
    void setOrder(int timeMs, double price, int lots, int side);

    /// Step and decimals of the price, yuan.
    void setPriceTick(double tick);

    int timeMs() const;   ///< since midnight, exchange time; whole seconds
    double price() const; ///< yuan; exactly that of `setOrder` while nobody has changed it
    int lots() const;
    int side() const;  ///< 1 buy, 2 sell
    int color() const; ///< index of the mark colours

private:
    QTimeEdit* m_time;
    QDoubleSpinBox* m_price;
    QSpinBox* m_lots;
    QComboBox* m_side;
    QComboBox* m_color;
    double m_given = 0; ///< price of `setOrder`
};

} // namespace host
