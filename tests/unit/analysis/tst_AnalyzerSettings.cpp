// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AnalyzerSettings.h>
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QAudioFormat>
#include <QtTest>

#include <support/TestClass.h>

namespace {

using Setting = SettingsTable::Setting;

/// An analyzer that has begun a stop block.
struct Running
{
    Running() : analyzer(&configuration, Format(), nullptr)
    {
        std::vector<qint16> samples(100, 0);
        analyzer.Start();
        analyzer.Analyze(samples.data(), samples.size());
    }

    static QAudioFormat Format()
    {
        QAudioFormat format;
        format.setSampleRate(44100);
        return format;
    }

    /// Everything in the analyzer that a setting is told to.
    QString getHeld() const
    {
        return QStringLiteral("%1 %2 %3 %4")
            .arg(analyzer.m_pStopBlock != nullptr)
            .arg(analyzer.m_volumeStats.m_capacity)
            .arg(analyzer.m_fixedBPM)
            .arg(analyzer.m_isConsistencyAllowed);
    }

    Configuration configuration;
    AudioAnalyzer analyzer;
};

/// One that no setting begins with.
double OtherValue(const Setting& pSetting)
{
    return pSetting.initial == pSetting.maximum ? pSetting.minimum : pSetting.maximum;
}

void AddSettings()
{
    QTest::addColumn<QString>("identifier");
    for (const Setting& setting : SettingsTable::getSettings())
        QTest::newRow(setting.pIdentifier) << QString::fromUtf8(setting.pIdentifier);
}

}  // namespace

/// Every setting of the table, in an analyzer that runs.
class tst_AnalyzerSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void analyzer_isTold_whenItMustBe_data() { AddSettings(); }
    void analyzer_isTold_whenItMustBe();
    void value_isStored_data() { AddSettings(); }
    void value_isStored();
    void value_isStored_withoutAnAnalyzer_data() { AddSettings(); }
    void value_isStored_withoutAnAnalyzer();
    void told_isTheValue();
    void sameStopDuration_leavesTheBlock();
};

void tst_AnalyzerSettings::analyzer_isTold_whenItMustBe()
{
    QFETCH(QString, identifier);
    const Setting& setting = *SettingsTable::Find(identifier);
    Running running;
    const QString before = running.getHeld();
    AnalyzerSettings::Tell(setting, OtherValue(setting), running.analyzer);
    QCOMPARE(running.getHeld() != before, setting.reader != SettingsTable::eConfiguration);
}

void tst_AnalyzerSettings::value_isStored()
{
    QFETCH(QString, identifier);
    const Setting& setting = *SettingsTable::Find(identifier);
    Running running;
    const QString before = running.getHeld();
    const double value = OtherValue(setting);
    QVERIFY(AnalyzerSettings::Store(setting, value, running.configuration, &running.analyzer));
    QCOMPARE(running.getHeld() != before, setting.reader != SettingsTable::eConfiguration);
    if (setting.get)
        QCOMPARE(setting.get(running.configuration), value);
    QCOMPARE(AnalyzerSettings::Store(setting, value, running.configuration, &running.analyzer),
             setting.reader == SettingsTable::eHeld);
}

void tst_AnalyzerSettings::value_isStored_withoutAnAnalyzer()
{
    QFETCH(QString, identifier);
    const Setting& setting = *SettingsTable::Find(identifier);
    Configuration configuration;
    QVERIFY(AnalyzerSettings::Store(setting, OtherValue(setting), configuration, nullptr));
    if (setting.get)
        QCOMPARE(setting.get(configuration), OtherValue(setting));
}

void tst_AnalyzerSettings::told_isTheValue()
{
    Running running;
    const auto store = [&](const char* pIdentifier, double pValue) {
        AnalyzerSettings::Store(*SettingsTable::Find(QString::fromUtf8(pIdentifier)),
                                pValue,
                                running.configuration,
                                &running.analyzer);
    };
    store("average-duration", 3.0);
    QCOMPARE(running.analyzer.m_volumeStats.m_capacity, quint64(132300));
    store("fixed-bpm", 101.5);
    QCOMPARE(running.analyzer.m_fixedBPM, 101.5);
    store("consistency", 0.0);
    QCOMPARE(running.analyzer.m_isConsistencyAllowed, false);
    store("consistency", 1.0);
    QCOMPARE(running.analyzer.m_isConsistencyAllowed, true);
    store("stop-duration", 0.25);
    std::vector<qint16> samples(100, 0);
    running.analyzer.Analyze(samples.data(), samples.size());
    QCOMPARE(running.analyzer.m_stopBlockSize, quint64(11025));
}

// Else a host that stores everything it shows would never hear silence.
void tst_AnalyzerSettings::sameStopDuration_leavesTheBlock()
{
    Running running;
    const Setting& setting = *SettingsTable::Find(QStringLiteral("stop-duration"));
    QVERIFY(!AnalyzerSettings::Store(setting, 0.5, running.configuration, &running.analyzer));
    QVERIFY(running.analyzer.m_pStopBlock);
    QCOMPARE(running.analyzer.m_stopBlockFill, quint64(100));
}

AA_TEST(tst_AnalyzerSettings, QCoreApplication)
#include "tst_AnalyzerSettings.moc"
