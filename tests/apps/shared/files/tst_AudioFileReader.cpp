// SPDX-License-Identifier: MIT
#include <apps/shared/files/TestAudio.h>
#include <shared/files/AudioFileReader.h>

#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <limits>
#include <support/TestClass.h>
#include <sys/stat.h>
#include <thread>

/// libsndfile forgets to free its Vorbis decoder when a file is cut off inside the decoder's
/// headers.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:vorbis_info_init";
}

namespace {

/// Everything that a reader gives, in pieces of pPiece frames.
std::vector<qint16> ReadAll(AudioFileReader& pReader, std::size_t pPiece)
{
    std::vector<qint16> all;
    std::vector<qint16> piece(pPiece);
    std::size_t count = pPiece;
    while (count == pPiece) {
        count = pReader.Read(piece.data(), pPiece);
        all.insert(all.end(), piece.begin(), piece.begin() + std::ptrdiff_t(count));
    }
    return all;
}

constexpr int kOpus = SF_FORMAT_OGG | SF_FORMAT_OPUS;

}  // namespace

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
    void truncated_isAnError_data();
    void truncated_isAnError();
    void truncated_isReadAsFarAsItGoes_data() { truncated_isAnError_data(); }
    void truncated_isReadAsFarAsItGoes();
    void whole_losesNothing_whenPartial_data() { truncated_isAnError_data(); }
    void whole_losesNothing_whenPartial();
    void damaged_isAnError();
    void unclosedWav_isReadToItsEnd_data();
    void unclosedWav_isReadToItsEnd();
    void emptyWav_isNotTakenForAnUnclosedOne();
    void streamedWav_isRead_whenItsSizeIsAPlaceholder();
    void pipe_isReadWithoutAKnownLength();
    void pipe_isReadToItsEnd_whenTheDecoderSeeks_data();
    void pipe_isReadToItsEnd_whenTheDecoderSeeks();
    void pipe_isRefused_whenItCannotBeKept();

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

void tst_AudioFileReader::truncated_isAnError_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("WAV") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    QTest::newRow("AIFF") << int(SF_FORMAT_AIFF | SF_FORMAT_PCM_16);
    QTest::newRow("FLAC") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
    QTest::newRow("Ogg Vorbis") << int(SF_FORMAT_OGG | SF_FORMAT_VORBIS);
    QTest::newRow("Opus") << kOpus;
    QTest::newRow("MP3") << int(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III);
}

void tst_AudioFileReader::truncated_isAnError()
{
    QFETCH(int, format);
    const QString path = _Path("whole");
    QVERIFY(testaudio::Write(path, format, 48000, 1, testaudio::Kicks(48000, 120, 4.0)));
    const QByteArray whole = testaudio::ReadBytes(path);
    for (const int percent : {20, 50, 90}) {
        const QString cut = _Path("cut");
        QVERIFY(testaudio::WriteBytes(cut, whole.left(whole.size() * percent / 100)));
        AudioFileReader reader;
        if (reader.Open(cut))
            ReadAll(reader, 1024);
        QVERIFY2(reader.getError().contains(QLatin1String("truncated")) ||
                     reader.getError().contains(QLatin1String("damaged")),
                 qPrintable(QString::number(percent) + reader.getError()));
    }
}

void tst_AudioFileReader::damaged_isAnError()
{
    const QString path = _Path("damaged.flac");
    QVERIFY(testaudio::Write(
        path, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 44100, 1, testaudio::Kicks(44100, 120, 4.0)));
    QByteArray bytes = testaudio::ReadBytes(path);
    bytes.replace(bytes.size() / 2, 2000, QByteArray(2000, '\0'));
    QVERIFY(testaudio::WriteBytes(path, bytes));
    AudioFileReader reader;
    QVERIFY(reader.Open(path));
    const std::vector<qint16> samples = ReadAll(reader, 1024);
    QVERIFY2(reader.getError().contains(QLatin1String("damaged")), qPrintable(reader.getError()));
    AudioFileReader partial;
    partial.setPartial();
    QVERIFY(partial.Open(path));
    QCOMPARE(ReadAll(partial, 1024), samples);
    QCOMPARE(partial.getError(), QString());
    QVERIFY2(partial.getLoss().contains(QLatin1String("damaged")), qPrintable(partial.getLoss()));
    QVERIFY(samples.size() > 44100);
}

