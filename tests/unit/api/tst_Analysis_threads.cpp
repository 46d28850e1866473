// SPDX-License-Identifier: MIT
#include "PushedAnalysis.h"

#include <QtTest>

#include <atomic>
#include <support/TestClass.h>
#include <thread>
#include <vector>

namespace {

constexpr int kThreadRate = 22050;
constexpr int kThreads = 4;

waves::Samples Music(int pNumber)
{
    return waves::kickTrack(8.0, kThreadRate, 110.0 + 5.0 * pNumber);
}

QStringList EventsOf(int pNumber)
{
    PushedAnalysis analysis(kThreadRate);
    analysis.pushInPortions(Music(pNumber), 441);
    analysis.finish();
    return analysis.getEvents();
}

template <typename Step>
void InThreads(Step pStep)
{
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number)
        threads.emplace_back([pStep, number] { pStep(number); });
    for (std::thread& thread : threads)
        thread.join();
}

}  // namespace

/// One analysis a thread, many threads. Meant for a thread sanitizer as well.
class tst_Analysis_threads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void analyses_doNotDisturbEachOther();
    void analyses_comeAndGoInAllThreads();
    void analysis_mayWander();
    void errorText_belongsToTheThread();
};

void tst_Analysis_threads::analyses_doNotDisturbEachOther()
{
    std::vector<QStringList> events(kThreads);
    InThreads([&events](int pNumber) { events[std::size_t(pNumber)] = EventsOf(pNumber); });
    for (int number = 0; number < kThreads; ++number) {
        QVERIFY(events[std::size_t(number)].size() > 100);
        QCOMPARE(events[std::size_t(number)], EventsOf(number));
    }
}

void tst_Analysis_threads::analyses_comeAndGoInAllThreads()
{
    std::atomic<int> failures{0};
    InThreads([&failures](int pNumber) {
        for (int round = 0; round < 40; ++round) {
            const AnalysisHandle handle(AudioAnalysis_Create(kThreadRate));
            AudioAnalysisProfile profile = {};
            failures += AudioAnalysis_FindProfile("Slow", &profile) != AudioAnalysisError_None;
            failures +=
                AudioAnalysis_SelectProfile(handle.get(), "Hardcore") != AudioAnalysisError_None;
            const std::vector<float> samples(2000, 0.01f * float(pNumber));
            failures += AudioAnalysis_PushFloat(handle.get(), samples.data(), 1000, 2) !=
                        AudioAnalysisError_None;
            failures += AudioAnalysis_Restart(handle.get()) != AudioAnalysisError_None;
        }
    });
    QCOMPARE(failures.load(), 0);
    const AnalysisHandle handle(AudioAnalysis_Create(kThreadRate));
    AudioAnalysisProfile profile = {};
    QCOMPARE(AudioAnalysis_GetProfile(handle.get(), &profile), AudioAnalysisError_None);
    QCOMPARE(profile.maximalBPM, 175.0);
}

// Made here, fed by a new thread for every second, finished here.
void tst_Analysis_threads::analysis_mayWander()
{
    PushedAnalysis analysis(kThreadRate);
    const waves::Samples music = Music(0);
    for (std::size_t at = 0; at < music.size(); at += kThreadRate) {
        std::thread([&] {
            AudioAnalysis_PushInt16(
                analysis, &music[at], std::min<std::size_t>(kThreadRate, music.size() - at), 1);
        }).join();
    }
    analysis.finish();
    QCOMPARE(analysis.getEvents(), EventsOf(0));
}

void tst_Analysis_threads::errorText_belongsToTheThread()
{
    QVERIFY(!AudioAnalysis_Create(1));
    QByteArray there;
    std::thread([&there] {
        there = AudioAnalysis_GetErrorText(nullptr);
        AudioAnalysis_Create(2);
    }).join();
    QCOMPARE(there, QByteArray());
    QCOMPARE(QByteArray(AudioAnalysis_GetErrorText(nullptr)),
             QByteArray("a sample rate is 8000 to 192000 Hz, not 1"));
}

AA_TEST(tst_Analysis_threads, QCoreApplication)
#include "tst_Analysis_threads.moc"
