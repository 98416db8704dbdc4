#include "strips/LampsPopUp.h"

#include "base/DefaultsKeys.h"
#include "base/UserDefaults.h"
#include "engine/LampRegistry.h"

#include <fmt/format.h>

namespace lumeroom {

namespace {

constexpr std::string_view kPresetName = "name";
constexpr std::string_view kPresetID = "ID";

/// Presets of earlier versions have no "integerId".
std::int64_t integerTagForPreset(const Value& preset)
{
    const Value* id = preset.find(keys::kIntegerId);
    if (!id)
        id = preset.find(kPresetID);
    return id ? id->integerValue() : 0;
}

} // namespace

LampsPopUp::LampsPopUp(const LampRegistry& registry, const UserDefaults& defaults)
    : m_registry(registry)
    , m_defaults(defaults)
{
}

void LampsPopUp::populateLampsPopUp()
{
    m_menu.removeAllItems();
    for (const auto& lamp : m_registry.distinctLamps())
        add("lamp", lamp->label, m_registry.integerTagForLamp(*lamp));
    for (const auto& group : m_registry.groupsArray())
        add("group", group->label, integerTagForGroup(*group));
    for (const auto& location : m_registry.locationssArray())
        add("location", location->label, integerTagForLocation(*location));
    for (const auto& tag : m_registry.tagsArray())
        add("tag", tag->label, integerTagForTag(*tag));
    add("group", "All", 0);
    for (const Value& preset : m_defaults.get(keys::kPresets)) {
        const Value* name = preset.find(kPresetName);
        add("preset", name ? name->stringValue() : std::string(), integerTagForPreset(preset));
    }
}

void LampsPopUp::add(std::string_view kind, const std::string& name, std::int64_t tag)
{
    auto item = std::make_shared<MenuItemModel>(0, fmt::format("{}: {}", kind, name));
    item->setRepresentedTag(tag);
    m_menu.addItem(std::move(item));
}

} // namespace lumeroom