void tst_AudioFileReader::truncated_isReadAsFarAsItGoes()
{
    QFETCH(int, format);
    const QString path = _Path("whole");
    // Noise, so that every codec has something to write in every part of it.
    std::vector<float> noise(8 * 48000);
    std::uint32_t state = 1;
    for (float& sample : noise)
        sample = float((state = state * 1664525u + 1013904223u) >> 8) / float(1 << 25) - 0.25f;
    QVERIFY(testaudio::Write(path, format, 48000, 1, noise));
    AudioFileReader wholeReader;
    QVERIFY(wholeReader.Open(path));
    const std::vector<qint16> samples = ReadAll(wholeReader, 1024);
    const QByteArray whole = testaudio::ReadBytes(path);
    const QString cut = _Path("cut");
    QVERIFY(testaudio::WriteBytes(cut, whole.left(whole.size() * 3 / 4)));
    AudioFileReader reader;
    reader.setPartial();
    QVERIFY2(reader.Open(cut), qPrintable(reader.getError()));
    const std::vector<qint16> part = ReadAll(reader, 1024);
    QCOMPARE(reader.getError(), QString());
    QVERIFY(!reader.getLoss().isEmpty());
    // Codecs pack strokes and pauses differently.
    QVERIFY2(part.size() > samples.size() / 2 && part.size() < samples.size(),
             qPrintable(QString::number(part.size())));
    const std::size_t sure = part.size() - 4096;
    QVERIFY(std::equal(part.begin(), part.begin() + std::ptrdiff_t(sure), samples.begin()));
}

void tst_AudioFileReader::whole_losesNothing_whenPartial()
{
    QFETCH(int, format);
    const QString path = _Path("whole");
    QVERIFY(testaudio::Write(path, format, 48000, 1, testaudio::Kicks(48000, 120, 1.0)));
    AudioFileReader reader;
    reader.setPartial();
    QVERIFY(reader.Open(path));
    QCOMPARE(ReadAll(reader, 1024).size(), std::size_t(48000));
    QCOMPARE(reader.getLoss(), QString());
}

void tst_AudioFileReader::unclosedWav_isReadToItsEnd_data()
{
    QTest::addColumn<QByteArray>("fileSize");
    QTest::addColumn<int>("format");
    const QByteArray none(4, '\0');
    const int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    QTest::newRow("no size at all") << none << wav;
    QTest::newRow("size of the head") << QByteArray("\x24\0\0\0", 4) << wav;
    QTest::newRow("size of the format") << QByteArray("\x08\0\0\0", 4) << wav;
    QTest::newRow("extensible") << none << int(SF_FORMAT_WAVEX | SF_FORMAT_PCM_24);
}

// As a recorder leaves a file that was cut off: the samples are there, their number is not.
void tst_AudioFileReader::unclosedWav_isReadToItsEnd()
{
    QFETCH(QByteArray, fileSize);
    QFETCH(int, format);
    const QString path = _Path("unclosed.wav");
    std::vector<qint16> samples;
    for (int i = 0; i < 9001; ++i)
        samples.push_back(qint16(i % 2000 - 1000));
    QVERIFY(testaudio::WriteIntegers(path, format, 44100, 1, samples));
    QByteArray bytes = testaudio::ReadBytes(path);
    bytes.replace(4, 4, fileSize).replace(bytes.indexOf("data") + 4, 4, QByteArray(4, '\0'));
    QVERIFY(testaudio::WriteBytes(path, bytes));
    AudioFileReader strict;
    QVERIFY(!strict.Open(path));
    QVERIFY2(strict.getLoss().contains(QLatin1String("not closed")), qPrintable(strict.getLoss()));
    QVERIFY(strict.getError().startsWith(strict.getLoss()));
    AudioFileReader reader;
    reader.setPartial();
    QVERIFY2(reader.Open(path), qPrintable(reader.getError()));
    QCOMPARE(ReadAll(reader, 1000), samples);
    QCOMPARE(reader.getError(), QString());
    QCOMPARE(reader.getLoss(), strict.getLoss());
}

