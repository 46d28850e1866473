// SPDX-License-Identifier: MIT
#include "ListenEvents.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QtTest>

#include <apps/stage/Stage.h>
#include <support/TestClass.h>
#include <support/Text.h>

/// What "listen" tells of beats and of the music.
class tst_ListenProgram_beats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listen_announcesEveryBeatInTime();
    void listen_writesTextAndBeats();
    void listen_survivesAVanishingDevice();
    void listen_saysWhatIsWrongWithTheLevel();
    void listen_appliesTheAnalysisOptions();
    void listen_hearsQuietMusic_byItself();
    void listen_goesOn_atAFixedTempo();
    void listen_movesBeats_byTheOffset();

private:
    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_ListenProgram_beats::init()
{
    m_stage.setDevices({Stage::Device("Deck", "music"),
                        Stage::Device("Silence", "silence"),
                        Stage::Device("Quiet", "quiet"),
                        Stage::Device("Clipped", "clipped"),
                        Stage::Device("Stereo", "music", 2),
                        Stage::Device("Deck.monitor", "none")});
    QDir(m_stage.path(QString())).remove(QStringLiteral("AudioAnalyzer.cfg"));
}

void tst_ListenProgram_beats::listen_announcesEveryBeatInTime()
{
    const StagedRun run =
        m_stage.Run("listen --format ndjson --duration 11 --measure --format-info");
    QCOMPARE(run.exitCode, 0);
    const QList<QJsonObject> events = Events(run.output);
    QVERIFY(!events.contains(QJsonObject()));
    QCOMPARE(Select(events, "device").size(), 2);
    QCOMPARE(Select(events, "notice").size(), 0);
    QCOMPARE(Select(events, "play").size(), 1);
    QCOMPARE(events.last()[QStringLiteral("type")].toString(), QStringLiteral("end"));
    QVERIFY(qAbs(events.last()[QStringLiteral("bpm")].toDouble() - 128.0) < 2.0);

    const QRegularExpression measure(QStringLiteral(
        "announced beats: ([0-9]+), missing: ([0-9]+); announced after the sound left the server: "
        "median ([-0-9.]+) ms, standard deviation ([0-9.]+) ms, 95 % within ([0-9.]+) ms"));
    const auto match = measure.match(QString::fromUtf8(run.errors));
    QVERIFY2(match.hasMatch(), run.errors.constData());
    qInfo("%s", qPrintable(match.captured()));
    // After the search there are about 8 s of beats, 128 a minute. In virtual time what is left is
    // the tracker's frame of 10 ms, and the first beats, on which it settles.
    const int count = match.captured(1).toInt();
    QVERIFY(count >= 8 && count <= 24);
    QVERIFY(match.captured(2).toInt() <= 2);
    QVERIFY(qAbs(match.captured(3).toDouble()) <= 10.0);
    const QList<QJsonObject> beats = Select(events, "announce");
    QVERIFY(beats.size() >= count);
    QVERIFY(qAbs(beats.last()[QStringLiteral("bpm")].toDouble() - 128.0) < 1.0);
    for (int i = 0; i < beats.size(); ++i) {
        const double confidence = beats[i][QStringLiteral("confidence")].toDouble();
        QVERIFY(confidence > 0.0 && confidence <= 1.0);
        const int place = beats[i][QStringLiteral("beatInBar")].toInt();
        QVERIFY(place >= 1 && place <= 4);
        if (i == 0)
            continue;
        const auto since = [&](const char* pClock) {
            const QString key = QLatin1String(pClock);
            return beats[i][key].toDouble() - beats[i - 1][key].toDouble();
        };
        QCOMPARE(beats[i][QStringLiteral("beat")].toInt(),
                 beats[i - 1][QStringLiteral("beat")].toInt() + 1);
        QVERIFY(since("monotonic") > 0.0);
        QVERIFY(qAbs(since("wall") - since("monotonic")) < 1e-4);
        QVERIFY(qAbs(since("time") - since("monotonic")) < 1e-4);
    }
    QVERIFY(run.errors.contains("ticks, 24 a beat: "));
    QVERIFY(run.errors.contains("real-time priority"));

    QVERIFY(run.errors.contains("recorded: 48000 Hz, mono, 16 bits signed"));
    QVERIFY(run.errors.contains("blocks of 1024 samples (21.3 ms)"));
    QVERIFY(run.errors.contains("drift against the clock: "));
    QVERIFY(run.errors.contains("anchored 1 times"));
    QVERIFY(run.errors.contains("listening to \"Deck\""));
}

void tst_ListenProgram_beats::listen_writesTextAndBeats()
{
    const StagedRun textRun = m_stage.Run("listen --duration 6");
    const StagedRun beatsRun = m_stage.Run("listen --duration 6 -q --format beats");
    QCOMPARE(textRun.exitCode, 0);
    const QRegularExpression playing(QStringLiteral("^ +[0-9.]+  playing$"));
    const QRegularExpression beat(QStringLiteral("^ +[0-9.]+  beat [1-4]  [0-9.]+ BPM  [0-9]+ %$"));
    QCOMPARE(Lines(textRun.output).filter(playing).size(), 1);
    QVERIFY(Lines(textRun.output).filter(beat).size() >= 2);
    QVERIFY(textRun.errors.contains("Deck: 0:0"));

    QCOMPARE(beatsRun.exitCode, 0);
    QCOMPARE(beatsRun.errors, QByteArray());
    const QStringList times = Lines(beatsRun.output);
    QVERIFY(times.size() >= 2);
    for (int i = 0; i < times.size(); ++i) {
        QVERIFY(
            QRegularExpression(QStringLiteral("^[0-9]+\\.[0-9]{6}$")).match(times[i]).hasMatch());
        QVERIFY(i == 0 || times[i].toDouble() > times[i - 1].toDouble());
    }
}

