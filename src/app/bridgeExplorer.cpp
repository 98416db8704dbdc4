#include "app/bridgeExplorer.h"

#include "engine/LampRegistry.h"
#include "engine/LampUnits.h"

#include <fmt/core.h>

#include <iterator>

namespace lumeroom {

namespace {

/// Writes a number as text. One that is not known yet counts as 0.
template <typename F> void rewrite(Value::Dictionary& lamp, std::string_view key, F text)
{
    Value& entry = lamp[std::string(key)];
    entry = text(entry.integerValue());
}

void replaceByLabel(Value::Dictionary& lamp, std::string_view key)
{
    const auto found = lamp.find(key);
    if (found == lamp.end())
        return;
    if (const Value* label = found->second.find(keys::kLabel))
        found->second = std::string(label->stringValue());
}

void joinTags(Value::Dictionary& lamp)
{
    const auto found = lamp.find(keys::kTags);
    if (found == lamp.end())
        return;
    const auto* tags = found->second.as<Value::Array>();
    if (!tags || tags->empty()) {
        lamp.erase(found);
        return;
    }
    std::string labels;
    for (const Value& tag : *tags) {
        const Value* label = tag.find(keys::kLabel);
        labels += (&tag == tags->data() ? "" : ", ") + (label ? label->stringValue() : "");
    }
    found->second = labels;
}

/// The nth of the dictionary's keys, in its own order; empty past the last.
std::string getKeyAtIndexFromDictionary(std::size_t index, const Value::Dictionary& dictionary)
{
    if (index >= dictionary.size())
        return {};
    return std::next(dictionary.begin(), static_cast<std::ptrdiff_t>(index))->first;
}

} // namespace

const Value* keyValPair::getValue() const
{
    if (!parent)
        return nullptr;
    const auto found = parent->find(key);
    return found == parent->end() ? nullptr : &found->second;
}

Value::Dictionary readableLamp(Value::Dictionary lamp)
{
    const auto onoff = lamp.find(keys::kOnOff);
    const bool on = onoff != lamp.end() && onoff->second.boolValue();
    if (onoff != lamp.end())
        lamp.erase(onoff);
    lamp.insert_or_assign("powerstate", on ? "YES" : "NO");
    replaceByLabel(lamp, keys::kGroup);
    replaceByLabel(lamp, keys::kLocation);

    const auto plain = [](std::int64_t number) { return fmt::format("{}", number); };
    rewrite(lamp, keys::kColour, plain);
    rewrite(lamp, keys::kBrightness, plain);
    rewrite(lamp, keys::kSaturation,
        [](std::int64_t inverted) { return fmt::format("{}", kMostLevel - inverted); });
    rewrite(lamp, keys::kWarmth,
        [](std::int64_t warmth) { return fmt::format("{} kelvin", kCoolestKelvin - warmth); });
    for (const auto key : {keys::kMac, keys::kCapabilities, keys::kService, keys::kSocket}) {
        if (const auto found = lamp.find(key); found != lamp.end())
            lamp.erase(found);
    }
    joinTags(lamp);
    return lamp;
}

bridgeExplorer::bridgeExplorer(const LampRegistry& registry)
    : m_registry(registry)
    , m_explorerDictionary(std::make_shared<const Value::Dictionary>())
{
}

void bridgeExplorer::loadData()
{
    refresh();
    if (makeKeyAndOrderFront)
        makeKeyAndOrderFront();
}

void bridgeExplorer::refresh()
{
    Value::Dictionary lights;
    // By name: of two lamps with one label the later shows.
    for (const auto& lamp : m_registry.lightsArray())
        lights.insert_or_assign(lamp->label, readableLamp(lamp->toDictionary()));
    m_explorerDictionary = std::make_shared<const Value::Dictionary>(
        Value::Dictionary{{"Lights", std::move(lights)}});
    if (reloadData)
        reloadData();
}

std::size_t bridgeExplorer::numberOfChildrenOfItem(const keyValPair* item) const
{
    if (!item)
        return m_explorerDictionary->size();
    const Value* value = item->getValue();
    if (!value)
        return 0;
    if (const auto* dictionary = value->as<Value::Dictionary>())
        return dictionary->size();
    return value->is<std::string>() ? 1 : 0;
}

keyValPair bridgeExplorer::childOfItem(std::size_t index, const keyValPair* item) const
{
    if (!item)
        return {getKeyAtIndexFromDictionary(index, *m_explorerDictionary), m_explorerDictionary};
    const Value* value = item->getValue();
    if (!value)
        return {};
    if (const auto* dictionary = value->as<Value::Dictionary>()) {
        return {getKeyAtIndexFromDictionary(index, *dictionary),
            std::shared_ptr<const Value::Dictionary>(item->parent, dictionary)};
    }
    return {value->stringValue(), nullptr};
}

} // namespace lumeroom
