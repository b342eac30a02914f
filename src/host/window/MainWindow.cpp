#include "host/window/MainWindow.h"

#include "host/window/InstrumentList.h"
#include "host/window/MessageBar.h"
#include "host/window/ReplayBar.h"
#include "host/window/TerminalActions.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/panes/DealsPane.h"
#include "host/window/panes/InformationPane.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/settings/applied_look.h"
#include "host/window/window_style.h"
#include "host/window/workspace/Workspace.h"
#include "host/window/workspace/Workspaces.h"
#include "platform/resources/CUiResource.h"
#include "platform/services/external_data.h"
#include "platform/toolkit/style_sheets.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <QApplication>
#include <QFileDialog>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace host {

namespace {

constexpr int kFollowMs = 100; // between two looks at the replay's time
constexpr QSize kUsualSize(1600, 960);
constexpr const char* kTitle = "深度行情终端";
constexpr std::int64_t kUsualTimeOfDay = (9 * 60 + 30) * 60 * utils::kMSecPerSecond; // the open

Zeb::CUiResource& theme()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

} // namespace

MainWindow::MainWindow(const TerminalOptions& options)
    : m_options(options),
      m_player(std::make_unique<ReplayPlayer>()),
      m_loader(std::make_unique<DayLoader>()),
      m_workspace(new Workspace(this)),
      m_workspaces(new Workspaces(m_workspace, this)),
      m_list(new InstrumentList),
      m_bar(new ReplayBar),
      m_messages(new MessageBar),
      m_actions(new TerminalActions(this))
{
    setObjectName(QStringLiteral("MainWindow"));
    loadSettings();
    takeLook(m_options, m_settings);
    applyLook(m_settings, m_services);
    Kel::setExternalDataDir(options.externalData);
    makePanes();
    makeLayout();
    applyStyle();
    connectLoader();
    connectReplay();
    connectActions();
    connectSettings();
    takeModes(m_options.modes);
    setSpeed(options.speed);
    resize(options.size.isEmpty() ? kUsualSize : options.size);
    applyLayout(options.layout);
    if (options.size.isEmpty())
        restoreGeometry(m_settings.geometry);
    if (!options.given.layout && !m_settings.state.isEmpty())
        restoreDesk(m_settings.desk, m_settings.state);
    m_list->setFocus();
}

MainWindow::~MainWindow()
{
    // The feed ends before the panels do.
    m_loader.reset();
    m_player.reset();
    m_workspaces->deleteWindows();
    delete takeCentralWidget();
}

void MainWindow::makeLayout()
{
    auto* central = new QWidget(this);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_messages);
    column->addWidget(m_workspace, 1);
    column->addWidget(m_bar);
    setCentralWidget(central);
    setMinimumSize(smallestSize());
}

QSize MainWindow::smallestSize()
{
    return QSize(theme().getSize(QStringLiteral("kel_siz_mainwindow_width_min")),
                 theme().getSize(QStringLiteral("kel_siz_mainwindow_height_min")));
}

void MainWindow::connectLoader()
{
    connect(m_loader.get(), &DayLoader::progress, m_bar, &ReplayBar::setLoading);
    connect(m_loader.get(), &DayLoader::listed, this, [this](const auto& instruments) {
        m_sourceIsNew = true;
        m_list->instruments().setInstruments(instruments);
    });
    connect(m_loader.get(), &DayLoader::priced, &m_list->instruments(), &InstrumentModel::setPrices);
    connect(m_loader.get(), &DayLoader::loaded, this, &MainWindow::showDay);
    connect(m_loader.get(), &DayLoader::failed, this, &MainWindow::onFailed);
    connect(m_loader.get(), &DayLoader::cancelled, this, &MainWindow::onCancelled);
    connect(m_bar, &ReplayBar::cancelAsked, m_loader.get(), &DayLoader::cancel);
    connect(m_list, &InstrumentList::chosen, this, [this](int row) {
        m_timeWanted = -1;
        m_wishes.clear();
        loadInto(m_group, row);
    });
}

void MainWindow::connectReplay()
{
    connect(m_player.get(), &ReplayPlayer::halted, this, &MainWindow::onHalted);
    connect(m_player.get(), &ReplayPlayer::began, this, [this] {
        m_groups.loaded();
        followReplay();
        m_groups.lookNow();
        Q_EMIT shown();
    });
    connect(m_player.get(), &ReplayPlayer::stepped, this, &MainWindow::onStepped);
    connect(m_player.get(), &ReplayPlayer::lagging, m_bar, &ReplayBar::setLag);
    connect(m_player.get(), &ReplayPlayer::ended, this, [this] {
        if (!m_player->playing()) // was not told to play on in the meantime
            setPlaying(false);
        followReplay();
    });
    connect(m_bar, &ReplayBar::seekAsked, this, &MainWindow::seek);
    connect(m_bar, &ReplayBar::playClicked, this, [this] { setPlaying(!m_player->playing()); });
    connect(m_bar, &ReplayBar::speedChosen, this, &MainWindow::setSpeed);
    connect(m_bar, &ReplayBar::timeRefused, this, [this](const QString& text) {
        m_messages->showError(uiText("不是时间：%1（例如 10:30 或 09:25:03）").arg(text));
    });
    connect(&m_follow, &QTimer::timeout, this, &MainWindow::followReplay);
    m_follow.start(kFollowMs);
}

