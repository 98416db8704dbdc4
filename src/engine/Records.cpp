#include "engine/Records.h"

#include <algorithm>
#include <cmath>

namespace lumeroom {

namespace {

// Whole numbers stay integers in dictionaries, as the lamps report them.
Value number(double value)
{
    constexpr double kExactlyRepresentable = 9.0e15;
    if (std::trunc(value) == value && std::abs(value) < kExactlyRepresentable)
        return static_cast<std::int64_t>(value);
    return value;
}

void write(Value::Dictionary& dictionary, std::string_view key, const std::optional<double>& value)
{
    if (value)
        dictionary.insert_or_assign(std::string(key), number(*value));
}

template <typename T>
void write(Value::Dictionary& dictionary, std::string_view key, const std::optional<T>& value)
{
    if (value)
        dictionary.insert_or_assign(std::string(key), Value(*value));
}

template <typename Record> std::optional<Value> entry(const Record& record, std::string_view key)
{
    auto dictionary = record.toDictionary();
    const auto found = dictionary.find(key);
    if (found == dictionary.end())
        return {};
    return std::move(found->second);
}

template <typename Bytes> Value bytesValue(const Bytes& bytes)
{
    return Value::Data(bytes.begin(), bytes.end());
}

Value::Dictionary groupingDictionary(const Grouping& grouping, std::string_view guidKey)
{
    Value::Dictionary dictionary{
        {std::string(guidKey), bytesValue(grouping.guid)},
        {std::string(keys::kLabel), grouping.label},
        {std::string(keys::kId), grouping.id},
        {std::string(keys::kIntegerId), grouping.integerId},
    };
    if (grouping.updatedAt)
        dictionary.emplace(keys::kUpdatedAt, static_cast<std::int64_t>(*grouping.updatedAt));
    return dictionary;
}

template <typename Items> Value::Array dictionaries(const Items& items)
{
    Value::Array array;
    for (const auto& item : items) {
        if constexpr (requires { item->toDictionary(); })
            array.emplace_back(item->toDictionary());
        else
            array.emplace_back(item.toDictionary());
    }
    return array;
}

std::optional<double> numberFor(const Value::Dictionary& dictionary, std::string_view key)
{
    const auto found = dictionary.find(key);
    if (found == dictionary.end())
        return {};
    return found->second.doubleValue();
}

} // namespace

bool LampColour::hasAny() const
{
    return colour || saturation || brightness || warmth;
}

bool LampColour::hasAll() const
{
    return colour && saturation && brightness && warmth;
}

void LampColour::adopt(const LampColour& other)
{
    if (other.colour)
        colour = other.colour;
    if (other.saturation)
        saturation = other.saturation;
    if (other.brightness)
        brightness = other.brightness;
    if (other.warmth)
        warmth = other.warmth;
}

void LampColour::writeTo(Value::Dictionary& dictionary) const
{
    write(dictionary, keys::kColour, colour);
    write(dictionary, keys::kSaturation, saturation);
    write(dictionary, keys::kBrightness, brightness);
    write(dictionary, keys::kWarmth, warmth);
}

Settings Settings::fromDictionary(const Value::Dictionary& dictionary)
{
    Settings settings;
    settings.colour = numberFor(dictionary, keys::kColour);
    settings.saturation = numberFor(dictionary, keys::kSaturation);
    settings.brightness = numberFor(dictionary, keys::kBrightness);
    settings.warmth = numberFor(dictionary, keys::kWarmth);
    settings.duration = numberFor(dictionary, keys::kDuration);
    if (const auto found = dictionary.find(keys::kOnOff); found != dictionary.end())
        settings.onoff = found->second.boolValue();
    return settings;
}

Value::Dictionary Settings::toDictionary() const
{
    Value::Dictionary dictionary;
    writeTo(dictionary);
    write(dictionary, keys::kOnOff, onoff);
    write(dictionary, keys::kDuration, duration);
    return dictionary;
}

std::optional<Value> Settings::valueForKey(std::string_view key) const
{
    return entry(*this, key);
}

Value::Dictionary Zone::toDictionary() const
{
    Value::Dictionary dictionary;
    writeTo(dictionary);
    dictionary.emplace(keys::kZone, zone);
    return dictionary;
}

std::optional<Value> Zone::valueForKey(std::string_view key) const
{
    return entry(*this, key);
}

Value::Dictionary Group::toDictionary() const
{
    return groupingDictionary(*this, keys::kGroupGuid);
}

std::optional<Value> Group::valueForKey(std::string_view key) const
{
    return entry(*this, key);
}

Value::Dictionary Location::toDictionary() const
{
    return groupingDictionary(*this, keys::kLocationGuid);
}

std::optional<Value> Location::valueForKey(std::string_view key) const
{
    return entry(*this, key);
}

Value::Dictionary Tag::toDictionary() const
{
    return {
        {std::string(keys::kTag), static_cast<std::int64_t>(tag)},
        {std::string(keys::kLabel), label},
        {std::string(keys::kId), id},
    };
}

std::optional<Value> Tag::valueForKey(std::string_view key) const
{
    return entry(*this, key);
}

Value::Dictionary Lamp::toDictionary() const
{
    Value::Dictionary dictionary{
        {std::string(keys::kAddress), address},
        {std::string(keys::kId), id},
        {std::string(keys::kLabel), label},
    };
    writeTo(dictionary);
    write(dictionary, keys::kOnOff, onoff);
    write(dictionary, keys::kProduct, product);
    write(dictionary, keys::kVendor, vendor);
    write(dictionary, keys::kVersion, version);
    write(dictionary, keys::kCapabilities, capabilities);
    write(dictionary, keys::kZoneCount, zonecount);
    if (mac)
        dictionary.emplace(keys::kMac, bytesValue(*mac));
    if (socket)
        dictionary.emplace(keys::kSocket, "open");
    if (service) {
        dictionary.emplace(keys::kService,
            Value::Dictionary{
                {std::string(keys::kUpdatedAt), service->updatedAt},
                {std::string(keys::kPort), static_cast<std::int64_t>(service->port)},
            });
    }
    if (group)
        dictionary.emplace(keys::kGroup, group->toDictionary());
    if (location)
        dictionary.emplace(keys::kLocation, location->toDictionary());
    if (tags)
        dictionary.emplace(keys::kTags, dictionaries(*tags));
    if (zones)
        dictionary.emplace(keys::kZones, dictionaries(*zones));
    return dictionary;
}

std::optional<Value> Lamp::valueForKey(std::string_view key) const
{
    return entry(*this, key);
}

bool Lamp::isSilent() const
{
    return polling.isSilent()
        && std::all_of(elsewhere.begin(), elsewhere.end(),
            [](const auto& record) { return record->polling.isSilent(); });
}

std::optional<TimePoint> Lamp::lastHeard() const
{
    std::optional<TimePoint> latest = polling.lastHeard;
    for (const auto& record : elsewhere)
        latest = std::max(latest, record->polling.lastHeard);
    return latest;
}

std::vector<std::shared_ptr<Lamp>> Lamp::answeringElsewhere() const
{
    std::vector<std::shared_ptr<Lamp>> answering;
    std::copy_if(elsewhere.begin(), elsewhere.end(), std::back_inserter(answering),
        [](const auto& record) { return record->polling.hasAnswered; });
    return answering;
}

void Lamp::inherit(const Lamp& other)
{
    Lamp heir = other;
    heir.address = address;
    heir.heardFrom = heardFrom;
    heir.socket = socket;
    heir.previousSocket = previousSocket;
    heir.service = service;
    heir.polling = polling;
    *this = std::move(heir);
}

bool Lamp::has(const Zone& zone) const
{
    const int count = zonecount.value_or(0);
    return count == 0 || zone.zone < count;
}

std::size_t Lamp::numberOfZones() const
{
    if (!zones)
        return 0;
    const int count = zonecount.value_or(0);
    return count == 0 ? zones->size() : static_cast<std::size_t>(count);
}

bool Lamp::allZonesAreKnown() const
{
    return ownZones().size() >= numberOfZones();
}

std::vector<Zone> Lamp::zonesInOrder() const
{
    std::vector<Zone> ordered = zones.value_or(std::vector<Zone>());
    std::sort(ordered.begin(), ordered.end(),
        [](const Zone& a, const Zone& b) { return a.zone < b.zone; });
    return ordered;
}

std::vector<Zone> Lamp::ownZones() const
{
    std::vector<Zone> own = zonesInOrder();
    std::erase_if(own, [this](const Zone& zone) { return !has(zone); });
    return own;
}

Zone* getZoneFromLamp(int number, Lamp& lamp)
{
    if (!lamp.zones)
        return nullptr;
    const auto found = std::find_if(lamp.zones->begin(), lamp.zones->end(),
        [number](const Zone& zone) { return zone.zone == number; });
    return found == lamp.zones->end() ? nullptr : &*found;
}

std::string getIDFromMAC(std::span<const std::uint8_t> bytes)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0x0FU];
    }
    return text;
}

} // namespace lumeroom
