#pragma once

#include "engine/GroupingCommands.h"
#include "engine/LampCommands.h"
#include "engine/LampRegistry.h"
#include "engine/Summaries.h"
#include "engine/TagCommands.h"
#include "engine/UdpSocket.h"

namespace lumeroom {

class ArpTable;
class Log;
class NetworkComplaints;
class Pacer;
class QVLIFXEngineDelegate;
class RunLoop;
class UserDefaults;
struct SearchedPlaces;

/// What the engine stands on.
struct EngineEnvironment {
    RunLoop& runLoop;
    Pacer& pacer;
    UserDefaults& defaults;
    Log& log;
    SocketFactory makeSocket;
    /// The text of the product catalogue, read on first need.
    std::function<std::string()> readProducts;
    /// Reads the ARP table in the background.
    ArpTable& arpTable;
    /// Where the sockets complain; null if they do not.
    NetworkComplaints* complaints = nullptr;
};

/// Finds the lamps, keeps a live record of each, and sends them commands. Main thread only.
/// Who needs one of its parts is given that part.
class EngineRoom : public UdpSocketDelegate {
public:
    explicit EngineRoom(const EngineEnvironment& environment);
    ~EngineRoom() override;
    EngineRoom(const EngineRoom&) = delete;
    EngineRoom& operator=(const EngineRoom&) = delete;

    void setDelegate(QVLIFXEngineDelegate* delegate);

    /// Takes in a datagram, as the sockets deliver it.
    void udpSocketDidReceiveData(
        UdpSocket& socket, std::span<const std::uint8_t> data, const SocketAddress& from) override;

    void startHeartbeat();
    void invalidateSockets();
    void closeUp();

    /// Where lamps are looked for.
    SearchedPlaces searchedPlaces() const;
    /// Asks there now, without waiting for the heartbeat.
    void lookAgain();
    /// What keeps datagrams from leaving, in a plain sentence; empty where nothing does.
    std::string networkComplaint() const;

    /// The ID of a new preset: the present date as "%Y%m%d%H%M%S". Nothing is stored here.
    std::string saveCurrentLightStatesAsSceneWithName() const;

    const LampRegistry& registry() const;
    const Summaries& summaries() const;
    LampCommands& commands();
    GroupingCommands& groupings();
    TagCommands& tags();

private:
    struct Machinery;

    std::unique_ptr<Machinery> m;
};

} // namespace lumeroom
