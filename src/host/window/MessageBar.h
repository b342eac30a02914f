#pragma once

#include <QFrame>
#include <QString>
#include <QTimer>

class QLabel;
class QToolButton;

namespace host {

/// A line of text above the panels for what went wrong or was done. It never takes the keyboard focus, and a
/// person may close it with its button or the escape key. GUI thread.
class MessageBar : public QFrame
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    /// Stays until it is closed or replaced.
    void showError(const QString& text);

    /// Goes away by itself after some seconds.
    void showNote(const QString& text);

    /// The whole text, whatever of it fits.
    QString text() const { return m_text; }
    bool isError() const { return m_error; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void put(const QString& text, bool error);
    void elide();

    QString m_text;
    bool m_error = false;
    QLabel* m_label;
    QToolButton* m_close;
    QTimer m_timer;
};

} // namespace host
