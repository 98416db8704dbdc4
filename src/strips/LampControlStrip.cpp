#include "strips/LampControlStrip.h"

#include "base/DefaultsKeys.h"
#include "base/UserDefaults.h"
#include "engine/EngineRoom.h"
#include "engine/LampUnits.h"

#include <utility>

namespace lumeroom {

LampControlStrip::LampControlStrip(
    std::string id, StripType type, const StripSurroundings& surroundings)
    : m_target{std::move(id), type}
    , m_defaults(surroundings.defaults)
    , m_owner(surroundings.owner)
    , m_controls(surroundings, *this)
    , m_caption(m_controls, m_target.isGroup(), surroundings.runLoop)
    , m_unsentColour(m_controls, [this](bool shown) { m_owner.colourIsUnsent(*this, shown); })
    , m_colourFilter(surroundings.runLoop, [this] { sendColourAlone(); })
    , m_embargo(surroundings.runLoop, [this] { embargoHasLifted(); })
    , m_player(m_owner, m_caption)
    , m_menuEntry(m_controls, *this)
{
    setUpNamesAndPower();
    m_controls.colourWell.setOpened([this] { m_unsentColour.pickerWasOpened(); });
    m_controls.colourWell.setCancelled([this] {
        m_owner.userHasCancelled(*this, m_controls.colourWell);
        m_unsentColour.putBack();
    });
}

LampControlStrip::~LampControlStrip() = default;

/// Not every target has a name and a power of its own.
void LampControlStrip::setUpNamesAndPower()
{
    m_controls.renameButton.setAction([this] { showReNamePopover(); });
    m_controls.renameButton.setHidden(m_target.id == kAllLampsId && isGroup());
    if (type() != StripType::Zone)
        return;
    m_controls.setHasPower(false);
    m_controls.onOffButton.setToolTip("A zone goes on and off with its lamp");
    m_controls.renameButton.setEnabled(false);
    m_controls.renameButton.setToolTip("A zone is named by its number");
}

void LampControlStrip::setCondition(const StripCondition& condition)
{
    m_controls.setUsable(condition.stateIsKnown);
    m_caption.setCondition(condition);
}

void LampControlStrip::deactivate()
{
    m_engineRoom = nullptr;
    stopEffect();
    m_embargo.set(true);
}

void LampControlStrip::reactivateWithEngineRoom(EngineRoom* engineRoom)
{
    m_engineRoom = engineRoom;
    m_embargo.set(false);
}

void LampControlStrip::unfilteredAction(const ControlModel& sender)
{
    if (&sender == &m_controls.brightnessSlider || &sender == &m_controls.satSlider)
        m_controls.showColourOfSlidersInWell();
}

void LampControlStrip::handleControl(const ControlModel& sender)
{
    if (!m_engineRoom)
        return;
    if (&sender == &m_controls.colourWell)
        m_controls.setSlidersFromWell();
    if (m_controls.isSlider(sender)) {
        m_controls.showColourOfSlidersInWell();
        m_controls.onOffButton.setNeedsDisplay();
    }
    const Settings full = m_controls.settings();
    if (isGroup())
        actForGroup(sender, full);
    else if (type() == StripType::Zone && m_controls.isColourControl(sender))
        sendToLamp(full, sender);
    else if (type() == StripType::Lamp)
        actForLamp(sender, full);
    if (&sender == &m_controls.effectButton && m_view)
        m_view->popUpEffectMenu(effectMenu());
    if (sender.tag() == controltag::kStatusMenuItem)
        turn(!m_controls.onOffButton.state());
    imposeTemporaryEmbargo();
    m_owner.stripHasChanged();
}

void LampControlStrip::actForGroup(const ControlModel& sender, const Settings& full)
{
    if (&sender == &m_controls.onOffButton) {
        sendByHand(sender, [&] { actForGroupOnOff(full); });
    } else if (m_controls.isColourControl(sender)) {
        sendByHand(sender, [&] { m_target.sendSettingsToGroup(m_engineRoom->commands(), full); });
        sendSettingsToStripsInGroup({full, {}, {}, {}});
    }
}

void LampControlStrip::actForGroupOnOff(const Settings& full)
{
    const bool on = m_controls.onOffButton.state();
    if (!on)
        stopEffect();
    m_target.groupOn(m_engineRoom->commands(), on);
    // Whatever the kind, the ID goes to the engine's group routine, which knows all of them.
    if (on && m_defaults.get(keys::kGroupOnOffChangesSettings))
        m_engineRoom->commands().sendSettingsToGroup(full, m_target.id);
    sendSettingsToStripsInGroup(StripSettings::power(on));
}

void LampControlStrip::sendSettingsToStripsInGroup(const StripSettings& settings)
{
    if (isGroup())
        m_owner.sendSettingsToStripsInGroup(settings, m_target);
}

void LampControlStrip::actForLamp(const ControlModel& sender, const Settings& full)
{
    if (&sender == &m_controls.onOffButton)
        sendByHand(sender, [&] { actForLampOnOff(full); });
    else if (&sender == &m_controls.colourSlider)
        actForColourSlider();
    else if (m_controls.isColourControl(sender))
        sendToLamp(m_controls.settingsOf(sender), sender);
}

void LampControlStrip::sendColourAlone()
{
    sendToLamp(m_controls.settingsOf(m_controls.colourSlider), m_controls.colourSlider);
}

/// It moves the well alone, unless the user wants it otherwise; its colour goes out with the well
/// or the button.
void LampControlStrip::actForColourSlider()
{
    if (m_defaults.get(keys::kColourSliderActsAtOnce)) {
        if (m_followsSettings)
            sendColourAlone(); // later it would count as the user's
        else
            m_colourFilter.controlDidChange();
        return;
    }
    const auto lamp = m_engineRoom->registry().lampWithID(m_target.id);
    m_unsentColour.sliderWasMoved(lamp ? lamp->colour : std::nullopt, !m_followsSettings);
}

void LampControlStrip::sendByHand(const ControlModel& sender, const std::function<void()>& send)
{
    if (m_followsSettings)
        send();
    else
        m_owner.stripSends(*this, sender, send);
}

void LampControlStrip::sendToLamp(const Settings& settings, const ControlModel& sender)
{
    if (!m_engineRoom)
        return;
    sendByHand(sender, [&] { sendNow(settings); });
}

void LampControlStrip::sendNow(const Settings& settings)
{
    m_engineRoom->commands().sendSettingsToLamp(settings, m_target.id);
    if (settings.colour)
        forgetUnsentColour();
}

void LampControlStrip::actForLampOnOff(const Settings& full)
{
    const bool on = m_controls.onOffButton.state();
    if (!on)
        stopEffect();
    m_engineRoom->commands().lampOn(m_target.id, on);
    if (!on)
        return;
    // The lamp comes on with what the strip shows. A multizone lamp keeps its zones' colours, and
    // one that has told nothing yet its own.
    const auto lamp = m_engineRoom->registry().lampWithID(m_target.id);
    if (lamp && lamp->brightness && !lamp->zones)
        sendNow(full);
}

void LampControlStrip::turn(bool on)
{
    m_controls.onOffButton.setState(on);
    handleControl(m_controls.onOffButton);
}

void LampControlStrip::switchTo(bool on)
{
    const bool before = std::exchange(m_followsSettings, true);
    turn(on);
    m_followsSettings = before;
}

void LampControlStrip::cancelPendingActions()
{
    m_controls.cancelPendingActions();
    m_colourFilter.cancel();
}

void LampControlStrip::implementSettingsFromDictionary(const StripSettings& settings)
{
    const bool before = std::exchange(m_followsSettings, true);
    const bool onlyShows = embargo();
    if (settings.brightness && !isReadBackLoss(*settings.brightness))
        showInSlider(m_controls.brightnessSlider, settings.brightness);
    if (settings.colour && onlyShows)
        forgetUnsentColour();
    showInSlider(m_controls.colourSlider, settings.colour);
    showInSlider(m_controls.satSlider, settings.saturation);
    showInSlider(m_controls.warmthSlider, settings.warmth);
    if (settings.onoff && *settings.onoff != m_controls.onOffButton.state()) {
        m_controls.onOffButton.setState(*settings.onoff);
        if (!embargo())
            handleControl(m_controls.onOffButton);
    }
    if (settings.label)
        m_controls.label.setText(*settings.label);
    m_controls.showColourOfSliders();
    m_followsSettings = before;
}

bool LampControlStrip::isReadBackLoss(double brightness) const
{
    return integerPart(brightness) == m_controls.brightnessSlider.integerValue() - 1;
}

void LampControlStrip::showInSlider(SliderModel& slider, const std::optional<double>& value)
{
    if (!value || integerPart(*value) == slider.integerValue())
        return;
    slider.setValue(static_cast<float>(*value));
    if (!embargo())
        handleControl(slider);
}

void LampControlStrip::implementSettingsFromDictionaryWithoutActing(const StripSettings& settings)
{
    const StripEmbargo::Hold hold(m_embargo);
    implementSettingsFromDictionary(settings);
    m_reportIntake.hasShown(settings);
}

void LampControlStrip::implementSettingsFromDictionaryWithoutActingObservingEmbargo(
    const StripSettings& settings)
{
    // A report in the tenth of a second before the user's change is sent would undo the change.
    const bool refused = embargo() || hasPendingAction();
    if (const auto shown = m_reportIntake.take(settings, refused, showsUnsentColour()))
        implementSettingsFromDictionaryWithoutActing(*shown);
}

void LampControlStrip::embargoHasLifted()
{
    if (m_reportIntake.takeMissed())
        m_owner.stripHasMissedReports();
}

void LampControlStrip::implementSettingsFromDictionaryWithTransitionTime(
    const StripSettings& settings)
{
    constexpr double kLongTransitionSeconds = 1;
    const StripEmbargo::Hold hold(m_embargo);
    Settings sent = settings;
    sent.duration.reset(); // the fade is the default one; the transition only times the controls
    if (sent.saturation)
        sent.saturation = static_cast<double>(integerPart(*sent.saturation));
    if (m_engineRoom)
        m_target.sendSettings(m_engineRoom->commands(), sent);
    // With a long one the lamp's reports move the controls along as it fades.
    if (settings.transition.value_or(0) < kLongTransitionSeconds) {
        implementSettingsFromDictionaryWithoutActing(settings);
    } else if (showsUnsentColour()) {
        StripSettings colour;
        colour.colour = settings.colour;
        implementSettingsFromDictionaryWithoutActing(colour);
    }
    m_controls.onOffButton.setNeedsDisplay();
    m_owner.stripHasChanged();
}

Value::Dictionary LampControlStrip::getDictionary() const
{
    Value::Dictionary dictionary;
    for (const std::string_view key : {keys::kLabel, keys::kOnOff, keys::kBrightness, keys::kColour,
             keys::kSaturation, keys::kWarmth})
        dictionary.emplace(key, objectForKey(key));
    dictionary.emplace(keys::kId, m_target.id);
    return dictionary;
}

void LampControlStrip::showReNamePopover()
{
    if (type() == StripType::Tag) {
        m_owner.runModal({"Legacy functionality",
            "Tags used to be part of the LIFX API, and earlier versions of Lumeroom used them "
            "(they were called 'groups' in earlier versions of Lumeroom). But on the bulbs "
            "they're now deprecated (they work at the moment but are now undocumented) in "
            "favour of the newer 'Groups' and 'Locations', so Lumeroom will show tags for "
            "legacy reasons but won't be able to add new ones or change existing ones.",
            {"OK"}});
    } else if (m_view) {
        m_view->showReNamePopover(
            m_controls.label.hasStandIn() ? std::string() : m_controls.label.text());
    }
}

void LampControlStrip::popoverShouldClose(const std::string& fieldText)
{
    if (!fieldText.empty() && fieldText != m_controls.label.text())
        reName(fieldText);
}

void LampControlStrip::reName(const std::string& name)
{
    m_controls.label.setText(name);
    if (m_engineRoom)
        m_target.rename(*m_engineRoom, name);
    m_owner.targetWasRenamed(*this);
    m_owner.stripHasChanged();
}

std::vector<EffectMenuItem> LampControlStrip::effectMenu() const
{
    return effectMenuOf(
        storedEffects(m_defaults), m_player.isPlaying(), m_owner.hasEffectsManager());
}

void LampControlStrip::chooseFromEffectMenu(const EffectMenuItem& item)
{
    if (item.kind == EffectMenuItem::Kind::StopEffect)
        stopEffect();
    else if (item.kind == EffectMenuItem::Kind::Effect)
        implementEffect(item.title);
    else if (item.kind == EffectMenuItem::Kind::EditEffects)
        editEffects();
}

} // namespace lumeroom
