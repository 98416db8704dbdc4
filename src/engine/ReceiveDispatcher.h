#pragma once

#include "engine/ByteReader.h"
#include "engine/WireFormat.h"

#include <set>

namespace lumeroom {

class EngineNotifier;
class Fades;
class LampRegistry;
class Liveness;
class Log;
class Polls;
class PollingEmbargo;
class RecordIntake;
class RunLoop;

/// Takes in every datagram of every socket: reads its type, decodes the payload and passes it to
/// the records. A reply is not matched to a request, and it does not matter which socket it came
/// by.
class ReceiveDispatcher : public UdpSocketDelegate {
public:
    struct Environment {
        RunLoop& runLoop;
        Log& log;
        const EngineNotifier& notifier;
        LampRegistry& registry;
        Liveness& liveness;
        RecordIntake& intake;
        Fades& fades;
        Polls& polls;
        const PollingEmbargo& embargo;
    };
    explicit ReceiveDispatcher(const Environment& environment);

    void udpSocketDidReceiveData(
        UdpSocket& socket, std::span<const std::uint8_t> data, const SocketAddress& from) override;

private:
    void dispatch(wire::Message message, const Target& target, const ByteReader& payload,
        const SocketAddress& from);
    void didReceiveStateService(
        const Target& target, const ByteReader& payload, const SocketAddress& from);
    void didReceiveStateLabel(const Target& target, const ByteReader& payload);
    void didReceiveStateTagLabels(const ByteReader& payload);
    void didReceiveLightState(const Target& target, const ByteReader& payload);
    void didReceiveStateGroup(const Target& target, const ByteReader& payload);
    void didReceiveStateLocation(const Target& target, const ByteReader& payload);
    void didReceiveStateZone(const Target& target, const ByteReader& payload);
    void didReceiveStateMultizone(const Target& target, const ByteReader& payload);
    void lampAnsweredFrom(const SocketAddress& from, const Target& target);
    template <typename Record>
    std::shared_ptr<Record> groupingFrom(const ByteReader& payload) const;

    Environment m_environment;
    std::set<std::uint16_t> m_unknownTypes; ///< that the log has been told of
};

} // namespace lumeroom
