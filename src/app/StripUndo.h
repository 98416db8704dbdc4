#pragma once

#include "app/StripFinder.h"
#include "app/Undo.h"

namespace lumeroom {

/// Tells Undo what the user's hand does in strips, and shows in the strips what Undo does.
class StripUndo {
public:
    struct Surroundings {
        EngineRoom& engineRoom;
        RunLoop& runLoop;
        const KnownThings& known;
        const StripFinder& finder;
        const StripCollection& collection;
        std::function<void()> shown; ///< something else than before
    };
    explicit StripUndo(Surroundings surroundings);

    Undo& undo() { return m_undo; }
    void stripSends(const LampControlStrip& strip, const ControlModel& control,
        const std::function<void()>& send);
    void colourIsUnsent(const LampControlStrip& strip, bool unsent);
    void userHasCancelled(LampControlStrip& strip, const ControlModel& control);

private:
    enum class Unsent { Goes, Stays };
    void show(LampControlStrip& strip, Unsent colour) const;
    void showRestored(const LampChange& step) const;

    Surroundings m_surroundings;
    Undo m_undo;
    std::optional<StripTarget> m_unsent; ///< that Undo would take back first
};

} // namespace lumeroom
