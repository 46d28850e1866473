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

/// libsndfile forgets to free its Vorbis decoder when a file is cut off inside the decoder's
/// headers.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:vorbis_info_init";
}

/// What is cut short, damaged, unfinished or comes from a pipe.
class tst_AudioFileReader_damage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

void tst_AudioFileReader_damage::truncated_isAnError_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("WAV") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    QTest::newRow("AIFF") << int(SF_FORMAT_AIFF | SF_FORMAT_PCM_16);
    QTest::newRow("FLAC") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
    QTest::newRow("Ogg Vorbis") << int(SF_FORMAT_OGG | SF_FORMAT_VORBIS);
    QTest::newRow("Opus") << kOpus;
    QTest::newRow("MP3") << int(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III);
}

void tst_AudioFileReader_damage::truncated_isAnError()
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

void tst_AudioFileReader_damage::damaged_isAnError()
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

void tst_AudioFileReader_damage::truncated_isReadAsFarAsItGoes()
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

void tst_AudioFileReader_damage::whole_losesNothing_whenPartial()
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

void tst_AudioFileReader_damage::unclosedWav_isReadToItsEnd_data()
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
void tst_AudioFileReader_damage::unclosedWav_isReadToItsEnd()
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

void tst_AudioFileReader_damage::emptyWav_isNotTakenForAnUnclosedOne()
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

void tst_AudioFileReader_damage::streamedWav_isRead_whenItsSizeIsAPlaceholder()
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

void tst_AudioFileReader_damage::pipe_isReadWithoutAKnownLength()
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

void tst_AudioFileReader_damage::pipe_isReadToItsEnd_whenTheDecoderSeeks_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("FLAC") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
    QTest::newRow("CAF") << int(SF_FORMAT_CAF | SF_FORMAT_PCM_16);
}

void tst_AudioFileReader_damage::pipe_isReadToItsEnd_whenTheDecoderSeeks()
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

void tst_AudioFileReader_damage::pipe_isRefused_whenItCannotBeKept()
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

AA_TEST(tst_AudioFileReader_damage, NoApplication)
#include "tst_AudioFileReader_damage.moc"
