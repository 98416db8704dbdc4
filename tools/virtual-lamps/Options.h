#pragma once

#include "LampNetwork.h"

#include <optional>
#include <set>

namespace virtual_lamps {

/// A name given to some lamps: those numbered, or all where `lamps` is empty.
struct Assignment {
    std::string name;
    std::set<unsigned> lamps;

    bool appliesTo(unsigned lamp) const { return lamps.empty() || lamps.contains(lamp); }
};

/// Something that happens to a lamp some time after the start.
struct Event {
    unsigned lamp = 0;
    std::string newAddress; ///< empty: it goes silent
    Milliseconds after{0};
};

struct Options {
    unsigned count = 1;
    std::string firstAddress = "127.0.56.1";
    std::vector<std::string> addresses;
    std::vector<std::uint32_t> products{27};
    std::vector<std::string> labels;
    std::vector<Assignment> groups;
    std::vector<Assignment> locations;
    std::vector<Assignment> tags;
    std::map<unsigned, std::size_t> zones;
    std::vector<Event> events;
    Faults faults;
    std::uint16_t port = kLifxPort;
    std::string logFile;
    bool broadcast = false;
    bool anyAddress = false;
    bool control = false;
};

/// The options in the arguments, or what is wrong with them.
struct ParsedOptions {
    Options options;
    std::string help; ///< to be printed in place of a start; empty unless asked for
    std::string error;
};
ParsedOptions parseOptions(std::vector<std::string> arguments);

} // namespace virtual_lamps
