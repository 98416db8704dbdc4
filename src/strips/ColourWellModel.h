#pragma once

#include "base/Value.h"
#include "strips/Controls.h"
#include "strips/ZTColourPicker.h"

namespace lumeroom {

class Log;
class UserDefaults;

/// Shows the picker beside a well.
class ColourWellPopover {
public:
    virtual ~ColourWellPopover() = default;
    /// The edge of the well that the popover opens at if there is room.
    enum class Edge { Left = 0, Bottom = 1, Right = 2, Top = 3 };
    virtual void showAtWell(Edge preferredEdge) = 0;
};

/// What is dropped on a well: the types that it is offered as, and what there is under them.
struct ColourDrop {
    bool offersArchive = false;
    std::optional<Value::Data> archivedColour;
    bool offersColour = false;
    std::optional<Colour> colour; ///< from the desktop's own colour chooser
};

/// The swatch that shows a strip's colour, and takes one from the user.
class ColourWellModel : public ControlModel, public ZTColourPickerDelegate {
public:
    ColourWellModel(RunLoop& runLoop, const UserDefaults& defaults, Log& log)
        : ControlModel(0)
        , m_actionFilter(runLoop, [this] { fireFilteredAction(); })
        , m_defaults(defaults)
        , m_log(log)
    {
    }
    ~ColourWellModel() override { setColourPicker(nullptr); }

    const Colour& colour() const { return m_colour; }
    /// A target without colour shows the grey of the same brightness.
    void setColour(const Colour& colour);
    int capabilities() const { return m_capabilities; }
    void setCapabilities(int capabilities);
    void setFilteredTarget(ControlTarget* target) { m_target = target; }

    /// From the picker, while the user moves through its colours.
    void userHasPickedColour(const Colour& colour) override;
    void userHasCancelled() override;
    void handleChange() { m_actionFilter.controlDidChange(); }
    void fireFilteredAction();
    bool hasPendingAction() const { return m_actionFilter.isPending(); }
    void cancelPendingAction() { m_actionFilter.cancel(); }
    /// Acts on the colour at once, by a press and not by a movement.
    void act();
    /// From opening the picker to opening it again; null of the wheel.
    Stroke stroke() const override { return m_stroke; }
    /// The picker was opened for it.
    void setOpened(std::function<void()> opened) { m_opened = std::move(opened); }
    /// The user takes back what was picked since the picker was opened.
    void setCancelled(std::function<void()> cancelled) { m_cancelled = std::move(cancelled); }

    // The picker, which all wells share
    void setColourPicker(std::shared_ptr<ZTColourPicker> picker);
    void setPopover(ColourWellPopover* popover) { m_popover = popover; }
    /// Shows the colour in the picker, which from then on edits this well.
    void showThePopover();

    // A click opens the picker, unless the mouse leaves the well before it is let go.
    void mouseDown() { m_clickstep = 1; }
    void mouseExited() { m_clickstep = 0; }
    void mouseUp();

    /// Brighter by `deltaY` lines, or darker by as many below 0; never quite dark.
    void scrollWheel(float deltaY);

    /// For a drag out of the well. A colour without kelvin is given one by this.
    Value::Data archivedColour();
    /// Takes the colour and acts on it at once. False, with a log line, if there is none to take.
    bool performDragOperation(const ColourDrop& drop);

private:
    bool takeArchivedColour(const std::optional<Value::Data>& data);
    bool takeColour(const std::optional<Colour>& colour);
    bool refuseDrop(std::string_view reason);

    Colour m_colour;
    Stroke m_session; ///< of the picker
    Stroke m_stroke;
    bool m_picked = false; ///< in this session
    std::function<void()> m_opened;
    std::function<void()> m_cancelled;
    int m_capabilities = 7;
    int m_clickstep = 0; ///< 1 between press and release
    ControlTarget* m_target = nullptr;
    ActionFilter m_actionFilter;
    std::shared_ptr<ZTColourPicker> m_picker;
    ColourWellPopover* m_popover = nullptr;
    const UserDefaults& m_defaults;
    Log& m_log;
};

} // namespace lumeroom
