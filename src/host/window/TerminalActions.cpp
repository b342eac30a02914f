#include "host/window/TerminalActions.h"

#include "holographic/CDepthHolographicWidget.h"
#include "host/window/workspace/layouts.h"
#include "tick/CDepthTransactionWidget.h"

#include <QAbstractButton>
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace host {

namespace {

constexpr int kMinute = 60;

QString modeName(Kel::EQueueMode mode)
{
    return QStringLiteral("mode%1").arg(int(mode));
}

/// Whether a key presses a button, opens a choice, shows the tip of a selected deal or makes the rows of a
/// chart higher or lower.
bool isOwnKey(const QWidget& widget, const QKeyEvent& event)
{
    const bool isControl = (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
    if (isControl && (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down))
        return qobject_cast<const Kel::CDepthHolographicWidget*>(&widget) != nullptr;
    if (event.key() != Qt::Key_Space)
        return false;
    const auto* deals = qobject_cast<const Kel::CDepthTransactionWidget*>(&widget);
    return (deals && deals->selectedRow() >= 0) || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget);
}

QString colorsName(Zeb::EPriceColors colors)
{
    return QStringLiteral("colors%1").arg(int(colors));
}

} // namespace

TerminalActions::TerminalActions(QMainWindow* window) : QObject(window), m_window(window)
{
    makeFileMenu();
    makeReplayMenu();
    makeModeMenu();
    makePaneMenu();
    makeLookMenu();
    makeToolBar();
    qApp->installEventFilter(this);
}

/// What a focused widget does with a key is its own, whatever the window uses the key for.
bool TerminalActions::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    for (auto* widget = qobject_cast<QWidget*>(watched); widget; widget = widget->parentWidget()) {
        if (m_window->isAncestorOf(widget) && isOwnKey(*widget, *static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
    }
    return false;
}

QAction* TerminalActions::action(const QString& name) const
{
    return findChild<QAction*>(name);
}

QAction* TerminalActions::add(QMenu* menu, const char* name, const QString& text, const QString& shortcut)
{
    auto* action = new QAction(text, this);
    action->setObjectName(QString::fromLatin1(name));
    if (!shortcut.isEmpty()) {
        action->setShortcut(QKeySequence(shortcut));
        action->setToolTip(text + QStringLiteral("（") + shortcut + QStringLiteral("）"));
    }
    menu->addAction(action);
    return action;
}

void TerminalActions::makeFileMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("文件(&F)"));
    connect(add(menu, "openArchive", QStringLiteral("打开日档案…"), QStringLiteral("Ctrl+O")),
            &QAction::triggered, this, &TerminalActions::archiveAsked);
    connect(add(menu, "openImport", QStringLiteral("导入行情文件夹…"), QStringLiteral("Ctrl+I")),
            &QAction::triggered, this, &TerminalActions::importAsked);
    connect(add(menu, "openSimulation", QStringLiteral("模拟交易所"), QStringLiteral("Ctrl+N")),
            &QAction::triggered, this, &TerminalActions::simulationAsked);
    menu->addSeparator();
    connect(add(menu, "quit", QStringLiteral("退出"), QStringLiteral("Ctrl+Q")), &QAction::triggered, this,
            &TerminalActions::quitAsked);
}

void TerminalActions::makeReplayMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("回放(&P)"));
    connect(add(menu, "play", QStringLiteral("播放"), QStringLiteral("Space")), &QAction::triggered, this,
            &TerminalActions::playToggled);
    connect(add(menu, "faster", QStringLiteral("加快"), QStringLiteral("Ctrl+Up")), &QAction::triggered, this,
            [this] { Q_EMIT speedStep(1); });
    connect(add(menu, "slower", QStringLiteral("放慢"), QStringLiteral("Ctrl+Down")), &QAction::triggered,
            this, [this] { Q_EMIT speedStep(-1); });
    menu->addSeparator();
    connect(add(menu, "forward", QStringLiteral("前进一分钟"), QStringLiteral("Ctrl+Right")),
            &QAction::triggered, this, [this] { Q_EMIT timeStep(kMinute); });
    connect(add(menu, "back", QStringLiteral("后退一分钟"), QStringLiteral("Ctrl+Left")), &QAction::triggered,
            this, [this] { Q_EMIT timeStep(-kMinute); });
    connect(add(menu, "jump", QStringLiteral("跳到时间…"), QStringLiteral("Ctrl+G")), &QAction::triggered,
            this, &TerminalActions::jumpAsked);
}

QAction* TerminalActions::addMode(QMenu* menu, QActionGroup* group, const char* name, const QString& text,
                                  const QString& shortcut, Kel::EQueueMode mode)
{
    QAction* action = add(menu, name, text, shortcut);
    action->setObjectName(modeName(mode));
    action->setCheckable(true);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, mode] { takeMode(mode); });
    return action;
}

