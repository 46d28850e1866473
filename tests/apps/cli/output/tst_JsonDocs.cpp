// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/live/LiveEvents.h>
#include <cli/live/LiveSummary.h>

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

#include <apps/stage/Stage.h>
#include <cmath>
#include <support/TestClass.h>

using Names = QSet<QString>;

namespace {

constexpr int kRate = 44100;  // Hz

/// What stands between the marks ` at the front of the rows of tables, below that heading.
Names Documented(const QString& pHeading)
{
    QFile file(QStringLiteral(JSON_DOCS));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", JSON_DOCS);
    const QString text = QString::fromUtf8(file.readAll());
    const QString section = text.section(QStringLiteral("\n## "), 1)
                                .section(pHeading, 1)
                                .section(QStringLiteral("\n## "), 0, 0);
    Names names;
    auto rows = QRegularExpression(QStringLiteral("\n\\| `([^`]+)` \\|")).globalMatch(section);
    while (rows.hasNext())
        names += rows.next().captured(1);
    return names;
}

/// The paths of all values.
void AddNames(const QJsonValue& pValue, const QString& pPath, Names& pNames)
{
    if (pValue.isArray()) {
        for (const QJsonValue& entry : pValue.toArray())
            AddNames(entry, pPath + QStringLiteral("[]"), pNames);
    } else if (pValue.isObject()) {
        const QJsonObject object = pValue.toObject();
        for (auto entry = object.begin(); entry != object.end(); ++entry)
            AddNames(entry.value(),
                     pPath.isEmpty() ? entry.key() : pPath + QLatin1Char('.') + entry.key(),
                     pNames);
    } else {
        pNames += pPath;
    }
}

/// The fields of events as the document names them.
Names EventNames(const QByteArray& pLines)
{
    const QStringList common = {
        QStringLiteral("time"), QStringLiteral("type"), QStringLiteral("file")};
    Names names;
    for (const QByteArray& line : pLines.split('\n')) {
        const QJsonObject event = QJsonDocument::fromJson(line).object();
        const QString type = event[QStringLiteral("type")].toString();
        int own = 0;
        for (const QString& key : event.keys()) {
            own += common.contains(key) ? 0 : 1;
            names += common.contains(key) ? key : type + QLatin1Char('.') + key;
        }
        if (own == 0 && !event.isEmpty())
            names += type;
    }
    return names;
}

/// 12 s of strokes at 128 BPM, which leave out four beats, and 3 s of silence, as raw PCM.
QByteArray Music()
{
    QByteArray bytes;
    for (int i = 0; i < 15 * kRate; ++i) {
        const int beat = int(i / (kRate * 60.0 / 128.0));
        const double time = std::fmod(i, kRate * 60.0 / 128.0) / kRate;
        const bool isSilent = i >= 12 * kRate || (beat >= 12 && beat < 14);
        const double stroke = std::exp(-time / 0.1) * std::sin(2.0 * M_PI * 55.0 * time);
        const auto sample = qint16(isSilent ? 0.0 : 29000.0 * stroke);
        bytes.append(char(sample & 0xff)).append(char((sample >> 8) & 0xff));
    }
    return bytes;
}

}  // namespace

/// docs/json.md names every field that the program writes, and no other.
class tst_JsonDocs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void document_hasTheFields();
    void events_haveTheFields();

private:
    QByteArray _Analyze(const char* pTracker, const char* pFormat, const QStringList& pFiles) const;
    QByteArray _Listen(const char* pTrack, const char* pLastEvent) const;

    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_JsonDocs::initTestCase()
{
    QVERIFY(m_stage.Write(QStringLiteral("music.raw"), Music()));
}

QByteArray
tst_JsonDocs::_Analyze(const char* pTracker, const char* pFormat, const QStringList& pFiles) const
{
    const StagedRun run = m_stage.Run(QStringList{QStringLiteral("analyze"),
                                                  QStringLiteral("--tracker"),
                                                  QLatin1String(pTracker),
                                                  QStringLiteral("--raw"),
                                                  QString::number(kRate),
                                                  QStringLiteral("--format"),
                                                  QLatin1String(pFormat)} +
                                      pFiles);
    return run.exitCode == 0 ? run.output : QByteArray();
}

/// What a reader is told that stalled for a long time.
QByteArray LossEvent()
{
    Configuration configuration;
    CaptureSession session(configuration);
    LiveBeats beats;
    LiveSummary summary(session, beats, false);
    const LiveEvents events(eNdjsonEvents, session, beats, summary);
    return events._FormLoss(3);
}

/// What is printed up to an event, and at the end.
QByteArray tst_JsonDocs::_Listen(const char* pTrack, const char* pLastEvent) const
{
    m_stage.setDevices({Stage::Device("Deck", pTrack)});
    QProcess process;
    m_stage.Start(process,
                  QStringLiteral("audio-analyzer"),
                  {QStringLiteral("listen"),
                   QStringLiteral("-f"),
                   QStringLiteral("ndjson"),
                   QStringLiteral("--osc"),
                   QStringLiteral("127.0.0.1:9")});
    const bool isTold = Stage::WaitFor(process, QProcess::StandardOutput, pLastEvent);
    process.terminate();
    const StagedRun run = Stage::Finish(process);
    return isTold ? run.output : QByteArray();
}

void tst_JsonDocs::document_hasTheFields()
{
    const QString music = m_stage.path(QStringLiteral("music.raw"));
    Names names;
    for (const char* pTracker : {"automatic", "profile"}) {
        const QByteArray document = _Analyze(pTracker, "json", {music});
        AddNames(QJsonDocument::fromJson(document).object(), QString(), names);
    }
    QVERIFY(names.size() > 20);
    QCOMPARE(names, Documented(QStringLiteral("A document: `json`")));
}

void tst_JsonDocs::events_haveTheFields()
{
    const QString music = m_stage.path(QStringLiteral("music.raw"));
    Names names;
    for (const char* pTracker : {"automatic", "profile"})
        names += EventNames(_Analyze(pTracker, "ndjson", {music, music}));
    QVERIFY(names.contains(QStringLiteral("file")));
    names += EventNames(_Listen("music", "\"announce\""));
    names += EventNames(_Listen("clipped", "\"notice\""));
    names += EventNames(LossEvent());
    QCOMPARE(names, Documented(QStringLiteral("Events: `ndjson`")));
}

AA_TEST(tst_JsonDocs, QCoreApplication)
#include "tst_JsonDocs.moc"