void MainWindow::connectActions()
{
    connect(m_actions, &TerminalActions::commandAsked, this, &MainWindow::runCommand);
    connect(m_actions, &TerminalActions::modesChosen, this, &MainWindow::takeModes);
    connect(m_first.queue, &QueueCell::modesChanged, this,
            [this] { m_actions->showModes(m_first.queue->modes()); });
    connect(m_actions, &TerminalActions::layoutChosen, this, &MainWindow::applyLayout);
    connect(m_actions, &TerminalActions::saveLayoutAsked, this, &MainWindow::askForLayoutName);
    connect(m_actions, &TerminalActions::savedLayoutChosen, this, &MainWindow::restoreLayout);
    connect(m_actions, &TerminalActions::removeLayoutAsked, this, &MainWindow::askWhichLayoutToRemove);
    connect(m_actions, &TerminalActions::filterAsked, this, &MainWindow::filterList);
    connect(m_actions, &TerminalActions::wholeDayAsked, this, &MainWindow::showWholeDay);
    connect(m_actions, &TerminalActions::latestDealsAsked, this, &MainWindow::showLatestDeals);
    connect(m_actions, &TerminalActions::stripAsked, this, [this] {
        for (DealsPane* deals : m_groups.at(m_group).wiring().all<DealsPane>())
            deals->toggleStrip();
    });
    connect(m_actions, &TerminalActions::copyAsked, this, &MainWindow::copySelection);
    connect(m_actions, &TerminalActions::tableAsked, this, &MainWindow::exportTable);
    connect(m_actions, &TerminalActions::pictureAsked, this, &MainWindow::exportPicture);
    connect(m_actions, &TerminalActions::trackAsked, this, &MainWindow::trackOrder);
    connect(m_actions, &TerminalActions::trackEndAsked, this,
            [this] { m_groups.at(m_group).wiring().endTracking(); });
    connect(m_actions, &TerminalActions::themeChosen, this,
            [](const QString& name) { theme().setTheme(name); });
    connect(m_actions, &TerminalActions::colorsChosen, this,
            [](Zeb::EPriceColors colors) { theme().setPriceColors(colors); });
    connect(m_actions, &TerminalActions::playToggled, this, [this] { setPlaying(!m_player->playing()); });
    connect(m_actions, &TerminalActions::speedStep, this, &MainWindow::stepSpeed);
    connect(m_actions, &TerminalActions::timeStep, this,
            [this](int seconds) { seek(m_player->now() + seconds * utils::kMSecPerSecond); });
    connect(m_actions, &TerminalActions::jumpAsked, m_bar, &ReplayBar::focusJump);
    connect(m_actions, &TerminalActions::archiveAsked, this, [this] { openFolder(true); });
    connect(m_actions, &TerminalActions::importAsked, this, [this] { openFolder(false); });
    connect(m_actions, &TerminalActions::simulationAsked, this, [this] {
        DaySource source;
        source.simulated = true;
        openSource(source);
    });
    connect(m_actions, &TerminalActions::quitAsked, this, &QWidget::close);
}

void MainWindow::start()
{
    openSource(m_options.source);
    m_starting = true;
}

void MainWindow::openSource(const DaySource& source)
{
    m_starting = false;
    m_loading = 0;
    m_wishes.clear();
    m_bar->setLoading(0, 0);
    m_loader->open(source);
    m_nextSource = source;
}

void MainWindow::openFolder(bool archive)
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, archive ? uiText("打开日档案") : uiText("导入行情文件夹"));
    if (folder.isEmpty())
        return;
    DaySource source;
    if (archive) {
        source.archive = folder.toStdString();
    } else {
        source.layout = "auto";
        source.path = folder.toStdString();
    }
    openSource(source);
}

void MainWindow::showDay(int index, const DayPtr& day)
{
    const bool first = !m_groups.at(0).day();
    // Another instrument of the same source goes on at the same time of day.
    const bool goesOn = (!first && !m_sourceIsNew) || m_timeWanted >= 0;
    const std::int64_t timeOfDay = m_timeWanted >= 0 ? m_timeWanted : utils::timeOfDayMs(m_player->now());
    m_timeWanted = -1;
    if (first || m_sourceIsNew) {
        m_groups.clearDays();
        m_loading = 0;
        for (int group = 0; group < PaneGroups::kCount; ++group) {
            for (InformationPane* information : m_groups.at(group).wiring().all<InformationPane>())
                information->setSource(m_nextSource);
        }
    }
    m_sourceIsNew = false;
    m_starting = false;
    PaneGroup& group = m_groups.at(m_loading);
    group.wiring().endTracking(); // there the same number is another order
    group.setDay(index, day);
    m_groups.fill();
    m_bar->setLoaded();
    tellWhatIsMissing(*day);
    showGroups();
    restartReplay(goesOn ? momentIn(m_groups.range(), timeOfDay) : firstMoment());
    if (first && m_options.playing)
        setPlaying(true);
    if (std::exchange(m_otherWanted, false))
        giveOtherInstrument(1);
    else
        loadNext();
}

