#pragma once

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/Pacer.h"
#include "base/UserDefaults.h"
#include "desktop/QtRunLoop.h"
#include "engine/EngineRoom.h"
#include "engine/UdpIoThread.h"
#include "support/FakeSockets.h"

#include <virtual-lamps/LampFactory.h>
#include <virtual-lamps/LampNetwork.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

namespace lumeroom::test {

using virtual_lamps::Hsbk;
using virtual_lamps::Time;
using virtual_lamps::VirtualLamp;

/// An engine with real sockets, clock and threads, and three lamps made of software, each on a
/// loopback address: "Desk" (colour), "Ceiling" (white) and "Strip" (16 zones).
struct EngineAndLamps : ::testing::Test {
    EngineAndLamps()
    {
        addLamp(1, 27, "Desk");
        addLamp(2, 10, "Ceiling");
        addLamp(3, 32, "Strip");
        std::string error;
        EXPECT_TRUE(network.start(error)) << error;
        std::string addresses;
        for (std::size_t i = 0; i < network.count(); ++i)
            addresses += network.address(i) + " ";
        defaults.setObject(keys::kManualIPAddresses, addresses);
        defaults.setObject(keys::kHeartbeatSpeed, 2.0);
    }

    void addLamp(unsigned number, std::uint32_t product, const std::string& label)
    {
        auto lamp = std::make_unique<VirtualLamp>(
            virtual_lamps::macAddressForNumber(number), virtual_lamps::productWithID(product), 16);
        lamp->label = label;
        lamp->setColour({1000, 65535, 40000, 3500}, Time());
        lamp->setPower(true, Time());
        std::string error;
        EXPECT_TRUE(network.add(std::move(lamp), address(number), error)) << error;
    }
    /// Of this process alone, since tests run side by side.
    static std::string address(unsigned number)
    {
        const auto process = static_cast<unsigned>(::getpid());
        return "127." + std::to_string(64 + process / 256 % 64) + "."
            + std::to_string(process % 256) + "." + std::to_string(number);
    }
    /// What `look` finds at a lamp, from 0.
    template <typename F> auto onLamp(std::size_t index, F look)
    {
        decltype(look(std::declval<VirtualLamp&>(), Time())) result{};
        network.withLamp(index, [&](VirtualLamp& lamp, Time now) { result = look(lamp, now); });
        return result;
    }
    bool isOn(std::size_t index)
    {
        return onLamp(index, [](VirtualLamp& lamp, Time now) { return lamp.power(now); });
    }
    static std::string lampID(unsigned number)
    {
        return "d073d500000" + std::to_string(number) + "0000";
    }
    static std::string products()
    {
        std::ifstream file(LUMEROOM_SOURCE_DIR "/resources/products.json");
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    virtual_lamps::LampNetwork network{{}};
    QtRunLoop runLoop;
    ThreadPacer pacer;
    Log log{[](std::string_view) {}};
    UserDefaults defaults;
    NoArpTable arp;
    UdpIoThread io{runLoop, log};
    EngineRoom engine{{runLoop, pacer, defaults, log, io.socketFactory(), products, arp}};
};

} // namespace lumeroom::test
