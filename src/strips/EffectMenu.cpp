#include "strips/EffectMenu.h"

#include "base/StoredList.h"

namespace lumeroom {

namespace {

struct EffectName {
    std::string name;
    static std::optional<EffectName> read(const Value::Dictionary& effect)
    {
        constexpr std::string_view kName = "name";
        const auto found = effect.find(kName);
        auto name = shownText(found == effect.end() ? nullptr : &found->second);
        return name ? std::optional(EffectName{std::move(*name)}) : std::nullopt;
    }
};

} // namespace

std::vector<std::string> storedEffects(const UserDefaults& defaults)
{
    std::vector<std::string> names;
    for (auto& item : StoredList<EffectName>::read(defaults, keys::kEffects))
        names.push_back(std::move(item.entry.name));
    return names;
}

std::vector<EffectMenuItem> effectMenuOf(
    const std::vector<std::string>& effects, bool playing, bool hasManager)
{
    using Kind = EffectMenuItem::Kind;
    std::vector<EffectMenuItem> menu;
    if (playing) {
        menu.push_back({Kind::StopEffect, "Stop effect"});
        menu.push_back({});
    }
    for (const std::string& name : effects)
        menu.push_back({Kind::Effect, name, hasManager});
    menu.push_back({});
    menu.push_back({Kind::EditEffects, "Add / edit effects...", hasManager});
    return menu;
}

} // namespace lumeroom
