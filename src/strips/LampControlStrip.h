#pragma once

#include "engine/LampReference.h"
#include "strips/LampControlStripOwner.h"
#include "strips/StripCaption.h"
#include "strips/StripControls.h"
#include "strips/StripEmbargo.h"
#include "strips/StripMenuEntry.h"
#include "strips/StripPlayer.h"
#include "strips/StripReportIntake.h"
#include "strips/StripSurroundings.h"
#include "strips/StripTarget.h"
#include "strips/UnsentColour.h"

#include <utility>

namespace lumeroom {

/// The controller of one row of controls. It stands between the user's hand, which must reach the
/// lamp without flooding the network, and the lamp's reports, which must reach the controls without
/// fighting the hand: for some seconds after a touch, reports are not shown.
class LampControlStrip : public LampReference, public ControlTarget {
public:
    LampControlStrip(std::string id, StripType type, const StripSurroundings& surroundings);
    ~LampControlStrip() override;
    LampControlStrip(const LampControlStrip&) = delete;
    LampControlStrip& operator=(const LampControlStrip&) = delete;

    /// A strip that is not shown has none, and what a view would show does not show.
    void setControlStripView(std::unique_ptr<LampControlStripView> view)
    {
        m_view = std::move(view);
    }
    LampControlStripView* getControlStripView() const { return m_view.get(); }

    // The controls
    TextModel& label() { return m_controls.label; }
    const TextModel& label() const { return m_controls.label; }
    ButtonModel& onOffButton() { return m_controls.onOffButton; }
    ButtonModel& getSelectedButton() { return m_controls.selectedButton; }
    ButtonModel& renameButton() { return m_controls.renameButton; }
    ButtonModel& effectButton() { return m_controls.effectButton; }
    BadgeModel& kindBadge() { return m_controls.kindBadge; }
    /// Leads to the strips of the lamps or zones behind this one. Hidden where there are none.
    ButtonModel& navigationButton() { return m_controls.navigationButton; }
    ZTSlider& brightnessSlider() { return m_controls.brightnessSlider; }
    SliderModel& colourSlider() { return m_controls.colourSlider; }
    ZTSlider& satSlider() { return m_controls.satSlider; }
    ZTSlider& warmthSlider() { return m_controls.warmthSlider; }
    ColourWellModel& colourWell() { return m_controls.colourWell; }
    const ColourWellModel& colourWell() const { return m_controls.colourWell; }
    ButtonModel& sendButton() { return m_controls.sendButton; }
    CaptionModel& caption() { return m_caption.model(); }
    StripState state() const { return m_caption.state(); }
    /// Shades the bar of the saturation slider.
    float saturatedHueComponent() const { return m_controls.saturatedHueComponent; }

    const StripTarget& target() const { return m_target; }
    std::string getID() const override { return m_target.id; }
    StripType type() const { return m_target.type; }
    bool isGroup() const override { return m_target.isGroup(); }
    /// The number by which the strip's controller finds it.
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }
    int capabilities() const { return m_controls.colourWell.capabilities(); }
    /// Without colour the sliders of hue and saturation are disabled and the well shows greys;
    /// without variable white the warmth slider is disabled.
    void setCapabilities(int capabilities) { m_controls.setCapabilities(capabilities); }
    void setCondition(const StripCondition& condition);
    void showSelectedButton(bool shown) { m_controls.selectedButton.setHidden(!shown); }
    void setSelected(bool selected) { m_controls.selectedButton.setState(selected); }
    bool isSelected() const { return m_controls.selectedButton.state(); }

    /// Takes the strip out of use: controls and reports have no effect until it is reactivated.
    void deactivate();
    void reactivateWithEngineRoom(EngineRoom* engineRoom);

    void handleControl(const ControlModel& sender) override;
    void unfilteredAction(const ControlModel& sender) override;
    // By nobody's hand, as scripts do
    void switchOn() { switchTo(true); }
    void switchOff() { switchTo(false); }
    /// The colour slider has moved the well, and the lamp knows nothing of it.
    bool showsUnsentColour() const { return m_unsentColour.isShown(); }
    void forgetUnsentColour() { m_unsentColour.forget(); }

