// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/output/JsonWriter.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <apps/cli/output/HandMadeResult.h>
#include <support/SettingOf.h>
#include <support/TestClass.h>

class tst_JsonWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void document_isExactlyThis();
    void document_isExactlyThis_withTheAutomaticTracker();
    void document_tellsTheSettings();
    void everySetting_isTold_data();
    void everySetting_isTold();
    void unknownTempo_isNull();
};

void tst_JsonWriter::document_isExactlyThis()
{
    Configuration configuration;
    SettingsTable::Restore(configuration);
    AnalysisOptions options;
    options.tracker = eProfileTracker;
    QCOMPARE(options.Apply(configuration), QString());
    AnalysisResult result = HandMadeResult();
    result.beats.resize(2);
    result.silences.resize(1);
    // Only the virtual beat has a known tempo.
    const QByteArray expected = R"({
    "beats": [
        {
            "accuracy": 1,
            "bpm": null,
            "index": 4000,
            "loudness": 12000,
            "time": 0.5,
            "virtual": false
        },
        {
            "accuracy": 0.5,
            "bpm": 119.99,
            "index": 8001,
            "loudness": 900,
            "time": 1.000125,
            "virtual": true
        }
    ],
    "duration": 2.5,
    "file": "dir/a \"song\".flac",
    "profile": "Electro",
    "sampleRate": 8000,
    "settings": {
        "averageDuration": 2,
        "bandHigh": 75,
        "bandLow": null,
        "bpmDuration": 10,
        "bpmMaximal": 175,
        "bpmMinimal": 90,
        "consistency": true,
        "fixedBpm": null,
        "sensibility": 2,
        "stopDuration": 1.5,
        "stopThreshold": 3276,
        "threshold": "auto",
        "virtualWhenStopped": false
    },
    "silences": [
        {
            "end": 0.25,
            "start": 0
        }
    ],
    "tempo": {
        "bpm": 119.99,
        "method": "median of the tempos reported with real beats, from ten seconds after the first one on"
    }
}
)";
    QCOMPARE(makeJsonDocument(result, options, configuration), expected);
}

// One beat makes no row of nine, so the tempo is the reported one.
void tst_JsonWriter::document_isExactlyThis_withTheAutomaticTracker()
{
    AnalysisResult result;
    result.source = QStringLiteral("a.wav");
    result.sampleRate = 8000;
    result.sampleCount = 12000;
    LoggedBeat beat = {4000, 0.5, false, 0, 0.0, 119.99};
    beat.beatInBar = 2;
    beat.confidence = 0.75;
    beat.barConfidence = 0.5;
    result.beats = {beat};
    AnalysisOptions options;
    options.bpm = AnalysisOptions::TempoRange{100.5, 250.0};
    const QByteArray expected = R"({
    "beats": [
        {
            "barConfidence": 0.5,
            "beatInBar": 2,
            "bpm": 119.99,
            "confidence": 0.75,
            "index": 4000,
            "time": 0.5,
            "virtual": false
        }
    ],
    "duration": 1.5,
    "file": "a.wav",
    "sampleRate": 8000,
    "settings": {
        "bpmMaximal": 190,
        "bpmMinimal": 100.5
    },
    "silences": [
    ],
    "tempo": {
        "bpm": 119.99,
        "method": "median of the tempos that nine beats in a row make, from ten seconds after the first one on"
    },
    "tracker": "automatic"
}
)";
    QCOMPARE(makeJsonDocument(result, options, Configuration()), expected);
}

