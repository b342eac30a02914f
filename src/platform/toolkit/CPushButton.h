#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/CEventDeliverer.h"
#include "records/DepthExport.h"

#include <QPushButton>

namespace Zeb {

/// Button that shows a picture of the theme, a text, or both, and sends an event when it is clicked: 5 (first
/// number `id`, second 0) unless told otherwise. With a picture and no text it has the size of its picture.
/// Clicks do not take the keyboard focus away from a panel; the tab key reaches the button. GUI thread.
class DEPTH_EXPORT CPushButton : public QPushButton, public CEventDeliverer, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    /// Keys of the colours of a button's four states.
    struct StateKeys
    {
        QString normal;
        QString hover;
        QString press; ///< also while the button is checked
        QString disable;
    };

    /// An empty `imageKey` makes a button without a picture.
    CPushButton(const QString& imageKey, int id, QWidget* parent);

    int id() const { return m_id; }
    const QString& imageKey() const { return m_imageKey; }

    /// No border; the ground shows only under the mouse, while pressed or checked. True at first.
    void setAutoRaise(bool autoRaise);
    bool autoRaise() const { return m_autoRaise; }

    /// Grounds and texts instead of the common ones; a ground that is given shows in every state, whatever
    /// `autoRaise` says.
    void setColorKeys(const StateKeys& grounds, const StateKeys& texts);

    /// What a click sends, instead of 5 with the id and 0: pages of a panel ask for 302.
    void setClickEvent(int event, int first, int second);

    void themeChanged() override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const QString& stateKey(const StateKeys& keys) const;
    void send();

    QString m_imageKey;
    int m_id;
    int m_clickEvent;
    int m_clickFirst;
    int m_clickSecond = 0;
    bool m_autoRaise = true;
    bool m_ownGround = false;
    StateKeys m_grounds;
    StateKeys m_texts;
};

} // namespace Zeb
