#pragma once

#include "platform/toolkit/CBaseWidget.h"
#include "records/DepthExport.h"

#include <QPointer>
#include <QString>

#include <functional>
#include <list>

class QPainter;

namespace Zeb {
class CPushButton;
}

namespace Kel {

/// The frame of one panel: a header strip with a title and cycle buttons, and below it a body, which may be
/// any widget. A button shows the mode that is in force and asks for the next one by event 1396; the frame
/// changes no mode by itself, `setQueueModel` does. GUI thread.
class DEPTH_EXPORT CDepthModuleGroupBaseWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    explicit CDepthModuleGroupBaseWidget(QWidget* parent = nullptr);
    ~CDepthModuleGroupBaseWidget() override;

    /// The body, which stays its owner's and may end before the frame; null for none. It gets its place at
    /// the next change of the frame's size, so set it before the first one.
    void setWidget(QWidget* widget);

    /// The title; a line feed divides it into columns.
    void setHeader(const QString& header);

    /// Draws a line under the strip.
    void setDrawSplit(bool draw);

    /// Is called with 10 (fold away) or 8 (unfold) when the fold button is pressed, before the button
    /// changes. Empty for none.
    void setActionHandler(std::function<void(int)> handler);

    /// Brings the button of a mode (`EQueueMode`) to the front of its cycle, if there is one, and sends event
    /// 5 with the mode and 1, by which a panel takes the mode over.
    void setQueueModel(int mode);

    /// Show the level and style buttons, the fold button, the filter button. The first two take turns: true
    /// for one makes the other's flag false. What was shown once stays until a cycle hides it; false hides
    /// the filter button only.
    void showQueueActionImage(bool show);
    void showExtendShrinkImage(bool show);
    void showFilterImage(bool show);

    bool handleEvent(int id, int first, int second, QString text, void* pointer) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    /// The picture of the frame: grounds, title, lines.
    void drawFrame(QPainter& painter);

private:
    using ButtonList = std::list<Zeb::CPushButton*>;

    void addButton(ButtonList& list, const char* imageKey, int id, const QString& toolTip);
    static bool holds(const ButtonList& list, int id);
    int cycle(ButtonList& list);
    void resizeLayout();
    void refreshImages();
    void drawQueueActionImage(QPainter& painter);
    void drawExtendShrinkActionImage(QPainter& painter);
    void drawHeader(QPainter& painter);

    int m_headerHeight = 20;
    QString m_clrHeaderBg = QStringLiteral("kel_clr_depth_module_group_base_widget_header_bg");
    QString m_fntHeader = QStringLiteral("fnt_default_normal");
    QString m_clrHeader = QStringLiteral("kel_clr_depth_module_group_base_widget_header");
    QString m_clrSplit = QStringLiteral("kel_clr_depth_module_group_base_widget_split_line");
    QString m_clrBg = QStringLiteral("kel_clr_depth_module_group_base_widget_bg");
    QString m_header;
    bool m_drawSplit = false;
    QPointer<QWidget> m_widget;
    Zeb::CPushButton* m_filterButton = nullptr;
    ButtonList m_levelButtons;
    ButtonList m_spareButtons; ///< stays empty
    ButtonList m_styleButtons;
    ButtonList m_panelButtons;
    bool m_showQueueAction = false;
    bool m_showExtendShrink = false;
    std::function<void(int)> m_actionHandler;
};

} // namespace Kel
