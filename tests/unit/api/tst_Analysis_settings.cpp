// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/api/detail/AnalysisHandle.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include "PushedAnalysis.h"

#include <QtTest>

#include <limits>
#include <support/Numbers.h>
#include <support/TestClass.h>

namespace {

AudioAnalysisProfile AnyProfile()
{
    return {60.0, 180.0, 1.25, 40, 200, 20000};
}

bool operator==(const AudioAnalysisProfile& pLeft, const AudioAnalysisProfile& pRight)
{
    return pLeft.minimalBPM == pRight.minimalBPM && pLeft.maximalBPM == pRight.maximalBPM &&
           pLeft.sensibility == pRight.sensibility && pLeft.lowFrequency == pRight.lowFrequency &&
           pLeft.highFrequency == pRight.highFrequency &&
           pLeft.maximalThreshold == pRight.maximalThreshold;
}

}  // namespace

Q_DECLARE_METATYPE(AudioAnalysisProfile)

/// Settings and profiles of the push interface.
class tst_Analysis_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settings_areThoseOfTheTable();
    void setting_hasLimitsAndADefault_data();
    void setting_hasLimitsAndADefault();
    void switchesAndMagnitudes_areWhole_data();
    void switchesAndMagnitudes_areWhole();
    void settings_reachTheAnalyzer();
    void settings_outliveRestart();
    void threshold_isTheOneInForce();
    void fixedTempo_isHeldWithinTheProfile();
    void fixedTempo_isReported();
    void virtualBeats_goOn_whenStopped();
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

void tst_Analysis_settings::settings_areThoseOfTheTable()
{
    int number = 0;
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings()) {
        if (setting.use != SettingsTable::eAnalysis)
            continue;
        QCOMPARE(AudioAnalysis_GetSettingName(number), setting.pIdentifier);
        double limits[3] = {};
        QCOMPARE(AudioAnalysis_GetLimits(number, &limits[0], &limits[1], &limits[2]),
                 AudioAnalysisError_None);
        QCOMPARE(limits[0], setting.minimum);
        QCOMPARE(limits[1], setting.maximum);
        QCOMPARE(limits[2], setting.initial);
        ++number;
    }
    QCOMPARE(number, int(AudioAnalysisSetting_VirtualWhenStopped) + 1);
    for (const int unknown : {-1, number, std::numeric_limits<int>::max()}) {
        QVERIFY(!AudioAnalysis_GetSettingName(unknown));
        QCOMPARE(AudioAnalysis_GetLimits(unknown, nullptr, nullptr, nullptr),
                 AudioAnalysisError_Unknown);
    }
    QCOMPARE(AudioAnalysis_GetSettingName(AudioAnalysisSetting_StopDuration), "stop-duration");
    QCOMPARE(AudioAnalysis_GetSettingName(AudioAnalysisSetting_Consistency), "consistency");
}

void tst_Analysis_settings::setting_hasLimitsAndADefault_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("initial");
    QTest::newRow("threshold") << int(AudioAnalysisSetting_Threshold) << -1.0 << 32767.0 << -1.0;
    QTest::newRow("stop threshold")
        << int(AudioAnalysisSetting_StopThreshold) << 0.0 << 32767.0 << 3276.0;
    QTest::newRow("stop duration") << int(AudioAnalysisSetting_StopDuration) << 0.05 << 10.0 << 1.5;
    QTest::newRow("average duration")
        << int(AudioAnalysisSetting_AverageDuration) << 0.05 << 60.0 << 2.0;
    QTest::newRow("BPM duration") << int(AudioAnalysisSetting_BPMDuration) << 0.05 << 600.0 << 10.0;
    QTest::newRow("fixed tempo") << int(AudioAnalysisSetting_FixedBPM) << 0.0 << 999.0 << 0.0;
    QTest::newRow("consistency") << int(AudioAnalysisSetting_Consistency) << 0.0 << 1.0 << 1.0;
    QTest::newRow("virtual beats")
        << int(AudioAnalysisSetting_VirtualWhenStopped) << 0.0 << 1.0 << 0.0;
}

