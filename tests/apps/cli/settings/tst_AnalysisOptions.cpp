// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/MeterTracker.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>

#include "ReadOption.h"
#include <cli/settings/AnalysisOptionTable.h>
#include <cli/settings/ConfigurationSettings.h>
#include <cli/settings/SettingText.h>
#include <shared/settings/AnalysisOptions.h>
#include <shared/settings/ConfigurationStore.h>

#include <QAudioFormat>
#include <QtTest>

#include <algorithm>
#include <support/SettingOf.h>
#include <support/TestClass.h>

class tst_AnalysisOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void apply_changesNothing_byDefault();
    void apply_leavesWhatIsStored();
    void apply_storesEverySetting();
    void apply_editsACopyOfTheProfile();
    void apply_keepsTheProfile_whenNothingOfItIsGiven();
    void apply_findsProfilesInAnyCase();
    void apply_namesTheProfiles_whenThereIsNoSuchOne();
    void apply_refusesAFixedTempoOutsideTheProfile_data();
    void apply_refusesAFixedTempoOutsideTheProfile();
    void apply_refusesWhatTheSettersRefuse();
    void apply_setsUpTheAnalyzer();
    void tracker_isAutomatic_unlessSomethingMeansTheEngine_data();
    void tracker_isAutomatic_unlessSomethingMeansTheEngine();
    void tracker_takesItsShareOfTheTempoRange_data();
    void tracker_takesItsShareOfTheTempoRange();
};

void tst_AnalysisOptions::apply_changesNothing_byDefault()
{
    Configuration configuration;
    const Configuration untouched;
    QCOMPARE(AnalysisOptions().Apply(configuration), QString());
    QCOMPARE(configuration.getStopDetectionDuration(), 0.5);
    QCOMPARE(configuration.getStopDetectionThreshold(), untouched.getStopDetectionThreshold());
    QCOMPARE(configuration.getThreshold(), short(-1));
    QCOMPARE(configuration.getAverageVolumeCalculationDuration(), 2.0);
    QCOMPARE(configuration.getBPMCalculationDuration(), 10.0);
    QCOMPARE(configuration.getDisplayVirtualBeatsWhenStopped(), false);
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Electro"));
    QVERIFY(!configuration.isModified());
}

// What is stored counts, a pace of its own as well.
void tst_AnalysisOptions::apply_leavesWhatIsStored()
{
    Configuration configuration;
    configuration.setStopDetectionDuration(0.25);
    configuration.setDisplayVirtualBeatsWhenStopped(true);
    QCOMPARE(AnalysisOptions().Apply(configuration), QString());
    QCOMPARE(configuration.getStopDetectionDuration(), 0.25);
    QCOMPARE(configuration.getDisplayVirtualBeatsWhenStopped(), true);
}

void tst_AnalysisOptions::apply_storesEverySetting()
{
    AnalysisOptions options;
    options.profile = QStringLiteral("Slow");
    options.settings = {{SettingOf("threshold"), 1234.0},
                        {SettingOf("stop-duration"), 0.7},
                        {SettingOf("stop-threshold"), 99.0},
                        {SettingOf("average-duration"), 3.0},
                        {SettingOf("bpm-duration"), 20.0},
                        {SettingOf("virtual-when-stopped"), 1.0}};
    Configuration configuration;
    QCOMPARE(options.Apply(configuration), QString());
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Slow"));
    QCOMPARE(configuration.getThreshold(), short(1234));
    QCOMPARE(configuration.getStopDetectionDuration(), 0.7);
    QCOMPARE(configuration.getStopDetectionThreshold(), short(99));
    QCOMPARE(configuration.getAverageVolumeCalculationDuration(), 3.0);
    QCOMPARE(configuration.getBPMCalculationDuration(), 20.0);
    QCOMPARE(configuration.getDisplayVirtualBeatsWhenStopped(), true);
}

