#include "engine/Polls.h"

#include "base/LocalTime.h"
#include "base/Log.h"
#include "engine/EngineNotifier.h"
#include "engine/LabelText.h"
#include "engine/LampRegistry.h"
#include "engine/LampSockets.h"
#include "engine/SendQueue.h"

#include <algorithm>

namespace lumeroom {

using wire::Message;

namespace {

constexpr int kMostDoublings = 6; // 64 heartbeats: about three minutes

bool isDue(LampPolling& polling)
{
    if (polling.pause > 0) {
        --polling.pause;
        return false;
    }
    if (polling.isSilent())
        polling.pause = 1 << std::min(polling.unanswered - 3, kMostDoublings);
    return true;
}

Expecting expectationOf(const Lamp& lamp)
{
    return lamp.polling.isAnswering() ? Expecting::Answer : Expecting::Silence;
}

} // namespace

Polls::Polls(LampRegistry& registry, const EngineNotifier& notifier, LampSockets& sockets,
    SendQueue& queue, RunLoop& runLoop, Log& log)
    : m_registry(registry)
    , m_notifier(notifier)
    , m_sockets(sockets)
    , m_queue(queue)
    , m_runLoop(runLoop)
    , m_log(log)
{
}

void Polls::sendGetServiceToAddress(const std::string& address, Expecting expecting)
{
    m_sockets.makeBroadcastSocket();
    pollAddress(Message::DeviceGetService, address, expecting);
}

void Polls::sendGetTagLabelsToLamp(const std::string& address, Expecting expecting)
{
    pollAddress(Message::DeviceGetTagLabels, address, expecting);
}

void Polls::sendGetInfoToLamp(const std::string& address, Expecting expecting)
{
    pollAddress(Message::DeviceGetVersion, address, expecting);
}

bool Polls::lampAnswersAt(const std::string& address) const
{
    const Lamps& lamps = m_registry.lampsAtAddress(address);
    return std::any_of(
        lamps.begin(), lamps.end(), [](const auto& lamp) { return lamp->polling.isAnswering(); });
}

void Polls::sendGetLabelToLamp(Lamp& lamp)
{
    pollLamp(Message::DeviceGetLabel, lamp);
}
void Polls::sendGetTagsToLamp(Lamp& lamp)
{
    pollLamp(Message::DeviceGetTags, lamp);
}
void Polls::sendGetLocationToLamp(Lamp& lamp)
{
    pollLamp(Message::DeviceGetLocation, lamp);
}
void Polls::sendGetGroupToLamp(Lamp& lamp)
{
    pollLamp(Message::DeviceGetGroup, lamp);
}
void Polls::sendGetStateToLamp(Lamp& lamp)
{
    if (!pollLamp(Message::LightGet, lamp))
        return;
    const bool wasSilent = lamp.polling.isSilent();
    ++lamp.polling.unanswered;
    if (lamp.polling.isSilent() && !wasSilent)
        m_notifier.sendLampsStateChangedNotificationToDelegate();
}

void Polls::sendGetColorZonesToLamp(Lamp& lamp)
{
    const auto lastZone = static_cast<std::uint8_t>(lamp.zonecount ? *lamp.zonecount - 1 : 0);
    pollZones(lamp, lastZone);
    for (const auto& record : lamp.answeringElsewhere())
        pollZones(*record, lastZone);
}

void Polls::pollZones(Lamp& lamp, std::uint8_t lastZone)
{
    if (lamp.address.empty())
        return;
    logQueueing(Message::MultizoneGetColorZones, lamp.address);
    enqueue(
        {m_sockets.socketFor(lamp), lamp.address, wire::multizoneGetColorZones(lamp.mac, lastZone)},
        expectationOf(lamp));
}

void Polls::sendGetGroupToAllLamps()
{
    pollSpeakingLamps(Message::DeviceGetGroup);
}

void Polls::sendGetLocationToAllLamps()
{
    pollSpeakingLamps(Message::DeviceGetLocation);
}

void Polls::sendGetStateToAllLamps()
{
    for (const auto& lamp : m_registry.lightsArray()) {
        if (isDue(lamp->polling))
            sendGetStateToLamp(*lamp);
    }
}

void Polls::sendGetTagsToAllLamps()
{
    pollSpeakingLamps(Message::DeviceGetTags);
}

void Polls::sendGetServiceToAllRespondingLamps()
{
    sendGetStateToAllLamps();
}

void Polls::sendSetGroupToLamp(const Group& group, Lamp& lamp)
{
    setGrouping(Message::DeviceSetGroup, group, lamp);
}

void Polls::sendSetLocationToLamp(const Location& location, Lamp& lamp)
{
    setGrouping(Message::DeviceSetLocation, location, lamp);
}

void Polls::pollAddress(Message message, const std::string& address, Expecting expecting)
{
    logQueueing(message, address);
    enqueue({m_sockets.broadcastSocket(), address, wire::request(message, {})}, expecting);
}

/// Whether it was not waiting to be sent already.
bool Polls::pollLamp(Message message, Lamp& lamp)
{
    if (lamp.address.empty())
        return false;
    logQueueing(message, lamp.address);
    return enqueue({m_sockets.socketFor(lamp), lamp.address, wire::request(message, lamp.mac)},
        expectationOf(lamp));
}

void Polls::pollSpeakingLamps(Message message)
{
    for (const auto& lamp : m_registry.lightsArray()) {
        if (lamp->polling.isAnswering())
            pollLamp(message, *lamp);
    }
}

bool Polls::enqueue(QueueEntry entry, Expecting expecting)
{
    return expecting == Expecting::Answer ? m_queue.appendPoll(std::move(entry))
                                          : m_queue.appendProbe(std::move(entry));
}

void Polls::setGrouping(Message message, const Grouping& grouping, Lamp& lamp)
{
    if (lamp.address.empty())
        return;
    logQueueing(message, lamp.address);
    const auto now = static_cast<std::uint64_t>(nanosecondsSinceEpoch(m_runLoop.now()));
    const auto& socket = m_sockets.socketFor(lamp);
    m_queue.append({socket, lamp.address,
        wire::deviceSetGrouping(message, lamp.mac, grouping.guid,
            dataFromString(grouping.label, m_log), grouping.updatedAt.value_or(now))});
    socket->beginReceiving();
}

void Polls::logQueueing(Message message, const std::string& address)
{
    if (m_log.shows(3))
        m_log.line("queueing {} addressed to {}", wire::nameOf(message), address);
}

} // namespace lumeroom