    /// Shows the settings and acts on them as if the user had moved the controls.
    void implementSettingsFromDictionary(const StripSettings& settings);
    /// A lamp reports a brightness back one lower than it was sent; that does not move the slider.
    bool isReadBackLoss(double brightness) const;
    /// Shows them and sends nothing.
    void implementSettingsFromDictionaryWithoutActing(const StripSettings& settings);
    /// The same, unless under embargo: the way of the lamps' reports.
    void implementSettingsFromDictionaryWithoutActingObservingEmbargo(
        const StripSettings& settings);
    /// Sends them, then shows them at once if the transition is short.
    void implementSettingsFromDictionaryWithTransitionTime(const StripSettings& settings);

    /// Of a group, a location or a tag: shows them in the strips of its lamps and sends nothing.
    void sendSettingsToStripsInGroup(const StripSettings& settings);

    /// Reports are not shown for at least 5 seconds from now, and at most about 7.
    void imposeTemporaryEmbargo() override { m_embargo.imposeTemporaryEmbargo(); }
    bool embargo() const { return m_embargo.isSet(); }

    /// "label", "onoff", "brightness", "colour", "saturation", "warmth" and "id".
    Value::Dictionary getDictionary() const;
    /// One of these from the controls, apart from "id"; the empty text for any other key.
    Value objectForKey(std::string_view key) const { return m_controls.objectForKey(key); }
    /// Writes it to the control and does nothing else.
    void setObjectForKey(const Value& value, std::string_view key)
    {
        m_controls.setObjectForKey(value, key);
    }

    /// Opens the rename popover; for a tag, says instead why tags keep their names.
    void showReNamePopover();
    /// What the user did within the last tenth of a second is yet to be sent.
    bool hasPendingAction() const
    {
        return m_controls.hasPendingAction() || m_colourFilter.isPending();
    }
    /// It is not sent.
    void cancelPendingActions();
    /// The rename popover closes with this text in its field.
    void popoverShouldClose(const std::string& fieldText);
    void reName(const std::string& name);

    // Effects
    std::vector<EffectMenuItem> effectMenu() const;
    void chooseFromEffectMenu(const EffectMenuItem& item);
    void implementEffect(const std::string& name) { m_player.play(name, *this); }
    void stopEffect() { m_player.stop(); }
    void editEffects() { m_owner.showEffectsManager(); }

    /// Choosing the item switches the target over; its picture follows the strip.
    void setStatusBarMenuItem(std::shared_ptr<MenuItemModel> item)
    {
        m_menuEntry.setItem(std::move(item));
    }
    const std::shared_ptr<MenuItemModel>& statusBarMenuItem() const { return m_menuEntry.item(); }

    // The view is dragged to another place
    void viewDidBeginDragging() { m_owner.viewDidBeginDragging(); }
    void viewDidMoveTo(Point point) { m_owner.changePositionOfStripBasedOnPoint(*this, point); }
    void viewDidFinishDragging() { m_owner.viewDidFinishDragging(); }

private:
    void setUpNamesAndPower();
    void actForGroup(const ControlModel& sender, const Settings& full);
    void actForGroupOnOff(const Settings& full);
    void actForLamp(const ControlModel& sender, const Settings& full);
    void actForLampOnOff(const Settings& full);
    void actForColourSlider();
    void sendToLamp(const Settings& settings, const ControlModel& sender);
    void sendByHand(const ControlModel& sender, const std::function<void()>& send);
    void sendNow(const Settings& settings);
    void sendColourAlone();
    void turn(bool on);
    void switchTo(bool on);
    void showInSlider(SliderModel& slider, const std::optional<double>& value);
    void embargoHasLifted();

    StripTarget m_target;
    int m_tag = 0;
    const UserDefaults& m_defaults;
    LampControlStripOwner& m_owner;
    EngineRoom* m_engineRoom = nullptr;
    StripControls m_controls;
    StripCaption m_caption;
    UnsentColour m_unsentColour;
    ActionFilter m_colourFilter; ///< of a colour slider that acts at once
    StripEmbargo m_embargo;
    StripReportIntake m_reportIntake;
    bool m_followsSettings = false; ///< and not the user's hand
    StripPlayer m_player;
    StripMenuEntry m_menuEntry;
    std::unique_ptr<LampControlStripView> m_view; ///< looks at the controls, so it goes first
};

} // namespace lumeroom
