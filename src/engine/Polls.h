#pragma once

#include "engine/WireFormat.h"

namespace lumeroom {

class EngineNotifier;
class LampRegistry;
class LampSockets;
class Log;
class RunLoop;
class SendQueue;
struct QueueEntry;

/// Who is not expected to answer is asked after all others.
enum class Expecting { Answer, Silence };

/// Builds the messages that go through the send queue. None does anything for a lamp without an
/// address.
class Polls {
public:
    Polls(LampRegistry& registry, const EngineNotifier& notifier, LampSockets& sockets,
        SendQueue& queue, RunLoop& runLoop, Log& log);

    // To an address, on the discovery socket. Only the first makes that socket; an entry without
    // one is discarded by the queue.
    void sendGetServiceToAddress(const std::string& address, Expecting expecting);
    void sendGetTagLabelsToLamp(const std::string& address, Expecting expecting);
    void sendGetInfoToLamp(const std::string& address, Expecting expecting);
    bool lampAnswersAt(const std::string& address) const;

    // To one lamp, on its own socket
    void sendGetLabelToLamp(Lamp& lamp);
    void sendGetTagsToLamp(Lamp& lamp);
    void sendGetLocationToLamp(Lamp& lamp);
    void sendGetGroupToLamp(Lamp& lamp);
    void sendGetStateToLamp(Lamp& lamp);
    /// At every address that it answers at.
    void sendGetColorZonesToLamp(Lamp& lamp);

    // To every lamp heard from. One that has fallen silent is asked for its state only, and ever
    // more rarely.
    void sendGetGroupToAllLamps();
    void sendGetLocationToAllLamps();
    void sendGetStateToAllLamps();
    void sendGetTagsToAllLamps();
    /// Asks for the lamps' states, in spite of its name.
    void sendGetServiceToAllRespondingLamps();

    // Changes that travel by the queue. A record without "updated_at" goes out with the present.
    void sendSetGroupToLamp(const Group& group, Lamp& lamp);
    void sendSetLocationToLamp(const Location& location, Lamp& lamp);

private:
    void pollAddress(wire::Message message, const std::string& address, Expecting expecting);
    bool pollLamp(wire::Message message, Lamp& lamp);
    void pollZones(Lamp& lamp, std::uint8_t lastZone);
    void pollSpeakingLamps(wire::Message message);
    bool enqueue(QueueEntry entry, Expecting expecting);
    void setGrouping(wire::Message message, const Grouping& grouping, Lamp& lamp);
    void logQueueing(wire::Message message, const std::string& address);

    LampRegistry& m_registry;
    const EngineNotifier& m_notifier;
    LampSockets& m_sockets;
    SendQueue& m_queue;
    RunLoop& m_runLoop;
    Log& m_log;
};

} // namespace lumeroom