void tst_Analysis_settings::setting_hasLimitsAndADefault()
{
    QFETCH(int, setting);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, initial);
    double limits[3] = {};
    QCOMPARE(AudioAnalysis_GetLimits(setting, &limits[0], &limits[1], &limits[2]),
             AudioAnalysisError_None);
    QCOMPARE(limits[0], minimum);
    QCOMPARE(limits[1], maximum);
    QCOMPARE(limits[2], initial);

    PushedAnalysis analysis;
    double value = -100.0;
    QCOMPARE(AudioAnalysis_Get(analysis, setting, &value), AudioAnalysisError_None);
    QCOMPARE(value, initial);
    for (const double taken : {minimum, maximum}) {
        QCOMPARE(AudioAnalysis_Set(analysis, setting, taken), AudioAnalysisError_None);
        QCOMPARE(AudioAnalysis_Get(analysis, setting, &value), AudioAnalysisError_None);
        QCOMPARE(value, taken);
    }
    for (const double refused : {minimum - 0.01, maximum + 0.01, kNaN, kInfinity, -kInfinity}) {
        QCOMPARE(AudioAnalysis_Set(analysis, setting, refused), AudioAnalysisError_Range);
        QVERIFY(QString::fromUtf8(AudioAnalysis_GetErrorText(analysis))
                    .contains(QStringLiteral("%1 to %2").arg(minimum).arg(maximum)));
        QCOMPARE(AudioAnalysis_Get(analysis, setting, &value), AudioAnalysisError_None);
        QCOMPARE(value, maximum);
    }
}

void tst_Analysis_settings::switchesAndMagnitudes_areWhole_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<bool>("isWhole");
    QTest::newRow("threshold") << int(AudioAnalysisSetting_Threshold) << true;
    QTest::newRow("stop threshold") << int(AudioAnalysisSetting_StopThreshold) << true;
    QTest::newRow("stop duration") << int(AudioAnalysisSetting_StopDuration) << false;
    QTest::newRow("average duration") << int(AudioAnalysisSetting_AverageDuration) << false;
    QTest::newRow("BPM duration") << int(AudioAnalysisSetting_BPMDuration) << false;
    QTest::newRow("fixed tempo") << int(AudioAnalysisSetting_FixedBPM) << false;
    QTest::newRow("consistency") << int(AudioAnalysisSetting_Consistency) << true;
    QTest::newRow("virtual beats") << int(AudioAnalysisSetting_VirtualWhenStopped) << true;
}

void tst_Analysis_settings::switchesAndMagnitudes_areWhole()
{
    QFETCH(int, setting);
    QFETCH(bool, isWhole);
    PushedAnalysis analysis;
    QCOMPARE(AudioAnalysis_Set(analysis, setting, 0.75),
             isWhole ? AudioAnalysisError_Range : AudioAnalysisError_None);
}

void tst_Analysis_settings::settings_reachTheAnalyzer()
{
    PushedAnalysis analysis;
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_Threshold, 1234.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_StopThreshold, 321.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_StopDuration, 0.25);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_AverageDuration, 3.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_BPMDuration, 4.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_FixedBPM, 100.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_Consistency, 0.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_VirtualWhenStopped, 1.0);
    analysis.push(waves::silence(44100));
    const AudioAnalysis& inside = *static_cast<AudioAnalysis*>(analysis);
    QCOMPARE(inside.configuration.getThreshold(), short(1234));
    QCOMPARE(inside.configuration.getStopDetectionThreshold(), short(321));
    QCOMPARE(inside.pAnalyzer->m_stopBlockSize, quint64(11025));
    QCOMPARE(inside.pAnalyzer->m_volumeStats.m_capacity, quint64(132300));
    QCOMPARE(inside.configuration.getBPMCalculationDuration(), 4.0);
    QCOMPARE(inside.pAnalyzer->m_fixedBPM, 100.0);
    QCOMPARE(inside.pAnalyzer->m_isConsistencyAllowed, false);
    QCOMPARE(inside.configuration.getDisplayVirtualBeatsWhenStopped(), true);
}

void tst_Analysis_settings::settings_outliveRestart()
{
    PushedAnalysis analysis;
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_StopDuration, 0.25);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_AverageDuration, 3.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_FixedBPM, 200.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_Consistency, 0.0);
    AudioAnalysis_SelectProfile(analysis, "Slow");
    QCOMPARE(AudioAnalysis_Restart(analysis), AudioAnalysisError_None);
    analysis.push(waves::silence(44100));
    const AudioAnalysis& inside = *static_cast<AudioAnalysis*>(analysis);
    QCOMPARE(inside.pAnalyzer->m_stopBlockSize, quint64(11025));
    QCOMPARE(inside.pAnalyzer->m_volumeStats.m_capacity, quint64(132300));
    QCOMPARE(inside.pAnalyzer->m_fixedBPM, 200.0);
    QCOMPARE(inside.pAnalyzer->m_isConsistencyAllowed, false);
    QCOMPARE(AudioAnalysis_GetBPM(analysis), 135.0);
    QCOMPARE(inside.pAnalyzer->m_isBeatTimerAllowed, false);
}

