// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/api/detail/AnalysisHandle.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include "AnalysisSettingsTest.h"
#include "PushedAnalysis.h"

#include <QtTest>

#include <limits>
#include <support/Numbers.h>
#include <support/TestClass.h>

/// Profiles through the C interface, and the one tempo of a recording.
class tst_Analysis_profiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fixedTempo_isHeldWithinTheProfile();
    void builtInProfiles_areListed();
    void builtInProfile_isFound_data();
    void builtInProfile_isFound();
    void profile_isSelected_inAnyCase();
    void profile_isTakenOrRefusedAsAWhole_data();
    void profile_isTakenOrRefusedAsAWhole();
    void profile_staysWithItsAnalysis();
    void profile_changesWhatIsHeard();
    void recordingTempo_isThatOfItsBeats();
    void recordingTempo_refusesNull();
};

// "Electro" reaches to 175 BPM, "Hardcore" from 130 to 250.
void tst_Analysis_profiles::fixedTempo_isHeldWithinTheProfile()
{
    PushedAnalysis analysis;
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_FixedBPM, 300.0);
    QCOMPARE(AudioAnalysis_GetBPM(analysis), 175.0);
    AudioAnalysis_SelectProfile(analysis, "Hardcore");
    QCOMPARE(AudioAnalysis_GetBPM(analysis), 250.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_FixedBPM, 1.0);
    QCOMPARE(AudioAnalysis_GetBPM(analysis), 130.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_FixedBPM, 0.0);
    QCOMPARE(AudioAnalysis_GetBPM(analysis), 0.0);
}

void tst_Analysis_profiles::builtInProfiles_areListed()
{
    QStringList names;
    for (std::size_t i = 0; AudioAnalysis_GetProfileName(i); ++i)
        names << QString::fromUtf8(AudioAnalysis_GetProfileName(i));
    QCOMPARE(names,
             (QStringList{
                 QStringLiteral("Electro"), QStringLiteral("Hardcore"), QStringLiteral("Slow")}));
}

void tst_Analysis_profiles::builtInProfile_isFound_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<AudioAnalysisProfile>("expected");
    QTest::newRow("Electro") << QByteArray("Electro")
                             << AudioAnalysisProfile{90.0, 175.0, 2.0, -1, 75, 32000};
    QTest::newRow("Hardcore") << QByteArray("HARDCORE")
                              << AudioAnalysisProfile{130.0, 250.0, 2.0, -1, 75, 32000};
    QTest::newRow("Slow") << QByteArray("slow")
                          << AudioAnalysisProfile{70.0, 135.0, 1.5, -1, 150, 32000};
}

void tst_Analysis_profiles::builtInProfile_isFound()
{
    QFETCH(QByteArray, name);
    QFETCH(AudioAnalysisProfile, expected);
    AudioAnalysisProfile profile = AnyProfile();
    QCOMPARE(AudioAnalysis_FindProfile(name.constData(), &profile), AudioAnalysisError_None);
    QVERIFY(profile == expected);
}

void tst_Analysis_profiles::profile_isSelected_inAnyCase()
{
    PushedAnalysis analysis;
    AudioAnalysisProfile profile = AnyProfile();
    QCOMPARE(AudioAnalysis_GetProfile(analysis, &profile), AudioAnalysisError_None);
    QCOMPARE(profile.maximalBPM, 175.0);
    QCOMPARE(AudioAnalysis_SelectProfile(analysis, "sLoW"), AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_GetProfile(analysis, &profile), AudioAnalysisError_None);
    QVERIFY((profile == AudioAnalysisProfile{70.0, 135.0, 1.5, -1, 150, 32000}));
    QCOMPARE(AudioAnalysis_SelectProfile(analysis, "Slow "), AudioAnalysisError_Unknown);
    QCOMPARE(AudioAnalysis_GetErrorText(analysis),
             "there is no profile \"Slow \"; there are Electro Hardcore Slow");
}

void tst_Analysis_profiles::profile_isTakenOrRefusedAsAWhole_data()
{
    QTest::addColumn<AudioAnalysisProfile>("profile");
    QTest::addColumn<bool>("isTaken");
    const auto row = [](const char* pName, const AudioAnalysisProfile& pProfile, bool pIsTaken) {
        QTest::newRow(pName) << pProfile << pIsTaken;
    };
    row("usual", {60.0, 180.0, 1.25, 40, 200, 20000}, true);
    row("one tempo", {120.0, 120.0, 1.0, -1, -1, 0}, true);
    row("widest", {1.0, 999.999, 1000.0, 1, 2147483647, 32767}, true);
    row("one frequency", {60.0, 180.0, 0.0, 100, 100, 1}, true);
    row("lower edge alone", {60.0, 180.0, 1.0, 100, -1, 100}, true);
    row("lower edge, and 0 for none", {60.0, 180.0, 1.0, 100, 0, 100}, true);
    row("tempo below 1", {0.99, 180.0, 1.0, -1, -1, 0}, false);
    row("tempo of 1000", {60.0, 1000.0, 1.0, -1, -1, 0}, false);
    row("tempos reversed", {121.0, 120.0, 1.0, -1, -1, 0}, false);
    row("no lower tempo", {kNaN, 180.0, 1.0, -1, -1, 0}, false);
    row("no upper tempo", {60.0, kNaN, 1.0, -1, -1, 0}, false);
    row("endless tempo", {60.0, kInfinity, 1.0, -1, -1, 0}, false);
    row("negative sensibility", {60.0, 180.0, -0.01, -1, -1, 0}, false);
    row("great sensibility", {60.0, 180.0, 1000.1, -1, -1, 0}, false);
    row("no sensibility", {60.0, 180.0, kNaN, -1, -1, 0}, false);
    row("edges reversed", {60.0, 180.0, 1.0, 201, 200, 0}, false);
    row("negative threshold", {60.0, 180.0, 1.0, -1, -1, -1}, false);
    row("great threshold", {60.0, 180.0, 1.0, -1, -1, 32768}, false);
}