void tst_JsonWriter::document_tellsTheSettings()
{
    AnalysisOptions options;
    options.bpm = AnalysisOptions::TempoRange{100.5, 150.0};
    options.band = AnalysisOptions::Band{20, -1};
    options.sensibility = 1.5;
    options.settings[SettingOf("threshold")] = 4000.0;
    options.settings[SettingOf("fixed-bpm")] = 120.25;
    options.settings[SettingOf("consistency")] = 0.0;
    options.settings[SettingOf("virtual-when-stopped")] = 1.0;
    Configuration configuration;
    QCOMPARE(options.Apply(configuration), QString());
    const QJsonObject settings =
        QJsonDocument::fromJson(makeJsonDocument({}, options, configuration))
            .object()[QStringLiteral("settings")]
            .toObject();
    QCOMPARE(settings[QStringLiteral("bpmMinimal")].toDouble(), 100.5);
    QCOMPARE(settings[QStringLiteral("bpmMaximal")].toDouble(), 150.0);
    QCOMPARE(settings[QStringLiteral("bandLow")].toInt(), 20);
    QVERIFY(settings[QStringLiteral("bandHigh")].isNull());
    QCOMPARE(settings[QStringLiteral("sensibility")].toDouble(), 1.5);
    QCOMPARE(settings[QStringLiteral("threshold")].toInt(), 4000);
    QCOMPARE(settings[QStringLiteral("fixedBpm")].toDouble(), 120.25);
    QCOMPARE(settings[QStringLiteral("consistency")].toBool(true), false);
    QCOMPARE(settings[QStringLiteral("virtualWhenStopped")].toBool(), true);
}

void tst_JsonWriter::everySetting_isTold_data()
{
    QTest::addColumn<QString>("key");
    const QMap<QString, QString> keys = {
        {QStringLiteral("threshold"), QStringLiteral("threshold")},
        {QStringLiteral("stop-threshold"), QStringLiteral("stopThreshold")},
        {QStringLiteral("stop-duration"), QStringLiteral("stopDuration")},
        {QStringLiteral("average-duration"), QStringLiteral("averageDuration")},
        {QStringLiteral("bpm-duration"), QStringLiteral("bpmDuration")},
        {QStringLiteral("fixed-bpm"), QStringLiteral("fixedBpm")},
        {QStringLiteral("consistency"), QStringLiteral("consistency")},
        {QStringLiteral("virtual-when-stopped"), QStringLiteral("virtualWhenStopped")}};
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.use == SettingsTable::eAnalysis)
            QTest::newRow(setting.pIdentifier) << keys[QLatin1String(setting.pIdentifier)];
}

void tst_JsonWriter::everySetting_isTold()
{
    QFETCH(QString, key);
    QVERIFY2(!key.isEmpty(), "write the key down by hand above");
    const SettingsTable::Setting& setting = *SettingOf(QTest::currentDataTag());
    const auto told = [&](double pValue) -> QJsonValue {
        AnalysisOptions options;
        options.tracker = eProfileTracker;
        options.settings[&setting] = pValue;
        Configuration configuration;
        options.Apply(configuration);
        return QJsonDocument::fromJson(makeJsonDocument({}, options, configuration))
            .object()[QStringLiteral("settings")]
            .toObject()[key];
    };
    const bool isSwitch = setting.form == SettingsTable::eSwitch;
    QCOMPARE(told(setting.maximum), isSwitch ? QJsonValue(true) : QJsonValue(setting.maximum));
    if (isSwitch)
        QCOMPARE(told(setting.minimum), QJsonValue(false));
    else if (!setting.pMinimumWord)
        QCOMPARE(told(setting.minimum), QJsonValue(setting.minimum));
}

void tst_JsonWriter::unknownTempo_isNull()
{
    Configuration configuration;
    const QJsonObject root =
        QJsonDocument::fromJson(makeJsonDocument({}, {}, configuration)).object();
    QVERIFY(root[QStringLiteral("tempo")].toObject()[QStringLiteral("bpm")].isNull());
    QCOMPARE(root[QStringLiteral("beats")].toArray().size(), 0);
    QCOMPARE(root[QStringLiteral("duration")].toDouble(-1.0), 0.0);
}

AA_TEST(tst_JsonWriter, NoApplication)
#include "tst_JsonWriter.moc"
