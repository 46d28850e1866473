// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace shared {

/// A place in the network: "desk", "desk:7000", "10.0.0.5:7000", "[fe80::1]:7000".
struct HostPort
{
    QString host;  ///< a name or an address, without brackets
    int port;      ///< 1 to 65535

    /// pPort: the port when none is given; 0 = one must be. None when it is not understood.
    static std::optional<HostPort> Parse(const QString& pText, int pPort);
};

}  // namespace shared
