#include "app/ManualController.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/RegisteredDefaults.h"
#include "base/UserDefaults.h"
#include "engine/EngineRoom.h"

#include <algorithm>

namespace lumeroom {

namespace {

constexpr Seconds kSetUpRetry(1.5);
constexpr Seconds kSetUpBuffer(1.5);
constexpr Seconds kRefreshDeferral(5.0);
constexpr std::string_view kBundleName = "Lumeroom";

/// What a report shows in a strip; nothing before the lamp's power, brightness and name are known.
std::optional<StripSettings> reportFrom(const Lamp& lamp)
{
    if (!lamp.onoff || !lamp.brightness)
        return {};
    StripSettings report;
    report.adopt(lamp);
    report.onoff = lamp.onoff;
    report.label = lamp.label;
    return report;
}

} // namespace

ManualController::ManualController(
    RunLoop& runLoop, UserDefaults& defaults, Log& log, EngineRoom& engineRoom, PanelView& panel)
    : m_runLoop(runLoop)
    , m_defaults(defaults)
    , m_log(log)
    , m_engineRoom(engineRoom)
    , m_panel(panel)
    , m_layoutManager(defaults, log, panel)
    , m_collection(defaults, log)
{
}

ManualController::~ManualController()
{
    m_engineRoom.setDelegate(nullptr);
}

void ManualController::awakeFromNib()
{
    m_defaults.setObject(keys::kVeryVerboseAtStartup, false);
    if (m_defaults.integerForKey(keys::kVerbosity) >= 2)
        m_defaults.setObject(keys::kVerbosity, 1); // high levels do not outlive a run
    m_panel.setTitle(fmt::format("{} manual control panel", kBundleName));
    m_defaults.registerDefaults(registeredDefaults());
}

void ManualController::applicationDidFinishLaunching()
{
    m_engineRoom.setDelegate(this);
    m_engineRoom.startHeartbeat();
    setUp();
}

void ManualController::applicationShouldTerminate()
{
    m_engineRoom.closeUp();
    m_collection.saveStripOrder();
}

void ManualController::showManualControl()
{
    m_panel.makeKeyAndFront();
}

void ManualController::allOn()
{
    m_engineRoom.allOn(true);
}

void ManualController::allOff()
{
    m_engineRoom.allOn(false);
}

void ManualController::setUp()
{
    if (m_attemptedSetUp)
        m_engineRoom.invalidateSockets();
    m_attemptedSetUp = true;
    m_collection.clear();

    if (m_engineRoom.lightsArray().empty()) {
        if (m_log.shows(1))
            m_log.line("No lights found, trying again in 1.5s");
        m_panel.startThrobber();
        m_retry = m_runLoop.after(kSetUpRetry, [this] { setUp(); });
        return;
    }
    m_panel.stopThrobber();
    for (const auto& lamp : m_engineRoom.lightsArray()) {
        // A lamp that was heard at a second address has a second record, but one strip.
        if (!m_collection.getStripWithID(lamp->id))
            m_collection.add(makeControlStripForLamp(*lamp, StripType::Lamp));
    }
    m_collection.applySortOrder();
    recalculateControlStripPositions();
    m_setUp = true;
    m_setUpBuffered = false;
}

void ManualController::refreshSetUpUsingRecycling(bool recycling)
{
    const auto isEditing = [](const auto& strip) { return strip->popoverIsOpen(); };
    if (std::any_of(m_collection.strips().begin(), m_collection.strips().end(), isEditing)
        || m_panel.popoverIsOpen()) {
        m_deferredRefresh = m_runLoop.after(
            kRefreshDeferral, [this, recycling] { refreshSetUpUsingRecycling(recycling); });
        return;
    }
    if (!recycling)
        m_recycler.clear();
    for (const auto& strip : m_collection.strips()) {
        strip->deactivate();
        if (auto* view = strip->getControlStripView())
            view->setShown(false);
        if (recycling)
            recycleStrip(strip);
    }
    setUp();
}

std::shared_ptr<LampControlStrip> ManualController::makeControlStripForLamp(
    const Lamp& lamp, StripType type)
{
    auto strip = recycledStripForID(lamp.id, type);
    strip->reactivateWithEngineRoom(&m_engineRoom);
    strip->setCapabilities(lamp.capabilities.value_or(kCapabilitiesColourLamp));
    StripSettings settings;
    settings.colour = lamp.colour.value_or(0);
    settings.saturation = lamp.saturation.value_or(0);
    settings.brightness = lamp.brightness.value_or(0);
    settings.warmth = lamp.warmth.value_or(0);
    settings.onoff = lamp.onoff.value_or(false);
    settings.label = lamp.label.empty() ? lamp.id : lamp.label;
    strip->implementSettingsFromDictionaryWithoutActing(settings);
    if (!strip->getControlStripView())
        strip->setControlStripView(m_panel.newControlStripView(*strip, m_layoutManager.theme()));
    if (auto* view = strip->getControlStripView())
        view->setShown(true);
    return strip;
}

std::shared_ptr<LampControlStrip> ManualController::recycledStripForID(
    const std::string& id, StripType type)
{
    const auto found = std::find_if(m_recycler.begin(), m_recycler.end(),
        [&](const auto& strip) { return strip->getID() == id && strip->type() == type; });
    if (found != m_recycler.end())
        return *found;
    auto strip = std::make_shared<LampControlStrip>(id, type, m_runLoop);
    strip->colourWell().setSurroundings(m_defaults, m_log);
    return strip;
}

/// Places every strip that the user does not hold, and fits the window and its scroll bars.
void ManualController::recalculateControlStripPositions()
{
    m_layoutManager.reset();
    std::vector<LampControlStripView*> views;
    for (const auto& strip : m_collection.strips()) {
        auto* view = strip->getControlStripView();
        if (!view)
            continue;
        const Point origin = m_layoutManager.getNextPointFor(view->size());
        if (!view->isBeingDragged())
            view->setOrigin(origin, true);
        views.push_back(view);
    }
    m_panel.setKeyboardOrder(views);
    m_panel.setContentSize(m_layoutManager.getWindowSize());
    m_panel.setContentMaxSize(m_layoutManager.getMaxWindowSize());
    m_panel.setContentMinSize(m_layoutManager.getMinWindowSize());
    Size container = m_layoutManager.getViewSize();
    container.height = std::max(container.height, m_panel.scrollViewSize().height);
    m_panel.setContainerSize(container);
    m_panel.setScrollers(
        m_layoutManager.shouldScrollHorizontally(), m_layoutManager.shouldScrollVertically());
}

void ManualController::recycleStrip(const std::shared_ptr<LampControlStrip>& strip)
{
    if (std::find(m_recycler.begin(), m_recycler.end(), strip) == m_recycler.end())
        m_recycler.push_back(strip);
}

// A burst of lamps makes one rebuild, 1.5 seconds after the first.
void ManualController::newLampsAdded()
{
    if (!m_setUp || m_setUpBuffered)
        return;
    m_setUpBuffered = true;
    m_setUpBuffer = m_runLoop.after(kSetUpBuffer, [this] { refreshSetUpUsingRecycling(true); });
}

void ManualController::lampStatesChanged()
{
    updateLampsSoon();
}

void ManualController::lampZoneStatesChanged()
{
    updateLampsSoon();
}

void ManualController::newZoneAdded()
{
    updateLampsSoon();
}

void ManualController::engineIsSsearching(bool) { }

void ManualController::lampCapabilitiesChanged()
{
    updateLampsSoon();
}

int ManualController::runModal(const Alert& alert)
{
    return m_panel.runModal(alert);
}

// Many reports come in a row: the strips are brought up to date once, after all of them.
void ManualController::updateLampsSoon()
{
    if (m_updatePending)
        return;
    m_updatePending = true;
    m_runLoop.post(m_lifeline.guard([this] {
        m_updatePending = false;
        updateLamps(m_engineRoom.lightsArray());
    }));
}

void ManualController::updateLamps(const Lamps& lamps)
{
    for (const auto& lamp : lamps) {
        const auto strip = m_collection.getStripWithID(lamp->id);
        if (!strip)
            continue;
        if (lamp->capabilities)
            strip->setCapabilities(*lamp->capabilities);
        if (const auto report = reportFrom(*lamp))
            strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(*report);
    }
}

} // namespace lumeroom
