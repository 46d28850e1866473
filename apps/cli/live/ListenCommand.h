// SPDX-License-Identifier: MIT
#pragma once

#include <cli/live/LiveOptions.h>
#include <shared/capture/CaptureSession.h>
#include <shared/clock/LiveBeats.h>
#include <shared/settings/BeatSettings.h>
#include <shared/settings/ConfigurationStore.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <functional>
#include <memory>

class FilePlayer;
class ListenHands;
class ListenOutputs;
class ListenWeb;
class LiveEvents;
class LiveSummary;

/// The command "listen": analyses a live input until it is told to end, or a file as if it were
/// one.
class ListenCommand
{
    Q_DECLARE_TR_FUNCTIONS(ListenCommand)

public:
    /// pOptions is not owned.
    explicit ListenCommand(const ListenOptions& pOptions);
    ~ListenCommand();
    Q_DISABLE_COPY(ListenCommand)

    /// Does the work and returns the exit code. To be called once.
    int Run();

private:
    QString _ChooseDevice();
    void _Save(const QString& pDevice);
    QString _ApplyOptions();
    void _Listen(const QString& pInput);
    std::function<void()> _MakeSource(const QString& pInput);
    void _MakeHeard(FilePlayer& pPlayer);
    void _MakeCapture();
    void _ChangeInput(const QString& pName);
    void _SetUpBeats();
    void _SetUpOutputs();
    void _SetUpHands();
    void _SetUpWeb();
    void _Connect();
    void _ConnectSource();
    void _OnAnalyzerCreated(AudioAnalyzer* pAnalyzer);
    void _OnStateChanged(eCaptureState pState);
    void _OnEnded(const QString& pError);
    void _OnTick();
    void _TellLostSamples();
    void _DrawLine();
    void _Say(const QString& pText);
    void _Tell(const QString& pText);
    void _Clear();
    void _End(int pExitCode);
    void _Summarize();

    const ListenOptions& m_options;  ///< not owned
    AnalysisOptions m_analysis;
    bool m_isLine;  ///< a live line instead of events
    ConfigurationStore m_store;
    BeatSettings m_beatSettings = BeatSettings::Load();
    std::unique_ptr<LiveSource> m_source;
    CaptureSession* m_pCapture = nullptr;  ///< the same; null while a file is played
    LiveBeats m_beats;
    std::unique_ptr<ListenOutputs> m_outputs;
    std::unique_ptr<ListenHands> m_hands;
    std::unique_ptr<ListenWeb> m_web;  ///< null unless it was asked for
    std::unique_ptr<LiveSummary> m_summary;
    std::unique_ptr<LiveEvents> m_events;  ///< null with a live line
    int m_peak = 0;                        ///< of the last tick, 0 to 32768
    QTimer m_tick;
    QElapsedTimer m_sinceStart;
    QTimer m_beat;  ///< of the live line
    bool m_isPriorityTold = false;
    quint64 m_toldLoss = 0;  ///< samples
    bool m_wasRunning = false;
    QString m_heard;                ///< the device that ran last
    bool m_followsDefault = false;  ///< the user asked for the default device, whichever it is
    bool m_isChanged = false;       ///< the device, meanwhile; it may be again
    bool m_isLineDrawn = false;
    int m_exitCode = 0;
};
