#pragma once

#include "engine/UdpSocket.h"

#include <sys/socket.h>

namespace lumeroom {

/// Datagrams read together, one behind the other.
struct DatagramBatch {
    struct Entry {
        std::size_t offset;
        std::size_t size;
        SocketAddress from;
    };
    std::vector<std::uint8_t> bytes;
    std::vector<Entry> entries;
};

/// Reads datagrams in batches through buffers that are used again and again.
class DatagramReader {
public:
    static constexpr std::size_t kLargestDatagram = 9216;
    static constexpr std::size_t kBatch = 32;

    DatagramReader();

    struct Result {
        DatagramBatch batch;
        int error = 0; ///< the system's number; 0 also when nothing was there to read
    };
    /// What waits on the descriptor, at most `kBatch`. Never waits.
    Result read(int descriptor);

private:
    std::vector<std::uint8_t> m_buffers;
    std::array<SocketAddress, kBatch> m_addresses;
    std::array<iovec, kBatch> m_vectors;
    std::array<mmsghdr, kBatch> m_messages;
};

} // namespace lumeroom
