// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterFollower.h>

#include "MeterMusic.h"
#include "TrackedBeats.h"

#include <QtTest>

#include <support/TestClass.h>

namespace {

constexpr int kFollowedRate = 44100;

/// All that a follower tells, in words and in order.
class Followed
{
public:
    Followed()
    {
        using F = MeterFollower;
        QObject::connect(&follower, &F::OnBeatFound, [this](const MeterTracker::Beat& pBeat) {
            isAhead = isAhead || pBeat.index >= tracker.getSampleCount();
            beats.push_back(pBeat);
            events << QStringLiteral("beat %1").arg(pBeat.index);
        });
        QObject::connect(&follower, &F::OnTempoFound, [this](quint64 pIndex, double pBPM) {
            tempos.emplace_back(pIndex, pBPM);
            events << QStringLiteral("tempo %1 %2").arg(pIndex).arg(pBPM);
        });
        QObject::connect(&follower, &F::OnPlayingChanged, [this](quint64 pIndex, bool pIsPlaying) {
            changes.emplace_back(pIndex, pIsPlaying);
            events << QStringLiteral("playing %1 %2").arg(pIndex).arg(pIsPlaying);
        });
        follower.Follow(&tracker);
    }

    void push(const std::vector<qint16>& pSamples, std::size_t pPortion)
    {
        for (std::size_t i = 0; i < pSamples.size(); i += pPortion)
            follower.Push(&pSamples[i], std::min(pPortion, pSamples.size() - i));
    }

    MeterTracker tracker{kFollowedRate};
    MeterFollower follower;
    std::vector<MeterTracker::Beat> beats;
    std::vector<std::pair<quint64, double>> tempos;
    std::vector<std::pair<quint64, bool>> changes;
    QStringList events;
    bool isAhead = false;
};

}  // namespace

class tst_MeterFollower : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beats_areThoseForeseen_onceTheirSampleIsThere();
    void beatBehindTheEnd_isNotTold();
    void events_areTheSame_inPortionsOfAnySize_data();
    void events_areTheSame_inPortionsOfAnySize();
    void tempo_isToldBehindItsBeat();
    void playing_isToldFromTheBeginning_overMusic();
    void playing_isToldFromTheBeginning_overSilence();
    void restart_forgetsTheBeatThatWaits();
};

void tst_MeterFollower::beats_areThoseForeseen_onceTheirSampleIsThere()
{
    const std::vector<qint16> samples =
        MeterMusic(kFollowedRate).play(120.0, 8.0).rest(0.1).samples();
    TrackedBeats foreseen(kFollowedRate);
    foreseen.push(samples);
    Followed followed;
    followed.push(samples, 100);
    QVERIFY(!followed.isAhead);
    QVERIFY(foreseen.beats.size() > 10);
    QVERIFY(followed.beats == foreseen.beats);
}

// The audio ends between the moment when a beat is foreseen and its sample.
void tst_MeterFollower::beatBehindTheEnd_isNotTold()
{
    const std::vector<qint16> samples = MeterMusic(kFollowedRate).play(120.0, 8.0).samples();
    MeterTracker tracker(kFollowedRate);
    quint64 end = 0;
    QObject::connect(&tracker, &MeterTracker::OnBeatForeseen, [&](const MeterTracker::Beat& pBeat) {
        if (pBeat.index > tracker.getSampleCount() + 10)
            end = tracker.getSampleCount();
    });
    tracker.Push(samples.data(), samples.size());
    // The signal comes in the middle of the portion; portions of a frame tell where.
    TrackedBeats foreseen(kFollowedRate);
    const std::vector<qint16> cut(samples.begin(), samples.begin() + std::ptrdiff_t(end));
    foreseen.push(cut);
    QVERIFY(!foreseen.beats.empty() && foreseen.beats.back().index >= end);
    Followed followed;
    followed.push(cut, 1024);
    QCOMPARE(followed.beats.size(), foreseen.beats.size() - 1);
}

void tst_MeterFollower::events_areTheSame_inPortionsOfAnySize_data()
{
    QTest::addColumn<int>("portion");
    for (const int portion : {7, 441, 1024, 1000000})
        QTest::addRow("%d", portion) << portion;
}

void tst_MeterFollower::events_areTheSame_inPortionsOfAnySize()
{
    QFETCH(int, portion);
    const std::vector<qint16> samples =
        MeterMusic(kFollowedRate).rest(1.0).play(100.0, 6.0).rest(3.0).play(140.0, 6.0).samples();
    Followed expected;
    expected.push(samples, 441);
    Followed followed;
    followed.push(samples, std::size_t(portion));
    QVERIFY(expected.events.size() > 20);
    QCOMPARE(followed.events, expected.events);
}

void tst_MeterFollower::tempo_isToldBehindItsBeat()
{
    Followed followed;
    followed.push(MeterMusic(kFollowedRate).play(100.0, 6.0).play(140.0, 8.0).samples(), 1024);
    QVERIFY(followed.tempos.size() >= 2);
    for (const auto& [index, bpm] : followed.tempos) {
        const int place =
            followed.events.indexOf(QStringLiteral("tempo %1 %2").arg(index).arg(bpm));
        QVERIFY(place > 0);
        QCOMPARE(followed.events[place - 1], QStringLiteral("beat %1").arg(index));
    }
    QVERIFY(std::fabs(followed.tempos.back().second / 140.0 - 1.0) < 0.02);
}

void tst_MeterFollower::playing_isToldFromTheBeginning_overMusic()
{
    Followed followed;
    followed.push(MeterMusic(kFollowedRate).play(120.0, 3.0).samples(), 1024);
    QVERIFY(followed.changes == (std::vector<std::pair<quint64, bool>>{{0, true}}));
}

void tst_MeterFollower::playing_isToldFromTheBeginning_overSilence()
{
    Followed followed;
    followed.push(std::vector<qint16>(kFollowedRate), 1000);
    QVERIFY(followed.changes == (std::vector<std::pair<quint64, bool>>{{0, false}}));
    QVERIFY(followed.beats.empty() && followed.tempos.empty());
}

void tst_MeterFollower::restart_forgetsTheBeatThatWaits()
{
    const std::vector<qint16> samples = MeterMusic(kFollowedRate).play(120.0, 6.0).samples();
    Followed followed;
    followed.push(samples, 1024);
    const QStringList first = followed.events;
    followed.follower.m_waits = MeterTracker::Beat{5, 99.0, 1, 0.5, 0.5};
    followed.events.clear();
    followed.tracker.Reset();
    followed.follower.Restart();
    followed.push(samples, 1024);
    QCOMPARE(followed.events, first);
}

AA_TEST(tst_MeterFollower, NoApplication)
#include "tst_MeterFollower.moc"
