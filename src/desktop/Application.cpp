#include "desktop/Application.h"

#include "app/NoLampsText.h"
#include "app/ui/BringToFront.h"
#include "app/ui/LayoutSwitch.h"
#include "base/DefaultsKeys.h"
#include "desktop/MakerSite.h"
#include "desktop/Menus.h"
#include "desktop/SettingsFile.h"
#include "engine/Discovery.h"

#include <QApplication>
#include <QFile>
#include <QMenuBar>

namespace lumeroom {

namespace {

std::string readProducts()
{
    QFile file(QStringLiteral(":/products.json"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

/// What the command line says counts over what is set, for this run.
UserDefaults& withAppearanceOf(const CommandLine& commandLine, UserDefaults& defaults)
{
    if (commandLine.isDark) {
        defaults.overrideDefaults({{std::string(keys::kAppearance),
            *commandLine.isDark ? keys::kAppearanceDark : keys::kAppearanceLight}});
    }
    return defaults;
}

} // namespace

Application::Application(const CommandLine& commandLine, const ProgramName& name)
    : m_commandLine(commandLine)
    , m_pipe(
          m_runLoop,
          [this](const std::string& text) { m_console.append(QString::fromStdString(text)); },
          m_commandLine.log)
    , m_defaults(
          settingsFile(m_commandLine.demo, QString::fromStdString(m_commandLine.defaultsFile))
              .toStdString(),
          m_runLoop, m_log)
    , m_verbosity(m_log, m_defaults)
    , m_appearance(withAppearanceOf(m_commandLine, m_defaults), m_runLoop)
    , m_demonstration(
          m_commandLine, m_defaults, [this](const std::string& wrong) { complain(wrong); })
    , m_io(m_runLoop, m_log)
    , m_arpTable(m_runLoop)
    , m_engineRoom({m_runLoop, m_pacer, m_defaults, m_log, m_io.socketFactory(), readProducts,
          m_arpTable, &m_io.complaints()})
    , m_controller(m_runLoop, m_defaults, m_log, m_engineRoom, m_panel)
    , m_settings(m_defaults, m_runLoop)
    , m_explorer(m_engineRoom.registry(), m_runLoop)
    , m_scriptingService(name, m_controller.scripting(),
          {QCoreApplication::applicationVersion(),
              [this](const QString& token) { showPanel(token); },
              [this] {
                  return noLampsText(
                      m_engineRoom.searchedPlaces(), m_engineRoom.networkComplaint());
              }},
          m_runLoop, m_log)
{
    m_appearance.watch(m_panel);
    m_signals.setHandler([this] { quit(); });
}

Application::VerbosityFromDefaults::VerbosityFromDefaults(Log& log, const UserDefaults& defaults)
    : m_log(log)
{
    m_log.setVerbositySource(
        [&defaults] { return static_cast<int>(defaults.get(keys::kVerbosity)); });
}

Application::VerbosityFromDefaults::~VerbosityFromDefaults()
{
    m_log.setVerbositySource({});
}

int Application::run()
{
    m_controller.awakeFromNib();
    makeMenus();
    makeOffers();
    makeStatusItem();
    if (!m_commandLine.snapshotFile.empty())
        m_panel.setDidEndLiveResize({}); // a size that the desktop insists on is not the user's
    m_panel.show();
    m_controller.applicationDidFinishLaunching();
    if (!m_commandLine.snapshotFile.empty()) {
        m_snapshot = std::make_unique<Snapshot>(m_runLoop, m_engineRoom.registry(), m_panel,
            QString::fromStdString(m_commandLine.snapshotFile));
        m_snapshot->start([this](const std::string& wrong) { endWith(wrong); });
    }
    const int status = QApplication::exec();
    terminate();
    return status;
}

void Application::makeMenus()
{
    MenuActions actions;
    actions.showSettings = [this] { m_settings.makeKeyAndFront(); };
    actions.quit = [this] { quit(); };
    actions.undo = &m_controller.undo();
    actions.find = [this] { m_panel.openFind(); };
    actions.showConsole = [this] { bringToFront(m_console); };
    actions.showExplorer = [this] { m_explorer.loadData(); };
    actions.allOn = [this] { m_controller.allOn(); };
    actions.allOff = [this] { m_controller.allOff(); };
    actions.switchTheme = [this](int theme) { m_controller.switchTheme(theme); };
    actions.currentTheme = [this] { return m_controller.panelSetUp().layoutManager().theme(); };
    actions.canSwitchTheme = [this] { return !m_controller.workflowStage().popoverIsOpen(); };
    if (!m_defaults.isOverridden(keys::kAppearance)) {
        actions.setAppearance
            = [this](int appearance) { m_defaults.setObject(keys::kAppearance, appearance); };
    }
    actions.appearance = [this] { return static_cast<int>(m_defaults.get(keys::kAppearance)); };
    GroupWorkflows& workflows = m_controller.workflows();
    actions.groups = {[&workflows] { workflows.makeGroupStep1(); }, &workflows.editGroupMenu(),
        &workflows.deleteGroupMenu()};
    actions.locations = {[&workflows] { workflows.makeLocationStep1(); },
        &workflows.editLocationMenu(), &workflows.deleteLocationMenu()};
    actions.tags = {[&workflows] { workflows.makeTagStep1(); }, &workflows.editTagMenu(),
        &workflows.deleteTagMenu()};
    actions.showManualControl = [this] { m_controller.showManualControl(); };
    actions.visitHelp = visitHelp;
    actions.visitLumeroomHome = visitLumeroomHome;
    addMenus(m_panel, actions, m_runLoop);

    auto* layouts = new LayoutSwitch(
        [this](int theme) { m_controller.switchThemeToolBarControl(theme); }, *m_panel.menuBar());
    LayoutManager& layoutManager = m_controller.panelSetUp().layoutManager();
    layoutManager.segmentedControl = [layouts](int theme) { layouts->select(theme); };
    layouts->select(layoutManager.theme());
    m_controller.workflowStage().onPopover = [layouts](bool open) { layouts->setEnabled(!open); };
}

/// What a panel without lamps offers besides its own. The demonstration has its lamps at addresses
/// that nobody can change.
void Application::makeOffers()
{
    if (m_commandLine.demo)
        return;
    EmptyPanel::Offers& offers = m_controller.emptyPanel().offers();
    offers.showLampAddresses = [this] { m_settings.showSetting(keys::kManualIPAddresses.name); };
    offers.showDemonstration = [this] {
        if (!startDemonstration(m_commandLine))
            m_panel.runModal({"The demonstration could not be started.", "", {"OK"}});
    };
}

void Application::makeStatusItem()
{
    if (!m_commandLine.snapshotFile.empty())
        return; // a picture of the panel needs no place in the tray, and no badge
    m_controller.statusMenu().setBadgeLabel
        = [this](std::optional<int> number) { m_badge.setLabel(number); };
    m_controller.statusMenu().quit = [this] { quit(); };
    m_trayIcon = std::make_unique<TrayIcon>(m_controller.statusMenu(), m_runLoop);
    m_lifeInTheTray = std::make_unique<LifeInTheTray>(
        [this] { return m_trayIcon->isThere(); }, [this] { quit(); });
    if (!m_defaults.get(keys::kHideDockIcon))
        return;
    m_hiddenDockIcon = std::make_unique<HiddenDockIcon>(m_log);
    if (m_trayIcon->isThere())
        putMenuBarAway(m_panel);
}

void Application::showPanel(const QString& activationToken)
{
    // On Wayland the token goes to the compositor with the wish for the focus.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    m_controller.showManualControl();
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

void Application::quit()
{
    // A name that is half typed in a popover is not sent.
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->hide();
    QCoreApplication::quit();
}

/// To who started the program: its own standard error stream leads to the console window.
void Application::complain(const std::string& wrong)
{
    m_pipe.writePast("lumeroom: " + wrong + "\n");
}

void Application::endWith(const std::string& wrong)
{
    if (!wrong.empty())
        complain(wrong);
    QCoreApplication::exit(wrong.empty() ? 0 : 1);
}

void Application::terminate()
{
    // A picture of the panel leaves the order of its rows, and the place of its window, as the user
    // last left them.
    if (m_commandLine.snapshotFile.empty())
        m_controller.applicationShouldTerminate();
    else
        m_engineRoom.closeUp();
    m_defaults.synchronize();
}

} // namespace lumeroom
