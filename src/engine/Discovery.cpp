#include "engine/Discovery.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/AddressList.h"
#include "engine/ArpOutput.h"
#include "engine/EngineNotifier.h"
#include "engine/Polls.h"
#include "engine/WireFormat.h"

#include <algorithm>
#include <utility>

namespace lumeroom {

namespace {
constexpr std::size_t kMostKnownIPs = 300; // no home has as many
}

Discovery::Discovery(UserDefaults& defaults, Log& log, const EngineNotifier& notifier, Polls& polls,
    ArpTable& arpTable)
    : m_defaults(defaults)
    , m_log(log)
    , m_notifier(notifier)
    , m_polls(polls)
    , m_arpTable(arpTable)
{
}

std::set<std::string> Discovery::getManualIPs() const
{
    return addressesInList(m_defaults.get(keys::kManualIPAddresses));
}

bool Discovery::noBroadcastSupport() const
{
    return m_defaults.get(keys::kNoBroadcastSupport);
}

SearchedPlaces Discovery::searchedPlaces() const
{
    using Kind = SearchedPlaces::Kind;
    const auto manual = getManualIPs();
    if (!manual.empty())
        return {Kind::ListedAddresses, {manual.begin(), manual.end()}};
    if (noBroadcastSupport())
        return {Kind::KnownAddresses, m_knownIPs};
    return {};
}

void Discovery::broadcastGetService()
{
    const SearchedPlaces places = searchedPlaces();
    switch (places.kind) {
    case SearchedPlaces::Kind::ListedAddresses:
        for (const auto& address : places.addresses)
            m_polls.sendGetServiceToAddress(address, Expecting::Answer);
        break;
    case SearchedPlaces::Kind::KnownAddresses:
        sendGetServiceToKnownIPs();
        break;
    case SearchedPlaces::Kind::Everywhere:
        m_polls.sendGetServiceToAddress(std::string(wire::kBroadcastAddress), Expecting::Answer);
        break;
    }
    m_polls.sendGetStateToAllLamps();
}

void Discovery::lookAgain()
{
    if (asksKnownIPs())
        findLIFXDevices();
    broadcastGetService();
}

void Discovery::broadcastGetTagLabelsToLamps()
{
    askForDetails(&Polls::sendGetTagLabelsToLamp);
}

void Discovery::broadcastGetInfoToLamps()
{
    askForDetails(&Polls::sendGetInfoToLamp);
}

// Without broadcasts the details come from every known address that answers, even where the user
// has listed some: a listed lamp is among them as soon as it has answered.
void Discovery::askForDetails(SendToAddress send)
{
    if (noBroadcastSupport()) {
        for (const auto& address : m_knownIPs) {
            if (m_polls.lampAnswersAt(address))
                (m_polls.*send)(address, Expecting::Answer);
        }
        return;
    }
    const auto manual = getManualIPs();
    if (manual.empty()) {
        (m_polls.*send)(std::string(wire::kBroadcastAddress), Expecting::Answer);
        return;
    }
    for (const auto& address : manual)
        (m_polls.*send)(address, Expecting::Answer);
}

void Discovery::sendGetServiceToKnownIPs()
{
    for (const auto& address : m_knownIPs) {
        const bool answers = m_polls.lampAnswersAt(address);
        m_polls.sendGetServiceToAddress(address, answers ? Expecting::Answer : Expecting::Silence);
    }
}

void Discovery::findLIFXDevices()
{
    m_notifier.sendEngineIsSsearchingToDelegate(true);
    m_arpTable.read([this](const ArpTable::Result& result) {
        m_notifier.sendEngineIsSsearchingToDelegate(false);
        if (result.exitStatus != 0)
            m_log.line("arp error - exit code: {}\n", result.exitStatus);
        else
            m_log.line("arp completed successfully\n");
        readCompleted(result.output);
    });
}

bool Discovery::asksKnownIPs() const
{
    return searchedPlaces().kind == SearchedPlaces::Kind::KnownAddresses;
}

void Discovery::findLIFXDevicesIfNeeded()
{
    const bool askedThem = std::exchange(m_asksKnownIPs, asksKnownIPs());
    if (m_asksKnownIPs && !askedThem && m_knownIPs.empty())
        findLIFXDevices();
}

void Discovery::readCompleted(const std::string& output)
{
    m_log.line("arp read completed");
    const auto addresses = lifxAddresses(output);
    std::string list;
    for (const auto& address : addresses)
        list += (list.empty() ? "" : ", ") + address;
    m_log.line("arp says IPs are: ({})", list);
    addIPsToKnownIPs(addresses);
}

void Discovery::addIPsToKnownIPs(const std::vector<std::string>& addresses)
{
    std::vector<std::string> known;
    const auto add = [&known](const std::string& address) {
        if (known.size() < kMostKnownIPs
            && std::find(known.begin(), known.end(), address) == known.end())
            known.push_back(address);
    };
    std::for_each(addresses.begin(), addresses.end(), add);
    std::for_each(m_knownIPs.begin(), m_knownIPs.end(), add);
    for (const auto& stored : m_defaults.get(keys::kKnownIPs)) {
        if (const auto* address = stored.as<std::string>())
            add(*address);
    }
    m_knownIPs = std::move(known);
    m_defaults.setObject(keys::kKnownIPs, Value::Array(m_knownIPs.begin(), m_knownIPs.end()));
}

} // namespace lumeroom
