#include "app/StripUndo.h"

#include "engine/EngineRoom.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace lumeroom {

StripUndo::StripUndo(Surroundings surroundings)
    : m_surroundings(std::move(surroundings))
    , m_undo(m_surroundings.engineRoom, m_surroundings.runLoop,
          [this](const LampChange& step) { showRestored(step); })
{
}

void StripUndo::stripSends(
    const LampControlStrip& strip, const ControlModel& control, const std::function<void()>& send)
{
    const StripTarget& target = strip.target();
    const std::string name
        = fmt::format("{} {} {}", static_cast<int>(target.type), target.id, control.tag());
    m_undo.change({name, control.stroke()}, strip.label().shownText(),
        target.lamps(m_surroundings.engineRoom.registry()), send);
}

void StripUndo::colourIsUnsent(const LampControlStrip& strip, bool unsent)
{
    const StripTarget& target = strip.target();
    if (unsent) {
        m_unsent = target;
        m_undo.offerFirst(strip.label().shownText(), [this, target] {
            if (const auto shown = m_surroundings.finder.stripInUse(target))
                show(*shown, Unsent::Goes);
        });
    } else if (m_unsent == target) {
        m_unsent.reset();
        m_undo.offerFirst({}, nullptr);
    }
}

void StripUndo::userHasCancelled(LampControlStrip& strip, const ControlModel& control)
{
    m_undo.takeBack(control.stroke());
    show(strip, Unsent::Goes);
}

/// At once, like what a group shows in its lamps' strips.
void StripUndo::showRestored(const LampChange& step) const
{
    for (const auto& strip : m_surroundings.collection.strips()) {
        const Lamps lamps = strip->target().lamps(m_surroundings.engineRoom.registry());
        if (std::any_of(lamps.begin(), lamps.end(),
                [&](const auto& lamp) { return step.contains(lamp->id); }))
            show(*strip, Unsent::Stays);
    }
}

/// What the lamps are. A movement that is still to be sent is not any more.
void StripUndo::show(LampControlStrip& strip, Unsent colour) const
{
    const auto thing = m_surroundings.known.find(strip.target());
    if (!thing)
        return;
    StripSettings settings = thing->record.settings;
    settings.label.reset(); // the strip may know a better one
    if (colour == Unsent::Stays && strip.showsUnsentColour())
        settings.colour.reset(); // the user is still choosing it
    strip.cancelPendingActions();
    strip.implementSettingsFromDictionaryWithoutActing(settings);
    strip.imposeTemporaryEmbargo();
    m_surroundings.shown();
}

} // namespace lumeroom
