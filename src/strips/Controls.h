#pragma once

#include "base/Listeners.h"
#include "strips/ActionFilter.h"

#include <memory>
#include <string>

/// The controls of a strip as plain models. A view mirrors one: it repaints when the model has
/// changed, and tells the model what the user did.
namespace lumeroom {

/// The tags by which the controls of a strip are known.
namespace controltag {
inline constexpr int kLabel = 1;
inline constexpr int kOnOffButton = 2;
inline constexpr int kBrightnessSlider = 3;
inline constexpr int kColourSlider = 4;
inline constexpr int kSaturationSlider = 5;
inline constexpr int kRenameButton = 6;
inline constexpr int kKindBadge = 7;
inline constexpr int kEffectButton = 8;
inline constexpr int kSelectionButton = 11;
inline constexpr int kWarmthSlider = 12;
inline constexpr int kDragHandle = 13;
inline constexpr int kNavigationButton = 14;
inline constexpr int kStatusMenuItem = -27;
} // namespace controltag

/// What the user does to a control in one go. Null: what follows shortly belongs to it.
using Stroke = std::shared_ptr<const void>;
inline Stroke newStroke()
{
    return std::make_shared<int>();
}

class ControlModel;

/// What controls act on: a strip.
class ControlTarget {
public:
    virtual ~ControlTarget() = default;
    virtual void handleControl(const ControlModel& sender) = 0;
    /// Every movement of a filtered control, at full rate.
    virtual void unfilteredAction(const ControlModel& sender) = 0;
};

class ControlModel {
public:
    explicit ControlModel(int tag)
        : m_tag(tag)
    {
    }
    virtual ~ControlModel() = default;
    ControlModel(const ControlModel&) = delete;
    ControlModel& operator=(const ControlModel&) = delete;

    int tag() const { return m_tag; }
    bool isEnabled() const { return m_enabled; }
    bool isHidden() const { return m_hidden; }
    const std::string& toolTip() const { return m_toolTip; }
    /// That the last action belongs to. A press is one of its own.
    virtual Stroke stroke() const { return newStroke(); }
    void setEnabled(bool enabled) { assign(m_enabled, enabled); }
    void setHidden(bool hidden) { assign(m_hidden, hidden); }
    void setToolTip(const std::string& text) { assign(m_toolTip, text); }

    [[nodiscard]] Subscription listen(std::function<void()> changed)
    {
        return m_listeners.add(std::move(changed));
    }
    void setNeedsDisplay() const { m_listeners.tell(); }

protected:
    template <typename T> void assign(T& member, const T& value)
    {
        if (member == value)
            return;
        member = value;
        setNeedsDisplay();
    }

private:
    int m_tag;
    bool m_enabled = true;
    bool m_hidden = false;
    std::string m_toolTip;
    Listeners m_listeners;
};

class TextModel : public ControlModel {
public:
    using ControlModel::ControlModel;
    const std::string& text() const { return m_text; }
    void setText(const std::string& text);
    /// What shows in its place while the text is none that a person knows.
    void setStandIn(const std::string& text) { assign(m_standIn, text); }
    bool hasStandIn() const { return !m_standIn.empty(); }
    const std::string& shownText() const { return m_standIn.empty() ? m_text : m_standIn; }

private:
    std::string m_text;
    std::string m_standIn;
};

/// A button. One of two states keeps what it was pressed to; a momentary one has none.
class ButtonModel : public ControlModel {
public:
    enum class Kind { TwoStates, Momentary };
    explicit ButtonModel(int tag, Kind kind = Kind::TwoStates)
        : ControlModel(tag)
        , m_kind(kind)
    {
    }
    bool state() const { return m_state; }
    void setState(bool on) { assign(m_state, on); }
    void setTarget(ControlTarget* target) { m_target = target; }
    /// In place of a target.
    void setAction(std::function<void()> action) { m_action = std::move(action); }

    /// The user pressed it.
    void press();

private:
    Kind m_kind;
    bool m_state = false;
    ControlTarget* m_target = nullptr;
    std::function<void()> m_action;
};

/// Shows what kind of thing a strip controls.
class BadgeModel : public ControlModel {
public:
    enum class Image { None, LightStrip, LightGroup, RoomGroup };
    using ControlModel::ControlModel;
    Image image() const { return m_image; }
    /// For a layout that shows words in the picture's place.
    const std::string& text() const { return m_text; }
    void setImage(Image image) { assign(m_image, image); }
    void setText(const std::string& text) { assign(m_text, text); }

private:
    Image m_image = Image::None;
    std::string m_text;
};

/// A slider whose every movement is an action.
class SliderModel : public ControlModel {
public:
    SliderModel(int tag, float maximum)
        : ControlModel(tag)
        , m_maximum(maximum)
    {
    }
    float value() const { return m_value; }
    int integerValue() const { return static_cast<int>(m_value); }
    float maximum() const { return m_maximum; }
    /// Kept within 0 and the maximum.
    void setValue(float value);
    void setTarget(ControlTarget* target) { m_target = target; }

    /// What Return does on it; the answer: whether there was something to do.
    void setConfirmation(std::function<bool()> confirmed) { m_confirmed = std::move(confirmed); }

    /// The user moved it.
    void moveTo(float value);
    /// The user has its knob in hand.
    void setHeld(bool held);
    /// The user has it in hand, or has just moved it by keys.
    bool showsValue() const { return m_showsValue; }
    void setShowsValue(bool shows) { assign(m_showsValue, shows); }
    /// From grasping the knob to letting it go; null of the wheel and of keys.
    Stroke stroke() const override { return m_stroke; }
    /// The user pressed Return on it.
    bool confirm();

protected:
    ControlTarget* target() const { return m_target; }
    virtual void didMove();

private:
    float m_maximum;
    float m_value = 0;
    bool m_held = false;
    bool m_showsValue = false;
    Stroke m_stroke;
    ControlTarget* m_target = nullptr;
    std::function<bool()> m_confirmed;
};

/// A slider whose movements reach its target through an `ActionFilter`.
class ZTSlider : public SliderModel {
public:
    ZTSlider(int tag, float maximum, RunLoop& runLoop)
        : SliderModel(tag, maximum)
        , m_actionFilter(runLoop, [this] { fireFilteredAction(); })
    {
    }
    void setFilteredTarget(ControlTarget* target) { setTarget(target); }
    void handleChange();
    void fireFilteredAction();
    bool hasPendingAction() const { return m_actionFilter.isPending(); }
    void cancelPendingAction() { m_actionFilter.cancel(); }

protected:
    void didMove() override { handleChange(); }

private:
    ActionFilter m_actionFilter;
};

} // namespace lumeroom
