// SPDX-License-Identifier: MIT
#include <cli/output/ClickTrack.h>

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <limits>
#include <random>
#include <support/TestClass.h>
#include <sys/resource.h>

namespace {

using Samples = std::vector<qint16>;

constexpr int kRealPeak = 20000;    ///< first sample of a real beat's click
constexpr int kVirtualPeak = 9000;  ///< first sample of a virtual beat's click
constexpr double kClickSeconds = 0.03;

LoggedBeat makeBeat(quint64 pIndex, bool pIsVirtual = false)
{
    return {pIndex, 0.0, pIsVirtual, 0, 1.0, 0.0};
}

/// Random music that leaves room for a click's first sample.
Samples makeMusic(std::size_t pCount)
{
    const unsigned seed = qEnvironmentVariableIsSet("AA_SEED")
                              ? qEnvironmentVariable("AA_SEED").toUInt()
                              : std::random_device{}();
    qInfo("AA_SEED=%u", seed);
    std::mt19937 random(seed);
    Samples music(pCount);
    for (qint16& sample : music)
        sample = qint16(int(random() % 24000) - 12000);
    return music;
}

std::vector<float> toFloat(const Samples& pSamples)
{
    std::vector<float> values;
    for (const qint16 sample : pSamples)
        values.push_back(float(sample) / 32768.0F);
    return values;
}

struct Track
{
    SF_INFO info = {};
    Samples samples;
};

Track readTrack(const QString& pPath)
{
    Track track;
    SNDFILE* file = sf_open(QFile::encodeName(pPath).constData(), SFM_READ, &track.info);
    if (file != nullptr) {
        track.samples.resize(std::size_t(track.info.frames * track.info.channels));
        sf_readf_short(file, track.samples.data(), track.info.frames);
        sf_close(file);
    }
    return track;
}

/// Sign changes in the first 10 ms: twice the frequency times 0.01 s.
int countSignChanges(const Samples& pSamples, std::size_t pStart, int pRate)
{
    int changes = 0;
    for (std::size_t i = pStart; i < pStart + std::size_t(pRate / 100); ++i)
        changes += (pSamples[i] < 0) != (pSamples[i + 1] < 0) ? 1 : 0;
    return changes;
}

double sumSquares(const Samples& pSamples, std::size_t pFirst, std::size_t pLast)
{
    double sum = 0.0;
    for (std::size_t i = pFirst; i < pLast; ++i)
        sum += double(pSamples[i]) * pSamples[i];
    return sum;
}

}  // namespace

class tst_ClickTrack : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void music_isUntouched_outsideTheClicks_data();
    void music_isUntouched_outsideTheClicks();
    void music_isUntouched_withoutBeats();
    void click_hasItsEnergyAtTheBeat();
    void click_isSofterAndLower_whenVirtual();
    void click_isLouderAndHigher_onTheFirstOfTheBar();
    void click_goesToEveryChannel();
    void clicks_addUp_whenTheyOverlap();
    void click_isSaturated_inLoudMusic();
    void click_isCut_atTheEnd();
    void beat_isLeftOut_behindTheEnd();
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
    QString _Path() const { return m_folder->filePath(QStringLiteral("click.wav")); }
    QStringList _Entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    Track _Make(const Samples& pMusic,
                const std::vector<LoggedBeat>& pBeats,
                int pChannels = 1,
                int pRate = 44100)
    {
        ClickTrack track;
        const std::vector<float> music = toFloat(pMusic);
        const bool isMade = track.Open(_Path(), pRate, pChannels) &&
                            track.Append(music.data(), music.size() / std::size_t(pChannels)) &&
                            track.Finish(pBeats);
        return isMade ? readTrack(_Path()) : Track();
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_ClickTrack::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

void tst_ClickTrack::music_isUntouched_outsideTheClicks_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::newRow("8000 Hz mono") << 8000 << 1;
    QTest::newRow("44100 Hz mono") << 44100 << 1;
    QTest::newRow("44100 Hz stereo") << 44100 << 2;
    QTest::newRow("48000 Hz, 6 channels") << 48000 << 6;
    QTest::newRow("192000 Hz stereo") << 192000 << 2;
}

void tst_ClickTrack::music_isUntouched_outsideTheClicks()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    const auto frames = std::size_t(rate);
    const Samples music = makeMusic(frames * std::size_t(channels));
    const std::vector<std::size_t> beats = {0, frames / 4, frames / 2 + 1};
    const Track track = _Make(
        music, {makeBeat(beats[0]), makeBeat(beats[1], true), makeBeat(beats[2])}, channels, rate);
    QCOMPARE(track.samples.size(), music.size());
    QCOMPARE(track.info.samplerate, rate);
    QCOMPARE(track.info.channels, channels);

    const auto click = std::size_t(std::lround(kClickSeconds * rate));
    for (std::size_t i = 0; i < music.size(); ++i) {
        const std::size_t frame = i / std::size_t(channels);
        const bool isClick = std::any_of(beats.begin(), beats.end(), [&](std::size_t pBeat) {
            return frame >= pBeat && frame < pBeat + click;
        });
        if (!isClick)
            QCOMPARE(track.samples[i], music[i]);
    }
    for (std::size_t i = 0; i < beats.size(); ++i) {
        const std::size_t sample = beats[i] * std::size_t(channels);
        QCOMPARE(int(track.samples[sample]),
                 int(music[sample]) + (i == 1 ? kVirtualPeak : kRealPeak));
    }
}

