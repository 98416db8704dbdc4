#include "strips/KeyedArchive.h"

#include "base/PropertyList.h"

namespace lumeroom {

namespace {

constexpr std::int64_t kArchiverVersion = 100000;

Value reference(std::size_t index)
{
    return Value::Uid{index};
}

/// The object that a reference names; null for a broken one.
const Value* resolve(const Value* value, const Value::Array& objects)
{
    const auto* uid = value ? value->as<Value::Uid>() : nullptr;
    return uid && uid->index < objects.size() ? &objects[uid->index] : nullptr;
}

bool isPlain(const Value& value)
{
    return !value.is<Value::Dictionary>() && !value.is<Value::Array>() && !value.is<Value::Uid>();
}

} // namespace

Value::Data keyedArchiveOf(const Value::Dictionary& dictionary)
{
    // Objects: the null marker, the dictionary, its keys and values, and its class.
    Value::Array keyReferences;
    Value::Array valueReferences;
    Value::Array objects{"$null", Value::Dictionary()};
    for (const auto& [key, value] : dictionary) {
        keyReferences.push_back(reference(objects.size()));
        objects.emplace_back(key);
    }
    for (const auto& [key, value] : dictionary) {
        valueReferences.push_back(reference(objects.size()));
        objects.push_back(value);
    }
    objects[1] = Value::Dictionary{
        {"$class", reference(objects.size())},
        {"NS.keys", std::move(keyReferences)},
        {"NS.objects", std::move(valueReferences)},
    };
    objects.emplace_back(Value::Dictionary{
        {"$classname", "NSDictionary"},
        {"$classes", Value::Array{"NSDictionary", "NSObject"}},
    });
    return propertylist::toBinary(Value::Dictionary{
        {"$archiver", "NSKeyedArchiver"},
        {"$version", kArchiverVersion},
        {"$top", Value::Dictionary{{"root", reference(1)}}},
        {"$objects", std::move(objects)},
    });
}

std::optional<Value::Dictionary> dictionaryFromKeyedArchive(std::span<const std::uint8_t> bytes)
{
    const auto archive = propertylist::parse(bytes);
    const Value* objectsValue = archive ? archive->find("$objects") : nullptr;
    const Value* top = archive ? archive->find("$top") : nullptr;
    const auto* objects = objectsValue ? objectsValue->as<Value::Array>() : nullptr;
    if (!objects || !top)
        return {};
    const Value* root = resolve(top->find("root"), *objects);
    const Value* keysValue = root ? root->find("NS.keys") : nullptr;
    const Value* valuesValue = root ? root->find("NS.objects") : nullptr;
    const auto* keys = keysValue ? keysValue->as<Value::Array>() : nullptr;
    const auto* values = valuesValue ? valuesValue->as<Value::Array>() : nullptr;
    if (!keys || !values)
        return {};
    Value::Dictionary dictionary;
    for (std::size_t i = 0; i < std::min(keys->size(), values->size()); ++i) {
        const Value* key = resolve(&(*keys)[i], *objects);
        const Value* value = resolve(&(*values)[i], *objects);
        if (key && value && key->is<std::string>() && isPlain(*value))
            dictionary.insert_or_assign(key->stringValue(), *value);
    }
    return dictionary;
}

} // namespace lumeroom
