#include "desktop/Demonstration.h"

#include "base/DefaultsKeys.h"
#include "base/UserDefaults.h"
#include "desktop/CommandLine.h"

namespace lumeroom {

namespace {

// Each of these lamps has an address and is asked by it; at this speed all the questions of a cycle
// fit into it.
constexpr double kHeartbeatSpeed = 0.5;
/// Where nothing answers.
const std::string kNoLamps = "127.0.0.1";

} // namespace

Demonstration::Demonstration(const CommandLine& commandLine, UserDefaults& defaults,
    const std::function<void(const std::string&)>& complain)
{
    if (!commandLine.demo)
        return;
    std::string error;
    if (!m_lamps.start(commandLine.demoLamps, error))
        complain("no demonstration: " + error);
    std::string addresses;
    for (const std::string& address : m_lamps.addresses())
        addresses += (addresses.empty() ? "" : "\n") + address;
    // Over whatever is set: with no address at all, the real network would be searched.
    defaults.overrideDefaults(
        {{std::string(keys::kManualIPAddresses), addresses.empty() ? kNoLamps : addresses},
            {std::string(keys::kHeartbeatSpeed), kHeartbeatSpeed}});
}

} // namespace lumeroom
