#include "desktop/Demonstration.h"

#include "base/DefaultsKeys.h"
#include "base/UserDefaults.h"
#include "desktop/CommandLine.h"

#include <QCoreApplication>
#include <QProcess>

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

bool startDemonstration(const CommandLine& commandLine)
{
    QStringList arguments{QStringLiteral("--demo")};
    if (commandLine.isDark) {
        arguments << QStringLiteral("--appearance")
                  << (*commandLine.isDark ? QStringLiteral("dark") : QStringLiteral("light"));
    }
    // It may outlive this one, whose standard error is the console's pipe.
    QProcess program;
    program.setProgram(QCoreApplication::applicationFilePath());
    program.setArguments(arguments);
    program.setStandardOutputFile(QProcess::nullDevice());
    program.setStandardErrorFile(QProcess::nullDevice());
    return program.startDetached();
}

} // namespace lumeroom
