// SPDX-License-Identifier: MIT
#include <shared/outputs/HostPort.h>
#include <shared/outputs/kinds/detail/Kinds.h>
#include <shared/outputs/osc/OscReceiver.h>
#include <shared/text/Text.h>

#include <utility>

namespace shared {

namespace {

const OscPreset* FindPreset(const QString& pName)
{
    for (const OscPreset& preset : OscTemplate::getPresets())
        if (pName.compare(QLatin1String(preset.name), Qt::CaseInsensitive) == 0)
            return &preset;
    return nullptr;
}

QString DescribeOsc()
{
    return tr("send beats as Open Sound Control");
}

QStringList ListOscPresets()
{
    QStringList names;
    for (const OscPreset& preset : OscTemplate::getPresets())
        names.append(QLatin1String(preset.name));
    return names;
}

QString DescribeOscPresets()
{
    return tr("PRESET is one of %1,\nor messages of your own")
        .arg(ListOscPresets().join(QLatin1String(", ")));
}

std::unique_ptr<OutputReceiver>
MakeOsc(const QString& pAddress, const QString& pPreset, QString& pReason)
{
    const QString preset = pPreset.isEmpty() ? QStringLiteral("plain") : pPreset;
    const auto messages = OscTemplate::Parse(preset, pReason);
    if (!messages)
        return nullptr;
    const bool isTCP = pAddress.startsWith(QLatin1String("tcp:"));
    const OscPreset* pKnown = FindPreset(preset.section(QLatin1Char(';'), 0, 0).trimmed());
    const auto place =
        HostPort::Parse(isTCP ? pAddress.mid(4) : pAddress, pKnown ? pKnown->port : 0);
    if (!place) {
        pReason = tr("\"%1\": give HOST:PORT[/PRESET], or tcp:HOST:PORT[/PRESET]").arg(pAddress);
        return nullptr;
    }
    return std::make_unique<OscReceiver>(
        place->host, place->port, isTCP, *messages, pKnown ? preset : tr("messages of your own"));
}

QString DescribeOscTest(const QString& pPreset)
{
    const std::pair<const char*, QString> seen[] = {
        {"resolume", tr("Resolume's tempo goes to 120 BPM, and its beat to the one twice")},
        {"chromatik", tr("Chromatik's tempo goes to 120 BPM, and its beat counts 1 2 3 4 twice")},
        {"grandma3", tr("the fader of executor 201 goes to 70.7 %, which is 120 BPM")},
        {"wled", tr("the tempo shown goes to 120 BPM")},
        {"touchdesigner",
         tr("an OSC In CHOP gets the channels bpm, beat, count, bar, confidence, "
            "phase and playing")},
        {"qlcplus",
         tr("the OSC signal blinks in QLC+'s input tab, and a button that learned /beat "
            "goes on and off eight times")}};
    for (const auto& [name, words] : seen)
        if (pPreset.compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            return words;
    if (pPreset.isEmpty() || pPreset.compare(QLatin1String("plain"), Qt::CaseInsensitive) == 0)
        return tr("the receiver gets /playing 1, eight times /beat, twice /tempo and /bar, and "
                  "/playing 0");
    return tr("the receiver gets your messages for eight beats and two bars");
}

}  // namespace

OutputKind detail::oscKind()
{
    return {"osc",
            "HOST:PORT[/PRESET]",
            true,
            OutputKind::eAtFirstSlash,
            &MakeOsc,
            &DescribeOsc,
            &DescribeOscPresets,
            &ListOscPresets,
            &DescribeOscTest,
            nullptr};
}

}  // namespace shared