void tst_ClickTrack::music_isUntouched_withoutBeats()
{
    // Every 16-bit value there is.
    Samples music(65536);
    for (std::size_t i = 0; i < music.size(); ++i)
        music[i] = qint16(int(i) - 32768);
    QCOMPARE(_Make(music, {}).samples, music);
}

void tst_ClickTrack::click_hasItsEnergyAtTheBeat()
{
    const Track track = _Make(Samples(44100), {makeBeat(22050)});
    QCOMPARE(sumSquares(track.samples, 0, 22050), 0.0);
    QCOMPARE(sumSquares(track.samples, 22050 + 1323, 44100), 0.0);
    const double first = sumSquares(track.samples, 22050, 22050 + 441);
    const double last = sumSquares(track.samples, 22050 + 882, 22050 + 1323);
    QVERIFY(first > 50.0 * last);  // it dies away
    QVERIFY(last > 0.0);
    QCOMPARE(int(*std::max_element(track.samples.begin(), track.samples.end())), kRealPeak);
    QCOMPARE(track.samples[22050], qint16(kRealPeak));
}

void tst_ClickTrack::click_isSofterAndLower_whenVirtual()
{
    const Track track = _Make(Samples(44100), {makeBeat(0), makeBeat(22050, true)});
    QCOMPARE(track.samples[0], qint16(kRealPeak));
    QCOMPARE(track.samples[22050], qint16(kVirtualPeak));
    const int real = countSignChanges(track.samples, 0, 44100);
    const int virtualBeat = countSignChanges(track.samples, 22050, 44100);
    QVERIFY2(std::abs(real - 35) <= 1, qPrintable(QString::number(real)));
    QVERIFY2(std::abs(virtualBeat - 18) <= 1, qPrintable(QString::number(virtualBeat)));
}

// 1760 Hz changes its sign 35 times in 10 ms, 2640 Hz 53 times.
void tst_ClickTrack::click_isLouderAndHigher_onTheFirstOfTheBar()
{
    LoggedBeat first = makeBeat(0);
    first.beatInBar = 1;
    LoggedBeat second = makeBeat(10000);
    second.beatInBar = 2;
    const Track track = _Make(Samples(20000), {first, second});
    QCOMPARE(track.samples[0], qint16(28000));
    QCOMPARE(track.samples[10000], qint16(kRealPeak));
    QVERIFY(std::abs(countSignChanges(track.samples, 0, 44100) - 53) <= 1);
    QVERIFY(std::abs(countSignChanges(track.samples, 10000, 44100) - 35) <= 1);
}

void tst_ClickTrack::click_goesToEveryChannel()
{
    const Track track = _Make(Samples(3 * 4410), {makeBeat(100)}, 3);
    for (std::size_t frame = 0; frame < 4410; ++frame) {
        QCOMPARE(track.samples[3 * frame + 1], track.samples[3 * frame]);
        QCOMPARE(track.samples[3 * frame + 2], track.samples[3 * frame]);
    }
    QCOMPARE(track.samples[300], qint16(kRealPeak));
}

void tst_ClickTrack::clicks_addUp_whenTheyOverlap()
{
    const Track track =
        _Make(Samples(4410), {makeBeat(100, true), makeBeat(100, true), makeBeat(100, true)});
    QCOMPARE(track.samples[100], qint16(3 * kVirtualPeak));
    const Track one = _Make(Samples(4410), {makeBeat(100, true)});
    for (std::size_t i = 0; i < one.samples.size(); ++i)
        QCOMPARE(int(track.samples[i]), 3 * int(one.samples[i]));
}

void tst_ClickTrack::click_isSaturated_inLoudMusic()
{
    const Track plain = _Make(Samples(4410), {makeBeat(100)});
    for (const int value : {32767, -32768, 20000}) {
        const Track loud = _Make(Samples(4410, qint16(value)), {makeBeat(100)});
        for (std::size_t i = 0; i < loud.samples.size(); ++i)
            QCOMPARE(int(loud.samples[i]), qBound(-32768, value + int(plain.samples[i]), 32767));
    }
}

void tst_ClickTrack::click_isCut_atTheEnd()
{
    const Track track = _Make(Samples(1000), {makeBeat(999)});
    QCOMPARE(track.samples.size(), std::size_t(1000));
    QCOMPARE(track.samples[999], qint16(kRealPeak));
    QCOMPARE(sumSquares(track.samples, 0, 999), 0.0);
}

void tst_ClickTrack::beat_isLeftOut_behindTheEnd()
{
    const Samples music = makeMusic(1000);
    const Track track =
        _Make(music, {makeBeat(1000), makeBeat(std::numeric_limits<quint64>::max())});
    QCOMPARE(track.samples, music);
}

