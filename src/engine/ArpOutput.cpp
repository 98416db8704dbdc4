#include "engine/ArpOutput.h"

#include "base/Utf8.h"

namespace lumeroom {

std::vector<std::string> lifxAddresses(std::string_view output)
{
    if (!isValidUtf8(output))
        return {};
    std::vector<std::string> addresses;
    while (!output.empty()) {
        const std::string_view line = output.substr(0, output.find('\n'));
        output.remove_prefix(std::min(line.size() + 1, output.size()));
        const std::size_t open = line.find('(');
        const std::size_t close = line.find(')');
        const bool hasAddress
            = open != std::string_view::npos && close != std::string_view::npos && open + 1 < close;
        if (hasAddress && line.find("lifx") != std::string_view::npos)
            addresses.emplace_back(line.substr(open + 1, close - open - 1));
    }
    return addresses;
}

} // namespace lumeroom