/// The groups have other days, or other panes.
void MainWindow::restartReplay(std::int64_t at)
{
    const std::vector<ReplayPart> parts = m_groups.parts();
    std::vector<DayPtr> days;
    for (const ReplayPart& part : parts)
        days.push_back(part.day);
    m_services.setDays(days);
    m_range = m_groups.range();
    m_bar->setDay(m_range);
    m_bar->setPhases(phases());
    m_regrouped = false;
    m_player->open(parts, at);
}

void MainWindow::sayTitle()
{
    const DayPtr shown = day();
    if (shown)
        showTitle(shown->detail);
    else
        setWindowTitle(uiText(kTitle));
}

void MainWindow::showTitle(const nelservice::CInstrumentDetail& detail)
{
    setWindowTitle(QString::fromStdString(detail.name + ' ' + detail.code) + QStringLiteral(" — ") +
                   uiText(kTitle));
}

/// A queue that stays empty has its reason in the day.
void MainWindow::tellWhatIsMissing(const feed::InstrumentDay& day)
{
    if (day.snapshots.empty())
        m_messages->showError(uiText("此日没有盘口快照，引擎不知道十档价格：委托队列为空"));
    else if (day.orders.empty() && day.queues.empty())
        m_messages->showError(uiText("此日没有逐笔委托，也没有公布的队列：委托队列为空"));
    else
        m_messages->hide();
}

/// The moment that the options name, else the open.
std::int64_t MainWindow::firstMoment() const
{
    return momentIn(m_groups.range(), m_options.at >= 0 ? m_options.at : kUsualTimeOfDay);
}

void MainWindow::onHalted(int number)
{
    m_groups.begin();
    if (!m_first.information->failure().isEmpty())
        m_messages->showError(m_first.information->failure());
    m_player->begin(number);
}

void MainWindow::onFailed(const QString& reason)
{
    m_bar->setLoaded();
    if (m_starting) {
        m_starting = false;
        Q_EMIT startFailed(reason);
        return;
    }
    showRowOfDay();
    m_messages->showError(reason);
    endLoading();
}

void MainWindow::onCancelled()
{
    m_wishes.clear();
    m_starting = false;
    m_bar->setLoaded();
    showRowOfDay();
    m_messages->showNote(uiText("已取消载入"));
    endLoading();
}

/// A day did not come: what waits is next, or the panes as they are.
void MainWindow::endLoading()
{
    if (loadNext())
        return;
    if (m_regrouped)
        goOnWithGroups();
    m_timeWanted = -1;
}

/// The list's cursor goes back to the day that is shown, if the list is still that of its source.
void MainWindow::showRowOfDay()
{
    m_list->setShown(m_sourceIsNew ? -1 : m_groups.at(m_group).row());
}

void MainWindow::seek(std::int64_t moment)
{
    if (!m_groups.at(0).day())
        return;
    m_player->seek(std::clamp(moment, m_range.begin, m_range.end));
}

void MainWindow::setPlaying(bool playing)
{
    if (playing && m_groups.at(0).day() && m_player->now() >= m_range.end) // begins anew
        seek(m_range.begin);
    if (playing)
        m_player->play();
    else
        m_player->pause();
    m_bar->setPlaying(playing);
    m_actions->showPlaying(playing);
}

void MainWindow::setSpeed(double speed)
{
    m_bar->setSpeed(speed);
    m_player->setSpeed(speed);
}

void MainWindow::stepSpeed(int step)
{
    setSpeed(ReplayBar::nextSpeed(m_bar->speed(), step));
}

void MainWindow::followReplay()
{
    if (!m_groups.at(0).day())
        return;
    const std::int64_t now = m_player->now();
    m_bar->setMoment(now);
    m_list->instruments().setMoment(now);
    m_groups.follow(now);
    showGaps();
}

void MainWindow::applyStyle()
{
    QApplication::setPalette(Zeb::themePalette());
    QApplication::setFont(*theme().getFont(QStringLiteral("fnt_default_normal")));
    Zeb::giveSheet(this, windowStyleSheet());
    for (Workspace* workspace : m_workspaces->windows()) {
        if (workspace->isWindow())
            Zeb::giveSheet(workspace, windowStyleSheet());
    }
    m_actions->showTheme(theme().theme());
    m_actions->showColors(theme().priceColors());
    m_workspaces->refreshIcons();
}

void MainWindow::themeChanged()
{
    applyStyle();
    m_list->instruments().refreshColors();
}

} // namespace host
