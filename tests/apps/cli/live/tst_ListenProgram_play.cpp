// SPDX-License-Identifier: MIT
#include "ListenEvents.h"

#include <QtTest>

#include <apps/shared/files/TestAudio.h>
#include <apps/shared/outputs/osc/OscListener.h>
#include <apps/stage/Stage.h>
#include <cmath>
#include <support/TestClass.h>
#include <support/Text.h>

/// The command "listen" with a file instead of a device, where there is no device at all.
class tst_ListenProgram_play : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void file_isHeard_asIfItWereLive();
    void missingSound_isSaid();
    void outputs_getTheBeatsOfAFile();
    void duration_endsTheFileEarly();
    void format_isThatOfTheFile();
    void silence_isSaid();
    void unusableFile_isSaid_data();
    void unusableFile_isSaid();
    void deviceOptions_areRefused_data();
    void deviceOptions_areRefused();

private:
    StagedRun _Play(const QString& pName, const QStringList& pOptions = {}) const
    {
        return m_stage.Run(
            QStringList{QStringLiteral("listen"), QStringLiteral("--play"), m_stage.path(pName)} +
            pOptions);
    }

    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_ListenProgram_play::initTestCase()
{
    constexpr int kWav = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    const auto write = [this](const char* pName, int pRate, const std::vector<float>& pSamples) {
        return testaudio::Write(m_stage.path(QLatin1String(pName)), kWav, pRate, 1, pSamples);
    };
    QVERIFY(write("eight.wav", 44100, testaudio::Kicks(44100, 128.0, 8.0)));
    QVERIFY(write("silent.wav", 48000, std::vector<float>(std::size_t(4 * 48000), 0.0F)));
    QVERIFY(write("empty.wav", 48000, {}));
    QVERIFY(m_stage.Write(QStringLiteral("text.wav"), "no sound"));
}

void tst_ListenProgram_play::file_isHeard_asIfItWereLive()
{
    const StagedRun run =
        _Play(QStringLiteral("eight.wav"), {QStringLiteral("--format"), QStringLiteral("ndjson")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(Lines(run.errors).first(),
             QStringLiteral("playing \"eight.wav\" without sound, 0:08 long"));
    QVERIFY2(Lines(run.errors).last().startsWith(QLatin1String("eight.wav: 0:08 long, 12")),
             run.errors.constData());
    const QList<QJsonObject> events = Events(run.output);
    QCOMPARE(Select(events, "device").size(), 0);
    QCOMPARE(Select(events, "play").size(), 1);
    const QList<QJsonObject> beats = Select(events, "announce");
    QVERIFY(beats.size() >= 8);
    // The first ones are those on which the tracker settles.
    const QJsonObject last = beats.last();
    QVERIFY(qAbs(last[QStringLiteral("bpm")].toDouble() - 128.0) < 1.0);
    const double place = last[QStringLiteral("time")].toDouble() / (60.0 / 128.0);
    QVERIFY2(qAbs(place - std::round(place)) * 60.0 / 128.0 < 0.02,
             QByteArray::number(place).constData());
    // At real speed: it takes as long as the file, and a look or two at the clock.
    QCOMPARE(events.last()[QStringLiteral("type")].toString(), QStringLiteral("end"));
    const double end = events.last()[QStringLiteral("time")].toDouble();
    QVERIFY2(end >= 8.0 && end < 8.2, QByteArray::number(end).constData());
}

void tst_ListenProgram_play::missingSound_isSaid()
{
    const StagedRun run = _Play(QStringLiteral("eight.wav"),
                                {QStringLiteral("--sound"),
                                 QStringLiteral("--duration"),
                                 QStringLiteral("2"),
                                 QStringLiteral("--format"),
                                 QStringLiteral("ndjson")});
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = Lines(run.errors);
    QVERIFY2(lines.contains(QStringLiteral("playing \"eight.wav\", 0:08 long")),
             run.errors.constData());
    QCOMPARE(lines.count(QStringLiteral("it is not heard: no sound server answers")), 1);
    QCOMPARE(Select(Events(run.output), "device").size(), 0);
}

void tst_ListenProgram_play::outputs_getTheBeatsOfAFile()
{
    OscListener listener;
    const StagedRun run =
        _Play(QStringLiteral("eight.wav"),
              {QStringLiteral("--format"),
               QStringLiteral("beats"),
               QStringLiteral("--osc"),
               QStringLiteral("127.0.0.1:%1/beat /b i beat").arg(listener.getPort())});
    QCOMPARE(run.exitCode, 0);
    const int beats = Lines(run.output).size();
    QVERIFY(beats >= 8);
    QStringList expected;
    for (int i = 0; i < beats; ++i)
        expected += QStringLiteral("/b i %1").arg(i);
    QCOMPARE(listener.take(beats), expected.join(QLatin1Char('\n')));
}

void tst_ListenProgram_play::duration_endsTheFileEarly()
{
    const StagedRun run =
        _Play(QStringLiteral("eight.wav"), {QStringLiteral("--duration"), QStringLiteral("2")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.errors.contains("eight.wav: 0:02 long"), run.errors.constData());
}

void tst_ListenProgram_play::format_isThatOfTheFile()
{
    const StagedRun run = _Play(QStringLiteral("eight.wav"),
                                {QStringLiteral("--duration"),
                                 QStringLiteral("0.5"),
                                 QStringLiteral("--quiet"),
                                 QStringLiteral("--format-info")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(Lines(run.errors)
                 .contains(QStringLiteral(
                     "analysed: 44100 Hz, mono, 16 bits signed, blocks of 1024 samples (23.2 ms)")),
             run.errors.constData());
    QVERIFY(!run.errors.contains("recorded"));
    QVERIFY(!run.errors.contains("drift"));
}

void tst_ListenProgram_play::silence_isSaid()
{
    const StagedRun run = _Play(QStringLiteral("silent.wav"));
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.errors.contains("digital silence: nothing but equal samples in \"silent.wav\"\n"),
             run.errors.constData());
}

void tst_ListenProgram_play::unusableFile_isSaid_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("missing") << "none.wav" << QByteArray("none.wav: there is no such file");
    QTest::newRow("no audio") << "text.wav" << QByteArray("text.wav: ");
    QTest::newRow("empty") << "empty.wav" << QByteArray("nothing was heard");
}

void tst_ListenProgram_play::unusableFile_isSaid()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, words);
    const StagedRun run = _Play(file);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(words), run.errors.constData());
}

void tst_ListenProgram_play::deviceOptions_areRefused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("device") << "--play eight.wav --device Deck" << QByteArray("without --device");
    QTest::newRow("save") << "--play eight.wav --save" << QByteArray("without --save");
    QTest::newRow("standard input") << "--play -" << QByteArray("--play -: give a file");
}

void tst_ListenProgram_play::deviceOptions_areRefused()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, words);
    const StagedRun run =
        m_stage.Run(QStringList(QStringLiteral("listen")) + arguments.split(QLatin1Char(' ')));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(words), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
}

AA_TEST(tst_ListenProgram_play, QCoreApplication)
#include "tst_ListenProgram_play.moc"
