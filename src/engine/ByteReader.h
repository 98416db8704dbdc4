#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace lumeroom {

/// Reads little-endian integers at stated offsets. What lies beyond the end reads as zero.
class ByteReader {
public:
    explicit ByteReader(std::span<const std::uint8_t> bytes)
        : m_bytes(bytes)
    {
    }

    std::size_t size() const { return m_bytes.size(); }
    std::uint8_t u8(std::size_t offset) const
    {
        return offset < m_bytes.size() ? m_bytes[offset] : std::uint8_t(0);
    }
    std::uint16_t u16(std::size_t offset) const { return integer<std::uint16_t>(offset); }
    std::uint32_t u32(std::size_t offset) const { return integer<std::uint32_t>(offset); }
    std::uint64_t u64(std::size_t offset) const { return integer<std::uint64_t>(offset); }

    template <std::size_t N> std::array<std::uint8_t, N> array(std::size_t offset) const
    {
        std::array<std::uint8_t, N> result;
        for (std::size_t i = 0; i < N; ++i)
            result[i] = u8(offset + i);
        return result;
    }

    /// Up to `length` bytes from `offset`; fewer, or none, where the data ends.
    std::span<const std::uint8_t> bytes(std::size_t offset, std::size_t length) const
    {
        if (offset >= m_bytes.size())
            return {};
        return m_bytes.subspan(offset, std::min(length, m_bytes.size() - offset));
    }

private:
    template <typename T> T integer(std::size_t offset) const
    {
        T value = 0;
        for (std::size_t i = 0; i < sizeof(T); ++i)
            value
                = static_cast<T>(value | static_cast<T>(static_cast<T>(u8(offset + i)) << (8 * i)));
        return value;
    }

    std::span<const std::uint8_t> m_bytes;
};

} // namespace lumeroom
