#pragma once

#include "engine/ArpTable.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace lumeroom {

class EngineNotifier;
class Log;
class Polls;
class UserDefaults;
enum class Expecting;

/// Where lamps are looked for.
struct SearchedPlaces {
    enum class Kind { Everywhere, ListedAddresses, KnownAddresses } kind = Kind::Everywhere;
    std::vector<std::string> addresses; ///< none where everybody is asked
};

/// Chooses the addresses that are asked for lamps: everyone by broadcast, the user's own list, or
/// what the ARP table and earlier runs know.
class Discovery {
public:
    Discovery(UserDefaults& defaults, Log& log, const EngineNotifier& notifier, Polls& polls,
        ArpTable& arpTable);

    /// The user's list of addresses: whatever holds a full stop between blanks, commas and line
    /// ends.
    std::set<std::string> getManualIPs() const;
    bool noBroadcastSupport() const;

    SearchedPlaces searchedPlaces() const;

    // One pass each over the addresses
    void broadcastGetService();
    void broadcastGetTagLabelsToLamps();
    void broadcastGetInfoToLamps();

    /// Everybody that there is to ask, at once.
    void lookAgain();
    /// Reads the ARP table once, in the background.
    void findLIFXDevices();
    /// The same, when only known addresses have come to be asked and none is known.
    void findLIFXDevicesIfNeeded();
    /// Puts addresses that count as lamps before those known already, to be stored.
    void addIPsToKnownIPs(const std::vector<std::string>& addresses);

private:
    using SendToAddress = void (Polls::*)(const std::string& address, Expecting expecting);

    void askForDetails(SendToAddress send);
    void sendGetServiceToKnownIPs();
    void readCompleted(const std::string& output);
    bool asksKnownIPs() const;

    UserDefaults& m_defaults;
    Log& m_log;
    const EngineNotifier& m_notifier;
    Polls& m_polls;
    ArpTable& m_arpTable;
    bool m_asksKnownIPs = false; ///< neither everyone nor a list
    /// The latest additions first. Empty until the first, which takes in those of earlier runs.
    std::vector<std::string> m_knownIPs;
};

} // namespace lumeroom
