// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <demo/DemoTrack.h>

#include <QtTest>

#include <cmath>
#include <sndfile.h>
#include <support/TestClass.h>

namespace {

struct Run
{
    int code = -1;
    QString output;
    QString error;
};

struct Sound
{
    SF_INFO info = {};
    std::vector<float> samples;
};

Sound readSound(const QString& pPath)
{
    Sound sound;
    SNDFILE* file = sf_open(QFile::encodeName(pPath).constData(), SFM_READ, &sound.info);
    if (file != nullptr) {
        sound.samples.resize(std::size_t(sound.info.frames * sound.info.channels));
        sf_readf_float(file, sound.samples.data(), sound.info.frames);
        sf_close(file);
    }
    return sound;
}

}  // namespace

class tst_DemoProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void help_andVersion_areDone();
    void file_holdsTheTrack_data();
    void file_holdsTheTrack();
    void wav_isOfTheOldestKind();
    void mono_isTheMeanOfBothSides();
    void beats_areTheTracksTruth();
    void usage_isRefused_data();
    void usage_isRefused();
    void failure_isReported_andLeavesNothing();

private:
    Run _Run(const QStringList& pArguments) const;
    QString _Path(const char* pName) const { return m_folder->filePath(QLatin1String(pName)); }
    QStringList _Entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_DemoProgram::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

Run tst_DemoProgram::_Run(const QStringList& pArguments) const
{
    QProcess process;
    process.setWorkingDirectory(m_folder->path());
    process.start(QStringLiteral(DEMO_PROGRAM), pArguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(),
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

void tst_DemoProgram::help_andVersion_areDone()
{
    const Run help = _Run({QStringLiteral("--help")});
    QCOMPARE(help.code, 0);
    for (const char* text : {"OUT", "--rate", "--bpm", "--channels", "--seconds", "--beats"})
        QVERIFY2(help.output.contains(QLatin1String(text)), text);
    const Run version = _Run({QStringLiteral("--version")});
    QCOMPARE(version.code, 0);
    QCOMPARE(version.output, QStringLiteral("audio-analyzer-demo " AUDIOANALYZER_VERSION "\n"));
}

void tst_DemoProgram::file_holdsTheTrack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("tolerance");  // of a sample; lossy formats by their level only
    QTest::newRow("WAV") << QStringLiteral("a.wav") << 44100 << 0.0001;
    QTest::newRow("WAV, 192000 Hz") << QStringLiteral("a.WAV") << 192000 << 0.0001;
    QTest::newRow("FLAC") << QStringLiteral("a.flac") << 8000 << 0.0001;
    QTest::newRow("Ogg") << QStringLiteral("a.ogg") << 48000 << -1.0;
    QTest::newRow("MP3") << QStringLiteral("a.mp3") << 44100 << -1.0;
}

void tst_DemoProgram::file_holdsTheTrack()
{
    QFETCH(QString, name);
    QFETCH(int, rate);
    QFETCH(double, tolerance);
    const Run run = _Run({name,
                          QStringLiteral("--rate"),
                          QString::number(rate),
                          QStringLiteral("--seconds"),
                          QStringLiteral("2")});
    QVERIFY2(run.code == 0, qPrintable(run.error));
    QCOMPARE(run.error, QString());
    QCOMPARE(_Entries(), QStringList(name));
    const Sound sound = readSound(m_folder->filePath(name));
    QCOMPARE(sound.info.samplerate, rate);
    QCOMPARE(sound.info.channels, 2);

    DemoTrack::Options options;
    options.sampleRate = rate;
    options.duration = 2.0;
    DemoTrack track(options);
    std::vector<float> frames(2 * track.getFrameCount());
    QCOMPARE(track.Read(frames.data(), frames.size()), std::size_t(2 * rate));
    QVERIFY(sound.samples.size() >= frames.size());
    double music = 0.0;
    double error = 0.0;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        music += std::pow(frames[i], 2);
        error += std::pow(frames[i] - sound.samples[i], 2);
        if (tolerance >= 0.0)
            QVERIFY(std::fabs(frames[i] - sound.samples[i]) < float(tolerance));
    }
    QVERIFY2(error < 0.05 * music, qPrintable(QString::number(error / music)));
}

