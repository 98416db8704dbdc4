#include "desktop/Demonstration.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "desktop/CommandLine.h"

namespace lumeroom {

namespace {

// Each of these lamps has an address and is asked by it; at this speed all the questions of a cycle
// fit into it.
constexpr double kHeartbeatSpeed = 0.5;

} // namespace

Demonstration::Demonstration(const CommandLine& commandLine, UserDefaults& defaults, Log& log)
{
    if (!commandLine.demo)
        return;
    std::string error;
    if (!m_lamps.start(commandLine.demoLamps, error)) {
        log.line("no demonstration: {}", error);
        return;
    }
    std::string addresses;
    for (const std::string& address : m_lamps.addresses())
        addresses += (addresses.empty() ? "" : "\n") + address;
    defaults.setObject(keys::kManualIPAddresses, addresses);
    defaults.setObject(keys::kHeartbeatSpeed, kHeartbeatSpeed);
}

} // namespace lumeroom
