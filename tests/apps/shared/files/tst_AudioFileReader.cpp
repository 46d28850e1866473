// SPDX-License-Identifier: MIT
#include "ReadAll.h"
#include <shared/files/AudioFileReader.h>

#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <apps/shared/files/TestAudio.h>
#include <limits>
#include <support/TestClass.h>
#include <sys/stat.h>
#include <thread>

class tst_AudioFileReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void read_givesTheStoredSamples_whenLossless_data();
    void read_givesTheStoredSamples_whenLossless();
    void read_keepsPositions_whenLossy_data();
    void read_keepsPositions_whenLossy();
    void read_averagesChannels_data();
    void read_averagesChannels();
    void read_roundsFinerSamples();
    void read_saturatesFloats();
    void getFrames_holdsAllChannels();
    void read_isTheSameInAnyPieces();
    void open_acceptsRates_data();
    void open_acceptsRates();
    void open_refusesWhatIsNoAudio_data();
    void open_refusesWhatIsNoAudio();
    void open_namesKindsThatAreNotRead_data();
    void open_namesKindsThatAreNotRead();

private:
    QString _Path(const char* pName) const { return m_folder.filePath(QLatin1String(pName)); }

    QTemporaryDir m_folder;
};

void tst_AudioFileReader::read_givesTheStoredSamples_whenLossless_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("WAV 8") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_U8);
    QTest::newRow("WAV 16") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    QTest::newRow("WAV 24") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_24);
    QTest::newRow("WAV 32") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_32);
    QTest::newRow("WAV float") << int(SF_FORMAT_WAV | SF_FORMAT_FLOAT);
    QTest::newRow("WAV double") << int(SF_FORMAT_WAV | SF_FORMAT_DOUBLE);
    QTest::newRow("WAV extensible") << int(SF_FORMAT_WAVEX | SF_FORMAT_PCM_16);
    QTest::newRow("RF64") << int(SF_FORMAT_RF64 | SF_FORMAT_PCM_16);
    QTest::newRow("FLAC 16") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
    QTest::newRow("FLAC 24") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_24);
    QTest::newRow("AIFF 16") << int(SF_FORMAT_AIFF | SF_FORMAT_PCM_16);
    QTest::newRow("AIFF 24") << int(SF_FORMAT_AIFF | SF_FORMAT_PCM_24);
    QTest::newRow("AU") << int(SF_FORMAT_AU | SF_FORMAT_PCM_16);
}

void tst_AudioFileReader::read_givesTheStoredSamples_whenLossless()
{
    QFETCH(int, format);
    // Multiples of 256, so that 8 bits hold them exactly; an odd number of them.
    std::vector<qint16> samples = {0, 256, -256, 32512, -32768, 16384, -16384};
    for (int i = 0; i < 4000; ++i)
        samples.push_back(qint16(256 * (i % 200 - 100)));
    const QString path = _Path("lossless");
    const int subtype = format & SF_FORMAT_SUBMASK;
    if (subtype == SF_FORMAT_FLOAT || subtype == SF_FORMAT_DOUBLE) {
        std::vector<float> floats(samples.size());
        std::transform(samples.begin(), samples.end(), floats.begin(), [](qint16 pSample) {
            return float(pSample) / 32768.0f;
        });
        QVERIFY(testaudio::Write(path, format, 44100, 1, floats));
    } else {
        QVERIFY(testaudio::WriteIntegers(path, format, 44100, 1, samples));
    }
    AudioFileReader reader;
    QVERIFY2(reader.Open(path), qPrintable(reader.getError()));
    QCOMPARE(reader.getSampleRate(), 44100);
    QCOMPARE(reader.getChannelCount(), 1);
    QCOMPARE(reader.getFrameCount(), quint64(4007));
    QVERIFY(ReadAll(reader, 1024) == samples);
    QCOMPARE(reader.getError(), QString());
}

void tst_AudioFileReader::read_keepsPositions_whenLossy_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("rate");
    QTest::newRow("Ogg Vorbis") << int(SF_FORMAT_OGG | SF_FORMAT_VORBIS) << 44100;
    QTest::newRow("Ogg Vorbis 8 kHz") << int(SF_FORMAT_OGG | SF_FORMAT_VORBIS) << 8000;
    QTest::newRow("Opus") << kOpus << 48000;
    QTest::newRow("MP3") << int(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III) << 44100;
    QTest::newRow("MP3 48 kHz") << int(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III) << 48000;
}