// Readers in other languages know format 1, PCM, best.
void tst_DemoProgram::wav_isOfTheOldestKind()
{
    QCOMPARE(_Run({QStringLiteral("a.wav"), QStringLiteral("--seconds"), QStringLiteral("1")}).code,
             0);
    QFile file(_Path("a.wav"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray head = file.read(22);
    QCOMPARE(head.left(4), QByteArray("RIFF"));
    QCOMPARE(head.mid(8, 8), QByteArray("WAVEfmt "));
    QCOMPARE(head.mid(20, 2), QByteArray("\x01\x00", 2));
}

void tst_DemoProgram::mono_isTheMeanOfBothSides()
{
    const QStringList length = {QStringLiteral("--seconds"), QStringLiteral("1")};
    QCOMPARE(_Run(QStringList(QStringLiteral("2.wav")) + length).code, 0);
    QCOMPARE(_Run(QStringList(QStringLiteral("1.wav")) + length +
                  QStringList{QStringLiteral("--channels"), QStringLiteral("1")})
                 .code,
             0);
    const Sound stereo = readSound(_Path("2.wav"));
    const Sound mono = readSound(_Path("1.wav"));
    QCOMPARE(mono.info.channels, 1);
    QCOMPARE(mono.samples.size(), std::size_t(44100));
    for (std::size_t i = 0; i < mono.samples.size(); ++i) {
        const float mean = 0.5F * (stereo.samples[2 * i] + stereo.samples[2 * i + 1]);
        QVERIFY(std::fabs(mono.samples[i] - mean) < 0.0001F);
    }
}

void tst_DemoProgram::beats_areTheTracksTruth()
{
    const Run run = _Run({QStringLiteral("a.wav"),
                          QStringLiteral("--bpm"),
                          QStringLiteral("120"),
                          QStringLiteral("--seconds"),
                          QStringLiteral("1.6"),
                          QStringLiteral("--beats"),
                          QStringLiteral("a.beats")});
    QVERIFY2(run.code == 0, qPrintable(run.error));
    QFile file(_Path("a.beats"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("0.000000\n0.500000\n1.000000\n1.500000\n"));
}

void tst_DemoProgram::usage_isRefused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::newRow("nothing") << QString();
    QTest::newRow("unknown suffix") << QStringLiteral("a.aiff");
    QTest::newRow("no suffix") << QStringLiteral("wav");
    QTest::newRow("rate too low") << QStringLiteral("a.wav --rate 7999");
    QTest::newRow("rate too high") << QStringLiteral("a.wav --rate 192001");
    QTest::newRow("rate is no number") << QStringLiteral("a.wav --rate fast");
    QTest::newRow("slow") << QStringLiteral("a.wav --bpm 59.9");
    QTest::newRow("fast") << QStringLiteral("a.wav --bpm 200.1");
    QTest::newRow("nan") << QStringLiteral("a.wav --bpm nan");
    QTest::newRow("nan seconds") << QStringLiteral("a.wav --seconds nan");
    QTest::newRow("endless") << QStringLiteral("a.wav --seconds inf");
    QTest::newRow("no channels") << QStringLiteral("a.wav --channels 0");
    QTest::newRow("3 channels") << QStringLiteral("a.wav --channels 3");
    QTest::newRow("no length") << QStringLiteral("a.wav --seconds 0");
    QTest::newRow("negative length") << QStringLiteral("a.wav --seconds -1");
    QTest::newRow("too long") << QStringLiteral("a.wav --seconds 86401");
    QTest::newRow("unknown option") << QStringLiteral("a.wav --loud");
    QTest::newRow("two files") << QStringLiteral("a.wav b.wav");
    QTest::newRow("MP3 at 96 kHz") << QStringLiteral("a.mp3 --rate 96000");
    QTest::newRow("one file for both") << QStringLiteral("a.wav --beats a.wav");
}

void tst_DemoProgram::usage_isRefused()
{
    QFETCH(QString, arguments);
    const Run run = _Run(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(run.code, 2);
    QVERIFY(!run.error.isEmpty());
    QCOMPARE(run.output, QString());
    QCOMPARE(_Entries(), QStringList());
}

void tst_DemoProgram::failure_isReported_andLeavesNothing()
{
    const Run missing = _Run({QStringLiteral("missing/a.wav")});
    QCOMPARE(missing.code, 1);
    QVERIFY2(missing.error.contains(QLatin1String("missing/a.wav")), qPrintable(missing.error));
    const Run beats = _Run(
        {QStringLiteral("a.wav"), QStringLiteral("--beats"), QStringLiteral("missing/a.beats")});
    QCOMPARE(beats.code, 1);
    QVERIFY2(beats.error.contains(QLatin1String("missing/a.beats")), qPrintable(beats.error));
    QCOMPARE(_Entries(), QStringList());
}

AA_TEST(tst_DemoProgram, QCoreApplication)
#include "tst_DemoProgram.moc"
