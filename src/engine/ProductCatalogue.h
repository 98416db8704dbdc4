#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>

namespace lumeroom {

/// What a product number means. The list is read on first need; numbers that it does not have, or
/// a list that cannot be read, give "Unknown" and false.
class ProductCatalogue {
public:
    /// `readText` gives the list as JSON: an array whose first element has the "products".
    explicit ProductCatalogue(std::function<std::string()> readText);

    std::string vendorDescriptionFromVendorID(std::uint32_t vendor) const;
    std::string productDescriptionFromProductID(std::uint32_t product);
    bool ProductIDHasColour(std::uint32_t product);
    bool ProductIDHasMultizone(std::uint32_t product);
    /// Capability bits: those of colour, else of white, with that of variable white where the
    /// product spans a range of whites.
    int capabilitiesOfProductID(std::uint32_t product);

private:
    struct Product {
        std::string name = "Unknown";
        bool colour = false;
        bool multizone = false;
        bool spansWhites = false;
    };
    const Product& productFor(std::uint32_t product);
    void readProducts();

    std::function<std::string()> m_readText;
    bool m_isRead = false;
    std::unordered_map<std::int64_t, Product> m_products;
};

} // namespace lumeroom
