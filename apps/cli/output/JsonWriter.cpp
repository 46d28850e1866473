// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/output/JsonValues.h>
#include <cli/output/JsonWriter.h>
#include <cli/output/TextNumbers.h>
#include <cli/output/detail/BeatFields.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using cli::BPMValue;
using cli::Key;

/// An edge of a band, null when there is none.
QJsonValue EdgeValue(int pFrequency)
{
    return pFrequency > 0 ? QJsonValue(pFrequency) : QJsonValue();
}

/// "stopDuration" for "stop-duration".
QString KeyOf(const SettingsTable::Setting& pSetting)
{
    QString key;
    for (const QString& word : QString::fromLatin1(pSetting.pIdentifier).split(QLatin1Char('-')))
        key += key.isEmpty() ? word : word.left(1).toUpper() + word.mid(1);
    return key;
}

/// A switch is a boolean; a number that people call by a word is that word, and "none" is null.
QJsonValue ValueOf(const SettingsTable::Setting& pSetting, double pValue)
{
    if (pSetting.form == SettingsTable::eSwitch)
        return pValue != 0.0;
    if (!pSetting.pMinimumWord || pValue != pSetting.minimum)
        return pValue;
    const QString word = Key(pSetting.pMinimumWord);
    return word == Key("none") ? QJsonValue() : QJsonValue(word);
}

/// The automatic tracker heeds nothing but the range of tempos.
QJsonObject MakeAutomaticSettings(const AnalysisOptions& pOptions)
{
    const auto range = pOptions.getAutomaticRange();
    QJsonObject settings;
    settings[Key("bpmMinimal")] = range.minimal;
    settings[Key("bpmMaximal")] = range.maximal;
    return settings;
}

QJsonObject MakeSettings(const AnalysisOptions& pOptions, const Configuration& pConfiguration)
{
    const Profile profile = pConfiguration.getSelectedProfile();
    QJsonObject settings;
    settings[Key("bandLow")] = EdgeValue(profile.getFilterLowFrequency());
    settings[Key("bandHigh")] = EdgeValue(profile.getFilterHighFrequency());
    settings[Key("bpmMinimal")] = profile.getMinimalBPM();
    settings[Key("bpmMaximal")] = profile.getMaximalBPM();
    settings[Key("sensibility")] = profile.getSensibility();
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.use == SettingsTable::eAnalysis)
            settings[KeyOf(setting)] = ValueOf(setting, pOptions.getValue(setting, pConfiguration));
    return settings;
}

QJsonObject MakeTempo(const AnalysisResult& pResult, eTracker pTracker)
{
    QJsonObject tempo;
    tempo[Key("bpm")] = BPMValue(pResult.getTempo());
    tempo[Key("method")] =
        Key(pTracker == eAutomaticTracker
                ? "median of the tempos that nine beats in a row make, from ten seconds after the "
                  "first one on"
                : "median of the tempos reported with real beats, from ten seconds after the first "
                  "one on");
    return tempo;
}

QJsonObject MakeBeat(const LoggedBeat& pBeat)
{
    QJsonObject beat = cli::BeatFields(pBeat);
    beat[Key("bpm")] = BPMValue(pBeat.bpm);
    beat[Key("index")] = double(pBeat.index);
    beat[Key("time")] = cli::Rounded(pBeat.time, 6);
    return beat;
}

QJsonObject MakeSpan(const TimeSpan& pSpan)
{
    QJsonObject span;
    span[Key("end")] = cli::Rounded(pSpan.end, 6);
    span[Key("start")] = cli::Rounded(pSpan.start, 6);
    return span;
}

}  // namespace

QByteArray makeJsonDocument(const AnalysisResult& pResult,
                            const AnalysisOptions& pOptions,
                            const Configuration& pConfiguration)
{
    QJsonArray beats;
    for (const LoggedBeat& beat : pResult.beats)
        beats.append(MakeBeat(beat));
    QJsonArray silences;
    for (const TimeSpan& span : pResult.silences)
        silences.append(MakeSpan(span));

    QJsonObject root;
    root[Key("beats")] = beats;
    root[Key("duration")] = cli::Rounded(pResult.duration(), 6);
    root[Key("file")] = pResult.source;
    root[Key("sampleRate")] = pResult.sampleRate;
    if (pOptions.getTracker() == eAutomaticTracker) {
        root[Key("tracker")] = Key("automatic");
        root[Key("settings")] = MakeAutomaticSettings(pOptions);
    } else {
        root[Key("profile")] = pConfiguration.getSelectedProfile().getName();
        root[Key("settings")] = MakeSettings(pOptions, pConfiguration);
    }
    root[Key("silences")] = silences;
    root[Key("tempo")] = MakeTempo(pResult, pOptions.getTracker());
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}