void tst_AudioFileReader::read_keepsPositions_whenLossy()
{
    QFETCH(int, format);
    QFETCH(int, rate);
    const auto half = std::size_t(rate);
    const std::vector<float> original = testaudio::LateSine(rate, half);
    const QString path = _Path("lossy");
    QVERIFY(testaudio::Write(path, format, rate, 1, original));
    AudioFileReader reader;
    QVERIFY2(reader.Open(path), qPrintable(reader.getError()));
    QCOMPARE(reader.getSampleRate(), rate);
    QCOMPARE(reader.getFrameCount(), quint64(original.size()));
    const std::vector<qint16> samples = ReadAll(reader, 1000);
    QCOMPARE(reader.getError(), QString());
    QCOMPARE(samples.size(), original.size());
    // The codecs' own delay is taken out: the sine begins where it was put, within a quarter of one
    // of our blocks, and is in phase: nearly all of its power is found at the same place.
    const auto loud = std::find_if(samples.begin(), samples.end(), [](qint16 pSample) {
        return std::abs(int(pSample)) > 8000;
    });
    const auto onset = loud - samples.begin();
    QVERIFY2(std::abs(onset - std::ptrdiff_t(half)) < rate / 160,
             qPrintable(QString::number(onset)));
    double cross = 0.0;
    double power = 0.0;
    for (std::size_t i = half + half / 4; i < half + half * 3 / 4; ++i) {
        cross += double(samples[i]) / 32768.0 * double(original[i]);
        power += double(original[i]) * double(original[i]);
    }
    QVERIFY2(cross / power > 0.9 && cross / power < 1.1,
             qPrintable(QString::number(cross / power)));
}

void tst_AudioFileReader::read_averagesChannels_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<std::vector<qint16>>("frames");
    QTest::addColumn<std::vector<qint16>>("expected");
    QTest::newRow("mono") << 1 << std::vector<qint16>{5, -5, 32767}
                          << std::vector<qint16>{5, -5, 32767};
    // Means: 0, 32766.5, -3.5, 1.5, -32768, -0.5
    QTest::newRow("stereo")
        << 2
        << std::vector<qint16>{16384, -16384, 32767, 32766, -3, -4, 1, 2, -32768, -32768, 0, -1}
        << std::vector<qint16>{0, 32767, -4, 2, -32768, -1};
    // Means: 1, 0.5, 1/3, -0.5, 100
    QTest::newRow("six channels") << 6
                                  << std::vector<qint16>{6, 0, 0, 0, 0,   0,   0,   0,   3,   0,
                                                         0, 0, 0, 0, 0,   0,   0,   2,   -3,  0,
                                                         0, 0, 0, 0, 100, 100, 100, 100, 100, 100}
                                  << std::vector<qint16>{1, 1, 0, -1, 100};
}

void tst_AudioFileReader::read_averagesChannels()
{
    QFETCH(int, channels);
    QFETCH(std::vector<qint16>, frames);
    QFETCH(std::vector<qint16>, expected);
    const QString path = _Path("channels.wav");
    QVERIFY(
        testaudio::WriteIntegers(path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, channels, frames));
    AudioFileReader reader;
    QVERIFY(reader.Open(path));
    QCOMPARE(reader.getChannelCount(), channels);
    QCOMPARE(reader.getFrameCount(), quint64(expected.size()));
    QCOMPARE(ReadAll(reader, 2), expected);
}

void tst_AudioFileReader::read_roundsFinerSamples()
{
    // In 24 bits one step of 16 bits is 256.
    const std::vector<int> fine = {127, 128, -127, -128, 383, 384, 8388607, -8388608};
    std::vector<int> shifted(fine.size());
    std::transform(
        fine.begin(), fine.end(), shifted.begin(), [](int pSample) { return pSample * 256; });
    const QString path = _Path("fine.wav");
    QVERIFY(testaudio::WriteIntegers(path, SF_FORMAT_WAV | SF_FORMAT_PCM_24, 44100, 1, shifted));
    AudioFileReader reader;
    QVERIFY(reader.Open(path));
    QCOMPARE(ReadAll(reader, 3), (std::vector<qint16>{0, 1, 0, -1, 1, 2, 32767, -32768}));
}

void tst_AudioFileReader::read_saturatesFloats()
{
    const float infinity = std::numeric_limits<float>::infinity();
    const std::vector<float> floats = {1.0f,
                                       -1.0f,
                                       1.5f,
                                       -2.0f,
                                       infinity,
                                       -infinity,
                                       std::numeric_limits<float>::quiet_NaN(),
                                       0.5f};
    const QString path = _Path("loud.wav");
    QVERIFY(testaudio::Write(path, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100, 1, floats));
    AudioFileReader reader;
    QVERIFY(reader.Open(path));
    QCOMPARE(ReadAll(reader, 100),
             (std::vector<qint16>{32767, -32768, 32767, -32768, 32767, -32768, 0, 16384}));
}

