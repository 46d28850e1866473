// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "HandMadeResult.h"
#include <cli/output/JsonWriter.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

class tst_JsonWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void document_isExactlyThis();
    void document_tellsTheSettings();
    void unknownTempo_isNull();
};

void tst_JsonWriter::document_isExactlyThis()
{
    Configuration configuration;
    const AnalysisOptions options;
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
        "method": "median of the tempos reported with real beats, from ten seconds after the first beat on"
    }
}
)";
    QCOMPARE(makeJsonDocument(result, options, configuration), expected);
}

void tst_JsonWriter::document_tellsTheSettings()
{
    AnalysisOptions options;
    options.bpm = AnalysisOptions::TempoRange{100.5, 150.0};
    options.band = AnalysisOptions::Band{20, -1};
    options.sensibility = 1.5;
    options.threshold = qint16(4000);
    options.fixedBPM = 120.25;
    options.isConsistencyAllowed = false;
    options.isVirtualWhenStopped = true;
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

void tst_JsonWriter::unknownTempo_isNull()
{
    Configuration configuration;
    const QJsonObject root =
        QJsonDocument::fromJson(makeJsonDocument({}, {}, configuration)).object();
    QVERIFY(root[QStringLiteral("tempo")].toObject()[QStringLiteral("bpm")].isNull());
    QCOMPARE(root[QStringLiteral("beats")].toArray().size(), 0);
    QCOMPARE(root[QStringLiteral("duration")].toDouble(-1.0), 0.0);
}

QTEST_APPLESS_MAIN(tst_JsonWriter)
#include "tst_JsonWriter.moc"
