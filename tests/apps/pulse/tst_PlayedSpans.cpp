// SPDX-License-Identifier: MIT
#include <shared/pulse/detail/Fader.h>
#include <shared/pulse/detail/PlayedSpans.h>

#include <QtTest>

#include <support/TestClass.h>
#include <vector>

class tst_PlayedSpans : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_isHeard_beforeTheFirstSound();
    void sound_isCounted_upToWhatThereIs();
    void pauses_doNotCount();
    void oldSpans_areForgotten();
    void fader_closesAndOpens_withoutAStep();
    void fader_leaps_beforeTheFirstSound();
};

void tst_PlayedSpans::nothing_isHeard_beforeTheFirstSound()
{
    pulse::PlayedSpans spans;
    QCOMPARE(spans.getSound(0), quint64(0));
    spans.AddSound(0);
    spans.AddPause(100);
    QCOMPARE(spans.getSound(50), quint64(0));
    QCOMPARE(spans.getSound(500), quint64(0));
}

void tst_PlayedSpans::sound_isCounted_upToWhatThereIs()
{
    pulse::PlayedSpans spans;
    spans.AddSound(100);
    spans.AddSound(50);
    QCOMPARE(spans.getSound(0), quint64(0));
    QCOMPARE(spans.getSound(120), quint64(120));
    QCOMPARE(spans.getSound(150), quint64(150));
    QCOMPARE(spans.getSound(900), quint64(150));
}

void tst_PlayedSpans::pauses_doNotCount()
{
    pulse::PlayedSpans spans;
    spans.AddPause(10);
    spans.AddSound(100);  // 10 to 110 of the stream
    spans.AddPause(40);
    spans.AddPause(50);
    spans.AddSound(30);  // 200 to 230
    QCOMPARE(spans.getSound(5), quint64(0));
    QCOMPARE(spans.getSound(60), quint64(50));
    QCOMPARE(spans.getSound(110), quint64(100));
    QCOMPARE(spans.getSound(199), quint64(100));
    QCOMPARE(spans.getSound(210), quint64(110));
    QCOMPARE(spans.getSound(1000), quint64(130));
    // And the other way round.
    QCOMPARE(spans.getPlace(0), quint64(10));
    QCOMPARE(spans.getPlace(99), quint64(109));
    QCOMPARE(spans.getPlace(100), quint64(200));
    QCOMPARE(spans.getPlace(150), quint64(250));
}

void tst_PlayedSpans::oldSpans_areForgotten()
{
    pulse::PlayedSpans spans;
    for (int i = 0; i < 1000; ++i) {
        spans.AddSound(10);
        spans.AddPause(10);
    }
    QCOMPARE(spans.getSound(19995), quint64(10000));
    QCOMPARE(spans.getSound(19985), quint64(9995));
    // What is asked of times long ago is no more than was heard by then at last.
    QCOMPARE(spans.getSound(0), quint64(10 * (1000 - pulse::PlayedSpans::kLongest)));
}

void tst_PlayedSpans::fader_closesAndOpens_withoutAStep()
{
    pulse::Fader fader(4);
    std::vector<qint16> samples(6, 1000);
    fader.Apply(samples.data(), samples.size());
    QCOMPARE(samples, std::vector<qint16>({1000, 1000, 1000, 1000, 1000, 1000}));
    fader.setOpen(false);
    fader.Apply(samples.data(), samples.size());
    QCOMPARE(samples, std::vector<qint16>({750, 500, 250, 0, 0, 0}));
    samples.assign(6, 1000);
    fader.setOpen(true);
    fader.Apply(samples.data(), samples.size());
    QCOMPARE(samples, std::vector<qint16>({250, 500, 750, 1000, 1000, 1000}));
}

void tst_PlayedSpans::fader_leaps_beforeTheFirstSound()
{
    pulse::Fader fader(4);
    fader.setOpen(false);
    fader.Leap();
    std::vector<qint16> samples(2, 1000);
    fader.Apply(samples.data(), samples.size());
    QCOMPARE(samples, std::vector<qint16>({0, 0}));
}

AA_TEST(tst_PlayedSpans, NoApplication)
#include "tst_PlayedSpans.moc"
