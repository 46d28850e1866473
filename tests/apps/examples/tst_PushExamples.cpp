// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/api/Analysis.h>

#include <demo/DemoTrack.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <apps/cli/analyze/ProgramRunner.h>
#include <apps/shared/files/TestAudio.h>
#include <support/TestClass.h>
#include <vector>

namespace {

ProgramRun
Run(const QString& pProgram, const QStringList& pArguments, const QByteArray& pInput = {})
{
    QProcessEnvironment environment = ProgramEnvironment();
    environment.insert(QStringLiteral("AUDIOANALYZER_LIBRARY"), QStringLiteral(ANALYZER_LIBRARY));
    environment.insert(QStringLiteral("PYTHONPATH"), QStringLiteral(PYTHON_FOLDER));
    environment.insert(QStringLiteral("PYTHONDONTWRITEBYTECODE"), QStringLiteral("1"));
    environment.insert(QStringLiteral("QT_FATAL_WARNINGS"), QStringLiteral("1"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(pProgram, pArguments);
    process.write(pInput);
    process.closeWriteChannel();
    return Finish(process);
}

/// The samples that are written to a WAV file.
std::vector<short> Integers(const QString& pPath)
{
    SF_INFO info = {};
    SNDFILE* pFile = sf_open(QFile::encodeName(pPath).constData(), SFM_READ, &info);
    if (!pFile)
        return {};
    std::vector<short> samples(std::size_t(info.frames * info.channels));
    sf_readf_short(pFile, samples.data(), info.frames);
    sf_close(pFile);
    return samples;
}

QByteArray BytesOf(const std::vector<short>& pSamples)
{
    return QByteArray(reinterpret_cast<const char*>(pSamples.data()),
                      int(pSamples.size() * sizeof(short)));
}

void AppendBeat(void* pUser, const AudioAnalysisBeat* pBeat)
{
    static_cast<QByteArray*>(pUser)->append(QByteArray::number(pBeat->time, 'f', 6) + '\n');
}

}  // namespace

/// On the demo track and on other music, the push interface finds the beats that the command line
/// host finds, byte for byte.
class tst_PushExamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cExample_printsTheBeatsOfTheHost_data() { _AddTracks(); }
    void cExample_printsTheBeatsOfTheHost();
    void floats_giveTheBeatsOfTheHost_data() { _AddTracks(); }
    void floats_giveTheBeatsOfTheHost();
    void settings_giveTheBeatsOfTheHost_data();
    void settings_giveTheBeatsOfTheHost();
    void cExample_saysWhatIsWrong();
#ifdef PYTHON_PROGRAM
    void pythonExample_printsTheBeatsOfTheHost_data()
    {
        _AddTracks();
    }
    void pythonExample_printsTheBeatsOfTheHost();
    void pythonExample_readsWavFiles();
    void pythonTempo_isThatOfTheHost_data()
    {
        _AddTracks();
    }
    void pythonTempo_isThatOfTheHost();
    void pythonExample_saysWhatIsWrong();
#endif

private:
    void _AddTracks();
    static QByteArray
    _Push(const std::vector<short>& pSamples, AudioAnalysis* pAnalysis, int pChannels);

    QTemporaryDir m_folder;
};

void tst_PushExamples::initTestCase()
{
    QVERIFY(QDir::setCurrent(m_folder.path()));
    DemoTrack track{DemoTrack::Options()};
    std::vector<float> frames(std::size_t(track.getFrameCount()) * 2);
    QCOMPARE(track.Read(frames.data(), track.getFrameCount()), std::size_t(track.getFrameCount()));
    const int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    QVERIFY(testaudio::Write(QStringLiteral("demo.wav"), wav, track.getSampleRate(), 2, frames));
    frames.resize(std::size_t(track.getSampleRate()) * 2 * 20);
    QVERIFY(testaudio::Write(QStringLiteral("short.wav"), wav, track.getSampleRate(), 2, frames));
    QVERIFY(testaudio::Write(
        QStringLiteral("kicks.wav"), wav, 22050, 1, testaudio::Kicks(22050, 140, 12.34, 2.5)));
}

void tst_PushExamples::_AddTracks()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::newRow("demo track") << "demo.wav" << 44100 << 2;
    QTest::newRow("kicks, mono") << "kicks.wav" << 22050 << 1;
}

void tst_PushExamples::cExample_printsTheBeatsOfTheHost()
{
    QFETCH(QString, file);
    QFETCH(int, rate);
    QFETCH(int, channels);
    const QByteArray expected = Analyze(file).output;
    QVERIFY(expected.count('\n') > 10);
    const ProgramRun run = Run(QStringLiteral(C_PUSH_PROGRAM),
                               {QString::number(rate), QString::number(channels)},
                               BytesOf(Integers(file)));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, expected);
}

void tst_PushExamples::floats_giveTheBeatsOfTheHost()
{
    QFETCH(QString, file);
    QFETCH(int, rate);
    QFETCH(int, channels);
    std::vector<float> floats;
    for (const short sample : Integers(file))
        floats.push_back(float(sample) / 32768.0f);
    QByteArray beats;
    AudioAnalysis* pAnalysis = AudioAnalysis_Create(rate);
    AudioAnalysis_SetBeatCallback(pAnalysis, &AppendBeat, &beats);
    QCOMPARE(AudioAnalysis_PushFloat(
                 pAnalysis, floats.data(), floats.size() / std::size_t(channels), channels),
             AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_Finish(pAnalysis), AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_Destroy(pAnalysis), AudioAnalysisError_None);
    QCOMPARE(beats, Analyze(file).output);
}

