// SPDX-License-Identifier: MIT
#include <shared/outputs/HostPort.h>

#include <algorithm>

namespace shared {

std::optional<HostPort> HostPort::Parse(const QString& pText, int pPort)
{
    constexpr int kLongestHost = 253;
    constexpr int kLastPort = 65535;
    const bool isBracketed = pText.startsWith(QLatin1Char('['));
    const int end = pText.lastIndexOf(QLatin1Char(isBracketed ? ']' : ':'));
    const QString host = isBracketed ? pText.mid(1, end - 1) : pText.left(end);
    const QString rest = end < 0 ? QString() : pText.mid(isBracketed ? end + 1 : end);
    int port = pPort;
    bool isPort = port > 0;
    if (!rest.isEmpty())
        port = rest.mid(1).toInt(&isPort);
    // Else the port could be the end of the address.
    const bool isWhole = isBracketed ? end > 0 && (rest.isEmpty() || rest[0] == QLatin1Char(':'))
                                     : !host.contains(QLatin1Char(':'));
    const bool isClean = std::all_of(host.begin(), host.end(), [](QChar pLetter) {
        return pLetter > QLatin1Char(' ') && pLetter != QLatin1Char('/');
    });
    if (!isWhole || !isClean || host.isEmpty() || host.size() > kLongestHost || !isPort ||
        port < 1 || port > kLastPort)
        return std::nullopt;
    return HostPort{host, port};
}

}  // namespace shared
