#include "engine/ProductCatalogue.h"

#include "engine/Records.h"

#include <nlohmann/json.hpp>

namespace lumeroom {

using Json = nlohmann::json;

namespace {

/// The member if the value is an object that has it, else null.
Json member(const Json& object, const char* key)
{
    if (!object.is_object())
        return {};
    const auto found = object.find(key);
    return found == object.end() ? Json() : *found;
}

bool truth(const Json& value)
{
    return value.is_boolean() && value.get<bool>();
}

/// Whether it is a pair of numbers that differ.
bool isRange(const Json& value)
{
    return value.is_array() && value.size() == 2 && value[0].is_number() && value[1].is_number()
        && value[0] < value[1];
}

} // namespace

ProductCatalogue::ProductCatalogue(std::function<std::string()> readText)
    : m_readText(std::move(readText))
{
}

std::string ProductCatalogue::vendorDescriptionFromVendorID(std::uint32_t vendor) const
{
    return vendor == 1 ? "LIFX" : "Unknown";
}

std::string ProductCatalogue::productDescriptionFromProductID(std::uint32_t product)
{
    return productFor(product).name;
}

bool ProductCatalogue::ProductIDHasColour(std::uint32_t product)
{
    return productFor(product).colour;
}

bool ProductCatalogue::ProductIDHasMultizone(std::uint32_t product)
{
    return productFor(product).multizone;
}

int ProductCatalogue::capabilitiesOfProductID(std::uint32_t number)
{
    if (ProductIDHasColour(number))
        return kCapabilitiesColourLamp;
    return kCapabilitiesWhiteLamp | (productFor(number).spansWhites ? kCapabilityVariableWhite : 0);
}

const ProductCatalogue::Product& ProductCatalogue::productFor(std::uint32_t product)
{
    static const Product kUnknown;
    if (!m_isRead)
        readProducts();
    const auto found = m_products.find(product);
    return found == m_products.end() ? kUnknown : found->second;
}

void ProductCatalogue::readProducts()
{
    m_isRead = true;
    const Json root = Json::parse(m_readText ? m_readText() : "", nullptr, false);
    if (!root.is_array() || root.empty())
        return;
    for (const Json& entry : member(root[0], "products")) {
        const Json number = member(entry, "pid");
        if (!number.is_number_integer())
            continue;
        Product product;
        if (const Json name = member(entry, "name"); name.is_string())
            product.name = name.get<std::string>();
        const Json features = member(entry, "features");
        product.colour = truth(member(features, "color"));
        product.multizone = truth(member(features, "multizone"));
        product.spansWhites = isRange(member(features, "temperature_range"));
        m_products.emplace(number.get<std::int64_t>(), std::move(product)); // the first one counts
    }
}

} // namespace lumeroom