void tst_AnalysisOptions::apply_editsACopyOfTheProfile()
{
    AnalysisOptions options;
    options.profile = QStringLiteral("Hardcore");
    options.bpm = AnalysisOptions::TempoRange{150.0, 200.0};
    options.band = AnalysisOptions::Band{30, -1};
    options.sensibility = 1.25;
    Configuration configuration;
    QCOMPARE(options.Apply(configuration), QString());
    const Profile edited = configuration.getSelectedProfile();
    QCOMPARE(edited.getName(), QStringLiteral("Hardcore"));
    QCOMPARE(edited.getMinimalBPM(), 150.0);
    QCOMPARE(edited.getMaximalBPM(), 200.0);
    QCOMPARE(edited.getFilterLowFrequency(), 30);
    QCOMPARE(edited.getFilterHighFrequency(), -1);
    QCOMPARE(edited.getSensibility(), 1.25);
    QCOMPARE(edited.getMinimalThreshold(), short(1000));
    QCOMPARE(edited.getMaximalThreshold(), short(32000));
    // The built-in one, which every configuration shares, is as it was, and no profile was added.
    QCOMPARE(configuration.getProfiles().size(), 3);
    for (const Profile& profile : PredefinedProfile::getList()) {
        if (profile.getName() == QLatin1String("Hardcore")) {
            QCOMPARE(profile.getMinimalBPM(), 130.0);
            QCOMPARE(profile.getFilterHighFrequency(), 75);
            QCOMPARE(profile.getSensibility(), 2.0);
        }
    }
}

void tst_AnalysisOptions::apply_keepsTheProfile_whenNothingOfItIsGiven()
{
    Configuration configuration;
    const unsigned int id = configuration.getSelectedProfile().getID();
    QCOMPARE(AnalysisOptions().Apply(configuration), QString());
    QCOMPARE(configuration.getSelectedProfile().getID(), id);
}

void tst_AnalysisOptions::apply_findsProfilesInAnyCase()
{
    AnalysisOptions options;
    options.profile = QStringLiteral("hARDcore");
    Configuration configuration;
    QCOMPARE(options.Apply(configuration), QString());
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Hardcore"));
}

void tst_AnalysisOptions::apply_namesTheProfiles_whenThereIsNoSuchOne()
{
    AnalysisOptions options;
    options.profile = QStringLiteral("Polka");
    Configuration configuration;
    configuration.Add(QStringLiteral("House"), 110, 140, 2, 0, 80);
    QCOMPARE(
        options.Apply(configuration),
        QStringLiteral("there is no profile \"Polka\"; there are: Electro, Hardcore, Slow, House"));
}

void tst_AnalysisOptions::apply_refusesAFixedTempoOutsideTheProfile_data()
{
    QTest::addColumn<double>("tempo");
    QTest::addColumn<bool>("isAccepted");
    // Electro goes from 90 to 175.
    QTest::newRow("none") << 0.0 << true;
    QTest::newRow("below") << 89.9 << false;
    QTest::newRow("lowest") << 90.0 << true;
    QTest::newRow("highest") << 175.0 << true;
    QTest::newRow("above") << 175.1 << false;
}

void tst_AnalysisOptions::apply_refusesAFixedTempoOutsideTheProfile()
{
    QFETCH(double, tempo);
    QFETCH(bool, isAccepted);
    AnalysisOptions options;
    options.settings[SettingOf("fixed-bpm")] = tempo;
    Configuration configuration;
    const QString refusal = options.Apply(configuration);
    QCOMPARE(refusal.isEmpty(), isAccepted);
    QCOMPARE(refusal.contains(QLatin1String("90 to 175")), !isAccepted);
}

void tst_AnalysisOptions::apply_refusesWhatTheSettersRefuse()
{
    Configuration configuration;
    AnalysisOptions tempo;
    tempo.bpm = AnalysisOptions::TempoRange{200.0, 100.0};
    QVERIFY(tempo.Apply(configuration).contains(QLatin1String("1 <= MIN <= MAX < 1000")));
    AnalysisOptions band;
    band.band = AnalysisOptions::Band{200, 100};
    QVERIFY(band.Apply(configuration).contains(QLatin1String("LOW <= HIGH")));
    AnalysisOptions sensibility;
    sensibility.sensibility = -0.5;
    QVERIFY(sensibility.Apply(configuration).contains(QLatin1String("0 or more")));
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Electro"));
}

