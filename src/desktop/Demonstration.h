#pragma once

#include <virtual-lamps/DemoLamps.h>

namespace lumeroom {

class UserDefaults;
struct CommandLine;

/// The lamps of the demonstration, if the command line asks for it. Their addresses are then the
/// only ones that the program speaks to, whatever is set.
class Demonstration {
public:
    /// `complain` is called with what went wrong.
    Demonstration(const CommandLine& commandLine, UserDefaults& defaults,
        const std::function<void(const std::string&)>& complain);

private:
    virtual_lamps::DemoLamps m_lamps;
};

/// Starts the program once more, with simulated lamps, and the appearance of this one. False if it
/// cannot be started.
bool startDemonstration(const CommandLine& commandLine);

} // namespace lumeroom
