#pragma once

#include <virtual-lamps/DemoLamps.h>

namespace lumeroom {

class Log;
class UserDefaults;
struct CommandLine;

/// The lamps of the demonstration, if the command line asks for it. Their addresses are then the
/// only ones that the program speaks to, whatever is set.
class Demonstration {
public:
    Demonstration(const CommandLine& commandLine, UserDefaults& defaults, Log& log);

private:
    virtual_lamps::DemoLamps m_lamps;
};

} // namespace lumeroom
