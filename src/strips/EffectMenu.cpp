#include "strips/EffectMenu.h"

namespace lumeroom {

namespace {
constexpr std::string_view kEffectName = "name";
}

std::vector<EffectMenuItem> effectMenuOf(const Value::Array& effects, bool playing, bool hasManager)
{
    using Kind = EffectMenuItem::Kind;
    std::vector<EffectMenuItem> menu;
    if (playing) {
        menu.push_back({Kind::StopEffect, "Stop effect"});
        menu.push_back({});
    }
    for (const Value& effect : effects) {
        const Value* name = effect.find(kEffectName);
        menu.push_back({Kind::Effect, name ? name->stringValue() : std::string(), hasManager});
    }
    menu.push_back({});
    menu.push_back({Kind::EditEffects, "Add / edit effects...", hasManager});
    return menu;
}

} // namespace lumeroom
