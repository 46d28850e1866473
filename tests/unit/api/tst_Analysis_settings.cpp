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
    void fixedTempo_isReported();
    void virtualBeats_goOn_whenStopped();
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

AA_TEST(tst_Analysis_settings, QCoreApplication)
#include "tst_Analysis_settings.moc"
