#include "app/NoLampsText.h"

#include "engine/Discovery.h"

#include <fmt/core.h>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr std::size_t kMostNamed = 3;
constexpr std::size_t kLongestAddress = 64;

/// "a, b and c", or "a, b, c and 4 more".
std::string listed(const std::vector<std::string>& addresses)
{
    const std::size_t named = std::min(addresses.size(), kMostNamed);
    const std::size_t more = addresses.size() - named;
    std::string text;
    for (std::size_t i = 0; i < named; ++i) {
        if (i > 0)
            text += i + 1 == named && more == 0 ? " and " : ", ";
        text += addresses[i].substr(0, kLongestAddress);
    }
    return more == 0 ? text : fmt::format("{} and {} more", text, more);
}

std::string whatWasTried(const SearchedPlaces& places)
{
    using Kind = SearchedPlaces::Kind;
    if (places.kind == Kind::Everywhere)
        return "Everybody on the local network was asked, and no lamp has answered.";
    if (places.kind == Kind::ListedAddresses)
        return fmt::format("Only the lamp addresses of the settings were asked, {}. No lamp has "
                           "answered there.",
            listed(places.addresses));
    if (places.addresses.empty())
        return "The settings say that this network carries no broadcasts, and no lamp's address is "
               "known.";
    return fmt::format("Only addresses seen before were asked, {}. No lamp has answered there.",
        listed(places.addresses));
}

} // namespace

std::string noLampsText(const SearchedPlaces& places, const std::string& complaint)
{
    return whatWasTried(places) + (complaint.empty() ? "" : "\n" + complaint)
        + "\nLamps and computer have to be on the same network, and its firewall has to let UDP "
          "in from port 56700.";
}

} // namespace lumeroom
