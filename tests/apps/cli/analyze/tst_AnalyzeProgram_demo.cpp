// SPDX-License-Identifier: MIT
#include <demo/DemoTrack.h>

#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <apps/cli/analyze/ProgramRunner.h>
#include <apps/shared/files/TestAudio.h>
#include <cmath>
#include <support/TestClass.h>

namespace {

constexpr double kDemoBlock = 1024.0 / 44100;  ///< seconds

std::vector<double> Times(const QByteArray& pText)
{
    std::vector<double> times;
    for (const QByteArray& line : pText.split('\n'))
        if (!line.isEmpty())
            times.push_back(line.toDouble());
    return times;
}

double DistanceTo(const std::vector<double>& pTimes, double pTime)
{
    double best = 1e9;
    for (const double time : pTimes)
        best = std::min(best, std::abs(time - pTime));
    return best;
}

/// How many of pTimes have one of pOthers within pTolerance seconds, in per cent.
double
Share(const std::vector<double>& pTimes, const std::vector<double>& pOthers, double pTolerance)
{
    const auto hits = std::count_if(pTimes.begin(), pTimes.end(), [&](double pTime) {
        return DistanceTo(pOthers, pTime) <= pTolerance + 1e-6;
    });
    return 100.0 * double(hits) / double(std::max<std::size_t>(1, pTimes.size()));
}

ProgramRun AnalyzeByProfile(const QString& pArguments)
{
    return Analyze(QStringLiteral("--tracker profile ") + pArguments);
}

}  // namespace

/// The demo track, whose beats are known, in four formats.
class tst_AnalyzeProgram_demo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void tempo_isThatOfTheScore_data();
    void tempo_isThatOfTheScore();
    void beats_areThoseOfTheScore();
    void beats_areThoseOfTheScore_withTheAutomaticTracker();
    void breakdown_isBridgedByVirtualBeats();
    void stop_isSilent();
    void codecs_giveTheSameBeats_data();
    void codecs_giveTheSameBeats();

private:
    QTemporaryDir m_folder;
    DemoTrack m_track{DemoTrack::Options()};
    std::vector<double> m_beats;  ///< of the WAV file
};

