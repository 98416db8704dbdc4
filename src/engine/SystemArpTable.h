#pragma once

#include "base/RunLoop.h"
#include "engine/ArpTable.h"

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace lumeroom {

/// Reads the ARP table with `arp -a` where that command exists, else from the kernel's own listing.
class SystemArpTable : public ArpTable {
public:
    struct Sources {
        /// Tried in this order.
        std::vector<std::string> commands{"/usr/sbin/arp", "/sbin/arp", "/usr/bin/arp"};
        std::string kernelTable = "/proc/net/arp";
        /// The name of an address; empty if it has none.
        std::function<std::string(const std::string& address)> nameOf;
    };

    explicit SystemArpTable(RunLoop& runLoop);
    SystemArpTable(RunLoop& runLoop, Sources sources);
    /// Breaks a reading off.
    ~SystemArpTable() override;

    void read(std::function<void(Result)> done) override;

private:
    void stop();
    Result readTable();
    Result runCommand(const std::string& command);

    RunLoop& m_runLoop;
    Sources m_sources;
    Lifeline m_lifeline;
    std::atomic<bool> m_stopping = false;
    std::thread m_thread;
};

/// The kernel's listing in the form in which the arp command prints it: one
/// "name (address) at hardware on device" a line. Entries without an answer are left out.
std::string arpLinesFromKernelTable(
    const std::string& table, const std::function<std::string(const std::string& address)>& nameOf);

} // namespace lumeroom
