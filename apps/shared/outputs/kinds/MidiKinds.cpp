// SPDX-License-Identifier: MIT
#include <shared/outputs/kinds/detail/Kinds.h>
#include <shared/outputs/midi/MidiClock.h>
#include <shared/outputs/midi/MidiNotes.h>
#include <shared/outputs/midi/MidiPorts.h>
#include <shared/text/Text.h>

#include <utility>

namespace shared {

namespace {

const QString kAlways = QStringLiteral("always");

std::unique_ptr<OutputReceiver>
MakeClock(const QString& pAddress, const QString& pPreset, QString& pReason)
{
    const bool isAlways = pPreset.compare(kAlways, Qt::CaseInsensitive) == 0;
    if (isAlways || pPreset.isEmpty())
        return std::make_unique<MidiClock>(MakeMidiPort(pAddress), isAlways);
    pReason = tr("\"%1\": give %2, or nothing").arg(pPreset, kAlways);
    return nullptr;
}

struct NoteField
{
    const char* name;
    int MidiNoteSettings::*pValue;
    int least;
    int greatest;
    bool mayBeNone;
};

bool ReadNoteField(const NoteField& pField, const QString& pText, MidiNoteSettings& pSettings)
{
    bool isNumber = false;
    const int value = pText.toInt(&isNumber);
    const bool isNone = pField.mayBeNone && pText == QLatin1String("none");
    pSettings.*pField.pValue = isNone ? int(MidiNoteSettings::kNone) : value;
    return isNone || (isNumber && value >= pField.least && value <= pField.greatest);
}

/// "beat 36, bar none, channel 1".
bool ReadNotes(const QString& pPreset, MidiNoteSettings& pSettings)
{
    const NoteField fields[] = {{"channel", &MidiNoteSettings::channel, 1, 16, false},
                                {"beat", &MidiNoteSettings::beatNote, 0, 127, true},
                                {"bar", &MidiNoteSettings::barNote, 0, 127, true},
                                {"velocity", &MidiNoteSettings::velocity, 1, 127, false},
                                {"length", &MidiNoteSettings::length, 1, 24, false}};
    const auto items = pPreset.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& item : items) {
        const QStringList words = item.simplified().toLower().split(QLatin1Char(' '));
        bool isRead = false;
        for (const NoteField& field : fields)
            if (words.size() == 2 && words[0] == QLatin1String(field.name))
                isRead = ReadNoteField(field, words[1], pSettings);
        if (!isRead)
            return false;
    }
    return true;
}

std::unique_ptr<OutputReceiver>
MakeNotes(const QString& pAddress, const QString& pPreset, QString& pReason)
{
    MidiNoteSettings settings;
    if (ReadNotes(pPreset, settings))
        return std::make_unique<MidiNotes>(MakeMidiPort(pAddress, kMidiNotesPort), settings);
    pReason =
        tr("\"%1\": give some of beat 0 to 127 or none, bar 0 to 127 or none, channel 1 to 16, "
           "velocity 1 to 127, length 1 to 24, with commas between them")
            .arg(pPreset);
    return nullptr;
}

QString DescribeClock()
{
    return tr("send MIDI clock; without PORT at a port of its own");
}

QString DescribeClockPresets()
{
    return tr("with always the clock also ticks while the music stands");
}

QStringList ListClockPresets()
{
    return {kAlways};
}

QString DescribeClockTest(const QString&)
{
    return tr("the instrument starts, plays two bars, shows 120 BPM and stops");
}

QString DescribeNotes()
{
    return tr("play notes on beats and bars; without PORT at a port of its own");
}

QString DescribeNotesPresets()
{
    return tr("NOTES like \"beat 36, bar 38, channel 10, velocity 100, length 6\";\n"
              "none for no note, length in 24ths of a beat");
}

QString DescribeNotesTest(const QString&)
{
    return tr("eight notes, half a second apart, and another one with the first and the fifth");
}

}  // namespace

OutputKind detail::midiClockKind()
{
    return {"midi-clock",
            "PORT[/always]",
            false,
            OutputKind::eAtLastSlash,
            &MakeClock,
            &DescribeClock,
            &DescribeClockPresets,
            &ListClockPresets,
            &DescribeClockTest,
            &ListMidiPorts};
}

OutputKind detail::midiNotesKind()
{
    return {"midi-notes",
            "PORT[/NOTES]",
            false,
            OutputKind::eAtLastSlash,
            &MakeNotes,
            &DescribeNotes,
            &DescribeNotesPresets,
            nullptr,
            &DescribeNotesTest,
            nullptr};
}

}  // namespace shared
