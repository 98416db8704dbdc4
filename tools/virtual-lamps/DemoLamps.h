#pragma once

#include "LampNetwork.h"

namespace virtual_lamps {

/// A homely set of lamps on loopback addresses, for people without lamps.
class DemoLamps {
public:
    /// Between 1 and 200 lamps. False, with the reason, if no block of addresses is free.
    bool start(std::size_t count, std::string& error);
    /// Where the lamps are.
    std::vector<std::string> addresses() const;
    LampNetwork* network() { return m_network.get(); }

private:
    bool startAt(const std::string& firstAddress, std::size_t count, std::string& error);

    std::unique_ptr<LampNetwork> m_network;
};

} // namespace virtual_lamps
