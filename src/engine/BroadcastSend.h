#pragma once

#include "engine/UdpSocket.h"

#include <sys/types.h>

namespace lumeroom {

/// 255.255.255.255.
bool isLimitedBroadcast(const SocketAddress& address);

/// Sends to the limited broadcast address by every interface that is up and carries broadcasts: by
/// itself the system would choose that of the default route, be it a VPN's or a container bridge.
/// Answers as `sendto` does: a failure, with errno, only if it left by none.
ssize_t sendByEveryInterface(
    int descriptor, std::span<const std::uint8_t> data, const SocketAddress& to);

} // namespace lumeroom