void tst_Analysis_settings::threshold_isTheOneInForce()
{
    PushedAnalysis analysis;
    QCOMPARE(AudioAnalysis_GetThreshold(analysis), -1);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_Threshold, 0.0);
    QCOMPARE(AudioAnalysis_GetThreshold(analysis), 0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_Threshold, -1.0);
    // A band of all frequencies keeps a constant of 10000 as it is, twice which is the threshold.
    AudioAnalysisProfile profile = {90.0, 175.0, 2.0, -1, -1, 32000};
    AudioAnalysis_SetProfile(analysis, &profile);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_StopThreshold, 0.0);
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_AverageDuration, 0.05);
    waves::Samples samples = waves::silence(2 * 66150);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = i / 64 % 2 ? qint16(10000) : qint16(-10000);
    analysis.push(samples);
    QVERIFY(qAbs(AudioAnalysis_GetAverageVolume(analysis) - 10000) <= 1);
    QCOMPARE(AudioAnalysis_GetThreshold(analysis), 2 * AudioAnalysis_GetAverageVolume(analysis));
    profile.maximalThreshold = 1500;
    AudioAnalysis_SetProfile(analysis, &profile);
    QCOMPARE(AudioAnalysis_GetThreshold(analysis), 1500);
}

// "Electro" reaches to 175 BPM, "Hardcore" from 130 to 250.
void tst_Analysis_settings::fixedTempo_isHeldWithinTheProfile()
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

// Beats are told under a fixed tempo, too.
void tst_Analysis_settings::fixedTempo_isReported()
{
    PushedAnalysis analysis;
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_FixedBPM, 125.0);
    analysis.push(waves::kickTrack(8.0, 44100, 125.0));
    QVERIFY(analysis.beats.size() > 8);
    for (const AudioAnalysisBeat& beat : analysis.beats)
        QCOMPARE(beat.bpm, 125.0);
}

// Short of the ten seconds after which a search without success begins anew.
void tst_Analysis_settings::virtualBeats_goOn_whenStopped()
{
    PushedAnalysis analysis;
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_FixedBPM, 120.0);
    analysis.push(waves::silence(4 * 44100));
    QCOMPARE(analysis.beats.size(), std::size_t(0));
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_VirtualWhenStopped, 1.0);
    analysis.push(waves::silence(4 * 44100));
    QVERIFY(analysis.beats.size() >= 7 && analysis.beats.size() <= 9);
    for (std::size_t i = 1; i < analysis.beats.size(); ++i) {
        QCOMPARE(analysis.beats[i].isVirtual, 1);
        QCOMPARE(quint64(analysis.beats[i].index - analysis.beats[i - 1].index), quint64(22050));
    }
}

void tst_Analysis_settings::builtInProfiles_areListed()
{
    QStringList names;
    for (std::size_t i = 0; AudioAnalysis_GetProfileName(i); ++i)
        names << QString::fromUtf8(AudioAnalysis_GetProfileName(i));
    QCOMPARE(names,
             (QStringList{
                 QStringLiteral("Electro"), QStringLiteral("Hardcore"), QStringLiteral("Slow")}));
}

void tst_Analysis_settings::builtInProfile_isFound_data()
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

void tst_Analysis_settings::builtInProfile_isFound()
{
    QFETCH(QByteArray, name);
    QFETCH(AudioAnalysisProfile, expected);
    AudioAnalysisProfile profile = AnyProfile();
    QCOMPARE(AudioAnalysis_FindProfile(name.constData(), &profile), AudioAnalysisError_None);
    QVERIFY(profile == expected);
}

void tst_Analysis_settings::profile_isSelected_inAnyCase()
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

void tst_Analysis_settings::profile_isTakenOrRefusedAsAWhole_data()
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

void tst_Analysis_settings::profile_isTakenOrRefusedAsAWhole()
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
void tst_Analysis_settings::profile_staysWithItsAnalysis()
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
void tst_Analysis_settings::profile_changesWhatIsHeard()
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
void tst_Analysis_settings::recordingTempo_isThatOfItsBeats()
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

void tst_Analysis_settings::recordingTempo_refusesNull()
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

AA_TEST(tst_Analysis_settings, QCoreApplication)
#include "tst_Analysis_settings.moc"
