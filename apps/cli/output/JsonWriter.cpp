// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/output/JsonWriter.h>
#include <cli/output/OverallTempo.h>
#include <cli/output/TextNumbers.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString Key(const char* pName)
{
    return QString::fromLatin1(pName);
}

/// A tempo, null when unknown.
QJsonValue BPMValue(double pBPM)
{
    return pBPM > 0.0 ? QJsonValue(cli::Rounded(pBPM, 3)) : QJsonValue();
}

/// An edge of a band, null when there is none.
QJsonValue EdgeValue(int pFrequency)
{
    return pFrequency > 0 ? QJsonValue(pFrequency) : QJsonValue();
}

QJsonObject MakeSettings(const AnalysisOptions& pOptions, const Configuration& pConfiguration)
{
    const Profile profile = pConfiguration.getSelectedProfile();
    const short threshold = pConfiguration.getThreshold();
    QJsonObject settings;
    settings[Key("averageDuration")] = pConfiguration.getAverageVolumeCalculationDuration();
    settings[Key("bandLow")] = EdgeValue(profile.getFilterLowFrequency());
    settings[Key("bandHigh")] = EdgeValue(profile.getFilterHighFrequency());
    settings[Key("bpmDuration")] = pConfiguration.getBPMCalculationDuration();
    settings[Key("bpmMinimal")] = profile.getMinimalBPM();
    settings[Key("bpmMaximal")] = profile.getMaximalBPM();
    settings[Key("consistency")] = pOptions.isConsistencyAllowed;
    settings[Key("fixedBpm")] = BPMValue(pOptions.fixedBPM);
    settings[Key("sensibility")] = profile.getSensibility();
    settings[Key("stopDuration")] = pConfiguration.getStopDetectionDuration();
    settings[Key("stopThreshold")] = pConfiguration.getStopDetectionThreshold();
    settings[Key("threshold")] = threshold < 0 ? QJsonValue(Key("auto")) : QJsonValue(threshold);
    settings[Key("virtualWhenStopped")] = pConfiguration.getDisplayVirtualBeatsWhenStopped();
    return settings;
}

QJsonObject MakeTempo(const AnalysisResult& pResult)
{
    QJsonObject tempo;
    tempo[Key("bpm")] = BPMValue(cli::OverallTempo(pResult.beats));
    tempo[Key("method")] = Key(
        "median of the tempos reported with real beats, from ten seconds after the first beat on");
    return tempo;
}

QJsonObject MakeBeat(const LoggedBeat& pBeat)
{
    QJsonObject beat;
    beat[Key("accuracy")] = cli::Rounded(pBeat.accuracy, 6);
    beat[Key("bpm")] = BPMValue(pBeat.bpm);
    beat[Key("index")] = double(pBeat.index);
    beat[Key("loudness")] = pBeat.loudness;
    beat[Key("time")] = cli::Rounded(pBeat.time, 6);
    beat[Key("virtual")] = pBeat.isVirtual;
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
    root[Key("profile")] = pConfiguration.getSelectedProfile().getName();
    root[Key("sampleRate")] = pResult.sampleRate;
    root[Key("settings")] = MakeSettings(pOptions, pConfiguration);
    root[Key("silences")] = silences;
    root[Key("tempo")] = MakeTempo(pResult);
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}
