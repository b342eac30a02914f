#include "host/window/TerminalActions.h"

#include "holographic/CDepthHolographicWidget.h"
#include "host/window/keys/PlaceShortcuts.h"
#include "host/window/language/TerminalLanguage.h"
#include "tick/CDepthTransactionWidget.h"

#include <QAbstractButton>
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>

namespace host {

namespace {

constexpr int kMinute = 60;
constexpr Kel::EQueueMode kModes[] = {Kel::eQueueFiveLevels,     Kel::eQueueTenLevels,
                                      Kel::eQueueDetailFirst,    Kel::eQueueDetailHorizontal,
                                      Kel::eQueueDetailVertical, Kel::eQueueDetailList};
constexpr Zeb::EPriceColors kColors[] = {Zeb::EPriceColors::eRedUp, Zeb::EPriceColors::eGreenUp,
                                         Zeb::EPriceColors::eColorBlind};

QString modeName(Kel::EQueueMode mode)
{
    return QStringLiteral("mode%1").arg(int(mode));
}

QString colorsName(Zeb::EPriceColors colors)
{
    return QStringLiteral("colors%1").arg(int(colors));
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

} // namespace

TerminalActions::TerminalActions(QMainWindow* window)
    : QObject(window), m_window(window), m_keyMap(new KeyMap(this))
{
    nameDoers();
    connect(m_keyMap, &KeyMap::changed, this, &TerminalActions::dress);
    makeMenus();
    makeToolBar();
    keepSaid(this, [this] {
        for (const QString& id : m_keyMap->ids())
            dress(id);
    });
    new PlaceShortcuts(window, [this](const QKeySequence& key) { return action(m_keyMap->commandOf(key)); });
    qApp->installEventFilter(this);
}

void TerminalActions::serve(QWidget* window)
{
    for (const QString& id : m_keyMap->ids())
        window->addAction(m_actions.value(id));
    new PlaceShortcuts(window, [this](const QKeySequence& key) { return action(m_keyMap->commandOf(key)); });
}

/// What a focused widget does with a key is its own, whatever the window uses the key for.
bool TerminalActions::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    for (auto* widget = qobject_cast<QWidget*>(watched); widget; widget = widget->parentWidget()) {
        if (isOwnKey(*widget, *static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
    }
    return false;
}

QAction* TerminalActions::action(const QString& name) const
{
    return m_actions.value(name);
}

/// What the commands with a signal of their own do; all others are told by their id.
void TerminalActions::nameDoers()
{
    const auto name = [this](const char* id, const std::function<void()>& doer) {
        m_doers.insert(QString::fromLatin1(id), doer);
    };
    name("openArchive", [this] { Q_EMIT archiveAsked(); });
    name("openImport", [this] { Q_EMIT importAsked(); });
    name("openSimulation", [this] { Q_EMIT simulationAsked(); });
    name("quit", [this] { Q_EMIT quitAsked(); });
    name("play", [this] { Q_EMIT playToggled(); });
    name("faster", [this] { Q_EMIT speedStep(1); });
    name("slower", [this] { Q_EMIT speedStep(-1); });
    name("forward", [this] { Q_EMIT timeStep(kMinute); });
    name("back", [this] { Q_EMIT timeStep(-kMinute); });
    name("jump", [this] { Q_EMIT jumpAsked(); });
    for (const Kel::EQueueMode mode : kModes)
        m_doers.insert(modeName(mode), [this, mode] { takeMode(mode); });
    name("full", [this] {
        takeMode(action(QStringLiteral("full"))->isChecked() ? Kel::eQueueFull : Kel::eQueueNotFull);
    });
    for (const char* layout : {"queue", "tick", "chart", "pair"}) {
        const QString id = QString::fromLatin1(layout);
        m_doers.insert(QStringLiteral("layout_") + id, [this, id] { Q_EMIT layoutChosen(id); });
    }
    name("saveLayout", [this] { Q_EMIT saveLayoutAsked(); });
    name("removeLayout", [this] { Q_EMIT removeLayoutAsked(); });
    name("filter", [this] { Q_EMIT filterAsked(); });
    name("wholeDay", [this] { Q_EMIT wholeDayAsked(); });
    name("latestDeals", [this] { Q_EMIT latestDealsAsked(); });
    name("strip", [this] { Q_EMIT stripAsked(); });
    name("copy", [this] { Q_EMIT copyAsked(); });
    name("csvUtf8", [this] { Q_EMIT tableAsked(false); });
    name("csvGbk", [this] { Q_EMIT tableAsked(true); });
    name("picture", [this] { Q_EMIT pictureAsked(); });
    name("track", [this] { Q_EMIT trackAsked(); });
    name("trackEnd", [this] { Q_EMIT trackEndAsked(); });
    for (const char* theme : {"dark", "light"})
        name(theme, [this, theme] { Q_EMIT themeChosen(QString::fromLatin1(theme)); });
    name("otherTheme", [this] {
        const bool dark = action(QStringLiteral("dark"))->isChecked();
        Q_EMIT themeChosen(dark ? QStringLiteral("light") : QStringLiteral("dark"));
    });
    for (const Zeb::EPriceColors colors : kColors)
        m_doers.insert(colorsName(colors), [this, colors] { Q_EMIT colorsChosen(colors); });
}

void TerminalActions::ask(const QString& id)
{
    const auto doer = m_doers.constFind(id);
    if (doer != m_doers.constEnd())
        (*doer)();
    else
        Q_EMIT commandAsked(id);
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
    m_playing = playing;
    dress(QStringLiteral("play"));
}

void TerminalActions::showGroup(int group)
{
    if (QAction* shown = action(QStringLiteral("group%1").arg(group))) {
        shown->setChecked(true);
        return;
    }
    QActionGroup* groups = m_choices.value(QStringLiteral("group"));
    if (QAction* checked = groups->checkedAction()) {
        groups->setExclusive(false);
        checked->setChecked(false);
        groups->setExclusive(true);
    }
}

} // namespace host
