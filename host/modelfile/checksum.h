/// \file
/// A number that changes with the data.

#pragma once

#include <cstdint>
#include <string_view>

namespace vrn::orlo::host::modelfile {

/// FNV-1a of 64 bits over what is added, in its order. A change of one byte always shows; it is no
/// guard against intent.
class Checksum {
public:
    Checksum& add(std::int64_t value) noexcept
    {
        for (unsigned shift = 0; shift < 64; shift += 8) {
            addByte(static_cast<unsigned char>(static_cast<std::uint64_t>(value) >> shift));
        }
        return *this;
    }
    /// With its length, so that what stands beside it cannot move into it unseen.
    Checksum& add(std::string_view bytes) noexcept
    {
        add(static_cast<std::int64_t>(bytes.size()));
        for (char const byte : bytes) {
            addByte(static_cast<unsigned char>(byte));
        }
        return *this;
    }
    /// As the database keeps it.
    [[nodiscard]] std::int64_t value() const noexcept { return static_cast<std::int64_t>(m_value); }

private:
    void addByte(unsigned char byte) noexcept { m_value = (m_value ^ byte) * 1099511628211U; }

    std::uint64_t m_value = 14695981039346656037U;
};

}  // namespace vrn::orlo::host::modelfile
