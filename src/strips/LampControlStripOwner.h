#pragma once

#include "base/Geometry.h"
#include "engine/QVLIFXEngineDelegate.h"
#include "strips/EffectMenu.h"
#include "strips/StripSettings.h"
#include "strips/StripTarget.h"

#include <functional>
#include <memory>

/// What a strip asks of those around it.
namespace lumeroom {

class ControlModel;
class LampControlStrip;

/// An effect that plays on a strip.
class StripEffect {
public:
    virtual ~StripEffect() = default;
    virtual void start() = 0;
    virtual void stop() = 0;
    virtual bool isRunning() const = 0;
};

/// The controller that made the strip.
class LampControlStripOwner {
public:
    virtual ~LampControlStripOwner() = default;

    /// Shows the settings in the strips of the lamps of this group, location or tag.
    virtual void sendSettingsToStripsInGroup(
        const StripSettings& settings, const StripTarget& group)
        = 0;
    /// By the user's hand, the strip has something to send to its lamps, which calling `send` does.
    virtual void stripSends(
        LampControlStrip& strip, const ControlModel& control, const std::function<void()>& send)
        = 0;
    /// By the user's hand, the strip shows a colour that its lamp was not sent, or it does so no
    /// longer.
    virtual void colourIsUnsent(LampControlStrip& strip, bool unsent) = 0;
    /// The user takes back what was done to the control.
    virtual void userHasCancelled(LampControlStrip& strip, const ControlModel& control) = 0;
    /// The strip has given its target another name.
    virtual void targetWasRenamed(LampControlStrip& strip) = 0;
    /// An embargo is over that kept reports from a strip. The engine tells a change only once, so
    /// the records have to be shown again.
    virtual void stripHasMissedReports() = 0;
    /// The user, or a script, has changed what a strip shows.
    virtual void stripHasChanged() = 0;
    virtual int runModal(const Alert& alert) = 0;

    // The user drags the strip to another place
    virtual void viewDidBeginDragging() = 0;
    virtual void changePositionOfStripBasedOnPoint(LampControlStrip& strip, Point point) = 0;
    virtual void viewDidFinishDragging() = 0;

    /// Whether there is one to show.
    virtual bool hasEffectsManager() const = 0;
    virtual void showEffectsManager() = 0;
    /// The stored effect of this name, ready to start on the strip from the colour that its well
    /// shows; null, with a log line, if there is none.
    virtual std::unique_ptr<StripEffect> makeEffect(
        const std::string& name, LampControlStrip& strip)
        = 0;
};

/// The row that shows the strip, in the container of all rows. The strip owns it.
class LampControlStripView {
public:
    virtual ~LampControlStripView() = default;

    // The row in its container
    virtual Size size() const = 0;
    /// What the layout gives it at least.
    virtual Size naturalSize() const = 0;
    virtual void setWidth(float width) = 0;
    virtual Point origin() const = 0;
    /// At once, or gliding there.
    virtual void setOrigin(Point origin, bool gliding) = 0;
    virtual void setShown(bool shown) = 0;
    /// The user has it by its handle.
    virtual bool isBeingDragged() const = 0;
    /// The user has the row or one of its controls in hand, or its popover or menu open: it must
    /// not be taken away.
    virtual bool isInUse() const = 0;
    /// Whether the row lies at this point of the container.
    virtual bool hitTest(Point point) const = 0;

    /// Opens the popover under the label, with the present name in its field.
    virtual void showReNamePopover(const std::string& name) = 0;
    /// Pops the menu up at the effect button; what is chosen goes to `chooseFromEffectMenu`.
    virtual void popUpEffectMenu(const std::vector<EffectMenuItem>& menu) = 0;
};

} // namespace lumeroom
