// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace shared::detail {

/// The head of an HTTP request, as far as it matters.
struct WebRequest
{
    QByteArray method;
    QByteArray path;    ///< before the question mark
    QByteArray token;   ///< of the query; empty = none
    QByteArray host;    ///< where it was sent to, lower case, with its port
    QByteArray origin;  ///< the page that it comes from, lower case; empty = none
    bool isUpgrade;     ///< it asks for a websocket
};

/// What a request must have to be let in.
struct WebGate
{
    QByteArray hosts;  ///< those that the server goes by here, with port, between spaces
    QByteArray token;  ///< empty = none is needed
};

constexpr int kLongestHead = 4096;  ///< bytes of a request's head

/// Up to the empty line, which may be missing. None when it is not understood.
std::optional<WebRequest> ReadWebRequest(const QByteArray& pHead);

/// The status of HTTP that answers it: 101 and 200 let it in.
int JudgeWebRequest(const WebRequest& pRequest, const WebGate& pGate);

}  // namespace shared::detail
