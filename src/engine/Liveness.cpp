#include "engine/Liveness.h"

#include "base/RunLoop.h"
#include "engine/AsyncUdpSocket.h"
#include "engine/Discovery.h"
#include "engine/EngineNotifier.h"
#include "engine/LampRegistry.h"
#include "engine/SendQueue.h"

#include <algorithm>
#include <utility>

namespace lumeroom {

namespace {
constexpr std::size_t kMostThatNeverAnswered = 300;

/// A reply may still come in by the socket that the record had before a rebuild of the panel.
bool cameBy(const UdpSocket& socket, const Lamp& lamp)
{
    return lamp.socket.get() == &socket || lamp.previousSocket.lock().get() == &socket;
}

/// The first of a lamp's records that this is true of; one that has moved has one for each address.
template <typename Condition> Lamp* firstRecord(Lamp& lamp, Condition isTrueOf)
{
    if (isTrueOf(lamp))
        return &lamp;
    const auto found = std::find_if(lamp.elsewhere.begin(), lamp.elsewhere.end(),
        [&isTrueOf](const auto& record) { return isTrueOf(*record); });
    return found == lamp.elsewhere.end() ? nullptr : found->get();
}

} // namespace

Liveness::Liveness(LampRegistry& registry, const EngineNotifier& notifier, Discovery& discovery,
    SendQueue& queue, RunLoop& runLoop)
    : m_registry(registry)
    , m_notifier(notifier)
    , m_discovery(discovery)
    , m_queue(queue)
    , m_runLoop(runLoop)
{
}

bool Liveness::makeRoomForOneMore()
{
    if (m_neverAnswered.size() < kMostThatNeverAnswered)
        return true;
    const auto silent = std::find_if(m_neverAnswered.begin(), m_neverAnswered.end(),
        [](const auto& lamp) { return lamp->polling.isSilent(); });
    if (silent == m_neverAnswered.end())
        return false;
    m_registry.remove(*silent);
    m_neverAnswered.erase(silent);
    return true;
}

void Liveness::added(const std::shared_ptr<Lamp>& lamp)
{
    m_neverAnswered.push_back(lamp);
}

/// From a lamp that once answered, any sign is good enough.
void Liveness::announced(Lamp& lamp)
{
    if (lamp.polling.hasAnswered)
        heard(lamp);
}

void Liveness::received(const Target& target, const UdpSocket& socket, const SocketAddress& from)
{
    Lamp* lamp = m_registry.lampWithTarget(target);
    if (!lamp)
        return;
    const auto byItsSocket = [&](const Lamp& record) { return cameBy(socket, record); };
    const auto fromItsAddress
        = [&](const Lamp& record) { return AsyncUdpSocket::isSameHost(record.heardFrom, from); };
    if (Lamp* record = firstRecord(*lamp, byItsSocket))
        answered(*record);
    else if ((record = firstRecord(*lamp, fromItsAddress)))
        announced(*record);
}

/// What was told before the lamp fell silent at all its addresses is not carried out after it.
void Liveness::endSilence(const Lamp& lamp)
{
    Lamp* known = m_registry.lampWithTarget(*lamp.mac);
    const auto speaks = [](const Lamp& record) { return !record.polling.isSilent(); };
    if (known && !firstRecord(*known, speaks))
        known->forZonesToCome = {};
}

void Liveness::heard(Lamp& lamp)
{
    const bool wasSilent = lamp.polling.isSilent();
    if (wasSilent)
        endSilence(lamp);
    lamp.polling.unanswered = 0;
    lamp.polling.pause = 0;
    lamp.polling.lastHeard = m_runLoop.now();
    if (wasSilent)
        m_notifier.sendLampsStateChangedNotificationToDelegate();
}

void Liveness::answered(Lamp& lamp)
{
    heard(lamp);
    if (std::exchange(lamp.polling.hasAnswered, true))
        return;
    std::erase_if(m_neverAnswered, [&lamp](const auto& other) { return other.get() == &lamp; });
    m_discovery.addIPsToKnownIPs({lamp.address});
    m_queue.probeWasAnswered();
}

} // namespace lumeroom
