#include "engine/BroadcastSend.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <set>

namespace lumeroom {

namespace {

/// Their numbers as the system has them. Those without an IPv4 address cannot send here.
std::set<unsigned> broadcastInterfaces()
{
    ifaddrs* all = nullptr;
    if (::getifaddrs(&all) != 0)
        return {};
    std::set<unsigned> found;
    for (const ifaddrs* each = all; each; each = each->ifa_next) {
        constexpr unsigned kNeeded = IFF_UP | IFF_BROADCAST;
        const bool isIPv4 = each->ifa_addr && each->ifa_addr->sa_family == AF_INET;
        if (isIPv4 && (each->ifa_flags & kNeeded) == kNeeded)
            found.insert(::if_nametoindex(each->ifa_name));
    }
    ::freeifaddrs(all);
    found.erase(0); // one that has just gone
    return found;
}

/// `interface` 0 leaves the choice to the system.
ssize_t sendBy(
    unsigned interface, int descriptor, std::span<const std::uint8_t> data, const SocketAddress& to)
{
    SocketAddress address = to;
    iovec bytes{const_cast<std::uint8_t*>(data.data()), data.size()};
    alignas(cmsghdr) std::array<std::uint8_t, CMSG_SPACE(sizeof(in_pktinfo))> control{};
    msghdr message{};
    message.msg_name = address.bytes.data();
    message.msg_namelen = address.length;
    message.msg_iov = &bytes;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();

    cmsghdr* header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = IPPROTO_IP;
    header->cmsg_type = IP_PKTINFO;
    header->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
    in_pktinfo leaveBy{};
    leaveBy.ipi_ifindex = static_cast<int>(interface);
    std::memcpy(CMSG_DATA(header), &leaveBy, sizeof leaveBy);
    return ::sendmsg(descriptor, &message, MSG_DONTWAIT | MSG_NOSIGNAL);
}

} // namespace

bool isLimitedBroadcast(const SocketAddress& address)
{
    sockaddr_in ipv4{};
    if (address.length != sizeof ipv4)
        return false;
    std::memcpy(&ipv4, address.bytes.data(), sizeof ipv4);
    return ipv4.sin_family == AF_INET && ipv4.sin_addr.s_addr == INADDR_BROADCAST;
}

ssize_t sendByEveryInterface(
    int descriptor, std::span<const std::uint8_t> data, const SocketAddress& to)
{
    auto interfaces = broadcastInterfaces();
    if (interfaces.empty())
        interfaces.insert(0);
    ssize_t sent = -1;
    for (const unsigned interface : interfaces)
        sent = std::max(sent, sendBy(interface, descriptor, data, to));
    return sent;
}

} // namespace lumeroom
