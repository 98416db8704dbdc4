#pragma once

#include "app/ManualController.h"
#include "app/ui/ConsoleWindow.h"
#include "app/ui/ControlPanelWindow.h"
#include "app/ui/ExplorerWindow.h"
#include "app/ui/SettingsWindow.h"
#include "base/Log.h"
#include "base/Pacer.h"
#include "base/UserDefaults.h"
#include "desktop/Appearance.h"
#include "desktop/CommandLine.h"
#include "desktop/Demonstration.h"
#include "desktop/HiddenDockIcon.h"
#include "desktop/LauncherBadge.h"
#include "desktop/LifeInTheTray.h"
#include "desktop/QtRunLoop.h"
#include "desktop/QuitSignals.h"
#include "desktop/Snapshot.h"
#include "desktop/StandardErrorPipe.h"
#include "desktop/TrayIcon.h"
#include "desktop/dbus/ScriptingService.h"
#include "engine/EngineRoom.h"
#include "engine/SystemArpTable.h"
#include "engine/UdpIoThread.h"

namespace lumeroom {

/// The program's objects, in the order of its launch. Needs a QApplication.
class Application {
public:
    Application(const CommandLine& commandLine, const ProgramName& name);
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// Runs until the user quits; the program's exit status.
    int run();

private:
    /// Lets the log read its level from the settings, for as long as both last.
    class VerbosityFromDefaults {
    public:
        VerbosityFromDefaults(Log& log, const UserDefaults& defaults);
        ~VerbosityFromDefaults();
        VerbosityFromDefaults(const VerbosityFromDefaults&) = delete;
        VerbosityFromDefaults& operator=(const VerbosityFromDefaults&) = delete;

    private:
        Log& m_log;
    };

    void makeMenus();
    void makeOffers();
    void makeStatusItem();
    /// The token, if there is one, lets the window take the focus from another program.
    void showPanel(const QString& activationToken);
    void quit();
    void complain(const std::string& wrong);
    void endWith(const std::string& wrong);
    void terminate();

    CommandLine m_commandLine;
    QuitSignals m_signals;
    QtRunLoop m_runLoop;
    ThreadPacer m_pacer;
    Log m_log;
    ConsoleWindow m_console;
    StandardErrorPipe m_pipe;
    UserDefaults m_defaults;
    VerbosityFromDefaults m_verbosity;
    Appearance m_appearance;
    Demonstration m_demonstration;
    UdpIoThread m_io;
    SystemArpTable m_arpTable;
    EngineRoom m_engineRoom;
    ControlPanelWindow m_panel;
    ManualController m_controller;
    LauncherBadge m_badge;
    std::unique_ptr<TrayIcon> m_trayIcon;
    std::unique_ptr<LifeInTheTray> m_lifeInTheTray;
    std::unique_ptr<HiddenDockIcon> m_hiddenDockIcon;
    SettingsWindow m_settings;
    ExplorerWindow m_explorer;
    ScriptingService m_scriptingService;
    std::unique_ptr<Snapshot> m_snapshot;
};

} // namespace lumeroom
