#include "DemoLamps.h"

#include "LampFactory.h"

#include <fmt/core.h>

#include <algorithm>

namespace virtual_lamps {

namespace {

struct Furnishing {
    std::string label;
    std::uint32_t product;
    std::string group;
    Hsbk colour;
    bool on;
};

const std::vector<Furnishing>& furnishings()
{
    static const std::vector<Furnishing> kHome{
        {"Desk lamp", 27, "Study", {5800, 52000, 52000, 3500}, true},
        {"Ceiling", 10, "Kitchen", {0, 0, 60000, 4000}, true},
        {"Worktop", 50, "Kitchen", {0, 0, 30000, 3000}, false},
        {"Shelf strip", 32, "Living room", {43000, 60000, 50000, 3500}, true},
        {"Reading corner by the big window", 27, "Living room", {3500, 20000, 40000, 2700}, true},
        {"玄関の照明", 43, "Hall", {32000, 40000, 45000, 3500}, true},
        {"Bedside", 29, "Bedroom", {62000, 65535, 20000, 3500}, false},
        {"Floor lamp", 1, "Living room", {20000, 30000, 65535, 3500}, true},
    };
    return kHome;
}

std::unique_ptr<VirtualLamp> makeLamp(unsigned number)
{
    constexpr std::size_t kZones = 16;
    const auto& home = furnishings();
    const Furnishing& as = home[(number - 1) % home.size()];
    const Time now = std::chrono::steady_clock::now();
    auto lamp = std::make_unique<VirtualLamp>(
        macAddressForNumber(number), productWithID(as.product), kZones);
    lamp->label = number <= home.size() ? as.label : fmt::format("{} {}", as.label, number);
    lamp->group = membershipNamed(as.group);
    lamp->location = membershipNamed("Home");
    lamp->setColour(as.colour, now);
    lamp->setPower(as.on, now);
    if (number % 4 == 1)
        putTag(*lamp, "Evening", 0);
    if (number % 3 == 0)
        putTag(*lamp, "Reading", 1);
    for (std::size_t zone = 0; zone < lamp->zoneCount(); ++zone) {
        const auto hue = static_cast<std::uint16_t>(as.colour.hue + zone * 700);
        lamp->setZone(zone, {hue, as.colour.saturation, as.colour.brightness, 3500}, now);
    }
    return lamp;
}

} // namespace

bool DemoLamps::start(std::size_t count, std::string& error)
{
    const std::size_t wanted = std::clamp<std::size_t>(count, 1, 200);
    // Another demonstration may be running: each takes a block of addresses of its own.
    for (unsigned block = 77; block < 97; ++block) {
        if (startAt(fmt::format("127.0.{}.1", block), wanted, error))
            return true;
    }
    return false;
}

bool DemoLamps::startAt(const std::string& firstAddress, std::size_t count, std::string& error)
{
    auto network = std::make_unique<LampNetwork>(LampNetwork::Options{});
    for (unsigned i = 0; i < count; ++i) {
        if (!network->add(makeLamp(i + 1), *addressBehind(firstAddress, i), error))
            return false;
    }
    if (!network->start(error))
        return false;
    m_network = std::move(network);
    return true;
}

std::vector<std::string> DemoLamps::addresses() const
{
    std::vector<std::string> list;
    for (std::size_t i = 0; m_network && i < m_network->count(); ++i)
        list.push_back(m_network->address(i));
    return list;
}

} // namespace virtual_lamps
