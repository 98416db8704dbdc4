#pragma once

#include "app/StripCollection.h"
#include "engine/QVLIFXEngineDelegate.h"

namespace lumeroom {

/// The control panel's window, as its controller sees it.
class PanelView {
public:
    virtual ~PanelView() = default;

    virtual void setTitle(const std::string& title) = 0;
    /// The search indication in the middle of the panel.
    virtual void startThrobber() = 0;
    virtual void stopThrobber() = 0;
    /// Shows just these strips, in this order. A strip that was shown before keeps its view.
    virtual void showStrips(const Strips& strips) = 0;
    /// While the user edits in a popover, the panel must not be rebuilt under it.
    virtual bool popoverIsOpen() const = 0;
    /// Brings the window to the front with the keyboard focus.
    virtual void makeKeyAndFront() = 0;
    virtual int runModal(const Alert& alert) = 0;
};

} // namespace lumeroom
