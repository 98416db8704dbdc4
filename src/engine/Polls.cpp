#include "engine/Polls.h"

#include "base/LocalTime.h"
#include "base/Log.h"
#include "engine/LabelText.h"
#include "engine/LampRegistry.h"
#include "engine/LampSockets.h"
#include "engine/SendQueue.h"

namespace lumeroom {

using wire::Message;

Polls::Polls(
    LampRegistry& registry, LampSockets& sockets, SendQueue& queue, RunLoop& runLoop, Log& log)
    : m_registry(registry)
    , m_sockets(sockets)
    , m_queue(queue)
    , m_runLoop(runLoop)
    , m_log(log)
{
}

void Polls::sendGetServiceToAddress(const std::string& address)
{
    m_sockets.makeBroadcastSocket();
    pollAddress(Message::DeviceGetService, address);
}

void Polls::sendGetTagLabelsToLamp(const std::string& address)
{
    pollAddress(Message::DeviceGetTagLabels, address);
}

void Polls::sendGetInfoToLamp(const std::string& address)
{
    pollAddress(Message::DeviceGetVersion, address);
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
    pollLamp(Message::LightGet, lamp);
}

void Polls::sendGetColorZonesToLamp(Lamp& lamp)
{
    if (lamp.address.empty())
        return;
    logQueueing(Message::MultizoneGetColorZones, lamp.address);
    const auto lastZone = static_cast<std::uint8_t>(lamp.zonecount ? *lamp.zonecount - 1 : 0);
    m_queue.appendPoll({m_sockets.socketFor(lamp), lamp.address,
        wire::multizoneGetColorZones(lamp.mac, lastZone)});
}

void Polls::sendGetGroupToAllLamps()
{
    for (const auto& lamp : m_registry.lightsArray())
        sendGetGroupToLamp(*lamp);
}

void Polls::sendGetLocationToAllLamps()
{
    for (const auto& lamp : m_registry.lightsArray())
        sendGetLocationToLamp(*lamp);
}

void Polls::sendGetStateToAllLamps()
{
    for (const auto& lamp : m_registry.lightsArray())
        sendGetStateToLamp(*lamp);
}

void Polls::sendGetTagsToAllLamps()
{
    for (const auto& lamp : m_registry.lightsArray())
        sendGetTagsToLamp(*lamp);
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

void Polls::pollAddress(Message message, const std::string& address)
{
    logQueueing(message, address);
    m_queue.appendPoll({m_sockets.broadcastSocket(), address, wire::request(message, {})});
}

void Polls::pollLamp(Message message, Lamp& lamp)
{
    if (lamp.address.empty())
        return;
    logQueueing(message, lamp.address);
    m_queue.appendPoll({m_sockets.socketFor(lamp), lamp.address, wire::request(message, lamp.mac)});
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