void TerminalActions::makeModeMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("队列(&Q)"));
    auto* levels = new QActionGroup(this);
    addMode(menu, levels, "", QStringLiteral("五档"), QStringLiteral("Ctrl+5"), Kel::eQueueFiveLevels);
    addMode(menu, levels, "", QStringLiteral("十档"), QStringLiteral("Ctrl+0"), Kel::eQueueTenLevels);
    menu->addSeparator();
    auto* styles = new QActionGroup(this);
    addMode(menu, styles, "", QStringLiteral("首档明细"), QStringLiteral("Ctrl+1"), Kel::eQueueDetailFirst);
    addMode(menu, styles, "", QStringLiteral("横向"), QStringLiteral("Ctrl+2"), Kel::eQueueDetailHorizontal);
    addMode(menu, styles, "", QStringLiteral("纵向"), QStringLiteral("Ctrl+3"), Kel::eQueueDetailVertical);
    addMode(menu, styles, "", QStringLiteral("列表"), QStringLiteral("Ctrl+4"), Kel::eQueueDetailList);
    menu->addSeparator();
    QAction* full = add(menu, "full", QStringLiteral("全部委托"), QStringLiteral("Ctrl+F"));
    full->setCheckable(true);
    connect(full, &QAction::triggered, this,
            [this](bool on) { takeMode(on ? Kel::eQueueFull : Kel::eQueueNotFull); });
}

void TerminalActions::makeLookMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("外观(&V)"));
    auto* themes = new QActionGroup(this);
    const auto addTheme = [&](const char* name, const QString& text) {
        QAction* action = add(menu, name, text, QString());
        action->setCheckable(true);
        themes->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, theme = QString::fromLatin1(name)] { Q_EMIT themeChosen(theme); });
    };
    addTheme("dark", QStringLiteral("深色"));
    addTheme("light", QStringLiteral("浅色"));
    QAction* other = add(menu, "otherTheme", QStringLiteral("切换深浅"), QStringLiteral("Ctrl+T"));
    connect(other, &QAction::triggered, this, [this] {
        const bool dark = action(QStringLiteral("dark"))->isChecked();
        Q_EMIT themeChosen(dark ? QStringLiteral("light") : QStringLiteral("dark"));
    });
    menu->addSeparator();
    auto* colors = new QActionGroup(this);
    const auto addColors = [&](Zeb::EPriceColors which, const QString& text, const QString& shortcut) {
        QAction* action = add(menu, "", text, shortcut);
        action->setObjectName(colorsName(which));
        action->setCheckable(true);
        colors->addAction(action);
        connect(action, &QAction::triggered, this, [this, which] { Q_EMIT colorsChosen(which); });
    };
    addColors(Zeb::EPriceColors::eRedUp, QStringLiteral("红涨绿跌"), QStringLiteral("Alt+1"));
    addColors(Zeb::EPriceColors::eGreenUp, QStringLiteral("绿涨红跌"), QStringLiteral("Alt+2"));
    addColors(Zeb::EPriceColors::eColorBlind, QStringLiteral("色盲友好（橙涨蓝跌）"),
              QStringLiteral("Alt+3"));
}

