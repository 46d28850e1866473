// SPDX-License-Identifier: MIT
#include <shared/web/detail/WebMessages.h>
#include <shared/web/detail/WebRequest.h>

#include <QJsonDocument>

#include <cstddef>
#include <cstdint>

// Fuzz target of what browsers send: any bytes are a wish of the page, or nothing; and a request
// that is let in has all that it needs.

namespace {

void require(bool pIsGood, const char* pWhat)
{
    if (!pIsGood)
        qFatal("%s", pWhat);
}

void checkWish(const shared::detail::WebWish& pWish, const QString& pText)
{
    if (pWish.kind == shared::detail::WebWish::eAction) {
        const shared::HandAction& action = pWish.action;
        require(action.name.isEmpty(), "an action brings a text");
        require(action.amount >= -500.0 && action.amount <= 500.0, "an amount is out of range");
        require(shared::HandAction::Parse(action.getText()).has_value(), "it is no action");
        return;
    }
    require(pText.endsWith(pWish.name), "a name is not as it was sent");
    // Any name may be told back, in JSON.
    const QByteArray told = shared::detail::describeWebChoices(
        {{pWish.name}, pWish.name, {{pWish.name, pWish.name, true}}, pWish.name});
    require(QJsonDocument::fromJson(told).isObject(), "what is told is no JSON");
    require(!told.contains('\n'), "what is told has several lines");
}

void checkRequest(const shared::detail::WebRequest& pRequest)
{
    require(pRequest.host.size() + pRequest.origin.size() <= shared::detail::kLongestHead,
            "more was read than may be sent");
    const shared::detail::WebGate gate = {"127.0.0.1:80 localhost:80", "abc"};
    const int status = JudgeWebRequest(pRequest, gate);
    if (status >= 400)
        return;
    require(status == (pRequest.isUpgrade ? 101 : 200), "it is let in as something else");
    require(pRequest.token == "abc", "it is let in without the token");
    require(pRequest.host == "127.0.0.1:80" || pRequest.host == "localhost:80",
            "it is let in from another host");
    require((!pRequest.isUpgrade && pRequest.origin.isEmpty()) ||
                pRequest.origin == "http://" + pRequest.host,
            "it is let in from another page");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QString text = QString::fromUtf8(bytes);
    const auto wish = shared::detail::ReadWebMessage(text);
    if (wish)
        checkWish(*wish, text);
    const auto request = shared::detail::ReadWebRequest(bytes);
    if (request)
        checkRequest(*request);
    return 0;
}
