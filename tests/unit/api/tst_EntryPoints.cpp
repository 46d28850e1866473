// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/api/EntryPoints.h>

#include "StartUp.h"
#include "entry_points.h"

#include <QSignalSpy>
#include <QtTest>

#include <dlfcn.h>
#include <support/TestClass.h>

namespace {

template <typename Function>
Function* Find(const char* pName)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_DEFAULT, pName));
}

}  // namespace

/// Called as from C, unless a test says otherwise.
class tst_EntryPoints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void names_areNotMangled();
    void start_doesNothing_withoutAnAnalyzer();
    void values_areEmpty_withoutAnAnalyzer();
    void start_bringsTheLibraryUp();
    void start_twice_startsOnce();
    void start_doesWhatStartDoes();
    void start_worksAgain_afterAStop();
    void values_bringTheLibraryUp_andStartNothing();
    void values_areThePulseBlock();
    void values_showTheSamplesBeingAssembled();
    void values_followInit();
};

void tst_EntryPoints::initTestCase()
{
    FakeAudioState::Install();
}

void tst_EntryPoints::names_areNotMangled()
{
    QVERIFY(Find<void()>("StartAudio") == &StartAudio);
    QVERIFY(Find<AudioValues()>("GetAudioValues") == &GetAudioValues);
}

void tst_EntryPoints::start_doesNothing_withoutAnAnalyzer()
{
    const StartUp machine;
    CallStartAudio();
    QVERIFY(!AudioAnalyzer::m_pInstance);
}

void tst_EntryPoints::values_areEmpty_withoutAnAnalyzer()
{
    const StartUp machine;
    const AudioValues values = CallGetAudioValues();
    QCOMPARE(values.size, uint32_t(0));
    QVERIFY(!values.samples);
    QVERIFY(!AudioAnalyzer::m_pInstance);
}

void tst_EntryPoints::start_bringsTheLibraryUp()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    CallStartAudio();
    QVERIFY(AudioAnalyzer::m_pInstance);
    QVERIFY(AudioAnalyzer::m_pInstance->isAnalyzing());
}

void tst_EntryPoints::start_twice_startsOnce()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    AudioAnalyzer* pAnalyzer = AudioAnalyzer::getInstance();
    QVERIFY(pAnalyzer);
    const QSignalSpy started(pAnalyzer, &AudioAnalyzer::OnAnalysisStarted);
    CallStartAudio();
    const quint64 time = pAnalyzer->getAnalysisStartTime();
    QTest::qSleep(2);
    CallStartAudio();
    QCOMPARE(started.count(), 1);
    QCOMPARE(pAnalyzer->getAnalysisStartTime(), time);
}

void tst_EntryPoints::start_doesWhatStartDoes()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    AudioAnalyzer* pAnalyzer = AudioAnalyzer::getInstance();
    QVERIFY(pAnalyzer);
    pAnalyzer->m_computedBPM = 100.0;
    const quint64 before = HighResolutionTimer::getTime();
    CallStartAudio();
    QCOMPARE(pAnalyzer->m_computedBPM, 0.0);
    QVERIFY(pAnalyzer->getAnalysisStartTime() >= before);
    QVERIFY(pAnalyzer->getAnalysisStartTime() <= HighResolutionTimer::getTime());
    // The first window: from the present position, a beat of the slowest tempo long. Electro begins
    // at 90 BPM: 44100 * 60 / 90 samples.
    QCOMPARE(pAnalyzer->m_beatWindowStart, quint64(0));
    QCOMPARE(pAnalyzer->m_beatWindowEnd, quint64(29400));
}

void tst_EntryPoints::start_worksAgain_afterAStop()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    CallStartAudio();
    QVERIFY(AudioAnalyzer::getInstance()->Stop());
    CallStartAudio();
    QVERIFY(AudioAnalyzer::getInstance()->isAnalyzing());
}

void tst_EntryPoints::values_bringTheLibraryUp_andStartNothing()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    QVERIFY(!AudioAnalyzer::m_pInstance);
    CallGetAudioValues();
    QVERIFY(AudioAnalyzer::m_pInstance);
    QVERIFY(!AudioAnalyzer::m_pInstance->isAnalyzing());
}

void tst_EntryPoints::values_areThePulseBlock()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    CallStartAudio();
    const AudioValues values = CallGetAudioValues();
    QCOMPARE(values.size, uint32_t(1024));
    QCOMPARE(values.samples, AudioAnalyzer::getInstance()->m_pPulseBlock);
}

void tst_EntryPoints::values_showTheSamplesBeingAssembled()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    CallStartAudio();
    qint16 samples[3] = {7, -8, 9};
    AudioAnalyzer::getInstance()->Analyze(samples, 3);
    const AudioValues values = CallGetAudioValues();
    QCOMPARE(values.samples[0], qint16(7));
    QCOMPARE(values.samples[1], qint16(-8));
    QCOMPARE(values.samples[2], qint16(9));
}

void tst_EntryPoints::values_followInit()
{
    const StartUp machine;
    QAudioFormat format;
    format.setSampleRate(8000);
    AudioAnalyzer::init(new Configuration, format, nullptr);
    QCOMPARE(CallGetAudioValues().size, uint32_t(128));
}

AA_TEST(tst_EntryPoints, QCoreApplication)
#include "tst_EntryPoints.moc"