void TerminalActions::makePaneMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("窗格(&W)"));
    int number = 0;
    for (const Layout& layout : shippedLayouts()) {
        const QString key = QStringLiteral("Ctrl+Shift+%1").arg(++number);
        QAction* action = add(menu, "", layout.title, key);
        action->setObjectName(QStringLiteral("layout_") + layout.id);
        connect(action, &QAction::triggered, this, [this, id = layout.id] { Q_EMIT layoutChosen(id); });
    }
    menu->addSeparator();
    m_layoutMenu = menu->addMenu(QStringLiteral("我的布局"));
    connect(add(menu, "saveLayout", QStringLiteral("保存布局…"), QStringLiteral("Ctrl+Shift+S")),
            &QAction::triggered, this, &TerminalActions::saveLayoutAsked);
    connect(add(menu, "removeLayout", QStringLiteral("删除布局…"), QString()), &QAction::triggered, this,
            &TerminalActions::removeLayoutAsked);
    showSavedLayouts({});
    menu->addSeparator();
    connect(add(menu, "filter", QStringLiteral("筛选逐笔列表…"), QStringLiteral("Ctrl+L")),
            &QAction::triggered, this, &TerminalActions::filterAsked);
    connect(add(menu, "wholeDay", QStringLiteral("全息图显示全天"), QStringLiteral("Ctrl+D")),
            &QAction::triggered, this, &TerminalActions::wholeDayAsked);
    connect(add(menu, "latestDeals", QStringLiteral("全息图显示最近成交"), QStringLiteral("Ctrl+R")),
            &QAction::triggered, this, &TerminalActions::latestDealsAsked);
    connect(add(menu, "strip", QStringLiteral("全息条"), QStringLiteral("Ctrl+H")), &QAction::triggered, this,
            &TerminalActions::stripAsked);
    menu->addSeparator();
    connect(add(menu, "copy", QStringLiteral("复制选中行"), QStringLiteral("Ctrl+C")), &QAction::triggered,
            this, &TerminalActions::copyAsked);
    connect(add(menu, "csvUtf8", QStringLiteral("导出 CSV（UTF-8）…"), QStringLiteral("Ctrl+E")),
            &QAction::triggered, this, [this] { Q_EMIT tableAsked(false); });
    connect(add(menu, "csvGbk", QStringLiteral("导出 CSV（GBK）…"), QStringLiteral("Ctrl+Shift+E")),
            &QAction::triggered, this, [this] { Q_EMIT tableAsked(true); });
    connect(add(menu, "picture", QStringLiteral("导出图片…"), QStringLiteral("Ctrl+P")), &QAction::triggered,
            this, &TerminalActions::pictureAsked);
    menu->addSeparator();
    connect(add(menu, "track", QStringLiteral("跟踪委托…"), QStringLiteral("Ctrl+K")), &QAction::triggered,
            this, &TerminalActions::trackAsked);
    connect(add(menu, "trackEnd", QStringLiteral("结束跟踪"), QStringLiteral("Ctrl+Shift+K")),
            &QAction::triggered, this, &TerminalActions::trackEndAsked);
    menu->addSeparator();
    m_paneMenu = menu;
}

void TerminalActions::showSavedLayouts(const QStringList& names)
{
    m_layoutMenu->clear();
    m_layoutMenu->setEnabled(!names.isEmpty());
    for (const QString& name : names) {
        // An ampersand of the name is no mnemonic.
        QAction* action =
            m_layoutMenu->addAction(QString(name).replace(QLatin1Char('&'), QLatin1String("&&")));
        connect(action, &QAction::triggered, this, [this, name] { Q_EMIT savedLayoutChosen(name); });
    }
    if (QAction* remove = action(QStringLiteral("removeLayout")))
        remove->setEnabled(!names.isEmpty());
}

void TerminalActions::addPanes(const QList<QAction*>& toggles)
{
    m_paneMenu->addActions(toggles);
}

void TerminalActions::makeToolBar()
{
    QToolBar* bar = m_window->addToolBar(QStringLiteral("工具栏"));
    bar->setObjectName(QStringLiteral("ToolBar"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    for (const Kel::EQueueMode mode : {Kel::eQueueFiveLevels, Kel::eQueueTenLevels})
        bar->addAction(action(modeName(mode)));
    bar->addSeparator();
    for (const Kel::EQueueMode mode : {Kel::eQueueDetailFirst, Kel::eQueueDetailHorizontal,
                                       Kel::eQueueDetailVertical, Kel::eQueueDetailList})
        bar->addAction(action(modeName(mode)));
    bar->addAction(action(QStringLiteral("full")));
    bar->addSeparator();
    for (const Layout& layout : shippedLayouts())
        bar->addAction(action(QStringLiteral("layout_") + layout.id));
    bar->addSeparator();
    bar->addAction(action(QStringLiteral("otherTheme")));
}

void TerminalActions::takeMode(Kel::EQueueMode mode)
{
    if (mode == Kel::eQueueFull || mode == Kel::eQueueNotFull)
        m_modes.full = mode == Kel::eQueueFull;
    else if (mode == Kel::eQueueFiveLevels || mode == Kel::eQueueTenLevels)
        m_modes.levels = mode;
    else
        m_modes.style = mode;
    Q_EMIT modesChosen(m_modes);
}

void TerminalActions::showModes(const QueueModes& modes)
{
    m_modes = modes;
    action(modeName(modes.levels))->setChecked(true);
    action(modeName(modes.style))->setChecked(true);
    action(QStringLiteral("full"))->setChecked(modes.full);
}

void TerminalActions::showTheme(const QString& theme)
{
    if (QAction* known = action(theme))
        known->setChecked(true);
}

void TerminalActions::showColors(Zeb::EPriceColors colors)
{
    action(colorsName(colors))->setChecked(true);
}

void TerminalActions::showPlaying(bool playing)
{
    action(QStringLiteral("play"))->setText(playing ? QStringLiteral("暂停") : QStringLiteral("播放"));
}

} // namespace host
