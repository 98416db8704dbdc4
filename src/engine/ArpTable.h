#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace lumeroom {

/// Reads the machine's ARP table without making anybody wait.
class ArpTable {
public:
    struct Result {
        int exitStatus = 0;
        /// Lines of the form "name (address) at ...", as the arp command prints them.
        std::string output;
    };

    virtual ~ArpTable() = default;
    /// Starts one reading; `done` is called once on the main thread, unless the table goes first.
    virtual void read(std::function<void(Result)> done) = 0;
};

} // namespace lumeroom
