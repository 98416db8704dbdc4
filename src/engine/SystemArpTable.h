#pragma once

#include "base/RunLoop.h"
#include "engine/ArpTable.h"

#include <string>
#include <vector>

namespace lumeroom {

/// Reads the ARP table with `arp -a` where that command exists, else from the kernel's own listing.
/// The names in it come from name servers, which may be silent for a long time: nobody waits for
/// the thread that asks them, and one reading serves all who ask meanwhile.
class SystemArpTable : public ArpTable {
public:
    struct Sources {
        /// Tried in this order.
        std::vector<std::string> commands{"/usr/sbin/arp", "/sbin/arp", "/usr/bin/arp"};
        std::string kernelTable = "/proc/net/arp";
        /// The name of an address; empty if it has none. It may block.
        std::function<std::string(const std::string& address)> nameOf;
    };

    explicit SystemArpTable(RunLoop& runLoop);
    SystemArpTable(RunLoop& runLoop, Sources sources);
    /// Breaks a reading off.
    ~SystemArpTable() override;

    void read(std::function<void(Result)> done) override;

private:
    class Reading;
    void finish(const Result& result);

    RunLoop& m_runLoop;
    Sources m_sources;
    Lifeline m_lifeline;
    std::vector<std::function<void(Result)>> m_waiting;
    std::shared_ptr<Reading> m_reading;
};

/// The kernel's listing in the form in which the arp command prints it: one
/// "name (address) at hardware on device" a line. Entries without an answer are left out.
std::string arpLinesFromKernelTable(
    const std::string& table, const std::function<std::string(const std::string& address)>& nameOf);

} // namespace lumeroom
