// SPDX-License-Identifier: MIT
#include <shared/outputs/kinds/detail/Kinds.h>
#include <shared/outputs/os2l/Os2lReceiver.h>
#include <shared/text/Text.h>

namespace shared {

namespace {

std::unique_ptr<OutputReceiver> MakeOs2l(const QString& pAddress, const QString&, QString& pReason)
{
    if (pAddress.isEmpty())
        return std::make_unique<Os2lReceiver>(std::nullopt);
    const auto address = Os2lReceiver::AddressOf(pAddress);
    if (address)
        return std::make_unique<Os2lReceiver>(address);
    pReason = tr("\"%1\": give HOST or HOST:PORT, or nothing for all in the net").arg(pAddress);
    return nullptr;
}

QString DescribeOs2l()
{
    return tr("send beats to light programs by OS2L; to all of them without HOST");
}

QString DescribeOs2lTest(const QString&)
{
    return tr("the light program gets eight beats; what it has learned from the OS2L beat switches "
              "on each, half a second apart");
}

QStringList FindOs2l()
{
    constexpr int kPatienceMs = 2000;
    Os2lBrowser browser;
    QStringList places;
    if (!browser.Open())
        return places;
    browser.Proceed(kPatienceMs);
    for (const Os2lAddress& found : browser.getFound())
        places.append(QStringLiteral("%1:%2  %3")
                          .arg(QString::fromUtf8(found.host))
                          .arg(found.port)
                          .arg(found.name));
    return places;
}

}  // namespace

OutputKind detail::os2lKind()
{
    return {"os2l",
            "HOST:PORT",
            false,
            OutputKind::eAtNoSlash,
            &MakeOs2l,
            &DescribeOs2l,
            nullptr,
            nullptr,
            &DescribeOs2lTest,
            &FindOs2l};
}

}  // namespace shared
