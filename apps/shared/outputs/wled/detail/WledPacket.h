// SPDX-License-Identifier: MIT
#pragma once

#include <QtEndian>

#include <array>
#include <cstdint>
#include <cstring>

namespace shared::detail {

/// What a packet says, in the protocol's own units.
struct WledFrame
{
    float level;                         ///< 0 to 255
    float smoothLevel;                   ///< 0 to 255
    bool isPeak;                         ///< a beat
    std::uint8_t number;                 ///< goes up by one, and begins anew
    std::array<std::uint8_t, 16> bands;  ///< low to high
    float magnitude;                     ///< of the strongest frequency; see WledReceiver
    float frequency;                     ///< Hz
};

using WledPacket = std::array<std::uint8_t, 44>;

/// Version 2 of the audio sync packet, little-endian; what is reserved is 0.
inline WledPacket PacketOf(const WledFrame& pFrame)
{
    WledPacket packet = {'0', '0', '0', '0', '2'};
    const auto put = [&packet](std::size_t pOffset, float pValue) {
        qToLittleEndian(pValue, packet.data() + pOffset);
    };
    put(8, pFrame.level);
    put(12, pFrame.smoothLevel);
    packet[16] = pFrame.isPeak ? 1 : 0;
    packet[17] = pFrame.number;
    std::memcpy(packet.data() + 18, pFrame.bands.data(), pFrame.bands.size());
    put(36, pFrame.magnitude);
    put(40, pFrame.frequency);
    return packet;
}

}  // namespace shared::detail
