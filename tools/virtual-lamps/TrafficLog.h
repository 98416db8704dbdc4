#pragma once

#include "Protocol.h"

namespace virtual_lamps {

/// One datagram as the log tells of it.
struct Traffic {
    bool incoming = true;
    std::string lampLabel;
    std::string lampID;
    std::string peer; ///< the other side's address and port
    ByteView datagram;
    std::string_view note; ///< what a fault did to it; empty for nothing
};

/// A line of JSON: time (UTC, microseconds), the lamp, message type and name, the fields of the
/// commonest messages, and all bytes in hexadecimal.
std::string jsonLine(const Traffic& traffic);

} // namespace virtual_lamps
