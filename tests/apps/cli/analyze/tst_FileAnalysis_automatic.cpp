// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/audio/AudioDownmix.h>

#include "FileAnalysisTest.h"
#include <cli/analyze/FileAnalysis.h>

#include <QtTest>

#include <algorithm>
#include <apps/shared/files/TestAudio.h>
#include <cmath>
#include <support/SettingOf.h>
#include <support/TestClass.h>

/// What the automatic tracker tells of a file.
class tst_FileAnalysis_automatic : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void automatic_tellsTheTrackersBeats();
    void automatic_takesTempoRangeAndPulsesFromWhereTheyBelong();
    void lookAhead_tellsTheDecodersBeats();
    void beliefs_areThoseOfTheAutomaticTracker();
};

// The file is read in blocks, which the beats do not show.
void tst_FileAnalysis_automatic::automatic_tellsTheTrackersBeats()
{
    const std::vector<float> music = testaudio::Kicks(22050, 120, 8.0);
    std::vector<qint16> samples(music.size());
    AudioDownmix::ToMono(music.data(), 1, music.size(), samples.data());
    MeterTracker tracker(22050);
    std::vector<MeterTracker::Beat> beats;
    QObject::connect(&tracker, &MeterTracker::OnBeatForeseen, [&](const MeterTracker::Beat& pBeat) {
        if (pBeat.index < samples.size())
            beats.push_back(pBeat);
    });
    tracker.Push(samples.data(), samples.size());
    AnalysisOptions options;
    options.tracker = eAutomaticTracker;
    const AnalysisResult result = Analyze(music, 22050, options);
    QVERIFY(beats.size() > 5);
    QCOMPARE(result.beats.size(), beats.size());
    for (std::size_t i = 0; i < beats.size(); ++i) {
        QCOMPARE(result.beats[i].index, beats[i].index);
        QCOMPARE(result.beats[i].beatInBar, beats[i].beatInBar);
        QCOMPARE(result.beats[i].confidence, beats[i].confidence);
    }
    // The tempo is that of the beats, which lie within 10 ms of 4 s for eight of them.
    QVERIFY2(std::abs(result.getTempo() - 120.0) < 0.6,
             qPrintable(QString::number(result.getTempo())));
}

void tst_FileAnalysis_automatic::automatic_takesTempoRangeAndPulsesFromWhereTheyBelong()
{
    const std::vector<float> music = testaudio::Kicks(22050, 120, 8.0);
    AnalysisOptions options;
    options.tracker = eAutomaticTracker;
    options.bpm = AnalysisOptions::TempoRange{50.0, 80.0};
    const AnalysisResult result = Analyze(music, 22050, options);
    QVERIFY(!result.beats.empty());
    for (const LoggedBeat& beat : result.beats)
        QVERIFY2(beat.bpm >= 59.0 && beat.bpm <= 81.5, qPrintable(QString::number(beat.bpm)));
    options.tracker = eProfileTracker;
    QVERIFY(result.pulseTimes == Analyze(music, 22050, options).pulseTimes);
    QVERIFY(!result.pulseTimes.empty());
}

void tst_FileAnalysis_automatic::lookAhead_tellsTheDecodersBeats()
{
    std::vector<float> music = testaudio::Kicks(22050, 120, 8.0, 11.0);
    std::vector<qint16> samples(music.size());
    AudioDownmix::ToMono(music.data(), 1, music.size(), samples.data());
    MeterDecoder decoder(22050);
    decoder.Push(samples.data(), samples.size());
    const MeterDecoder::Decoding decoding = decoder.Decode();
    MemorySource source(22050, music);
    FileAnalysis analysis({}, source, true);
    QVERIFY(analysis.Run([](const float*, std::size_t) { return true; }));
    const AnalysisResult& result = analysis.getLog().getResult();
    QVERIFY(decoding.beats.size() > 5);
    QCOMPARE(result.beats.size(), decoding.beats.size());
    for (std::size_t i = 0; i < result.beats.size(); ++i) {
        QCOMPARE(result.beats[i].index, decoding.beats[i].index);
        QCOMPARE(result.beats[i].beatInBar, decoding.beats[i].beatInBar);
    }
    QCOMPARE(result.silences.back().end, 19.0);  // 8 s of music and 11 s of silence
    QVERIFY(!result.pulseTimes.empty());
    QVERIFY(!analysis.getBeliefs().getColumns().empty());
}

void tst_FileAnalysis_automatic::beliefs_areThoseOfTheAutomaticTracker()
{
    const std::vector<float> music = testaudio::Kicks(22050, 120, 8.0);
    for (const eTracker tracker : {eAutomaticTracker, eProfileTracker}) {
        MemorySource source(22050, music);
        AnalysisOptions options;
        options.tracker = tracker;
        FileAnalysis analysis(options, source);
        QVERIFY(analysis.Run([](const float*, std::size_t) { return true; }));
        const auto& columns = analysis.getBeliefs().getColumns();
        if (tracker == eProfileTracker) {
            QVERIFY(columns.empty());
            continue;
        }
        QVERIFY(columns.size() > 100);
        const auto& beliefs = columns.back().beliefs;
        const auto best = std::max_element(beliefs.begin(), beliefs.end()) - beliefs.begin();
        const double tempo = analysis.getBeliefs().getTempi()[std::size_t(best)];
        QVERIFY2(std::abs(tempo / 120.0 - 1.0) < 0.02, qPrintable(QString::number(tempo)));
    }
}

AA_TEST(tst_FileAnalysis_automatic, QCoreApplication)
#include "tst_FileAnalysis_automatic.moc"
