#include "app/StripFactory.h"

#include "app/Navigation.h"
#include "app/PanelView.h"
#include "base/DefaultsKeys.h"
#include "base/UserDefaults.h"
#include "engine/EngineRoom.h"
#include "strips/GroupingAccess.h"
#include "strips/LayoutManager.h"

#include <fmt/core.h>

namespace lumeroom {

StripFactory::StripFactory(const Environment& environment)
    : m_environment(environment)
{
}

std::shared_ptr<LampControlStrip> StripFactory::makeControlStripForLamp(
    const StripRecord& record, StripType type)
{
    auto strip = recycledStripForID(record.id, type);
    strip->reactivateWithEngineRoom(&m_environment.engineRoom);
    if (!strip->getControlStripView()) {
        strip->setControlStripView(
            m_environment.panel.newControlStripView(*strip, m_environment.layoutManager.theme()));
    }

    StripSettings shown = record.settings;
    shown.label = shown.label.value_or(record.id);
    shown.onoff = shown.onoff.value_or(false);
    for (auto* value : {&shown.brightness, &shown.colour, &shown.saturation, &shown.warmth})
        *value = value->value_or(0);
    strip->setCapabilities(record.capabilities.value_or(kCapabilitiesColourLamp));
    strip->setCondition(StripCondition::of(strip->target(), m_environment.engineRoom.registry()));
    // To the last fraction, which a report does not care for.
    strip->brightnessSlider().setValue(static_cast<float>(*shown.brightness));
    if (strip->showsUnsentColour())
        shown.colour.reset(); // the user is still choosing it
    else
        strip->colourSlider().setValue(static_cast<float>(*shown.colour));
    strip->satSlider().setValue(static_cast<float>(*shown.saturation));
    strip->warmthSlider().setValue(static_cast<float>(*shown.warmth));
    strip->implementSettingsFromDictionaryWithoutActing(shown);
    strip->label().setStandIn(record.isNew ? kNameOfNewLamp : "");
    strip->setSelected(false);
    strip->showSelectedButton(false);
    if (type == StripType::Lamp && record.zones > 0) {
        showZones(*strip, record.zones);
        strip->kindBadge().setToolTip("Light strip");
    } else {
        setUpBadge(*strip);
        setUpNavigationButton(*strip);
    }
    strip->colourWell().setHidden(
        m_environment.surroundings.defaults.get(keys::kColourPickerType) != 0);

    if (auto* view = strip->getControlStripView())
        view->setShown(true);
    return strip;
}

void StripFactory::setUpBadge(LampControlStrip& strip) const
{
    using Image = BadgeModel::Image;
    BadgeModel& badge = strip.kindBadge();
    const auto* access = groupingAccess(strip.type());
    const bool isRoom = strip.type() == StripType::Location;
    badge.setImage(!access ? Image::None : isRoom ? Image::RoomGroup : Image::LightGroup);
    const std::string text(access ? access->name : "");
    badge.setText(text);
    badge.setToolTip(text);
    badge.setHidden(!access);
}

void StripFactory::setUpNavigationButton(LampControlStrip& strip) const
{
    ButtonModel& button = strip.navigationButton();
    LampControlStrip* const target = &strip; // which holds the button
    Navigation& navigation = m_environment.navigation;
    const bool isAll = strip.type() == StripType::Group && strip.getID() == kAllLampsId;
    const bool leadsOn = strip.isGroup() && !isAll;
    button.setHidden(!leadsOn);
    if (!leadsOn)
        return;
    showLampCount(strip);
    switch (strip.type()) {
    case StripType::Location:
        button.setAction([&navigation, target] { navigation.navigateToLocation(*target); });
        break;
    case StripType::Tag:
        button.setAction([&navigation, target] { navigation.navigateToTag(*target); });
        break;
    default:
        button.setAction([&navigation, target] { navigation.navigateToGroup(*target); });
        break;
    }
}

// Locations and tags are counted as groups: of two things with one ID, the group counts.
void StripFactory::showLampCount(LampControlStrip& strip) const
{
    const LampRegistry& registry = m_environment.engineRoom.registry();
    strip.navigationButton().setToolTip(
        fmt::format("View {} lamps", registry.lightsArrayForGroup(strip.getID()).size()));
}

void StripFactory::showZones(LampControlStrip& strip, std::size_t zones) const
{
    const std::string count = fmt::format("View {} zones", zones);
    strip.kindBadge().setImage(BadgeModel::Image::LightStrip);
    strip.kindBadge().setToolTip(count);
    strip.kindBadge().setHidden(false);
    ButtonModel& button = strip.navigationButton();
    button.setToolTip(count);
    button.setAction(
        [&navigation = m_environment.navigation, &strip] { navigation.navigateToZones(strip); });
    button.setHidden(false);
}

std::shared_ptr<LampControlStrip> StripFactory::recycledStripForID(
    const std::string& id, StripType type)
{
    const auto found = m_recycler.find({id, type});
    if (found != m_recycler.end())
        return found->second;
    return std::make_shared<LampControlStrip>(id, type, m_environment.surroundings);
}

void StripFactory::forgetUnknown()
{
    const LampRegistry& registry = m_environment.engineRoom.registry();
    std::erase_if(m_recycler, [&](const auto& entry) { return !entry.first.isKnown(registry); });
}

void StripFactory::recycleStrip(const std::shared_ptr<LampControlStrip>& strip)
{
    m_recycler.try_emplace(strip->target(), strip);
}

} // namespace lumeroom
