#pragma once

#include <optional>
#include <string>
#include <vector>

namespace lumeroom {

struct CommandLine {
    bool demo = false;
    unsigned demoLamps = 8;
    bool log = false; ///< to the terminal as well
    std::string defaultsFile; ///< empty: the usual one
    std::string snapshotFile; ///< empty: no snapshot
    std::optional<bool> isDark; ///< the appearance of this run, whatever is set

    std::string answer; ///< to be printed in place of a start: help, or the version
    std::string error; ///< what is wrong with the arguments; empty for nothing
};

/// Reads the arguments behind the program's name.
CommandLine parseCommandLine(std::vector<std::string> arguments, const std::string& version);

} // namespace lumeroom