void tst_AnalysisOptions::apply_setsUpTheAnalyzer()
{
    QAudioFormat format;
    format.setSampleRate(44100);
    Configuration configuration;
    AudioAnalyzer analyzer(&configuration, format, nullptr);
    AnalysisOptions options;
    options.Apply(analyzer);
    QCOMPARE(analyzer.getFixedBPM(), 0.0);
    QCOMPARE(analyzer.m_isConsistencyAllowed, true);
    options.settings[SettingOf("fixed-bpm")] = 125.0;
    options.settings[SettingOf("consistency")] = 0.0;
    options.Apply(analyzer);
    QCOMPARE(analyzer.getFixedBPM(), 125.0);
    QCOMPARE(analyzer.m_isConsistencyAllowed, false);
}

void tst_AnalysisOptions::tracker_isAutomatic_unlessSomethingMeansTheEngine_data()
{
    QTest::addColumn<QString>("name");  // of the option; empty = none
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isEngine");
    const auto add = [](const char* pName, const char* pValue, bool pIsEngine) {
        QTest::addRow("%s", pName) << pName << pValue << pIsEngine;
    };
    add("", "", false);
    add("--profile", "Slow", true);
    add("--bpm", "90:100", false);
    add("--band", "20:150", true);
    add("--sensibility", "1.5", true);
    add("--threshold", "77", true);
    add("--stop-threshold", "77", false);
    add("--stop-duration", "1", false);
    add("--average-duration", "1", false);
    add("--bpm-duration", "5", true);
    add("--fixed-bpm", "100", true);
    add("--no-consistency", "", true);
    add("--virtual-when-stopped", "", true);
}

// What names the other tracker beside it is refused, and the refusal names the option.
void tst_AnalysisOptions::tracker_isAutomatic_unlessSomethingMeansTheEngine()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(bool, isEngine);
    AnalysisOptions options;
    if (!name.isEmpty())
        QCOMPARE(Read(options, name, value), QString());
    QCOMPARE(options.getTracker(), isEngine ? eProfileTracker : eAutomaticTracker);
    Configuration configuration;
    QCOMPARE(options.Apply(configuration), QString());
    options.tracker = eProfileTracker;
    QCOMPARE(options.getTracker(), eProfileTracker);
    QCOMPARE(options.Apply(configuration), QString());
    options.tracker = eAutomaticTracker;
    QCOMPARE(options.getTracker(), eAutomaticTracker);
    const QString refusal = options.Apply(configuration);
    QCOMPARE(refusal,
             isEngine ? name + QStringLiteral(" means nothing to --tracker automatic; leave one "
                                              "of them out")
                      : QString());
}

void tst_AnalysisOptions::tracker_takesItsShareOfTheTempoRange_data()
{
    QTest::addColumn<QString>("range");  // empty = none
    QTest::addColumn<QString>("taken");  // empty = refused
    // It follows 60 to 190 BPM.
    QTest::newRow("none") << ""
                          << "60:190";
    QTest::newRow("inside") << "100:140.5"
                            << "100:140.5";
    QTest::newRow("all") << "1:999"
                         << "60:190";
    QTest::newRow("from below") << "30:60"
                                << "60:60";
    QTest::newRow("to above") << "190:300"
                              << "190:190";
    QTest::newRow("below") << "30:59.9"
                           << "";
    QTest::newRow("above") << "190.1:300"
                           << "";
}

void tst_AnalysisOptions::tracker_takesItsShareOfTheTempoRange()
{
    QFETCH(QString, range);
    QFETCH(QString, taken);
    AnalysisOptions options;
    if (!range.isEmpty())
        QCOMPARE(Read(options, QStringLiteral("--bpm"), range), QString());
    Configuration configuration;
    const QString refusal = options.Apply(configuration);
    if (taken.isEmpty()) {
        QVERIFY2(refusal.contains(QLatin1String("60 to 190 BPM, and --bpm ") + range),
                 qPrintable(refusal));
        options.tracker = eProfileTracker;
        QCOMPARE(options.Apply(configuration), QString());
        return;
    }
    QCOMPARE(refusal, QString());
    MeterTracker tracker(44100);
    options.Apply(tracker);
    QCOMPARE(QStringLiteral("%1:%2").arg(tracker.getMinimalBPM()).arg(tracker.getMaximalBPM()),
             taken);
}

AA_TEST(tst_AnalysisOptions, QCoreApplication)
#include "tst_AnalysisOptions.moc"
