#include "app/ManualController.h"

#include "app/PanelView.h"
#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/EngineRoom.h"
#include "strips/GroupingAccess.h"

#include <fmt/format.h>

#include <utility>

namespace lumeroom {

namespace {
constexpr std::string_view kBundleName = "Lumeroom";
constexpr Seconds kFirstAsking(15.0); // several rounds, of which some get lost
} // namespace

ManualController::ManualController(
    RunLoop& runLoop, UserDefaults& defaults, Log& log, EngineRoom& engineRoom, PanelView& panel)
    : m_runLoop(runLoop)
    , m_defaults(defaults)
    , m_log(log)
    , m_engineRoom(engineRoom)
    , m_panel(panel)
    , m_statusMenu(engineRoom.registry(), defaults,
          {.showManualControl = [this] { showManualControl(); },
              .allOn = [this] { allOn(); },
              .allOff = [this] { allOff(); }})
    , m_lampsPopUp(engineRoom.registry(), defaults)
    , m_panelSetUp({runLoop, defaults, log, engineRoom, panel, *this, companions()})
    , m_reports(engineRoom.summaries(), m_panelSetUp.collection(), m_panelSetUp.factory(), log)
    , m_stage(m_panelSetUp, panel)
    , m_workflows(engineRoom, log, m_stage)
    , m_emptyPanel({runLoop, engineRoom, panel, m_panelSetUp,
          [this] { return m_stage.popoverIsOpen(); }, [this] { return asksForGroupings(); }})
    , m_known(engineRoom.registry(), engineRoom.summaries())
    , m_stripFinder({runLoop, defaults, log, *this}, engineRoom, m_known, m_panelSetUp.collection())
    , m_scripting(m_known, m_panelSetUp.collection(), m_stripFinder, log, scriptingActions())
    , m_undo({engineRoom, runLoop, m_known, m_stripFinder, m_panelSetUp.collection(),
          [this] { m_scripting.changed(); }})
    , m_updateStrips(runLoop, [this] { updateStrips(); })
    , m_updateConditions(runLoop, [this] { m_reports.updateConditions(m_engineRoom.registry()); })
{
    m_emptyPanel.offers() = {
        .makeGroup = [this] { m_workflows.makeGroupStep1(); },
        .makeLocation = [this] { m_workflows.makeLocationStep1(); },
        .makeTag = [this] { m_workflows.makeTagStep1(); },
        .edit = [this](StripType type, const std::string& name) { m_workflows.edit(type, name); },
        .back = [this] { m_panelSetUp.navigation().goBack(); },
        .showLampAddresses = {},
        .showDemonstration = {},
    };
}

ManualController::~ManualController()
{
    m_engineRoom.setDelegate(nullptr);
}

PanelSetUp::Companions ManualController::companions()
{
    return {
        .populatePresetPullDown = [this] { m_statusMenu.populatePresetPullDown(); },
        .begin = [this] { m_statusMenu.begin(); },
        .made
        = [this](const auto& strip) { m_stage.selection().setRightmostSelectionButtonOf(strip); },
        .addToStatusMenu = [this](const auto& strip) { m_statusMenu.addStrip(*strip); },
        .fillEditMenus =
            [this](bool withTags) {
                fillEditMenus(withTags);
                m_groupingIsNew = false; // the rows are made at the same time
            },
        .foundNoLamps = [this] { m_emptyPanel.foundNoLamps(); },
        .finish =
            [this] {
                m_lampsPopUp.populateLampsPopUp();
                m_stage.panelWasBuilt();
                m_emptyPanel.wasBuilt();
            },
        .placed =
            [this] {
                m_scripting.rebuild();
                m_emptyPanel.wasPlaced();
            },
        .closeEditPopovers = [this] { m_stage.closeEditPopovers(); },
        .cancelWorkflow = [this] { return m_stage.cancelWorkflow(); },
        .popoverIsOpen = [this] { return m_stage.popoverIsOpen(); },
        .awaitsLamps = [this] { return m_stage.awaitsLamps(); },
    };
}

NavigationActions ManualController::navigationActions()
{
    return {
        .allOn = [this] { allOn(); },
        .allOff = [this] { allOff(); },
        .makeGroup = [this] { m_workflows.makeGroupStep1(); },
        .editGroup = [this](const Rectangle& b) { m_workflows.editGroupActionButton(b); },
        .deleteGroup = [this](const Rectangle& b) { m_workflows.deleteGroupActionButton(b); },
    };
}

void ManualController::fillEditMenus(bool withTags)
{
    m_workflows.fillMenus(withTags);
    NavigationModel& navigation = m_panelSetUp.navigation().model();
    navigation.editGroup.setEnabled(!m_workflows.editGroupMenu().items().empty());
    navigation.deleteGroup.setEnabled(!m_workflows.deleteGroupMenu().items().empty());
    noteWhatIsMissing();
}

/// A switch that brings no row tells why.
void ManualController::noteWhatIsMissing()
{
    NavigationModel& navigation = m_panelSetUp.navigation().model();
    const std::pair<StripType, ButtonModel&> kinds[] = {{StripType::Group, navigation.groups},
        {StripType::Location, navigation.locations}, {StripType::Tag, navigation.tags}};
    for (const auto& [type, kind] : kinds) {
        bool isMissing = true;
        groupingAccess(type)->forEach(m_engineRoom.registry(),
            [&](const std::string&, const std::string&) { isMissing = false; });
        kind.setToolTip(isMissing ? m_emptyPanel.titleWithout(type) : "");
    }
}

/// That none is known may be because no lamp has answered yet.
bool ManualController::asksForGroupings() const
{
    return m_firstAsking && m_firstAsking->isPending();
}

Scripting::Actions ManualController::scriptingActions()
{
    return {
        .stripsInGroup = [this](const std::string& id) { return getStripsInGroup(id); },
        .allOn = [this] { turnAll(true); },
        .allOff = [this] { turnAll(false); },
        .allBlink = [this] { allBlink(); },
        .presetPullDown = {},
        .implementPreset = {},
    };
}

void ManualController::awakeFromNib()
{
    if (m_log.shows(2))
        m_log.line("manual window did load");
    m_defaults.setObject(keys::kVeryVerboseAtStartup, false);
    if (m_defaults.get(keys::kVerbosity) >= 2)
        m_defaults.setObject(keys::kVerbosity, 1); // high levels do not outlive a run
    m_panelSetUp.restoreWindowSize();
    m_panel.setTitle(fmt::format("{} manual control panel", kBundleName));
    fillEditMenus(false);
    m_panel.setNavigation(m_panelSetUp.navigation().model(), navigationActions());
    m_panel.setFind(m_panelSetUp.find().actions());
    m_panel.setDidEndLiveResize([this] { windowDidEndLiveResize(); });
}

void ManualController::applicationDidFinishLaunching()
{
    m_engineRoom.setDelegate(this);
    m_engineRoom.startHeartbeat();
    observeSettings();
    m_panelSetUp.setUp();
}

/// Most settings are read when they are needed; these show.
void ManualController::observeSettings()
{
    const auto observe = [this](std::string_view name, std::function<void()> changed) {
        m_observations.push_back(m_defaults.observe(m_runLoop, {name}, std::move(changed)));
    };
    observe(keys::kColourPickerType, [this] { m_panelSetUp.refreshSetUpUsingRecycling(true); });
    observe(keys::kGroupPowerStateBasedOn, [this] { lampStatesChanged(); });
    observe(keys::kBadgeIcon, [this] { m_statusMenu.updateDockIcon(); });
    observe(keys::kPresets, [this] { m_lampsPopUp.populateLampsPopUp(); });
    observe(keys::kCurrentTheme, [this] {
        if (m_panelSetUp.layoutManager().theme() != m_panelSetUp.layoutManager().storedTheme())
            m_panelSetUp.showStoredTheme();
    });
}

void ManualController::applicationShouldTerminate()
{
    m_engineRoom.closeUp();
    if (!m_panelSetUp.isSetUp())
        return; // no lamp has been seen: the window and the order are those of another time
    m_panelSetUp.layoutManager().saveWindowState();
    m_panelSetUp.collection().saveStripOrder();
}

void ManualController::showManualControl()
{
    m_panel.makeKeyAndFront();
}

void ManualController::allOn()
{
    turnAllByHand(true);
}

void ManualController::allOff()
{
    turnAllByHand(false);
}

void ManualController::turnAllByHand(bool on)
{
    m_undo.undo().change({{}, newStroke()}, on ? "All on" : "All off",
        m_engineRoom.registry().distinctLamps(), [this, on] { turnAll(on); });
}

void ManualController::turnAll(bool on)
{
    if (!on) {
        for (const auto& strip : collection())
            strip->stopEffect();
    }
    m_engineRoom.commands().allOn(on);
}

void ManualController::stripSends(
    LampControlStrip& strip, const ControlModel& control, const std::function<void()>& send)
{
    m_undo.stripSends(strip, control, send);
}

void ManualController::colourIsUnsent(LampControlStrip& strip, bool unsent)
{
    m_undo.colourIsUnsent(strip, unsent);
}

void ManualController::userHasCancelled(LampControlStrip& strip, const ControlModel& control)
{
    m_undo.userHasCancelled(strip, control);
}

void ManualController::windowDidEndLiveResize()
{
    m_runLoop.post(m_lifeline.guard([this] {
        m_panelSetUp.layoutManager().saveWindowState();
        m_panelSetUp.refreshSetUpUsingRecycling(true);
    }));
}

Strips ManualController::getStripsInGroup(std::string_view id) const
{
    return m_panelSetUp.collection().stripsOfLamps(m_engineRoom.registry().lightsArrayForGroup(id));
}

// A burst of lamps makes one rebuild, 1.5 seconds after the first.
void ManualController::newLampsAdded()
{
    if (!m_firstAsking) {
        m_firstAsking = m_runLoop.after(kFirstAsking, [this] {
            noteWhatIsMissing();
            m_emptyPanel.wasPlaced();
        });
    }
    m_panelSetUp.refreshSoon();
    m_statusMenu.updateDockIcon();
    m_scripting.changed(); // which knows what the panel does not show too
}

void ManualController::newZoneAdded()
{
    if (m_panelSetUp.navigation().filterType() == StripType::Zone)
        m_panelSetUp.refreshSoon();
    lampStatesChanged();
}

void ManualController::lampStatesChanged()
{
    m_updateStrips.request();
}

void ManualController::updateStrips()
{
    const Navigation& navigation = m_panelSetUp.navigation();
    const LampRegistry& registry = m_engineRoom.registry();
    m_reports.updateConditions(registry);
    m_reports.updateLamps(registry.distinctLamps());
    if (const auto lamp = m_panelSetUp.lampOfZones())
        m_reports.updateZones(*lamp);
    for (const GroupingAccess& access : groupingAccesses()) {
        if (navigation.shows(access.type))
            m_reports.updateGroupings(access, registry);
    }
    if (navigation.model().all.state())
        m_reports.updateGroupAll();
    if (std::exchange(m_groupingIsNew, false))
        showNewGroupings();
    m_panelSetUp.followMembers();
    m_stage.lampsHaveChanged();
    m_statusMenu.updateDockIcon();
    m_scripting.invalidate();
}

void ManualController::showNewGroupings()
{
    fillEditMenus(false);
    m_lampsPopUp.populateLampsPopUp();
    const Navigation& navigation = m_panelSetUp.navigation();
    if (navigation.shows(StripType::Group) || navigation.shows(StripType::Location))
        m_panelSetUp.refreshSoon();
}

void ManualController::lampZoneStatesChanged()
{
    lampStatesChanged();
}

void ManualController::lampPowerReported()
{
    lampStatesChanged();
}

void ManualController::engineIsSsearching(bool) { }

void ManualController::lampCapabilitiesChanged()
{
    lampStatesChanged();
}

int ManualController::runModal(const Alert& alert)
{
    return m_panel.runModal(alert);
}

// The members' controls move at once, and their lamps' reports are held off.
void ManualController::sendSettingsToStripsInGroup(
    const StripSettings& settings, const StripTarget& group)
{
    for (const auto& strip : m_stripFinder.stripsInUse(group.lamps(m_engineRoom.registry()))) {
        strip->implementSettingsFromDictionaryWithoutActing(settings);
        strip->imposeTemporaryEmbargo();
    }
}

void ManualController::targetWasRenamed(LampControlStrip& strip)
{
    m_lampsPopUp.populateLampsPopUp();
    fillEditMenus(false); // tags keep their names
    m_statusMenu.renameStrip(strip);
    m_stage.lampsHaveChanged();
}

void ManualController::stripHasMissedReports()
{
    lampStatesChanged();
}

void ManualController::stripHasChanged()
{
    m_updateConditions.request();
    m_scripting.changed();
}

void ManualController::viewDidBeginDragging()
{
    m_panelSetUp.layoutManager().saveWindowState();
}

void ManualController::changePositionOfStripBasedOnPoint(LampControlStrip& strip, Point point)
{
    StripCollection& collection = m_panelSetUp.collection();
    const int position = collection.positionForPoint(point, strip);
    if (position < 0 || position == collection.sortedPositionOfStrip(strip))
        return;
    collection.insertStripIntoPosition(strip, position);
    m_panelSetUp.recalculateControlStripPositions();
}

void ManualController::viewDidFinishDragging()
{
    m_panelSetUp.recalculateControlStripPositions();
    m_panelSetUp.collection().saveStripOrder();
}

void ManualController::showEffectsManager() { }

std::unique_ptr<StripEffect> ManualController::makeEffect(
    const std::string& name, LampControlStrip&)
{
    if (m_log.shows(1))
        m_log.line("unable to find effect {}", name);
    return nullptr;
}

} // namespace lumeroom