void tst_ListenProgram_beats::listen_survivesAVanishingDevice()
{
    QProcess process;
    m_stage.Start(process,
                  QStringLiteral("audio-analyzer"),
                  {QStringLiteral("listen"), QStringLiteral("--format"), QStringLiteral("ndjson")});
    QVERIFY(Stage::WaitFor(process, QProcess::StandardOutput, "\"play\""));
    m_stage.setDevices({Stage::Device("Quiet", "quiet")});
    QVERIFY(Stage::WaitFor(process, QProcess::StandardOutput, "\"waiting\""));
    m_stage.setDevices({Stage::Device("Quiet", "quiet"), Stage::Device("Deck", "music")});
    QVERIFY(Stage::WaitFor(process, QProcess::StandardError, "\"Deck\" is back"));
    process.terminate();
    const StagedRun run = Stage::Finish(process);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.errors.contains("\"Deck\" is gone; it will be recorded again"));
    QStringList states;
    for (const QJsonObject& event : Select(Events(run.output), "device"))
        states.append(event[QStringLiteral("state")].toString());
    QCOMPARE(states.join(QLatin1Char(' ')),
             QStringLiteral("starting running waiting starting running"));
    double last = 0.0;
    for (const QJsonObject& event : Select(Events(run.output), "device")) {
        QVERIFY(event[QStringLiteral("time")].toDouble() >= last);
        last = event[QStringLiteral("time")].toDouble();
    }
}

void tst_ListenProgram_beats::listen_saysWhatIsWrongWithTheLevel()
{
    const QList<QPair<QString, QByteArray>> devices = {
        {QStringLiteral("Silence"), "digital silence"},
        {QStringLiteral("Quiet"), "too quiet"},
        {QStringLiteral("Clipped"), "clipped"}};
    for (const auto& [device, words] : devices) {
        const StagedRun run = m_stage.Run({QStringLiteral("listen"),
                                           QStringLiteral("--device"),
                                           device,
                                           QStringLiteral("--duration"),
                                           QStringLiteral("8"),
                                           QStringLiteral("--tracker"),
                                           QStringLiteral("profile"),
                                           QStringLiteral("--format"),
                                           QStringLiteral("ndjson")});
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.errors.count(words + ':') == 1, run.errors.constData());
        QCOMPARE(Select(Events(run.output), "notice").size(), 1);
    }
}

void tst_ListenProgram_beats::listen_appliesTheAnalysisOptions()
{
    // With a threshold above full scale's strokes nothing is music.
    const StagedRun run =
        m_stage.Run("listen --stop-threshold 32767 --format ndjson --duration 3 --fixed-bpm 100");
    QCOMPARE(run.exitCode, 0);
    QVERIFY(Select(Events(run.output), "play").isEmpty());
}

// What the engine takes for silence is music all the same.
void tst_ListenProgram_beats::listen_hearsQuietMusic_byItself()
{
    const StagedRun run = m_stage.Run("listen --device Quiet --format ndjson --duration 8");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(Select(Events(run.output), "play").size(), 1);
    QCOMPARE(Select(Events(run.output), "notice").size(), 0);
    QVERIFY(Select(Events(run.output), "announce").size() >= 8);
    const StagedRun engine =
        m_stage.Run("listen --device Quiet --format beats --duration 8 --tracker profile");
    QCOMPARE(engine.output, QByteArray());
}

void tst_ListenProgram_beats::listen_goesOn_atAFixedTempo()
{
    const StagedRun run = m_stage.Run("listen --format ndjson --duration 12 --fixed-bpm 150");
    QCOMPARE(run.exitCode, 0);
    const QList<QJsonObject> beats = Select(Events(run.output), "announce");
    QVERIFY(beats.size() >= 10);
    QCOMPARE(beats.last()[QStringLiteral("bpm")].toDouble(), 150.0);
    QCOMPARE(beats.last()[QStringLiteral("confidence")].toDouble(), 1.0);
    const double gap = beats.last()[QStringLiteral("monotonic")].toDouble() -
                       beats[beats.size() - 2][QStringLiteral("monotonic")].toDouble();
    QVERIFY(qAbs(gap - 0.4) < 1e-3);
}

void tst_ListenProgram_beats::listen_movesBeats_byTheOffset()
{
    const auto firstBeat = [this](const char* pArguments) {
        const StagedRun run = m_stage.Run(pArguments);
        const QStringList times = Lines(run.output);
        return times.isEmpty() ? -1.0 : times.first().toDouble();
    };
    const double plain = firstBeat("listen --format beats --duration 6");
    const double late = firstBeat("listen --format beats --duration 6 --offset 200 --save");
    QVERIFY(plain > 0.0);
    QVERIFY2(qAbs(late - plain - 0.2) < 0.02, QByteArray::number(late - plain).constData());
    // It was stored.
    const double stored = firstBeat("listen --format beats --duration 6");
    QVERIFY(qAbs(stored - late) < 0.02);
    QVERIFY(QFile::remove(m_stage.path(QStringLiteral("AudioAnalyzer.ini"))));
}

AA_TEST(tst_ListenProgram_beats, QCoreApplication)
#include "tst_ListenProgram_beats.moc"
