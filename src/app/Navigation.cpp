#include "app/Navigation.h"

#include "strips/LampControlStrip.h"

#include <fmt/core.h>

#include <algorithm>

namespace lumeroom {

Navigation::Navigation(Actions actions)
    : m_actions(std::move(actions))
{
    for (ButtonModel* button : switches())
        button->setAction([this, button] { wasSwitched(*button); });
    m_model.showOnly = [this](ButtonModel& kind) { showOnly(kind); };
    m_model.back.setAction([this] { goBack(); });
}

std::array<ButtonModel*, 5> Navigation::switches()
{
    return {&m_model.lights, &m_model.groups, &m_model.locations, &m_model.tags, &m_model.all};
}

/// Null for what has none: a zone.
const ButtonModel* Navigation::switchFor(const StripTarget& target) const
{
    switch (target.type) {
    case StripType::Lamp:
        return &m_model.lights;
    case StripType::Group:
        return target.id == kAllLampsId ? &m_model.all : &m_model.groups;
    case StripType::Location:
        return &m_model.locations;
    case StripType::Tag:
        return &m_model.tags;
    default:
        return nullptr;
    }
}

bool Navigation::shows(StripType type) const
{
    const ButtonModel* kind = switchFor({{}, type});
    return kind && kind->state();
}

void Navigation::turnSomethingOn()
{
    const auto all = switches();
    if (std::none_of(all.begin(), all.end(), [](const auto* each) { return each->state(); }))
        m_model.lights.setState(true);
}

void Navigation::wasSwitched(const ButtonModel& kind)
{
    m_newToReveal.reset();
    std::erase(m_switchedOn, &kind);
    if (kind.state())
        m_switchedOn.push_back(&kind);
    m_actions.rebuild();
}

void Navigation::showOnly(ButtonModel& kind)
{
    for (ButtonModel* each : switches())
        each->setState(each == &kind);
    wasSwitched(kind);
}

std::shared_ptr<LampControlStrip> Navigation::takeStripToReveal(const Strips& strips)
{
    auto kinds = std::exchange(m_switchedOn, {});
    const auto made = std::exchange(m_newToReveal, {});
    const auto first = [&strips](const auto& suits) -> std::shared_ptr<LampControlStrip> {
        const auto found = std::find_if(strips.begin(), strips.end(),
            [&](const auto& strip) { return suits(strip->target()); });
        return found == strips.end() ? nullptr : *found;
    };
    if (made)
        return first([&](const StripTarget& target) { return target == *made; });
    std::reverse(kinds.begin(), kinds.end()); // the latest first
    for (const ButtonModel* kind : kinds) {
        if (auto strip = first([&](const auto& target) { return switchFor(target) == kind; }))
            return strip;
    }
    return nullptr;
}

void Navigation::showNew(const StripTarget& target)
{
    m_newToReveal = target;
    const ButtonModel* kind = switchFor(target);
    for (ButtonModel* each : switches())
        each->setState(each->state() || each == kind);
}

void Navigation::navigateLampsInTypeID(
    const std::string& description, StripType type, const std::string& id)
{
    setFilter(NavigationFilter{type, id, description});
    m_actions.saveWindowState();
    m_actions.rebuild();
}

void Navigation::navigateToZones(const LampControlStrip& strip)
{
    navigateLampsInTypeID(fmt::format("viewing zones for multizone lamp {}", strip.label().text()),
        StripType::Zone, strip.getID());
}

void Navigation::navigateToGroup(const LampControlStrip& strip)
{
    navigateLampsInTypeID(fmt::format("viewing lamps in group {}", strip.label().text()),
        StripType::Group, strip.getID());
}

void Navigation::navigateToLocation(const LampControlStrip& strip)
{
    navigateLampsInTypeID(fmt::format("viewing lamps in location {}", strip.label().text()),
        StripType::Location, strip.getID());
}

void Navigation::navigateToTag(const LampControlStrip& strip)
{
    navigateLampsInTypeID(fmt::format("viewing lamps tagged {}", strip.label().text()),
        StripType::Tag, strip.getID());
}

void Navigation::goBack()
{
    if (!m_actions.cancelWorkflow()) // which goes back by itself
        unNavigate();
}

void Navigation::unNavigate()
{
    m_actions.closeEditPopovers();
    setFilter({});
    m_actions.rebuild();
}

void Navigation::setFilter(std::optional<NavigationFilter> filter)
{
    m_model.filter = std::move(filter);
    if (m_model.onChange)
        m_model.onChange();
}

} // namespace lumeroom
