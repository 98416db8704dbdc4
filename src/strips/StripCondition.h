#pragma once

#include "base/RunLoop.h"
#include "engine/Records.h"
#include "strips/Colour.h"
#include "strips/StripTarget.h"

#include <vector>

namespace lumeroom {

/// What a strip's target is, as far as that is known.
enum class StripState { Waiting, NotAnswering, Off, On };

/// What the engine knows of a strip's target beyond the settings that its controls show.
struct StripCondition {
    /// `Waiting` until the lamp, or one of the lamps, has told its state.
    enum class Contact { Waiting, Answering, Silent };
    static constexpr std::size_t kMostLights = 8;

    Contact contact = Contact::Answering;
    std::optional<TimePoint> lastHeard; ///< on the wall clock; nothing if never
    // Of a group, a location, a tag or all lamps
    std::size_t lamps = 0;
    std::size_t lampsOn = 0;
    std::vector<Colour> lights; ///< of those that are on, at most `kMostLights`
    bool stateIsKnown = true; ///< of any of them, if only from before it fell silent

    static StripCondition of(const StripTarget& target, const LampRegistry& registry);
    static StripCondition of(const Lamp& lamp);
    /// Of a group, a location, a tag or all lamps.
    static StripCondition of(const Lamps& lamps);
    bool operator==(const StripCondition&) const = default;
};

} // namespace lumeroom
