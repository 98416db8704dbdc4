#pragma once

#include <string>
#include <vector>

namespace lumeroom {

class UserDefaults;

/// One entry of the effect button's menu.
struct EffectMenuItem {
    enum class Kind { StopEffect, Effect, EditEffects, Separator };
    Kind kind = Kind::Separator;
    std::string title;
    bool enabled = true;

    bool operator==(const EffectMenuItem&) const = default;
};

/// The names of the stored effects.
std::vector<std::string> storedEffects(const UserDefaults& defaults);

/// The effects by name, under the means to stop one that plays and over that to edit them. Without
/// an effects manager they can neither play nor be edited.
std::vector<EffectMenuItem> effectMenuOf(
    const std::vector<std::string>& effects, bool playing, bool hasManager);

} // namespace lumeroom