void tst_Analysis_profiles::profile_isTakenOrRefusedAsAWhole()
{
    QFETCH(AudioAnalysisProfile, profile);
    QFETCH(bool, isTaken);
    PushedAnalysis analysis;
    const AudioAnalysisProfile before = AnyProfile();
    QCOMPARE(AudioAnalysis_SetProfile(analysis, &before), AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_SetProfile(analysis, &profile),
             isTaken ? AudioAnalysisError_None : AudioAnalysisError_Range);
    AudioAnalysisProfile after = {};
    QCOMPARE(AudioAnalysis_GetProfile(analysis, &after), AudioAnalysisError_None);
    if (profile.highFrequency == 0)
        profile.highFrequency = -1;
    QVERIFY(after == (isTaken ? profile : before));
}

// Neither other analyses nor the built-in profiles of C++ hosts notice.
void tst_Analysis_profiles::profile_staysWithItsAnalysis()
{
    PushedAnalysis first;
    PushedAnalysis second;
    const AudioAnalysisProfile profile = AnyProfile();
    AudioAnalysis_SetProfile(first, &profile);
    AudioAnalysisProfile others = {};
    AudioAnalysis_GetProfile(second, &others);
    QCOMPARE(others.minimalBPM, 90.0);
    QCOMPARE(PredefinedProfile::getList().first().getMinimalBPM(), 90.0);
    PushedAnalysis third;
    AudioAnalysis_GetProfile(third, &others);
    QCOMPARE(others.minimalBPM, 90.0);
}

// 55 Hz kicks are in the band below 75 Hz, not in one from 2000 Hz on.
void tst_Analysis_profiles::profile_changesWhatIsHeard()
{
    const waves::Samples music = waves::kickTrack(8.0, 44100, 125.0);
    PushedAnalysis low;
    low.push(music);
    PushedAnalysis high;
    const AudioAnalysisProfile profile = {90.0, 175.0, 2.0, 2000, -1, 32000};
    AudioAnalysis_SetProfile(high, &profile);
    AudioAnalysis_Set(high, AudioAnalysisSetting_Threshold, 2000.0);
    high.push(music);
    QVERIFY(low.getEvents("pulse").size() > 10);
    QCOMPARE(high.getEvents("pulse").size(), 0);
}

// Ten seconds behind the first real beat, at 11 s, one real beat follows.
void tst_Analysis_profiles::recordingTempo_isThatOfItsBeats()
{
    const double times[] = {0.5, 1.0, 1.5, 11.0, 11.5};
    const double tempos[] = {90.0, 130.0, 131.0, 140.17, 150.57};
    const int32_t marks[] = {1, 0, 0, 0, 1};
    double bpm = -1.0;
    QCOMPARE(AudioAnalysis_ComputeRecordingTempo(times, tempos, marks, 5, &bpm),
             AudioAnalysisError_None);
    QCOMPARE(bpm, 140.17);
    QCOMPARE(AudioAnalysis_ComputeRecordingTempo(times, tempos, marks, 3, &bpm),
             AudioAnalysisError_None);
    QCOMPARE(bpm, 130.0);
    QCOMPARE(AudioAnalysis_ComputeRecordingTempo(times, tempos, marks, 1, &bpm),
             AudioAnalysisError_None);
    QCOMPARE(bpm, 90.0);
    QCOMPARE(AudioAnalysis_ComputeRecordingTempo(nullptr, nullptr, nullptr, 0, &bpm),
             AudioAnalysisError_None);
    QCOMPARE(bpm, 0.0);
}

void tst_Analysis_profiles::recordingTempo_refusesNull()
{
    const double numbers[] = {1.0};
    const int32_t marks[] = {0};
    double bpm = -1.0;
    const auto compute = &AudioAnalysis_ComputeRecordingTempo;
    QCOMPARE(compute(nullptr, numbers, marks, 1, &bpm), AudioAnalysisError_Null);
    QCOMPARE(compute(numbers, nullptr, marks, 1, &bpm), AudioAnalysisError_Null);
    QCOMPARE(compute(numbers, numbers, nullptr, 1, &bpm), AudioAnalysisError_Null);
    QCOMPARE(compute(numbers, numbers, marks, 1, nullptr), AudioAnalysisError_Null);
    QCOMPARE(bpm, -1.0);
}

AA_TEST(tst_Analysis_profiles, QCoreApplication)
#include "tst_Analysis_profiles.moc"
