// SPDX-License-Identifier: MIT
#include <shared/outputs/kinds/OutputKinds.h>
#include <shared/outputs/kinds/detail/Kinds.h>
#include <shared/text/Text.h>

namespace shared {

namespace {

QStringList NamesOfKinds()
{
    QStringList names;
    for (const OutputKind& kind : getOutputKinds())
        names.append(QLatin1String(kind.name));
    return names;
}

}  // namespace

const std::vector<OutputKind>& getOutputKinds()
{
    static const std::vector<OutputKind> kinds = {detail::oscKind(),
                                                  detail::os2lKind(),
                                                  detail::midiClockKind(),
                                                  detail::midiNotesKind(),
                                                  detail::wledKind()};
    return kinds;
}

const OutputKind* findOutputKind(const QString& pName)
{
    for (const OutputKind& kind : getOutputKinds())
        if (pName.compare(QLatin1String(kind.name), Qt::CaseInsensitive) == 0)
            return &kind;
    return nullptr;
}

std::unique_ptr<OutputReceiver> makeReceiver(const QString& pKind,
                                             const QString& pAddress,
                                             const QString& pPreset,
                                             QString& pReason)
{
    const OutputKind* pFound = findOutputKind(pKind);
    if (pFound && (!pAddress.isEmpty() || !pFound->needsAddress))
        return pFound->make(pAddress, pPreset, pReason);
    pReason = pFound ? tr("%1: give its address").arg(QLatin1String(pFound->name))
                     : tr("there is no kind of output \"%1\"; there are: %2")
                           .arg(pKind, NamesOfKinds().join(QStringLiteral(", ")));
    return nullptr;
}

QString findOutputFault(const StoredOutput& pOutput)
{
    QString reason;
    makeReceiver(pOutput.kind, pOutput.address, pOutput.preset, reason);
    return reason;
}

QString addOutput(Outputs& pOutputs, const StoredOutput& pOutput)
{
    QString reason;
    auto pReceiver = makeReceiver(pOutput.kind, pOutput.address, pOutput.preset, reason);
    if (!pReceiver)
        return QStringLiteral("%1: %2").arg(pOutput.name, reason);
    pOutputs.Add(pOutput.name, std::move(pReceiver), pOutput.offset);
    return {};
}

void readOutputPlace(const QString& pText, StoredOutput& pOutput)
{
    const OutputKind* pKind = findOutputKind(pOutput.kind);
    const OutputKind::eDivision division = pKind ? pKind->division : OutputKind::eAtNoSlash;
    const QLatin1Char mark('/');
    const int slash = division == OutputKind::eAtFirstSlash  ? pText.indexOf(mark)
                      : division == OutputKind::eAtLastSlash ? pText.lastIndexOf(mark)
                                                             : -1;
    pOutput.address = pText.left(slash).trimmed();
    pOutput.preset = slash < 0 ? QString() : pText.mid(slash + 1).trimmed();
}

QString describeOutputPlace(const StoredOutput& pOutput)
{
    return pOutput.preset.isEmpty() ? pOutput.address
                                    : pOutput.address + QLatin1Char('/') + pOutput.preset;
}

}  // namespace shared
