#include "strips/StripCondition.h"

#include "strips/ColourConversions.h"

namespace lumeroom {

namespace {

Colour colourOf(const Lamp& lamp)
{
    const auto value
        = [](const std::optional<double>& known) { return static_cast<float>(known.value_or(0)); };
    return colourFromSliders(
        {value(lamp.brightness), value(lamp.colour), value(lamp.saturation), value(lamp.warmth)});
}

} // namespace

StripCondition StripCondition::of(const StripTarget& target, const LampRegistry& registry)
{
    const Lamps lamps = target.lamps(registry);
    if (target.isGroup())
        return of(lamps);
    return lamps.empty() ? StripCondition() : of(*lamps.front());
}

StripCondition StripCondition::of(const Lamp& lamp)
{
    StripCondition condition;
    condition.lastHeard = lamp.lastHeard();
    condition.stateIsKnown = lamp.onoff && lamp.brightness;
    if (lamp.isSilent())
        condition.contact = Contact::Silent;
    else if (!condition.stateIsKnown)
        condition.contact = Contact::Waiting;
    return condition;
}

/// As far as the best of its lamps.
StripCondition StripCondition::of(const Lamps& lamps)
{
    StripCondition together;
    together.lamps = lamps.size();
    together.stateIsKnown = lamps.empty();
    bool anyAnswers = lamps.empty();
    bool anyWaits = false;
    for (const auto& lamp : lamps) {
        const StripCondition one = of(*lamp);
        together.lastHeard = std::max(together.lastHeard, one.lastHeard);
        together.stateIsKnown = together.stateIsKnown || one.stateIsKnown;
        anyAnswers = anyAnswers || one.contact == Contact::Answering;
        anyWaits = anyWaits || one.contact == Contact::Waiting;
        if (one.contact != Contact::Answering || !lamp->expectedPower().value_or(false))
            continue;
        ++together.lampsOn;
        if (together.lights.size() < kMostLights)
            together.lights.push_back(colourOf(*lamp));
    }
    if (!anyAnswers)
        together.contact = anyWaits ? Contact::Waiting : Contact::Silent;
    return together;
}

} // namespace lumeroom
