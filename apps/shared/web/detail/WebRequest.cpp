// SPDX-License-Identifier: MIT
#include <shared/web/detail/WebRequest.h>

#include <QList>

#include <algorithm>

namespace shared::detail {

namespace {

/// "method", "target", "version"; false when there are other than three, or it is another protocol.
bool ReadFirstLine(const QByteArray& pLine, WebRequest& pRequest)
{
    const QList<QByteArray> words = pLine.split(' ');
    if (words.size() != 3 || !words[1].startsWith('/') || words[2] != "HTTP/1.1")
        return false;
    pRequest.method = words[0];
    const int mark = words[1].indexOf('?');
    pRequest.path = mark < 0 ? words[1] : words[1].left(mark);
    const QByteArray query = mark < 0 ? QByteArray() : words[1].mid(mark + 1);
    for (const QByteArray& pair : query.split('&'))
        if (pair.startsWith("token="))
            pRequest.token = pair.mid(6);
    return true;
}

/// False when one is there a second time, of which nobody could tell which one counts.
bool SetOnce(QByteArray& pPlace, const QByteArray& pValue)
{
    if (!pPlace.isEmpty() || pValue.isEmpty())
        return false;
    pPlace = pValue.toLower();
    return true;
}

/// Takes as long however many bytes are right.
bool AreSame(const QByteArray& pOne, const QByteArray& pOther)
{
    if (pOne.size() != pOther.size())
        return false;
    int difference = 0;
    for (int i = 0; i < pOne.size(); ++i)
        difference |= pOne[i] ^ pOther[i];
    return difference == 0;
}

}  // namespace

std::optional<WebRequest> ReadWebRequest(const QByteArray& pHead)
{
    WebRequest request = {};
    const int end = pHead.indexOf("\r\n\r\n");
    const QByteArray head = end < 0 ? pHead : pHead.left(end);
    const bool isText = std::all_of(head.begin(), head.end(), [](char pByte) {
        return (pByte >= ' ' && pByte <= '~') || pByte == '\r' || pByte == '\n' || pByte == '\t';
    });
    const QList<QByteArray> lines = head.split('\n');
    if (pHead.size() > kLongestHead || !isText || !ReadFirstLine(lines[0].trimmed(), request))
        return std::nullopt;
    for (int i = 1; i < lines.size(); ++i) {
        const int colon = lines[i].indexOf(':');
        if (colon <= 0)
            return std::nullopt;
        const QByteArray name = lines[i].left(colon).toLower();
        const QByteArray value = lines[i].mid(colon + 1).trimmed();
        if ((name == "host" && !SetOnce(request.host, value)) ||
            (name == "origin" && !SetOnce(request.origin, value)))
            return std::nullopt;
        request.isUpgrade |= name == "upgrade" && value.toLower() == "websocket";
    }
    return request;
}

int JudgeWebRequest(const WebRequest& pRequest, const WebGate& pGate)
{
    constexpr int kUpgrade = 101;
    constexpr int kGood = 200;
    constexpr int kForbidden = 403;
    constexpr int kNotFound = 404;
    constexpr int kOtherMethod = 405;
    // A name that somebody lets point here would otherwise make their page one of ours.
    if (pRequest.host.isEmpty() || !pGate.hosts.split(' ').contains(pRequest.host))
        return kForbidden;
    // Any page that is looked at on this machine can ask for a websocket; its browser says which.
    const bool isOwn = pRequest.origin == "http://" + pRequest.host;
    if (!isOwn && (pRequest.isUpgrade || !pRequest.origin.isEmpty()))
        return kForbidden;
    if (!pGate.token.isEmpty() && !AreSame(pRequest.token, pGate.token))
        return kForbidden;
    if (pRequest.path != "/")
        return kNotFound;
    if (pRequest.method != "GET")
        return kOtherMethod;
    return pRequest.isUpgrade ? kUpgrade : kGood;
}

}  // namespace shared::detail
