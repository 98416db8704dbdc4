#pragma once

#include <string>
#include <vector>

namespace lumeroom {

/// A modal message: what it says and the buttons that close it.
struct Alert {
    std::string title;
    std::string text;
    std::vector<std::string> buttons;
};

/// The engine's one observer. Every call comes on the main thread.
class QVLIFXEngineDelegate {
public:
    virtual ~QVLIFXEngineDelegate() = default;

    /// A lamp's label changed, its first included, or its tags were reported.
    virtual void newLampsAdded() = 0;
    /// A lamp's colour, power, group or location changed, a group or location became known, or a
    /// lamp fell silent or speaks again.
    virtual void lampStatesChanged() = 0;
    /// A group or location became known; `lampStatesChanged` follows.
    virtual void groupingBecameKnown() = 0;
    virtual void lampZoneStatesChanged() = 0;
    virtual void newZoneAdded() = 0;
    /// The power of a multizone lamp changed, whose colour the zones tell; or a lamp that was
    /// switched has reported the power it had before.
    virtual void lampPowerReported() = 0;
    virtual void engineIsSsearching(bool searching) = 0;
    /// What a lamp can do became known, or turned out otherwise.
    virtual void lampCapabilitiesChanged() = 0;
    /// Shows the alert and returns once it is dismissed, with the index of the button pressed.
    virtual int runModal(const Alert& alert) = 0;
};

} // namespace lumeroom
