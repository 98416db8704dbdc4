#include "app/EmptyPanel.h"

#include "app/GroupingFamily.h"
#include "app/NoLampsText.h"
#include "app/PanelSetUp.h"
#include "app/PanelView.h"
#include "engine/Discovery.h"
#include "engine/EngineRoom.h"
#include "strips/GroupingAccess.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace lumeroom {

namespace {

constexpr Seconds kPatience(8.0);

/// Whether a person would see no difference.
bool readsTheSame(const std::optional<PanelNotice>& one, const std::optional<PanelNotice>& other)
{
    if (!one || !other)
        return !one && !other;
    return one->title == other->title && one->text == other->text
        && std::equal(one->actions.begin(), one->actions.end(), other->actions.begin(),
            other->actions.end(), [](const auto& a, const auto& b) { return a.title == b.title; });
}

void offer(PanelNotice& notice, const std::string& title, const std::function<void()>& act)
{
    if (act)
        notice.actions.push_back({title, act});
}

} // namespace

EmptyPanel::EmptyPanel(Environment environment)
    : m_environment(std::move(environment))
{
}

void EmptyPanel::foundNoLamps()
{
    if (!m_waiting)
        beginToWait();
    else if (!m_patience.isPending())
        showNoLamps(); // what was tried, and with what luck, may be another by now
}

void EmptyPanel::beginToWait()
{
    m_waiting = true;
    show({});
    m_environment.panel.startThrobber();
    m_patience = m_environment.runLoop.after(kPatience, [this] { showNoLamps(); });
}

void EmptyPanel::lookAgain()
{
    m_environment.engineRoom.lookAgain();
    beginToWait();
}

void EmptyPanel::wasBuilt()
{
    m_waiting = false;
    m_patience.cancel();
    m_environment.panel.stopThrobber();
    wasPlaced();
}

void EmptyPanel::wasPlaced()
{
    if (m_waiting)
        return;
    const PanelSetUp& panelSetUp = m_environment.panelSetUp;
    const std::string sought = panelSetUp.find().soughtInVain();
    if (!sought.empty())
        show(foundNothing(sought));
    else if (!panelSetUp.collection().strips().empty() || isBusy())
        show({});
    else
        show(panelSetUp.navigation().filter() ? emptyFilter() : emptyPage());
}

bool EmptyPanel::isBusy() const
{
    const auto& filter = m_environment.panelSetUp.navigation().filter();
    return m_environment.popoverIsOpen() || (filter && filter->type == StripType::None);
}

void EmptyPanel::showNoLamps()
{
    if (isBusy()) {
        show({});
        m_environment.panel.startThrobber();
        return;
    }
    m_environment.panel.stopThrobber();
    show(noLamps());
}

PanelNotice EmptyPanel::noLamps()
{
    const EngineRoom& engineRoom = m_environment.engineRoom;
    PanelNotice notice{"No lamps found",
        noLampsText(engineRoom.searchedPlaces(), engineRoom.networkComplaint()), {}};
    offer(notice, "Lamp addresses...", m_offers.showLampAddresses);
    offer(notice, "Look again", [this] { lookAgain(); });
    offer(notice, "Show the demonstration", m_offers.showDemonstration);
    return notice;
}

std::string EmptyPanel::titleWithout(StripType type) const
{
    const auto noun = groupingFamily(type).noun;
    return m_environment.asksForGroupings() ? fmt::format("Asking the lamps for their {}s", noun)
                                            : fmt::format("No {}s yet", noun);
}

/// The lamps are known, but not what the switches that are on stand for.
PanelNotice EmptyPanel::emptyPage() const
{
    const struct {
        StripType type;
        const char* text;
        const char* make;
        const std::function<void()>& act;
    } kinds[] = {
        {StripType::Group, "The lamps of a group are switched, dimmed and coloured together.",
            "Make group...", m_offers.makeGroup},
        {StripType::Location,
            "A location holds the lamps of one place: a home, a floor, an office.",
            "Make location...", m_offers.makeLocation},
        {StripType::Tag,
            "Tags are an older kind of group that lamps still carry. A lamp can have several.",
            "Make tag...", m_offers.makeTag},
    };
    PanelNotice notice;
    for (const auto& kind : kinds) {
        if (!m_environment.panelSetUp.navigation().shows(kind.type))
            continue;
        if (notice.title.empty())
            notice.title = titleWithout(kind.type);
        else
            notice.title
                = m_environment.asksForGroupings() ? "Asking the lamps" : "Nothing here yet";
        notice.text += (notice.text.empty() ? "" : "\n") + std::string(kind.text);
        offer(notice, kind.make, kind.act);
    }
    return notice;
}

PanelNotice EmptyPanel::emptyFilter() const
{
    const NavigationFilter& filter = *m_environment.panelSetUp.navigation().filter();
    PanelNotice notice = filter.type == StripType::Zone
        ? PanelNotice{"No zones yet",
            "The lamp has not told of its zones. They show as soon as it does.", {}}
        : emptyGrouping({filter.id, filter.type});
    offer(notice, "Back", m_offers.back);
    return notice;
}

/// To be edited only if it is the one that its name leads to.
PanelNotice EmptyPanel::emptyGrouping(const StripTarget& grouping) const
{
    const LampRegistry& registry = m_environment.engineRoom.registry();
    const GroupingFamily& family = groupingFamily(grouping.type);
    const auto name = groupingAccess(grouping.type)->label(registry, grouping.id);
    if (!name)
        return {fmt::format("This {} is gone", family.noun), {}, {}};
    PanelNotice notice{"No lamps here any more",
        "The last of them has left, or has not been heard of since the program was started.", {}};
    if (m_offers.edit && family.idForName(registry, *name) == grouping.id) {
        offer(notice, fmt::format("Edit {}...", family.noun),
            [this, type = grouping.type, name = *name] { m_offers.edit(type, name); });
    }
    return notice;
}

PanelNotice EmptyPanel::foundNothing(const std::string& sought) const
{
    const Strips& strips = m_environment.panelSetUp.collection().strips();
    const bool onlyLamps = std::all_of(strips.begin(), strips.end(),
        [](const auto& strip) { return strip->type() == StripType::Lamp; });
    return {fmt::format("{} is called '{}'", onlyLamps ? "No lamp" : "Nothing here", sought), {},
        {{"Show all", [this] { m_environment.panelSetUp.find().close(); }}}};
}

void EmptyPanel::show(std::optional<PanelNotice> notice)
{
    if (readsTheSame(m_shown, notice))
        return;
    m_shown = std::move(notice);
    m_environment.panel.showNotice(m_shown);
}

} // namespace lumeroom
