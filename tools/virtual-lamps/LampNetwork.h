#pragma once

#include "VirtualLamp.h"

#include <netinet/in.h>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <thread>

namespace virtual_lamps {

/// What goes wrong between a lamp and its clients. The chances run from 0 to 1.
struct Faults {
    double loss = 0;
    double duplicates = 0;
    Milliseconds delay{0};
    unsigned seed = 1; ///< the same seed makes the same faults
};

/// Lamps on sockets of their own, served by one thread. All public operations may be called from
/// any thread.
class LampNetwork {
public:
    struct Options {
        Faults faults;
        std::uint16_t port = kLifxPort;
        /// Answer what is sent to 255.255.255.255 as well; for use in a network namespace.
        bool broadcast = false;
        /// Takes each datagram as a line of JSON.
        std::function<void(const std::string& line)> log;
    };

    explicit LampNetwork(Options options);
    ~LampNetwork();
    LampNetwork(const LampNetwork&) = delete;
    LampNetwork& operator=(const LampNetwork&) = delete;

    /// Puts a lamp on an IPv4 address. False, with the reason, if that cannot be bound.
    bool add(std::unique_ptr<VirtualLamp> lamp, const std::string& address, std::string& error);
    bool start(std::string& error);
    void stop();

    std::size_t count() const;
    std::string address(std::size_t index) const;
    /// Looks at a lamp, or changes it, while it takes no datagram.
    void withLamp(std::size_t index, const std::function<void(VirtualLamp&, Time now)>& use);

    /// A silent lamp hears nothing and says nothing.
    void setSilent(std::size_t index, bool silent);
    bool moveTo(std::size_t index, const std::string& address, std::string& error);
    /// Runs `action` on the network's thread, `after` from now.
    void schedule(Milliseconds after, std::function<void()> action);

private:
    struct Station {
        std::unique_ptr<VirtualLamp> lamp;
        std::string address;
        int socket = -1;
        bool silent = false;
    };
    struct Outgoing {
        std::size_t station;
        sockaddr_in to;
        Bytes datagram;
    };

    void run();
    void serve(int socket);
    void handle(std::size_t index, ByteView datagram, const sockaddr_in& from);
    void answer(std::size_t index, const Bytes& datagram, const sockaddr_in& to);
    void sendNow(const Outgoing& outgoing);
    void runDue();
    void log(std::size_t index, bool incoming, const sockaddr_in& peer, ByteView datagram,
        std::string_view note);
    bool happens(double chance);
    void wake();

    Options m_options;
    std::mt19937 m_random;
    mutable std::recursive_mutex m_mutex;
    std::vector<Station> m_stations;
    int m_broadcastSocket = -1;
    int m_wake = -1;
    bool m_stopping = false;
    std::multimap<Time, std::function<void()>> m_due;
    std::thread m_thread;
};

} // namespace virtual_lamps
