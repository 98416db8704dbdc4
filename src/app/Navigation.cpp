#include "app/Navigation.h"

#include "strips/LampControlStrip.h"

#include <fmt/core.h>

namespace lumeroom {

Navigation::Navigation(Actions actions)
    : m_actions(std::move(actions))
{
    for (ButtonModel* button :
        {&m_model.lights, &m_model.groups, &m_model.locations, &m_model.tags, &m_model.all})
        button->setAction([this] { m_actions.rebuild(); });
    m_model.back.setAction([this] { unNavigate(); });
}

bool Navigation::shows(StripType type) const
{
    switch (type) {
    case StripType::Lamp:
        return m_model.lights.state();
    case StripType::Group:
        return m_model.groups.state();
    case StripType::Location:
        return m_model.locations.state();
    case StripType::Tag:
        return m_model.tags.state();
    default:
        return false;
    }
}

void Navigation::turnSomethingOn()
{
    if (!m_model.lights.state() && !m_model.groups.state() && !m_model.locations.state()
        && !m_model.tags.state() && !m_model.all.state())
        m_model.lights.setState(true);
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

void Navigation::unNavigate()
{
    setFilter({});
    m_actions.closeEditPopovers();
    m_actions.rebuild();
}

void Navigation::setFilter(std::optional<NavigationFilter> filter)
{
    m_model.filter = std::move(filter);
    if (m_model.onChange)
        m_model.onChange();
}

} // namespace lumeroom