void tst_ClickTrack::append_givesTheSameFile_inChunks_data()
{
    QTest::addColumn<int>("chunk");
    for (const int chunk : {1, 3, 511, 4096})
        QTest::addRow("%d frames", chunk) << chunk;
}

void tst_ClickTrack::append_givesTheSameFile_inChunks()
{
    QFETCH(int, chunk);
    const Samples music = makeMusic(2 * 10007);
    const std::vector<LoggedBeat> beats = {makeBeat(5), makeBeat(4000, true), makeBeat(10000)};
    const Track whole = _Make(music, beats, 2);
    QCOMPARE(whole.samples.size(), music.size());

    const std::vector<float> values = toFloat(music);
    ClickTrack track;
    QVERIFY(track.Open(_Path(), 44100, 2));
    for (std::size_t frame = 0; frame < 10007; frame += std::size_t(chunk)) {
        const std::size_t count = std::min(std::size_t(chunk), 10007 - frame);
        QVERIFY(track.Append(values.data() + 2 * frame, count));
    }
    QVERIFY(track.Append(nullptr, 0));
    QVERIFY(track.Finish(beats));
    QCOMPARE(readTrack(_Path()).samples, whole.samples);
}

void tst_ClickTrack::append_saturatesAndSurvivesGarbage()
{
    const float inf = std::numeric_limits<float>::infinity();
    const std::vector<float> values = {
        1.0F, 1.5F, 1e30F, inf, -1.0F, -1.5F, -inf, std::nanf(""), 0.4F / 32768, 0.6F / 32768};
    const Samples expected = {32767, 32767, 32767, 32767, -32768, -32768, -32768, 0, 0, 1};
    ClickTrack track;
    QVERIFY(track.Open(_Path(), 44100, 1));
    QVERIFY(track.Append(values.data(), values.size()));
    QVERIFY(track.Finish({}));
    QCOMPARE(readTrack(_Path()).samples, expected);
}

void tst_ClickTrack::format_isPlain16BitWav()
{
    const Track track = _Make(Samples(2 * 100), {}, 2);
    const int major = track.info.format & SF_FORMAT_TYPEMASK;
    QVERIFY(major == SF_FORMAT_WAV || major == SF_FORMAT_WAVEX);
    QCOMPARE(track.info.format & SF_FORMAT_SUBMASK, int(SF_FORMAT_PCM_16));
    QFile file(_Path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.read(12);
    QCOMPARE(header.left(4), QByteArray("RIFF"));
    QCOMPARE(header.mid(8), QByteArray("WAVE"));
}

void tst_ClickTrack::empty_givesAnEmptyFile()
{
    ClickTrack track;
    QVERIFY(track.Open(_Path(), 44100, 2));
    QVERIFY(track.Finish({makeBeat(0)}));
    QCOMPARE(readTrack(_Path()).info.samplerate, 44100);
    QCOMPARE(readTrack(_Path()).info.frames, sf_count_t(0));
    QCOMPARE(_Entries(), QStringList(QStringLiteral("click.wav")));
}

void tst_ClickTrack::abandoned_leavesNothing()
{
    {
        ClickTrack track;
        QVERIFY(track.Open(_Path(), 44100, 1));
        const std::vector<float> music(5000, 0.5F);
        QVERIFY(track.Append(music.data(), music.size()));
        QCOMPARE(_Entries().size(), 1);
        QVERIFY(!QFile::exists(_Path()));
    }
    QCOMPARE(_Entries(), QStringList());
}

void tst_ClickTrack::open_fails_whenTargetIsUnfit_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("missing folder") << QStringLiteral("/nowhere/click.wav");
    QTest::newRow("folder") << QDir::tempPath();
    QTest::newRow("device") << QStringLiteral("/dev/null");
    QTest::newRow("no name") << QString();
}

void tst_ClickTrack::open_fails_whenTargetIsUnfit()
{
    QFETCH(QString, target);
    ClickTrack track;
    QVERIFY(!track.Open(target, 44100, 2));
    QVERIFY(!track.getError().isEmpty());
    QVERIFY2(track.getError().contains(target), qPrintable(track.getError()));
}

void tst_ClickTrack::open_fails_whenFormatIsNonsense()
{
    {
        ClickTrack track;
        QVERIFY(!track.Open(_Path(), 44100, 0));
        QVERIFY2(track.getError().contains(_Path()), qPrintable(track.getError()));
    }
    {
        ClickTrack track;
        QVERIFY(!track.Open(_Path(), -1, 2));
    }
    QCOMPARE(_Entries(), QStringList());
}

/// A limit on the size of files stands for the full disk.
void tst_ClickTrack::append_fails_whenTheDiskIsFull()
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
        isAppended = track.Open(_Path(), 44100, 1) && track.Append(music.data(), music.size());
        isAppended = isAppended && track.Append(music.data(), music.size());
        error = track.getError();
    }
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &old), 0);
    QVERIFY(!isAppended);
    QVERIFY2(error.contains(_Path()) && error.contains(QLatin1String("free space")),
             qPrintable(error));
    QCOMPARE(_Entries(), QStringList());
}

AA_TEST(tst_ClickTrack, NoApplication)
#include "tst_ClickTrack.moc"