void tst_AudioFileReader::emptyWav_isNotTakenForAnUnclosedOne()
{
    const QString path = _Path("empty.wav");
    QVERIFY(testaudio::Write(path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, {}));
    QByteArray bytes = testaudio::ReadBytes(path);
    bytes += QByteArray("LIST\x0a\0\0\0INFO  ", 14);
    QVERIFY(testaudio::WriteBytes(path, bytes));
    AudioFileReader reader;
    QVERIFY(reader.Open(path));
    QCOMPARE(ReadAll(reader, 1000).size(), std::size_t(0));
    QCOMPARE(reader.getLoss(), QString());
}

void tst_AudioFileReader::streamedWav_isRead_whenItsSizeIsAPlaceholder()
{
    const QString path = _Path("streamed.wav");
    const std::vector<qint16> samples = {1, 2, 3, 4, 5};
    QVERIFY(testaudio::WriteIntegers(path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, samples));
    QByteArray bytes = testaudio::ReadBytes(path);
    // Sizes of the file (at 4) and of its samples (at 40), as a program that writes to a pipe
    // leaves them.
    bytes.replace(4, 4, QByteArray(4, '\xff')).replace(40, 4, QByteArray(4, '\xff'));
    QVERIFY(testaudio::WriteBytes(path, bytes));
    AudioFileReader reader;
    QVERIFY2(reader.Open(path), qPrintable(reader.getError()));
    QCOMPARE(ReadAll(reader, 1024), samples);
    QCOMPARE(reader.getError(), QString());
}

void tst_AudioFileReader::pipe_isReadWithoutAKnownLength()
{
    const QString path = _Path("pipe");
    const QString source = _Path("source.wav");
    const std::vector<qint16> samples(3000, 77);
    QVERIFY(testaudio::WriteIntegers(source, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, samples));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    std::thread writer([&] { testaudio::WriteBytes(path, testaudio::ReadBytes(source)); });
    AudioFileReader reader;
    const bool isOpen = reader.Open(path);
    const std::vector<qint16> read = isOpen ? ReadAll(reader, 1024) : std::vector<qint16>();
    writer.join();
    QVERIFY2(isOpen, qPrintable(reader.getError()));
    QCOMPARE(reader.getFrameCount(), quint64(0));
    QCOMPARE(read, samples);
    QCOMPARE(reader.getError(), QString());
}

void tst_AudioFileReader::pipe_isReadToItsEnd_whenTheDecoderSeeks_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("FLAC") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
    QTest::newRow("CAF") << int(SF_FORMAT_CAF | SF_FORMAT_PCM_16);
}

void tst_AudioFileReader::pipe_isReadToItsEnd_whenTheDecoderSeeks()
{
    QFETCH(int, format);
    QFile::remove(_Path("pipe"));
    const QString source = _Path("source");
    // More than a pipe holds at a time.
    const std::vector<float> music = testaudio::Kicks(44100, 120, 4.0);
    QVERIFY(testaudio::Write(source, format, 44100, 1, music));
    AudioFileReader whole;
    QVERIFY(whole.Open(source));
    const std::vector<qint16> expected = ReadAll(whole, 1024);
    QCOMPARE(::mkfifo(QFile::encodeName(_Path("pipe")).constData(), 0600), 0);
    std::thread writer([&] { testaudio::WriteBytes(_Path("pipe"), testaudio::ReadBytes(source)); });
    AudioFileReader reader;
    const bool isOpen = reader.Open(_Path("pipe"));
    writer.join();
    QVERIFY2(isOpen, qPrintable(reader.getError()));
    QCOMPARE(reader.getFrameCount(), quint64(music.size()));
    QCOMPARE(ReadAll(reader, 1000), expected);
    QCOMPARE(reader.getError(), QString());
}

void tst_AudioFileReader::pipe_isRefused_whenItCannotBeKept()
{
    QFile::remove(_Path("pipe"));
    QCOMPARE(::mkfifo(QFile::encodeName(_Path("pipe")).constData(), 0600), 0);
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(_Path("nowhere")));
    std::thread writer([&] { testaudio::WriteBytes(_Path("pipe"), "fLaC and so on"); });
    AudioFileReader reader;
    const bool isOpen = reader.Open(_Path("pipe"));
    writer.join();
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    QVERIFY(!isOpen);
    QVERIFY2(reader.getError().contains(_Path("nowhere")), qPrintable(reader.getError()));
    QVERIFY2(reader.getError().contains(QLatin1String("save it to a file")),
             qPrintable(reader.getError()));
}

AA_TEST(tst_AudioFileReader, NoApplication)
#include "tst_AudioFileReader.moc"
