#pragma once

#include "app/KnownThings.h"
#include "app/StripCollection.h"

namespace lumeroom {

/// Finds the strip of what a script, a schedule or a hotkey names, whatever page the panel shows: a
/// strip on the panel serves, else one that is not shown.
class StripFinder {
public:
    StripFinder(const StripSurroundings& surroundings, EngineRoom& engineRoom,
        const KnownThings& known, const StripCollection& collection);

    /// A strip that shows what is known and acts; null for what is not known. One that is not on
    /// the panel is kept until 250 others have been asked for. Who needs it longer holds it.
    std::shared_ptr<LampControlStrip> stripFor(const StripTarget& target);
    /// The same, if there is one already.
    std::shared_ptr<LampControlStrip> stripInUse(const StripTarget& target) const;
    /// Of these lamps, as far as they have one.
    Strips stripsInUse(const Lamps& lamps) const;
    /// What a strip of the thing shows, or would show.
    StripSettings shown(const KnownThing& thing) const;

private:
    struct NotShown {
        std::shared_ptr<LampControlStrip> strip;
        std::uint64_t lastRequest = 0;
    };
    std::shared_ptr<LampControlStrip> makeStrip(const StripTarget& target) const;
    void forgetOneNotShown();
    std::shared_ptr<LampControlStrip> onPanel(const StripTarget& target) const;

    StripSurroundings m_surroundings;
    EngineRoom& m_engineRoom;
    const KnownThings& m_known;
    const StripCollection& m_collection;
    std::map<StripTarget, NotShown> m_notShown;
    std::uint64_t m_requests = 0;
};

} // namespace lumeroom