void tst_AnalyzeProgram_demo::initTestCase()
{
    QVERIFY(QDir::setCurrent(m_folder.path()));
    std::vector<float> frames(std::size_t(m_track.getFrameCount()) * 2);
    QCOMPARE(m_track.Read(frames.data(), m_track.getFrameCount()),
             std::size_t(m_track.getFrameCount()));
    const auto write = [&](const char* pName, int pFormat) {
        return testaudio::Write(QLatin1String(pName), pFormat, m_track.getSampleRate(), 2, frames);
    };
    QVERIFY(write("demo.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16));
    QVERIFY(write("demo.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16));
    QVERIFY(write("demo.mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III));
    QVERIFY(write("demo.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS));
    m_beats = Times(AnalyzeByProfile(QStringLiteral("demo.wav")).output);
    QVERIFY(m_beats.size() > 80);
}

void tst_AnalyzeProgram_demo::tempo_isThatOfTheScore_data()
{
    QTest::addColumn<QString>("file");
    for (const char* pFile : {"demo.wav", "demo.flac", "demo.mp3", "demo.ogg"})
        QTest::newRow(pFile) << pFile;
}

void tst_AnalyzeProgram_demo::tempo_isThatOfTheScore()
{
    QFETCH(QString, file);
    const auto tempoOf = [](const QByteArray& pLine) { return pLine.split('\t').at(1).toDouble(); };
    const double score = m_track.getArrangement().getBPM();
    const QByteArray line = Analyze(file + QStringLiteral(" -f tempo")).output;
    QVERIFY2(std::abs(tempoOf(line) - score) <= 0.05, line.constData());
    const QByteArray engine = AnalyzeByProfile(file + QStringLiteral(" -f tempo")).output;
    QVERIFY2(std::abs(tempoOf(engine) - score) <= 0.5, engine.constData());
}

// A pulse is a block that is loud enough for a quarter of its length, so a beat may be told in the
// block that holds its stroke or in the next one: mostly within one block, nearly always within
// two.
void tst_AnalyzeProgram_demo::beats_areThoseOfTheScore()
{
    std::vector<double> kicks;
    for (const double time : m_track.getArrangement().getKickTimes(m_track.getDuration())) {
        // Music is told from silence after 1.5 s, at the start and after the stop.
        const auto silences = m_track.getArrangement().getSilences(m_track.getDuration());
        const bool isAfterStop =
            std::any_of(silences.begin(), silences.end(), [&](const TimeSpan& pSpan) {
                return time >= pSpan.end && time < pSpan.end + 2.0;
            });
        if (time >= 2.0 && !isAfterStop)
            kicks.push_back(time);
    }
    QVERIFY(kicks.size() > 60);
    const double within1 = Share(kicks, m_beats, kDemoBlock);
    const double within2 = Share(kicks, m_beats, 2 * kDemoBlock);
    QVERIFY2(within1 > 60.0, qPrintable(QString::number(within1)));
    QVERIFY2(within2 > 97.0, qPrintable(QString::number(within2)));
}

// Within the 70 ms that a listener forgives, the breakdown without drums included; what comes
// behind the stop is found within three seconds.
void tst_AnalyzeProgram_demo::beats_areThoseOfTheScore_withTheAutomaticTracker()
{
    const std::vector<double> beats = Times(Analyze(QStringLiteral("demo.wav")).output);
    const double period = 60.0 / m_track.getArrangement().getBPM();
    const TimeSpan stop = m_track.getArrangement().getSilences(m_track.getDuration()).front();
    std::vector<double> score;
    for (double time = 0.0; time < m_track.getDuration() - 2.0; time += period)
        if ((time > 4.0 && time < stop.start) || time > stop.end + 3.0)
            score.push_back(time);
    const double share = Share(score, beats, 0.07);
    QVERIFY2(share >= 97.0, qPrintable(QString::number(share)));
    QVERIFY(std::none_of(beats.begin(), beats.end(), [&](double pTime) {
        return pTime > stop.start + 2.0 && pTime < stop.end;
    }));
}

void tst_AnalyzeProgram_demo::breakdown_isBridgedByVirtualBeats()
{
    const std::vector<double> real =
        Times(AnalyzeByProfile(QStringLiteral("demo.wav --real-only")).output);
    const auto breakdowns = m_track.getArrangement().getBreakdowns(m_track.getDuration());
    QVERIFY(!breakdowns.empty());
    for (const TimeSpan& span : breakdowns) {
        const auto inside = [&](double pTime) {
            return pTime > span.start + 0.5 && pTime < span.end - 0.5;
        };
        const auto all = std::count_if(m_beats.begin(), m_beats.end(), inside);
        const auto wanted =
            (span.end - span.start - 1.0) * m_track.getArrangement().getBPM() / 60.0;
        QVERIFY2(std::abs(double(all) - wanted) <= 1.5, qPrintable(QString::number(all)));
        QCOMPARE(std::count_if(real.begin(), real.end(), inside), std::ptrdiff_t(0));
    }
}

// Silence is known 3 s after its beginning at the latest: two stop blocks.
void tst_AnalyzeProgram_demo::stop_isSilent()
{
    for (const TimeSpan& span : m_track.getArrangement().getSilences(m_track.getDuration())) {
        QCOMPARE(std::count_if(
                     m_beats.begin(),
                     m_beats.end(),
                     [&](double pTime) { return pTime > span.start + 3.0 && pTime < span.end; }),
                 std::ptrdiff_t(0));
    }
}

void tst_AnalyzeProgram_demo::codecs_giveTheSameBeats_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<double>("share");  // of all beats, per cent, within one block
    QTest::newRow("FLAC") << "demo.flac" << 100.0;
    QTest::newRow("MP3") << "demo.mp3" << 95.0;
    QTest::newRow("Ogg Vorbis") << "demo.ogg" << 95.0;
}

// Before the stop all beats are the same within one block. Behind it the threshold has to find its
// level again, many blocks are pulses, and their loudness may differ by less than a codec changes.
void tst_AnalyzeProgram_demo::codecs_giveTheSameBeats()
{
    QFETCH(QString, file);
    QFETCH(double, share);
    const std::vector<double> beats = Times(AnalyzeByProfile(file).output);
    QCOMPARE(beats.size(), m_beats.size());
    QVERIFY(Share(m_beats, beats, kDemoBlock) >= share);
    const double stop = m_track.getArrangement().getSilences(m_track.getDuration()).front().start;
    for (std::size_t i = 0; i < beats.size() && m_beats[i] < stop; ++i)
        QVERIFY2(std::abs(beats[i] - m_beats[i]) <= kDemoBlock + 1e-6,
                 qPrintable(QString::number(m_beats[i])));
}

AA_TEST(tst_AnalyzeProgram_demo, QCoreApplication)
#include "tst_AnalyzeProgram_demo.moc"
