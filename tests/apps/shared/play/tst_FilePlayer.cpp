// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/play/FilePlayer.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <apps/shared/files/TestAudio.h>
#include <cmath>
#include <support/TestClass.h>
#include <support/VirtualTime.h>
#include <vector>

namespace {

constexpr int kPlayedRate = 48000;  // Hz

/// Music at 128 BPM.
std::vector<qint16> Strokes(double pSeconds)
{
    std::vector<qint16> samples;
    for (const float sample : testaudio::Kicks(kPlayedRate, 128.0, pSeconds))
        samples.push_back(qint16(std::lround(32767.0F * sample)));
    return samples;
}

}  // namespace

Q_DECLARE_METATYPE(eCaptureNotice)

/// Files, analysed at real speed.
class tst_FilePlayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void file_isAnalysedAtRealSpeed();
    void file_isAnalysedWhole();
    void length_andPosition_areTold();
    void end_stopsTheAnalysis();
    void looped_goesOn();
    void emptyFile_ends_whenLooped();
    void missingFile_isSaid();
    void level_isNoticed();
    void heldUp_isAnchoredAnew();

private:
    QString _Write(const char* pName, const std::vector<qint16>& pSamples)
    {
        const QString path = m_folder.filePath(QLatin1String(pName));
        if (!testaudio::WriteIntegers(
                path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, kPlayedRate, 1, pSamples))
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    QTemporaryDir m_folder;
    Configuration m_configuration;
};

void tst_FilePlayer::initTestCase()
{
    qRegisterMetaType<eCaptureNotice>("eCaptureNotice");
}

void tst_FilePlayer::file_isAnalysedAtRealSpeed()
{
    FilePlayer player(m_configuration);
    QSignalSpy created(&player, &FilePlayer::OnAnalyzerCreated);
    QSignalSpy anchored(&player, &FilePlayer::OnAnchored);
    player.Open(_Write("four.wav", Strokes(4.0)), false);
    QVERIFY(anchored.wait(5000));
    QCOMPARE(created.count(), 1);
    QCOMPARE(player.getSampleRate(), kPlayedRate);
    QElapsedTimer clock;
    clock.start();
    QTest::qWait(2000);
    const double heard = double(player.getAnalyzer()->m_sampleIndex) / kPlayedRate;
    // Blocks of 21 ms are analysed every 40 ms; a busy machine may be later.
    const double elapsed = double(clock.elapsed()) / 1000.0;
    QVERIFY2(heard > elapsed - 0.4 && heard <= elapsed + 0.05, qPrintable(QString::number(heard)));
    QCOMPARE(anchored.count(), 1);
}

void tst_FilePlayer::file_isAnalysedWhole()
{
    FilePlayer player(m_configuration);
    QSignalSpy ended(&player, &FilePlayer::OnEnded);
    // Not a multiple of a chunk, nor of a block.
    const std::vector<qint16> samples = Strokes(1.7);
    quint64 count = 0;
    std::vector<qint16> heard;
    connect(&player, &FilePlayer::OnAnalyzerCreated, this, [&](AudioAnalyzer* pAnalyzer) {
        connect(pAnalyzer,
                &AudioAnalyzer::OnAudioSamplesAnalyzed,
                this,
                [&](unsigned, const qint16* pSamples, unsigned pCount) {
                    count += pCount;
                    // Raw while the music still counts as stopped.
                    if (count <= 20480)
                        heard.insert(heard.end(), pSamples, pSamples + pCount);
                });
    });
    player.Open(_Write("odd.wav", samples), false);
    QVERIFY(ended.wait(10000));
    QCOMPARE(count, quint64(samples.size() / 1024 * 1024));
    QVERIFY(std::equal(heard.begin(), heard.end(), samples.begin()));
}

void tst_FilePlayer::length_andPosition_areTold()
{
    FilePlayer player(m_configuration);
    QCOMPARE(player.getSource().length, 0.0);
    QCOMPARE(player.getSource().position, 0.0);
    QSignalSpy anchored(&player, &FilePlayer::OnAnchored);
    player.Open(_Write("four.wav", Strokes(4.0)), false);
    QVERIFY(anchored.wait(5000));
    QCOMPARE(player.getSource().length, 4.0);
    QTRY_VERIFY(player.getSource().position > 0.3);
    QVERIFY(player.getSource().position < 4.0);
}

void tst_FilePlayer::end_stopsTheAnalysis()
{
    FilePlayer player(m_configuration);
    QSignalSpy ended(&player, &FilePlayer::OnEnded);
    player.Open(_Write("short.wav", Strokes(0.3)), false);
    QVERIFY(ended.wait(5000));
    QCOMPARE(ended.first().first().toString(), QString());
    QVERIFY(!player.getAnalyzer()->isAnalyzing());
    QTest::qWait(150);
    QCOMPARE(ended.count(), 1);
}

void tst_FilePlayer::looped_goesOn()
{
    FilePlayer player(m_configuration);
    QSignalSpy ended(&player, &FilePlayer::OnEnded);
    QSignalSpy anchored(&player, &FilePlayer::OnAnchored);
    player.Open(_Write("short.wav", Strokes(0.3)), true);
    QTRY_VERIFY(player.getAnalyzer() && player.getAnalyzer()->m_sampleIndex > 48000);
    QCOMPARE(ended.count(), 0);
    // Without a gap: the count of samples goes on.
    QCOMPARE(anchored.count(), 1);
    QVERIFY(player.getSource().position < 0.3);
}

void tst_FilePlayer::emptyFile_ends_whenLooped()
{
    FilePlayer player(m_configuration);
    QSignalSpy ended(&player, &FilePlayer::OnEnded);
    player.Open(_Write("empty.wav", {}), true);
    QVERIFY(ended.wait(5000));
}

void tst_FilePlayer::missingFile_isSaid()
{
    FilePlayer player(m_configuration);
    QSignalSpy ended(&player, &FilePlayer::OnEnded);
    player.Open(m_folder.filePath(QStringLiteral("none.wav")), true);
    QVERIFY(ended.wait(5000));
    QVERIFY(ended.first().first().toString().contains(QLatin1String("no such file")));
    QVERIFY(!player.getAnalyzer());
}

void tst_FilePlayer::level_isNoticed()
{
    FilePlayer player(m_configuration);
    QSignalSpy notices(&player, &FilePlayer::OnNotice);
    player.Open(_Write("silent.wav", std::vector<qint16>(4 * kPlayedRate, 0)), false);
    QVERIFY(notices.wait(8000));
    QCOMPARE(notices.first().first().value<eCaptureNotice>(), eDigitalSilenceNotice);
    QCOMPARE(player.TakePeak(), 0);
}

void tst_FilePlayer::heldUp_isAnchoredAnew()
{
    FilePlayer player(m_configuration);
    QSignalSpy anchored(&player, &FilePlayer::OnAnchored);
    player.Open(_Write("four.wav", Strokes(4.0)), false);
    QVERIFY(anchored.wait(5000));
    const double position = player.getSource().position;
    QTest::qSleep(900);
    QVERIFY(anchored.wait(2000));
    // It goes on where it was, and does not catch up.
    QVERIFY(player.getSource().position < position + 0.3);
}

AA_TEST(tst_FilePlayer, InVirtualTime<QCoreApplication>)
#include "tst_FilePlayer.moc"
