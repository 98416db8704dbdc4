#pragma once

#include "engine/Records.h"

#include <map>

namespace lumeroom {

class LampCommands;
class LampRegistry;

/// Power and colour of a lamp and the colours of its zones, as far as they are known.
struct LampState {
    LampState() = default;
    explicit LampState(const Lamp& lamp);
    bool isEmpty() const { return !power && !colour.hasAny() && zones.empty(); }

    std::optional<bool> power;
    LampColour colour; ///< none of a lamp with zones, which has their mean
    std::map<int, LampColour> zones; ///< by number
};

/// What one change of the panel did: of each member that it touched, what was before and after.
class LampChange {
public:
    using States = std::map<std::string, LampState, std::less<>>; ///< by ID
    static States statesOf(const Lamps& lamps);

    LampChange() = default;
    LampChange(const States& before, const States& after);

    bool isEmpty() const { return m_lamps.empty(); }
    bool contains(std::string_view id) const { return m_lamps.contains(id); }
    /// The change goes on with `next`.
    void extend(const LampChange& next);
    // What is no longer as the change, or its being taken back, left it is another's by now. The
    // answer: whether anything was left to restore.
    bool takeBack(const LampRegistry& registry, LampCommands& commands) const;
    bool makeAgain(const LampRegistry& registry, LampCommands& commands) const;

private:
    /// Both have the same members. What was before is as it has to be sent.
    struct Sides {
        LampState before;
        LampState after;
    };
    using Side = LampState Sides::*;
    static void dropUnchanged(Sides& lamp);
    bool restore(
        Side wanted, Side left, const LampRegistry& registry, LampCommands& commands) const;

    std::map<std::string, Sides, std::less<>> m_lamps; ///< by ID; none without a member
};

} // namespace lumeroom
