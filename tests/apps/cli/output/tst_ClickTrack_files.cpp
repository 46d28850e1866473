// SPDX-License-Identifier: MIT
#include "ClickTrackTest.h"

#include <QtTest>

#include <algorithm>
#include <csignal>
#include <support/TestClass.h>
#include <sys/resource.h>

/// The file that it is written to.
class tst_ClickTrack_files : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_clicks = ClickFolder(); }

    void append_givesTheSameFile_inChunks_data();
    void append_givesTheSameFile_inChunks();
    void append_saturatesAndSurvivesGarbage();
    void format_isPlain16BitWav();
    void empty_givesAnEmptyFile();
    void abandoned_leavesNothing();
    void open_fails_whenTargetIsUnfit_data();
    void open_fails_whenTargetIsUnfit();
    void open_fails_whenFormatIsNonsense();
    void append_fails_whenTheDiskIsFull();

private:
    ClickFolder m_clicks;
};

void tst_ClickTrack_files::append_givesTheSameFile_inChunks_data()
{
    QTest::addColumn<int>("chunk");
    for (const int chunk : {1, 3, 511, 4096})
        QTest::addRow("%d frames", chunk) << chunk;
}

void tst_ClickTrack_files::append_givesTheSameFile_inChunks()
{
    QFETCH(int, chunk);
    const Samples music = makeMusic(2 * 10007);
    const std::vector<LoggedBeat> beats = {makeBeat(5), makeBeat(4000, true), makeBeat(10000)};
    const Track whole = m_clicks.make(music, beats, 2);
    QCOMPARE(whole.samples.size(), music.size());

    const std::vector<float> values = toFloat(music);
    ClickTrack track;
    QVERIFY(track.Open(m_clicks.path(), 44100, 2));
    for (std::size_t frame = 0; frame < 10007; frame += std::size_t(chunk)) {
        const std::size_t count = std::min(std::size_t(chunk), 10007 - frame);
        QVERIFY(track.Append(values.data() + 2 * frame, count));
    }
    QVERIFY(track.Append(nullptr, 0));
    QVERIFY(track.Finish(beats));
    QCOMPARE(readTrack(m_clicks.path()).samples, whole.samples);
}

void tst_ClickTrack_files::append_saturatesAndSurvivesGarbage()
{
    const float inf = std::numeric_limits<float>::infinity();
    const std::vector<float> values = {
        1.0F, 1.5F, 1e30F, inf, -1.0F, -1.5F, -inf, std::nanf(""), 0.4F / 32768, 0.6F / 32768};
    const Samples expected = {32767, 32767, 32767, 32767, -32768, -32768, -32768, 0, 0, 1};
    ClickTrack track;
    QVERIFY(track.Open(m_clicks.path(), 44100, 1));
    QVERIFY(track.Append(values.data(), values.size()));
    QVERIFY(track.Finish({}));
    QCOMPARE(readTrack(m_clicks.path()).samples, expected);
}

void tst_ClickTrack_files::format_isPlain16BitWav()
{
    const Track track = m_clicks.make(Samples(2 * 100), {}, 2);
    const int major = track.info.format & SF_FORMAT_TYPEMASK;
    QVERIFY(major == SF_FORMAT_WAV || major == SF_FORMAT_WAVEX);
    QCOMPARE(track.info.format & SF_FORMAT_SUBMASK, int(SF_FORMAT_PCM_16));
    QFile file(m_clicks.path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.read(12);
    QCOMPARE(header.left(4), QByteArray("RIFF"));
    QCOMPARE(header.mid(8), QByteArray("WAVE"));
}

void tst_ClickTrack_files::empty_givesAnEmptyFile()
{
    ClickTrack track;
    QVERIFY(track.Open(m_clicks.path(), 44100, 2));
    QVERIFY(track.Finish({makeBeat(0)}));
    QCOMPARE(readTrack(m_clicks.path()).info.samplerate, 44100);
    QCOMPARE(readTrack(m_clicks.path()).info.frames, sf_count_t(0));
    QCOMPARE(m_clicks.entries(), QStringList(QStringLiteral("click.wav")));
}

void tst_ClickTrack_files::abandoned_leavesNothing()
{
    {
        ClickTrack track;
        QVERIFY(track.Open(m_clicks.path(), 44100, 1));
        const std::vector<float> music(5000, 0.5F);
        QVERIFY(track.Append(music.data(), music.size()));
        QCOMPARE(m_clicks.entries().size(), 1);
        QVERIFY(!QFile::exists(m_clicks.path()));
    }
    QCOMPARE(m_clicks.entries(), QStringList());
}

void tst_ClickTrack_files::open_fails_whenTargetIsUnfit_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("missing folder") << QStringLiteral("/nowhere/click.wav");
    QTest::newRow("folder") << QDir::tempPath();
    QTest::newRow("device") << QStringLiteral("/dev/null");
    QTest::newRow("no name") << QString();
}

void tst_ClickTrack_files::open_fails_whenTargetIsUnfit()
{
    QFETCH(QString, target);
    ClickTrack track;
    QVERIFY(!track.Open(target, 44100, 2));
    QVERIFY(!track.getError().isEmpty());
    QVERIFY2(track.getError().contains(target), qPrintable(track.getError()));
}

void tst_ClickTrack_files::open_fails_whenFormatIsNonsense()
{
    {
        ClickTrack track;
        QVERIFY(!track.Open(m_clicks.path(), 44100, 0));
        QVERIFY2(track.getError().contains(m_clicks.path()), qPrintable(track.getError()));
    }
    {
        ClickTrack track;
        QVERIFY(!track.Open(m_clicks.path(), -1, 2));
    }
    QCOMPARE(m_clicks.entries(), QStringList());
}

/// A limit on the size of files stands for the full disk.
void tst_ClickTrack_files::append_fails_whenTheDiskIsFull()
{
    rlimit old = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &old), 0);
    rlimit small = old;
    small.rlim_cur = 100000;
    std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    QString error;
    bool isAppended = true;
    {
        ClickTrack track;
        const std::vector<float> music(40000, 0.5F);
        isAppended =
            track.Open(m_clicks.path(), 44100, 1) && track.Append(music.data(), music.size());
        isAppended = isAppended && track.Append(music.data(), music.size());
        error = track.getError();
    }
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &old), 0);
    QVERIFY(!isAppended);
    QVERIFY2(error.contains(m_clicks.path()) && error.contains(QLatin1String("free space")),
             qPrintable(error));
    QCOMPARE(m_clicks.entries(), QStringList());
}

AA_TEST(tst_ClickTrack_files, NoApplication)
#include "tst_ClickTrack_files.moc"
