#pragma once

#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/ArpTable.h"
#include "engine/EngineRoom.h"
#include "engine/NetworkComplaints.h"
#include "engine/QVLIFXEngineDelegate.h"
#include "support/FakeSockets.h"
#include "support/LampReplies.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumeroom::test {

class FakeArpTable : public ArpTable {
public:
    void read(std::function<void(Result)> done) override
    {
        ++runs;
        pending = std::move(done);
    }
    int runs = 0;
    std::function<void(Result)> pending;
};

/// A lamp, or a group, that is chosen for a grouping.
struct Reference : LampReference {
    explicit Reference(std::string lamp, bool group = false)
        : id(std::move(lamp))
        , grouped(group)
    {
    }
    bool isGroup() const override { return grouped; }
    std::string getID() const override { return id; }
    void imposeTemporaryEmbargo() override { ++embargoes; }
    std::string id;
    bool grouped;
    int embargoes = 0;
};

/// Counts what the engine tells it.
class RecordingDelegate : public QVLIFXEngineDelegate {
public:
    void newLampsAdded() override { ++newLamps; }
    void lampStatesChanged() override { ++states; }
    void groupingBecameKnown() override { }
    void lampZoneStatesChanged() override { ++zoneStates; }
    void newZoneAdded() override { ++newZones; }
    void lampPowerReported() override { ++powers; }
    void engineIsSsearching(bool now) override { searching.push_back(now); }
    void lampCapabilitiesChanged() override { }
    int runModal(const Alert& alert) override
    {
        alerts.push_back(alert);
        return 0;
    }

    int newLamps = 0;
    int states = 0;
    int zoneStates = 0;
    int newZones = 0;
    int powers = 0;
    std::vector<bool> searching;
    std::vector<Alert> alerts;
};

/// An engine with the clock in hand, sockets that keep what is sent, and the log as lines.
struct EngineHarness : ::testing::Test {
    EngineHarness()
    {
        log.setVerbositySource([this] { return static_cast<int>(defaults.get(keys::kVerbosity)); });
    }

    EngineRoom& engine()
    {
        if (!m_engine) {
            m_engine = std::make_unique<EngineRoom>(EngineEnvironment{loop, pacer, defaults, log,
                sockets.factory(), [] { return kProducts; }, arp, &complaints});
            m_engine->setDelegate(&delegate);
        }
        return *m_engine;
    }

    /// By the socket of that lamp at that address, if it has one, as an answer comes.
    void receive(const Datagram& datagram, const std::string& from = "127.0.9.1")
    {
        Target target{};
        if (datagram.size() >= 16)
            std::copy_n(datagram.begin() + 8, 8, target.begin());
        const Lamp* lamp = engine().registry().lampAtAddress(from, target);
        const auto socket = lamp && lamp->socket ? lamp->socket : sockets.factory()(engine());
        engine().udpSocketDidReceiveData(*socket, datagram, socketAddress(from, 56700));
    }
    /// Makes the n-th lamp known, with its state, as if it had answered.
    std::shared_ptr<Lamp> addLamp(unsigned n, const LightState& state = {})
    {
        receive(stateService(n), lampAddress(n));
        receive(lightState(n, state), lampAddress(n));
        return engine().registry().lampWithID(lampID(n));
    }
    /// A multizone lamp of `zones` zones whose hues count up from 100.
    std::shared_ptr<Lamp> addStrip(unsigned n, unsigned zones)
    {
        auto lamp = addLamp(n);
        receive(stateVersion(n, 31));
        receive(stateZone(n, zones, 0, 100));
        for (unsigned first = 0; first < zones; first += 8)
            receive(stateMultizone(n, zones, first, 100 + first));
        return lamp;
    }

    /// Whether the embargo keeps a group out that the first lamp reports.
    bool groupsAreRefused()
    {
        receive(stateGrouping(53, 1, 0xEE, "Probe"));
        const auto lamp = engine().registry().lampWithID(lampID(1));
        return !lamp->group || lamp->group->label != "Probe";
    }

    /// Sends everything that waits, and forgets it.
    void drainQueue()
    {
        loop.advance(Seconds(30));
        sockets.take();
    }

    int linesWith(std::string_view text) const
    {
        return static_cast<int>(std::count_if(lines.begin(), lines.end(),
            [text](const std::string& line) { return line.find(text) != std::string::npos; }));
    }

    static constexpr const char* kProducts = R"([{"products": [
        {"pid": 1, "name": "Colour lamp", "features": {"color": true, "multizone": false}},
        {"pid": 10, "name": "White lamp",
            "features": {"color": false, "multizone": false, "temperature_range": [2700, 2700]}},
        {"pid": 31, "name": "Strip", "features": {"color": true, "multizone": true}}]}])";

    std::vector<std::string> lines;
    Log log{[this](std::string_view line) { lines.emplace_back(line); }};
    ManualRunLoop loop;
    RunLoopPacer pacer{loop};
    UserDefaults defaults;
    FakeArpTable arp;
    NetworkComplaints complaints{log};
    FakeSockets sockets;
    RecordingDelegate delegate;

private:
    std::unique_ptr<EngineRoom> m_engine;
};

} // namespace lumeroom::test
