#include "engine/LampReference.h"

#include "engine/LampRegistry.h"

namespace lumeroom {

Lamps usableLamps(const LampReferences& references, const LampRegistry& registry)
{
    Lamps lamps;
    for (const LampReference* reference : references) {
        if (!reference || reference->isGroup())
            continue;
        if (auto lamp = registry.lampWithID(reference->getID()))
            lamps.push_back(std::move(lamp));
    }
    return lamps;
}

void imposeTemporaryEmbargo(const LampReferences& references)
{
    for (LampReference* reference : references) {
        if (reference)
            reference->imposeTemporaryEmbargo();
    }
}

std::string listOfIDs(const LampReferences& references)
{
    std::string list;
    for (const LampReference* reference : references) {
        if (reference)
            list += (list.empty() ? "" : ", ") + reference->getID();
    }
    return "(" + list + ")";
}

} // namespace lumeroom
