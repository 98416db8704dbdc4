#include "engine/EngineRoom.h"

#include "base/DefaultsKeys.h"
#include "base/LocalTime.h"
#include "base/UserDefaults.h"
#include "engine/Discovery.h"
#include "engine/EngineNotifier.h"
#include "engine/Fades.h"
#include "engine/Heartbeat.h"
#include "engine/LampSockets.h"
#include "engine/Liveness.h"
#include "engine/NetworkComplaints.h"
#include "engine/PollingEmbargo.h"
#include "engine/Polls.h"
#include "engine/ProductCatalogue.h"
#include "engine/ReceiveDispatcher.h"
#include "engine/RecordIntake.h"
#include "engine/SendQueue.h"

namespace lumeroom {

/// The engine's parts, in the order in which each needs those before it. Destroyed from the end,
/// the threads go first.
struct EngineRoom::Machinery {
    Machinery(const EngineEnvironment& with, UdpSocketDelegate& receiver)
        : environment(with)
        , registry(with.log)
        , sockets(with.makeSocket, receiver)
        , catalogue(with.readProducts)
        , embargo(with.runLoop)
        , queue(with.pacer, with.log)
        , polls(registry, notifier, sockets, queue, with.runLoop, with.log)
        , discovery(with.defaults, with.log, notifier, polls, with.arpTable)
        , liveness(registry, notifier, discovery, queue, with.runLoop)
        , fades(registry, polls, with.runLoop)
        , commands(registry, sockets, fades, with.defaults, with.log)
        , intake(registry, notifier, liveness, polls, commands, catalogue, with.log)
        , dispatcher(
              {with.runLoop, with.log, notifier, registry, liveness, intake, fades, polls, embargo})
        , summaries(registry, with.defaults)
        , groupings({with.runLoop, with.log, notifier, registry, intake, polls, embargo})
        , tags({with.log, notifier, registry, intake, sockets, embargo})
        , heartbeat({with.runLoop, with.pacer, with.defaults, with.log, notifier, discovery, polls,
              embargo})
    {
    }

    void placesChanged()
    {
        if (environment.complaints)
            environment.complaints->forget();
        discovery.findLIFXDevicesIfNeeded();
    }

    EngineEnvironment environment;
    EngineNotifier notifier;
    LampRegistry registry;
    LampSockets sockets;
    ProductCatalogue catalogue;
    PollingEmbargo embargo;
    SendQueue queue;
    Polls polls;
    Discovery discovery;
    Liveness liveness;
    Fades fades;
    LampCommands commands;
    RecordIntake intake;
    ReceiveDispatcher dispatcher;
    Summaries summaries;
    GroupingCommands groupings;
    TagCommands tags;
    Heartbeat heartbeat;
    Subscription observation;
};

EngineRoom::EngineRoom(const EngineEnvironment& environment)
    : m(std::make_unique<Machinery>(environment, *this))
{
    m->queue.startQueingSystem();
    m->discovery.findLIFXDevicesIfNeeded();
    m->observation = environment.defaults.observe(environment.runLoop,
        {keys::kNoBroadcastSupport, keys::kManualIPAddresses}, [this] { m->placesChanged(); });
}

EngineRoom::~EngineRoom() = default;

void EngineRoom::setDelegate(QVLIFXEngineDelegate* delegate)
{
    m->notifier.setDelegate(delegate);
}

void EngineRoom::udpSocketDidReceiveData(
    UdpSocket& socket, std::span<const std::uint8_t> data, const SocketAddress& from)
{
    m->dispatcher.udpSocketDidReceiveData(socket, data, from);
}

void EngineRoom::startHeartbeat()
{
    m->heartbeat.startHeartbeat();
}
void EngineRoom::invalidateSockets()
{
    m->sockets.invalidate(m->registry.lightsArray());
}
void EngineRoom::closeUp()
{
    m->sockets.closeUp(m->registry.lightsArray());
}

SearchedPlaces EngineRoom::searchedPlaces() const
{
    return m->discovery.searchedPlaces();
}
void EngineRoom::lookAgain()
{
    m->discovery.lookAgain();
}
std::string EngineRoom::networkComplaint() const
{
    return m->environment.complaints ? m->environment.complaints->latest() : std::string();
}

std::string EngineRoom::saveCurrentLightStatesAsSceneWithName() const
{
    return timestampText(m->environment.runLoop.now());
}

const LampRegistry& EngineRoom::registry() const
{
    return m->registry;
}
const Summaries& EngineRoom::summaries() const
{
    return m->summaries;
}
LampCommands& EngineRoom::commands()
{
    return m->commands;
}
GroupingCommands& EngineRoom::groupings()
{
    return m->groupings;
}
TagCommands& EngineRoom::tags()
{
    return m->tags;
}

} // namespace lumeroom
