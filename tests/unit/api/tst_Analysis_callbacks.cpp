// SPDX-License-Identifier: MIT
#include "PushedMusic.h"

#include <QtTest>

#include <stdexcept>
#include <support/TestClass.h>

using namespace pushed;

/// What callbacks may do, and how refusals are told.
class tst_Analysis_callbacks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callback_isCalledNoMore_onceItIsNull();
    void callback_mayChangeSettingsAndReset();
    void callback_thatThrows_isAnsweredAndDoesNoHarm();
    void busy_endsWithTheCall();
    void errorText_staysUntilTheNextRefusal();
    void errors_haveWords();
};

void tst_Analysis_callbacks::callback_isCalledNoMore_onceItIsNull()
{
    PushedAnalysis analysis;
    AudioAnalysis_SetPulseCallback(analysis, nullptr, nullptr);
    AudioAnalysis_SetBeatCallback(analysis, nullptr, nullptr);
    AudioAnalysis_SetTempoCallback(analysis, nullptr, nullptr);
    AudioAnalysis_SetStopCallback(analysis, nullptr, nullptr);
    AudioAnalysis_SetSpectrumCallback(analysis, nullptr, nullptr);
    analysis.push(Music());
    analysis.finish();
    QCOMPARE(analysis.getEvents(), QStringList());
}

void tst_Analysis_callbacks::callback_mayChangeSettingsAndReset()
{
    const AnalysisHandle handle(AudioAnalysis_Create(kRate));
    int calls = 0;
    struct User
    {
        AudioAnalysis* pAnalysis;
        int* pCalls;
    } user{handle.get(), &calls};
    const auto change = [](void* pUser, const auto*) {
        const User& self = *static_cast<User*>(pUser);
        const int call = ++*self.pCalls;
        const double duration = 0.5 + call % 3;
        QCOMPARE(AudioAnalysis_Set(self.pAnalysis, AudioAnalysisSetting_StopDuration, duration),
                 AudioAnalysisError_None);
        QCOMPARE(AudioAnalysis_Set(self.pAnalysis, AudioAnalysisSetting_AverageDuration, duration),
                 AudioAnalysisError_None);
        QCOMPARE(AudioAnalysis_SelectProfile(self.pAnalysis, call % 2 ? "Slow" : "Hardcore"),
                 AudioAnalysisError_None);
        if (call % 97 == 0)
            QCOMPARE(AudioAnalysis_Reset(self.pAnalysis), AudioAnalysisError_None);
        if (call % 11 == 0)
            QCOMPARE(AudioAnalysis_SetTempoCallback(self.pAnalysis, nullptr, nullptr),
                     AudioAnalysisError_None);
    };
    AudioAnalysis_SetPulseCallback(handle.get(), change, &user);
    AudioAnalysis_SetBeatCallback(handle.get(), change, &user);
    AudioAnalysis_SetTempoCallback(handle.get(), change, &user);
    AudioAnalysis_SetStopCallback(handle.get(), change, &user);
    AudioAnalysis_SetSpectrumCallback(handle.get(), change, &user);
    const waves::Samples music = Music();
    QCOMPARE(AudioAnalysis_PushInt16(handle.get(), music.data(), music.size(), 1),
             AudioAnalysisError_None);
    QVERIFY(calls > 100);
}

void tst_Analysis_callbacks::callback_thatThrows_isAnsweredAndDoesNoHarm()
{
    PushedAnalysis analysis;
    AudioAnalysis_SetPulseCallback(
        analysis,
        [](void*, const AudioAnalysisPulse*) { throw std::runtime_error("thrown"); },
        nullptr);
    QCOMPARE(analysis.push(Music()), AudioAnalysisError_Internal);
    QCOMPARE(QString::fromUtf8(AudioAnalysis_GetErrorText(analysis)),
             QStringLiteral("a callback has thrown an exception"));
    AudioAnalysis_SetPulseCallback(analysis, nullptr, nullptr);
    QCOMPARE(AudioAnalysis_Restart(analysis), AudioAnalysisError_None);
    analysis.clear();
    analysis.push(Music());
    analysis.finish();
    QStringList expected = EventsOfMusic();
    expected.erase(std::remove_if(expected.begin(),
                                  expected.end(),
                                  [](const QString& pEvent) {
                                      return pEvent.startsWith(QLatin1String("pulse"));
                                  }),
                   expected.end());
    QCOMPARE(analysis.getEvents(), expected);
}

void tst_Analysis_callbacks::busy_endsWithTheCall()
{
    PushedAnalysis analysis;
    AudioAnalysis_SetStopCallback(
        analysis,
        [](void* pUser, const AudioAnalysisStop*) {
            AudioAnalysis* pAnalysis = static_cast<AudioAnalysis*>(pUser);
            const float sample = 0.0f;
            QCOMPARE(AudioAnalysis_PushFloat(pAnalysis, &sample, 1, 1), AudioAnalysisError_Busy);
            QCOMPARE(AudioAnalysis_Destroy(pAnalysis), AudioAnalysisError_Busy);
        },
        static_cast<AudioAnalysis*>(analysis));
    QCOMPARE(analysis.push(waves::silence(kBlock)), AudioAnalysisError_None);
    QVERIFY(QString::fromUtf8(AudioAnalysis_GetErrorText(analysis))
                .contains(QLatin1String("a callback must not")));
    QCOMPARE(analysis.push(waves::silence(kBlock)), AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_GetSampleCount(analysis), uint64_t(2 * kBlock));
    QCOMPARE(AudioAnalysis_Restart(analysis), AudioAnalysisError_None);
}

void tst_Analysis_callbacks::errorText_staysUntilTheNextRefusal()
{
    PushedAnalysis first;
    PushedAnalysis second;
    AudioAnalysis_Set(first, AudioAnalysisSetting_Consistency, 7.0);
    const QString text = QString::fromUtf8(AudioAnalysis_GetErrorText(first));
    QCOMPARE(text, QStringLiteral("consistency is a whole number from 0 to 1, not 7"));
    AudioAnalysis_Set(first, AudioAnalysisSetting_Consistency, 0.0);
    QCOMPARE(QString::fromUtf8(AudioAnalysis_GetErrorText(first)), text);
    QCOMPARE(AudioAnalysis_GetErrorText(second), "");
    AudioAnalysis_Set(first, 99, 0.0);
    QCOMPARE(AudioAnalysis_GetErrorText(first), "there is no setting 99");
}

void tst_Analysis_callbacks::errors_haveWords()
{
    QStringList words;
    for (int error = AudioAnalysisError_None; error <= AudioAnalysisError_Internal; ++error)
        words << QString::fromUtf8(AudioAnalysis_DescribeError(error));
    QCOMPARE(words.removeDuplicates(), 0);
    QVERIFY(!words.contains(QString::fromUtf8(AudioAnalysis_DescribeError(8))));
    QCOMPARE(AudioAnalysis_DescribeError(8), "there is no such error");
}

AA_TEST(tst_Analysis_callbacks, QCoreApplication)
#include "tst_Analysis_callbacks.moc"
