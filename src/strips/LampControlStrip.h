#pragma once

#include "engine/LampReference.h"
#include "engine/QVLIFXEngineDelegate.h"
#include "engine/Records.h"
#include "strips/ColourConversions.h"
#include "strips/Controls.h"

namespace lumeroom {

class EngineRoom;

/// What a strip shows or is to show: settings, with the target's name and a preset's transition.
struct StripSettings : Settings {
    std::optional<std::string> label;
    std::optional<double> transition; ///< seconds

    static StripSettings fromDictionary(const Value::Dictionary& dictionary);
};

/// The kinds of target.
enum class StripType { None = 0, Lamp = 1, Group = 2, Location = 3, Tag = 4, Zone = 5 };

/// The controller of one row of controls. It stands between the user's hand, which must reach the
/// lamp without flooding the network, and the lamp's reports, which must reach the controls without
/// fighting the hand: for some seconds after a touch, reports are not shown.
class LampControlStrip : public LampReference, public ControlTarget {
public:
    LampControlStrip(std::string id, StripType type, RunLoop& runLoop);

    // The controls
    TextModel& label() { return m_label; }
    const TextModel& label() const { return m_label; }
    ButtonModel& onOffButton() { return m_onOffButton; }
    ButtonModel& selectedButton() { return m_selectedButton; }
    ZTSlider& brightnessSlider() { return m_brightnessSlider; }
    SliderModel& colourSlider() { return m_colourSlider; }
    ZTSlider& satSlider() { return m_satSlider; }
    ZTSlider& warmthSlider() { return m_warmthSlider; }
    ColourWellModel& colourWell() { return m_colourWell; }
    const ColourWellModel& colourWell() const { return m_colourWell; }
    /// Shades the bar of the saturation slider.
    float saturatedHueComponent() const { return m_saturatedHueComponent; }

    std::string getID() const override { return m_ID; }
    StripType type() const { return m_type; }
    bool isGroup() const override;
    int capabilities() const { return m_capabilities; }
    /// Without colour the saturation slider is disabled and the well shows greys; without variable
    /// white the warmth slider is disabled.
    void setCapabilities(int capabilities);
    bool isSelected() const { return m_selectedButton.state(); }

    /// Takes the strip out of use: controls and reports have no effect until it is reactivated.
    void deactivate();
    void reactivateWithEngineRoom(EngineRoom* engineRoom);

    void handleControl(const ControlModel& sender) override;
    void unfilteredAction(const ControlModel& sender) override;
    void switchOn();
    void switchOff();

    /// Shows the settings and acts on them as if the user had moved the controls.
    void implementSettingsFromDictionary(const StripSettings& settings);
    /// Shows them and sends nothing.
    void implementSettingsFromDictionaryWithoutActing(const StripSettings& settings);
    /// The same, unless under embargo: the way of the lamps' reports.
    void implementSettingsFromDictionaryWithoutActingObservingEmbargo(
        const StripSettings& settings);
    /// Sends them, then shows them at once if the transition is short.
    void implementSettingsFromDictionaryWithTransitionTime(const StripSettings& settings);

    /// Reports are not shown for at least 5 seconds from now, and at most about 7.
    void imposeTemporaryEmbargo();
    bool embargo() const { return m_embargo; }

    /// "label", "onoff", "brightness", "colour", "saturation", "warmth" and "id".
    Value::Dictionary getDictionary() const;
    /// One of these from the controls, apart from "id"; the empty text for any other key.
    Value objectForKey(std::string_view key) const;
    /// Writes it to the control and does nothing else.
    void setObjectForKey(const Value& value, std::string_view key);

    /// The rename popover closes with this text in its field.
    void popoverShouldClose(const std::string& fieldText);
    void reName(const std::string& name);

private:
    void actForLamp(const ControlModel& sender, const Settings& full);
    void actForLampOnOff(const Settings& full);
    bool isSlider(const ControlModel& sender) const;
    SliderValues sliderValues() const;
    void showColourOfSlidersInWell();
    void setSlidersFromWell();
    Settings settingsOfSliders() const;
    void showInSlider(SliderModel& slider, const std::optional<double>& value);
    void removeEmbargo();

    RunLoop& m_runLoop;
    std::string m_ID;
    StripType m_type;
    int m_capabilities = kCapabilitiesColourLamp;
    EngineRoom* m_engineRoom = nullptr;

    TextModel m_label{controltag::kLabel};
    ButtonModel m_onOffButton{controltag::kOnOffButton};
    ButtonModel m_selectedButton{controltag::kSelectionButton};
    ZTSlider m_brightnessSlider;
    SliderModel m_colourSlider;
    ZTSlider m_satSlider;
    ZTSlider m_warmthSlider;
    ColourWellModel m_colourWell;
    float m_saturatedHueComponent = 0;

    bool m_embargo = false;
    TimePoint m_embargoUntil;
    Timer m_embargoTimer;
};

} // namespace lumeroom