void tst_PushExamples::settings_giveTheBeatsOfTheHost_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<int>("setting");
    QTest::addColumn<double>("value");
    QTest::newRow("threshold") << "--threshold 5000" << int(AudioAnalysisSetting_Threshold)
                               << 5000.0;
    QTest::newRow("stop threshold")
        << "--stop-threshold 100" << int(AudioAnalysisSetting_StopThreshold) << 100.0;
    QTest::newRow("stop duration")
        << "--stop-duration 0.4" << int(AudioAnalysisSetting_StopDuration) << 0.4;
    QTest::newRow("average duration")
        << "--average-duration 5" << int(AudioAnalysisSetting_AverageDuration) << 5.0;
    QTest::newRow("BPM duration") << "--bpm-duration 4" << int(AudioAnalysisSetting_BPMDuration)
                                  << 4.0;
    QTest::newRow("fixed tempo") << "--fixed-bpm 128" << int(AudioAnalysisSetting_FixedBPM)
                                 << 128.0;
    QTest::newRow("no consistency")
        << "--no-consistency" << int(AudioAnalysisSetting_Consistency) << 0.0;
    QTest::newRow("virtual beats")
        << "--virtual-when-stopped" << int(AudioAnalysisSetting_VirtualWhenStopped) << 1.0;
    QTest::newRow("profile") << "--profile Slow" << -1 << 0.0;
}

void tst_PushExamples::settings_giveTheBeatsOfTheHost()
{
    QFETCH(QString, option);
    QFETCH(int, setting);
    QFETCH(double, value);
    AudioAnalysis* pAnalysis = AudioAnalysis_Create(44100);
    const AudioAnalysisError error = setting < 0 ? AudioAnalysis_SelectProfile(pAnalysis, "Slow")
                                                 : AudioAnalysis_Set(pAnalysis, setting, value);
    QCOMPARE(error, AudioAnalysisError_None);
    const QByteArray beats = _Push(Integers(QStringLiteral("short.wav")), pAnalysis, 2);
    QVERIFY(beats.count('\n') > 20);
    QCOMPARE(beats, Analyze(QStringLiteral("short.wav ") + option).output);
}

/// All beats, one a line; destroys the analysis.
QByteArray
tst_PushExamples::_Push(const std::vector<short>& pSamples, AudioAnalysis* pAnalysis, int pChannels)
{
    QByteArray beats;
    AudioAnalysis_SetBeatCallback(pAnalysis, &AppendBeat, &beats);
    AudioAnalysis_PushInt16(
        pAnalysis, pSamples.data(), pSamples.size() / std::size_t(pChannels), pChannels);
    AudioAnalysis_Finish(pAnalysis);
    AudioAnalysis_Destroy(pAnalysis);
    return beats;
}

void tst_PushExamples::cExample_saysWhatIsWrong()
{
    const ProgramRun run = Run(QStringLiteral(C_PUSH_PROGRAM), {QStringLiteral("5")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.errors, QByteArray("a sample rate is 8000 to 192000 Hz, not 5\n"));
}

#ifdef PYTHON_PROGRAM

void tst_PushExamples::pythonExample_printsTheBeatsOfTheHost()
{
    QFETCH(QString, file);
    QFETCH(int, rate);
    QFETCH(int, channels);
    const ProgramRun run = Run(QStringLiteral(PYTHON_PROGRAM),
                               {QStringLiteral(PYTHON_EXAMPLE),
                                QStringLiteral("-"),
                                QString::number(rate),
                                QString::number(channels)},
                               BytesOf(Integers(file)));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, Analyze(file).output);
}

// The tempo of the recording, in one number.
void tst_PushExamples::pythonTempo_isThatOfTheHost()
{
    QFETCH(QString, file);
    QFETCH(int, rate);
    QFETCH(int, channels);
    const QString code =
        QStringLiteral("import sys, audioanalyzer\n"
                       "result = audioanalyzer.analyze(sys.stdin.buffer.read(), %1, %2)\n"
                       "print(f'{result.bpm:.3f}')\n");
    const ProgramRun run = Run(QStringLiteral(PYTHON_PROGRAM),
                               {QStringLiteral("-c"), code.arg(rate).arg(channels)},
                               BytesOf(Integers(file)));
    QCOMPARE(run.errors, QByteArray());
    const QJsonObject document =
        QJsonDocument::fromJson(Analyze(file + QStringLiteral(" -f json")).output).object();
    const double bpm =
        document[QStringLiteral("tempo")].toObject()[QStringLiteral("bpm")].toDouble();
    QVERIFY(bpm > 60.0);
    QCOMPARE(QString::fromUtf8(run.output).trimmed(), QString::number(bpm, 'f', 3));
}

void tst_PushExamples::pythonExample_readsWavFiles()
{
    const ProgramRun run = Run(QStringLiteral(PYTHON_PROGRAM),
                               {QStringLiteral(PYTHON_EXAMPLE), QStringLiteral("demo.wav")});
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.output, Analyze(QStringLiteral("demo.wav")).output);
}

void tst_PushExamples::pythonExample_saysWhatIsWrong()
{
    const ProgramRun run = Run(QStringLiteral(PYTHON_PROGRAM),
                               {QStringLiteral(PYTHON_EXAMPLE), QStringLiteral("nosuch.wav")});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith("beats.py: ") && run.errors.count('\n') == 1, run.errors);
}

#endif

AA_TEST(tst_PushExamples, QCoreApplication)
#include "tst_PushExamples.moc"