void tst_AudioFileReader::getFrames_holdsAllChannels()
{
    const QString path = _Path("frames.wav");
    const std::vector<qint16> frames = {16384, -16384, 8192, 0};
    QVERIFY(testaudio::WriteIntegers(path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 2, frames));
    AudioFileReader reader;
    QVERIFY(reader.Open(path));
    std::vector<qint16> mono(2);
    QCOMPARE(reader.Read(mono.data(), 2), std::size_t(2));
    const std::vector<float> read(reader.getFrames(), reader.getFrames() + 4);
    QCOMPARE(read, (std::vector<float>{0.5f, -0.5f, 0.25f, 0.0f}));
}

void tst_AudioFileReader::read_isTheSameInAnyPieces()
{
    const QString path = _Path("pieces.flac");
    const std::vector<float> music = testaudio::Kicks(22050, 120, 1.0);
    QVERIFY(testaudio::Write(path, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 22050, 1, music));
    std::vector<std::vector<qint16>> results;
    for (const std::size_t piece : {1, 7, 1024, 100000}) {
        AudioFileReader reader;
        QVERIFY(reader.Open(path));
        results.push_back(ReadAll(reader, piece));
        QCOMPARE(results.back().size(), music.size());
        QVERIFY(results.back() == results.front());
    }
}

void tst_AudioFileReader::open_acceptsRates_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("7999") << 7999 << false;
    QTest::newRow("8000") << 8000 << true;
    QTest::newRow("11025") << 11025 << true;
    QTest::newRow("192000") << 192000 << true;
    QTest::newRow("192001") << 192001 << false;
}

void tst_AudioFileReader::open_acceptsRates()
{
    QFETCH(int, rate);
    QFETCH(bool, isAccepted);
    const QString path = _Path("rate.wav");
    QVERIFY(testaudio::Write(path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, rate, 1, {0.0f, 0.5f}));
    AudioFileReader reader;
    QCOMPARE(reader.Open(path), isAccepted);
    QCOMPARE(reader.getError().contains(QString::number(rate)), !isAccepted);
}

void tst_AudioFileReader::open_refusesWhatIsNoAudio_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("words");
    QTest::newRow("missing") << QByteArray() << "missing.wav"
                             << "no such file";
    QTest::newRow("empty") << QByteArray("") << "empty.wav"
                           << "empty";
    QTest::newRow("text") << QByteArray("These are words.\n") << "words.txt"
                          << "not audio";
    QTest::newRow("zeros") << QByteArray(5000, '\0') << "zeros.mp3"
                           << "not audio";
    QTest::newRow("head of a WAV") << QByteArray("RIFF\x24\0\0\0WAVEfmt ", 16) << "head.wav"
                                   << "not audio";
    QTest::newRow("folder") << QByteArray() << "."
                            << "folder";
    QTest::newRow("below a file") << QByteArray() << "words.txt/song.wav"
                                  << "cannot be opened";
}

void tst_AudioFileReader::open_refusesWhatIsNoAudio()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, name);
    QFETCH(QString, words);
    if (!content.isNull())
        QVERIFY(testaudio::WriteBytes(m_folder.filePath(name), content));
    AudioFileReader reader;
    QVERIFY(!reader.Open(m_folder.filePath(name)));
    QVERIFY2(reader.getError().contains(words), qPrintable(reader.getError()));
}

void tst_AudioFileReader::open_namesKindsThatAreNotRead_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QString>("kind");
    const auto add = [](const char* pKind, const QByteArray& pHead) {
        QTest::newRow(pKind) << pHead << QString::fromLatin1(pKind);
    };
    add("M4A",
        QByteArray("\0\0\0\x20"
                   "ftypM4A ",
                   12));
    add("WMA", QByteArray("\x30\x26\xB2\x75\x8E\x66\xCF\x11", 8));
    add("WebM", QByteArray("\x1A\x45\xDF\xA3", 4));
    add("AAC", QByteArray("\xFF\xF1\x50\x80", 4));
    add("WavPack", QByteArray("wvpk\0\0", 6));
    add("MIDI", QByteArray("MThd\0\0\0\6", 8));
}

void tst_AudioFileReader::open_namesKindsThatAreNotRead()
{
    QFETCH(QByteArray, head);
    QFETCH(QString, kind);
    const QString path = _Path("other");
    QVERIFY(testaudio::WriteBytes(path, head + QByteArray(3000, '\0')));
    AudioFileReader reader;
    QVERIFY(!reader.Open(path));
    for (const QString& words : {kind,
                                 QStringLiteral("not read"),
                                 QStringLiteral("WAV, FLAC"),
                                 QStringLiteral("ffmpeg -i")})
        QVERIFY2(reader.getError().contains(words), qPrintable(reader.getError()));
    QVERIFY(!reader.getError().contains(QLatin1String("damaged")));
}

AA_TEST(tst_AudioFileReader, NoApplication)
#include "tst_AudioFileReader.moc"
