// SPDX-License-Identifier: MIT
#include <shared/outputs/HostPort.h>
#include <shared/outputs/kinds/detail/Kinds.h>
#include <shared/outputs/wled/WledReceiver.h>
#include <shared/text/Text.h>

namespace shared {

namespace {

std::unique_ptr<OutputReceiver> MakeWled(const QString& pAddress, const QString&, QString& pReason)
{
    if (pAddress.isEmpty())
        return std::make_unique<WledReceiver>();
    const auto place = HostPort::Parse(pAddress, WledReceiver::kPort);
    if (place)
        return std::make_unique<WledReceiver>(place->host.toUtf8(), std::uint16_t(place->port));
    pReason = tr("\"%1\": give HOST or HOST:PORT, or nothing for all in the net").arg(pAddress);
    return nullptr;
}

QString DescribeWled()
{
    return tr("send sound and beats to WLED; without HOST to all in the net");
}

QString DescribeWledTest(const QString&)
{
    return tr("with an effect that shows peaks, Ripple Peak for one, the LEDs answer eight times; "
              "there is no sound in the test");
}

}  // namespace

OutputKind detail::wledKind()
{
    return {"wled",
            "HOST:PORT",
            false,
            OutputKind::eAtNoSlash,
            &MakeWled,
            &DescribeWled,
            nullptr,
            nullptr,
            &DescribeWledTest,
            nullptr};
}

}  // namespace shared
