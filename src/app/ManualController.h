#pragma once

#include "app/EmptyPanel.h"
#include "app/GroupWorkflows.h"
#include "app/PanelSetUp.h"
#include "app/Scripting.h"
#include "app/StatusMenu.h"
#include "app/StripReports.h"
#include "app/StripUndo.h"
#include "app/WorkflowStage.h"
#include "base/CallSoon.h"
#include "base/UserDefaults.h"
#include "engine/QVLIFXEngineDelegate.h"
#include "strips/LampsPopUp.h"

namespace lumeroom {

/// The application's centre: between the engine and the panel of control strips.
class ManualController : public QVLIFXEngineDelegate, public LampControlStripOwner {
public:
    ManualController(RunLoop& runLoop, UserDefaults& defaults, Log& log, EngineRoom& engineRoom,
        PanelView& panel);
    ~ManualController() override;
    ManualController(const ManualController&) = delete;
    ManualController& operator=(const ManualController&) = delete;

    // Launch, in this order
    void awakeFromNib();
    void applicationDidFinishLaunching();
    /// Shutdown. The lamps are left as they are.
    void applicationShouldTerminate();

    void showManualControl();
    void allOn();
    /// Effects that play end here, and only here.
    void allOff();
    /// There for scripts to call; it does nothing.
    void allBlink() { }

    PanelSetUp& panelSetUp() { return m_panelSetUp; }
    StatusMenu& statusMenu() { return m_statusMenu; }
    GroupWorkflows& workflows() { return m_workflows; }
    WorkflowStage& workflowStage() { return m_stage; }
    Scripting& scripting() { return m_scripting; }
    Undo& undo() { return m_undo.undo(); }
    EmptyPanel& emptyPanel() { return m_emptyPanel; }
    const KnownThings& known() const { return m_known; }
    StripFinder& stripFinder() { return m_stripFinder; }
    const Strips& collection() const { return m_panelSetUp.collection().strips(); }
    void switchTheme(int theme) { m_panelSetUp.switchTheme(theme); }
    /// A segment of the control for the layouts was pressed; its number is the layout's.
    void switchThemeToolBarControl(int segment) { switchTheme(segment); }
    void windowDidEndLiveResize();
    /// The strips of the lamps of this group, location or tag, as far as they are on the panel.
    Strips getStripsInGroup(std::string_view id) const;

    // From the engine
    void newLampsAdded() override;
    void lampStatesChanged() override;
    void groupingBecameKnown() override { m_groupingIsNew = true; }
    void lampZoneStatesChanged() override;
    void newZoneAdded() override;
    void lampPowerReported() override;
    void engineIsSsearching(bool searching) override;
    void lampCapabilitiesChanged() override;
    int runModal(const Alert& alert) override;

    // From the strips
    void sendSettingsToStripsInGroup(
        const StripSettings& settings, const StripTarget& group) override;
    void stripSends(LampControlStrip& strip, const ControlModel& control,
        const std::function<void()>& send) override;
    void colourIsUnsent(LampControlStrip& strip, bool unsent) override;
    void userHasCancelled(LampControlStrip& strip, const ControlModel& control) override;
    void targetWasRenamed(LampControlStrip& strip) override;
    void stripHasMissedReports() override;
    void stripHasChanged() override;
    void viewDidBeginDragging() override;
    void changePositionOfStripBasedOnPoint(LampControlStrip& strip, Point point) override;
    void viewDidFinishDragging() override;
    bool hasEffectsManager() const override { return false; }
    void showEffectsManager() override;
    std::unique_ptr<StripEffect> makeEffect(
        const std::string& name, LampControlStrip& strip) override;

private:
    PanelSetUp::Companions companions();
    NavigationActions navigationActions();
    void fillEditMenus(bool withTags);
    void noteWhatIsMissing();
    bool asksForGroupings() const;
    void showNewGroupings();
    void observeSettings();
    void updateStrips();
    void turnAll(bool on);
    void turnAllByHand(bool on);
    Scripting::Actions scriptingActions();

    RunLoop& m_runLoop;
    UserDefaults& m_defaults;
    Log& m_log;
    EngineRoom& m_engineRoom;
    PanelView& m_panel;
    StatusMenu m_statusMenu;
    LampsPopUp m_lampsPopUp;
    PanelSetUp m_panelSetUp;
    StripReports m_reports;
    WorkflowStage m_stage;
    GroupWorkflows m_workflows;
    EmptyPanel m_emptyPanel;
    KnownThings m_known;
    StripFinder m_stripFinder;
    Scripting m_scripting;
    StripUndo m_undo;
    /// Many reports come in a row: the strips are brought up to date once, after all of them.
    CallSoon m_updateStrips;
    CallSoon m_updateConditions;
    bool m_groupingIsNew = false; ///< to the menus and the panel
    std::optional<Timer> m_firstAsking; ///< the lamps for their groups; from the first lamp on
    std::vector<Subscription> m_observations;
    Lifeline m_lifeline;
};

} // namespace lumeroom
