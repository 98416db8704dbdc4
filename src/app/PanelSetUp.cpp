#include "app/PanelSetUp.h"

#include "app/PanelView.h"
#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/EngineRoom.h"
#include "strips/GroupingAccess.h"

#include <algorithm>
#include <set>
#include <utility>

namespace lumeroom {

namespace {

constexpr Seconds kSetUpRetry(1.5);
constexpr Seconds kSetUpBuffer(1.5);
constexpr Seconds kRefreshDeferral(5.0);
constexpr Seconds kShortDeferral(0.2); // longer than a control's tenth of a second

} // namespace

PanelSetUp::PanelSetUp(Environment environment)
    : m_environment(std::move(environment))
    , m_layoutManager(m_environment.defaults, m_environment.log, m_environment.panel)
    , m_navigation({[this] { m_layoutManager.saveWindowState(); },
          [this] {
              m_find.close(); // it was for the page before
              refreshSetUpUsingRecycling(true);
          },
          [this] { m_environment.companions.closeEditPopovers(); },
          [this] { return m_environment.companions.cancelWorkflow(); }})
    , m_collection(m_environment.defaults, m_environment.log)
    , m_factory(
          {{m_environment.runLoop, m_environment.defaults, m_environment.log, m_environment.owner},
              m_environment.engineRoom, m_environment.panel, m_layoutManager, m_navigation})
    , m_find(m_environment.engineRoom.registry(), m_collection, m_environment.panel,
          [this] { recalculateControlStripPositions(); })
    , m_letFormerGo(m_environment.runLoop, [this] { m_former.clear(); })
{
}

void PanelSetUp::setUp()
{
    m_retry = {};
    if (m_attemptedSetUp)
        m_environment.engineRoom.invalidateSockets();
    m_attemptedSetUp = true;
    m_navigation.turnSomethingOn();
    if (!m_setUp)
        m_environment.companions.populatePresetPullDown();
    m_collection.clear();
    m_environment.companions.begin();

    const auto lamps = lampsToShow();
    if ((!lamps || lamps->empty()) && m_navigation.filterType() == StripType::None) {
        if (m_environment.log.shows(1))
            m_environment.log.line("No lights found, trying again in 1.5s");
        hideFormerRows();
        m_environment.companions.foundNoLamps();
        m_retry = m_environment.runLoop.after(kSetUpRetry, [this] { setUp(); });
        return;
    }
    if (lamps && (m_navigation.shows(StripType::Lamp) || m_navigation.filter()))
        addLampStrips(*lamps);
    addGroupStrips();
    addZoneStrips();
    const bool showsTags = m_navigation.shows(StripType::Tag) && !m_navigation.filter();
    m_environment.companions.fillEditMenus(showsTags);

    m_collection.applySortOrder();
    hideFormerRows();
    recalculateControlStripPositions();
    revealWhatIsNew();
    m_environment.companions.finish();
    m_setUp = true;
    m_setUpBuffered = false;
}

void PanelSetUp::revealWhatIsNew()
{
    const auto strip = m_navigation.takeStripToReveal(m_collection.strips());
    if (auto* view = strip ? strip->getControlStripView() : nullptr)
        m_environment.panel.reveal(*view);
}

/// The lamps that the filter leaves; nothing for a filter that is not about lamps.
std::optional<Lamps> PanelSetUp::lampsToShow() const
{
    const LampRegistry& registry = m_environment.engineRoom.registry();
    if (m_navigation.filterType() == StripType::None)
        return registry.distinctLamps();
    if (const auto* access = groupingAccess(m_navigation.filterType()))
        return access->lamps(registry, m_navigation.filter()->id);
    return {};
}

void PanelSetUp::addLampStrips(const Lamps& lamps)
{
    int tag = 0;
    for (const auto& lamp : lamps) {
        addStrip(StripRecord::of(*lamp), StripType::Lamp, tag++);
        m_environment.companions.addToStatusMenu(m_collection.strips().back());
    }
    if (!m_navigation.filter() || m_navigation.filterType() == StripType::None)
        return;
    // Narrowed down, each lamp counts twice, and twice as many places of the stored order are
    // looked at. The order keeps one strip of each.
    for (const auto& lamp : lamps)
        m_collection.add(m_collection.getStripWithID(lamp->id));
}

void PanelSetUp::addGroupStrips()
{
    m_nextTag = 0;
    if (m_navigation.filter())
        return;
    const LampRegistry& registry = m_environment.engineRoom.registry();
    const Summaries& summaries = m_environment.engineRoom.summaries();
    const auto add = [this](const StripRecord& record, StripType type, int tag) {
        addStrip(record, type, tag);
        m_environment.companions.addToStatusMenu(m_collection.strips().back());
    };
    for (const GroupingAccess& access : groupingAccesses()) {
        if (!m_navigation.shows(access.type))
            continue;
        access.forEach(registry, [&](const std::string& id, const std::string& label) {
            add(StripRecord::of(id, label, access.summary(summaries, id)), access.type,
                m_nextTag++);
        });
    }
    if (m_navigation.model().all.state())
        add(StripRecord::ofAll(summaries.settingsForGroup(kAllLampsId)), StripType::Group, 0);
}

std::shared_ptr<Lamp> PanelSetUp::lampOfZones() const
{
    if (m_navigation.filterType() != StripType::Zone)
        return nullptr;
    return m_environment.engineRoom.registry().lampWithID(m_navigation.filter()->id);
}

void PanelSetUp::addZoneStrips()
{
    const auto lamp = lampOfZones();
    if (!lamp)
        return;
    for (const Zone& zone : lamp->ownZones())
        addStrip(StripRecord::of(zone, *lamp), StripType::Zone, m_nextTag++);
}

void PanelSetUp::addStrip(const StripRecord& record, StripType type, int tag)
{
    const auto strip = m_factory.makeControlStripForLamp(record, type);
    strip->setTag(tag);
    m_environment.companions.made(strip);
    m_collection.add(strip);
}

bool PanelSetUp::isInUse() const
{
    const auto& strips = m_collection.strips();
    return std::any_of(strips.begin(), strips.end(), [](const auto& strip) {
        const auto* view = strip->getControlStripView();
        return view && view->isInUse();
    }) || (m_environment.companions.popoverIsOpen() && !m_environment.companions.awaitsLamps());
}

bool PanelSetUp::anActionIsPending() const
{
    const auto& strips = m_collection.strips();
    return std::any_of(
        strips.begin(), strips.end(), [](const auto& strip) { return strip->hasPendingAction(); });
}

void PanelSetUp::refreshSetUpUsingRecycling(bool recycling)
{
    if (!m_collection.strips().empty() && isInUse()) {
        const bool awaited = m_environment.companions.awaitsLamps();
        deferRefresh(awaited ? kShortDeferral : kRefreshDeferral, recycling);
        return;
    }
    // The records that the strips are made from do not have it yet.
    if (anActionIsPending()) {
        deferRefresh(kShortDeferral, recycling);
        return;
    }
    // What waits is done with this, and where it may not reuse the rows, neither may this.
    m_deferredRefresh.cancel();
    const bool mayReuse = std::exchange(m_deferredRecycling, true) && recycling;
    if (!mayReuse)
        m_factory.forgetRecycled();
    m_former = m_collection.strips();
    for (const auto& strip : m_former) {
        strip->deactivate();
        if (mayReuse)
            m_factory.recycleStrip(strip);
    }
    m_factory.forgetUnknown();
    m_environment.panel.keepFocus();
    if (!recycling)
        dropFormerRows();
    setUp();
}

/// Only the rows that are no longer on the panel: one that goes out of sight, even for a moment,
/// takes the keyboard's place and the scroll bar's with it.
void PanelSetUp::hideFormerRows()
{
    const auto& strips = m_collection.strips();
    const std::set<std::shared_ptr<LampControlStrip>> shown(strips.begin(), strips.end());
    for (const auto& strip : m_former) {
        auto* view = strip->getControlStripView();
        if (shown.contains(strip))
            continue;
        strip->forgetUnsentColour();
        if (view)
            view->setShown(false);
    }
    m_letFormerGo.request(); // not now: a button in one of the rows may be what led here
}

/// Rows of another layout go before the new ones are made, which then take their memory. No control
/// in a row asks for another layout, so none of them is at work now.
void PanelSetUp::dropFormerRows()
{
    for (const auto& strip : m_former)
        strip->forgetUnsentColour();
    m_former.clear();
}

void PanelSetUp::deferRefresh(Seconds delay, bool recycling)
{
    m_deferredRecycling = m_deferredRecycling && recycling;
    if (!m_deferredRefresh.isPending() || delay < kRefreshDeferral) {
        m_deferredRefresh = m_environment.runLoop.after(
            delay, [this] { refreshSetUpUsingRecycling(m_deferredRecycling); });
    }
}

void PanelSetUp::refreshSoon()
{
    if (!m_setUp || m_setUpBuffered)
        return;
    m_setUpBuffered = true;
    m_setUpBuffer
        = m_environment.runLoop.after(kSetUpBuffer, [this] { refreshSetUpUsingRecycling(true); });
}

void PanelSetUp::followMembers()
{
    if (!groupingAccess(m_navigation.filterType()))
        return;
    std::set<std::string> members;
    for (const auto& lamp : lampsToShow().value_or(Lamps()))
        members.insert(lamp->id);
    std::set<std::string> shown;
    for (const auto& strip : m_collection.strips())
        shown.insert(strip->getID());
    if (members != shown)
        refreshSoon();
}

void PanelSetUp::fitContainer()
{
    PanelView& panel = m_environment.panel;
    const Size strips = m_layoutManager.getViewSize();
    panel.setContainerSize({strips.width, std::max(strips.height, panel.scrollViewSize().height)});
}

void PanelSetUp::recalculateControlStripPositions()
{
    PanelView& panel = m_environment.panel;
    m_layoutManager.reset();
    std::vector<LampControlStripView*> views;
    for (const auto& strip : m_collection.strips()) {
        auto* view = strip->getControlStripView();
        if (!view)
            continue;
        const bool shown = m_find.shows(*strip) || view->isInUse();
        if (shown) {
            view->setWidth(m_layoutManager.widthFor(view->naturalSize()));
            const Point origin = m_layoutManager.getNextPointFor(view->size());
            if (!view->isBeingDragged())
                view->setOrigin(origin, !m_find.isOn());
            views.push_back(view);
        }
        view->setShown(shown);
    }
    panel.setKeyboardOrder(views);
    if (!m_find.isOn()) // a window fits all its rows, and not those that were found for a moment
        fitWindow();
    fitContainer();
    panel.setScrollers(m_layoutManager.shouldScrollHorizontally() || m_layoutManager.isCut(),
        m_layoutManager.shouldScrollVertically());
    m_find.wasPlaced(views.size());
    m_environment.companions.placed();
}

void PanelSetUp::fitWindow()
{
    PanelView& panel = m_environment.panel;
    constexpr Size kAnySize{1, 1};
    if (m_collection.strips().empty()) { // it keeps its size, but not the limits of former rows
        panel.setContentMaxSize(panel.screenSize());
        panel.setContentMinSize(kAnySize);
        return;
    }
    panel.setContentSize(m_layoutManager.getWindowSize());
    panel.setContentMaxSize(m_layoutManager.getMaxWindowSize());
    panel.setContentMinSize(m_layoutManager.getMinWindowSize());
}

void PanelSetUp::restoreWindowSize()
{
    if (const auto size = m_layoutManager.storedWindowSize())
        m_environment.panel.setContentSize(*size);
}

void PanelSetUp::switchTheme(int theme)
{
    if (m_setUp) { // else there is no order yet, nor a window that fits its rows
        m_layoutManager.saveWindowState();
        m_collection.saveStripOrder();
    }
    m_environment.defaults.setObject(keys::kCurrentTheme, theme);
    showStoredTheme();
}

void PanelSetUp::showStoredTheme()
{
    m_find.close();
    m_layoutManager.setTheme(m_layoutManager.storedTheme());
    restoreWindowSize();
    refreshSetUpUsingRecycling(false);
}

} // namespace lumeroom
