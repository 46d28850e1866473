// SPDX-License-Identifier: MIT
#pragma once

#include <shared/hands/HandMessage.h>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace shared::detail {

/// A whole MIDI message; none where it is of no control: channels and programs count from 1.
inline std::optional<HandMessage> ReadMidi(const std::uint8_t* pBytes, std::size_t pSize)
{
    constexpr double kMost = 127.0;
    const int status = pSize > 0 ? pBytes[0] & 0xF0 : 0;
    const bool isProgram = status == 0xC0;
    if (pSize < (isProgram ? 2U : 3U) || pBytes[1] > 0x7F || (!isProgram && pBytes[2] > 0x7F))
        return std::nullopt;
    const QString place =
        QStringLiteral("/%1/").arg((pBytes[0] & 0x0F) + 1) + QString::number(pBytes[1]);
    switch (status) {
    case 0x80:
        return HandMessage{QStringLiteral("midi:note") + place, 0.0};
    case 0x90:
        return HandMessage{QStringLiteral("midi:note") + place, pBytes[2] / kMost};
    case 0xB0:
        return HandMessage{QStringLiteral("midi:cc") + place, pBytes[2] / kMost};
    case 0xC0:
        return HandMessage{
            QStringLiteral("midi:program/%1/%2").arg((pBytes[0] & 0x0F) + 1).arg(pBytes[1] + 1),
            1.0};
    default:
        return std::nullopt;
    }
}

}  // namespace shared::detail
