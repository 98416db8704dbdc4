#include "engine/DatagramReader.h"

#include <cerrno>

namespace lumeroom {

DatagramReader::DatagramReader()
    : m_buffers(kBatch * kLargestDatagram)
{
    for (std::size_t i = 0; i < kBatch; ++i) {
        m_vectors[i] = {m_buffers.data() + i * kLargestDatagram, kLargestDatagram};
        m_messages[i] = {};
        m_messages[i].msg_hdr.msg_name = m_addresses[i].bytes.data();
        m_messages[i].msg_hdr.msg_iov = &m_vectors[i];
        m_messages[i].msg_hdr.msg_iovlen = 1;
    }
}

DatagramReader::Result DatagramReader::read(int descriptor)
{
    for (std::size_t i = 0; i < kBatch; ++i)
        m_messages[i].msg_hdr.msg_namelen = static_cast<socklen_t>(m_addresses[i].bytes.size());

    int count = 0;
    do {
        count = ::recvmmsg(descriptor, m_messages.data(), kBatch, MSG_DONTWAIT, nullptr);
    } while (count < 0 && errno == EINTR);

    Result result;
    if (count < 0) {
        // A lamp that is switched off at the wall may have its host answer for it ("port
        // unreachable"); that is news about the lamp and no reason to stop listening.
        const bool harmless = errno == EAGAIN || errno == EWOULDBLOCK || errno == ECONNREFUSED
            || errno == EHOSTUNREACH || errno == ENETUNREACH;
        result.error = harmless ? 0 : errno;
        return result;
    }
    std::size_t total = 0;
    for (int i = 0; i < count; ++i)
        total += m_messages[static_cast<std::size_t>(i)].msg_len;
    result.batch.bytes.reserve(total);
    result.batch.entries.reserve(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const auto* start = m_buffers.data() + i * kLargestDatagram;
        SocketAddress from = m_addresses[i];
        from.length = static_cast<std::uint8_t>(m_messages[i].msg_hdr.msg_namelen);
        result.batch.entries.push_back({result.batch.bytes.size(), m_messages[i].msg_len, from});
        result.batch.bytes.insert(result.batch.bytes.end(), start, start + m_messages[i].msg_len);
    }
    return result;
}

} // namespace lumeroom
