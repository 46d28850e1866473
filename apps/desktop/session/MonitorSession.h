// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/session/BeatHand.h>
#include <desktop/session/ConfigurationSaver.h>
#include <desktop/session/LiveFeed.h>
#include <desktop/session/MonitorOutputs.h>
#include <desktop/session/SoundKeeper.h>
#include <desktop/session/StripLog.h>
#include <shared/capture/LiveSource.h>
#include <shared/clock/LiveBeats.h>
#include <shared/settings/BeatSettings.h>
#include <shared/settings/ConfigurationStore.h>

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>
#include <optional>

class FilePlayer;

/// Everything behind the window: the configuration, the source of sound, and what it gives.
///
/// There is one source at a time, a device or a file. A device is recorded by its name and waited
/// for when it is away. While a file plays no device is held.
///
/// Threads: one event-loop thread.
class MonitorSession : public QObject
{
    Q_OBJECT

public:
    explicit MonitorSession(QObject* pParent = nullptr);
    /// Does not save.
    ~MonitorSession() override;

    /// Reads the configuration. False when it is damaged; pError says what to do. It also tells
    /// what the file holds beyond the limits of its settings.
    bool Load(QString& pError);
    QString getNotice() const { return m_store.getNotice(); }
    Configuration& getConfiguration() { return m_store.getConfiguration(); }
    ConfigurationSaver& getSaver() { return m_saver; }
    LiveFeed& getFeed() { return m_feed; }
    StripLog& getStrip() { return m_strip; }
    SoundKeeper& getSound() { return m_sound; }
    LiveBeats& getBeats() { return m_beats; }
    /// Null without a source. [valid until OnAnalyzerChanged]
    AudioAnalyzer* getAnalyzer() const;
    SourceState getSource() const;
    /// The device to listen to; empty = none.
    QString getDeviceName() const { return m_deviceName; }
    bool isDevicePresent() const;
    /// The greatest sample magnitude since the last call, at most 32767; 0 without a source.
    int TakePeak();

    /// Listens to the device of that name, now or when it is there; empty = the stored one, or else
    /// the best there is, or the first that comes. kDefaultInput = whichever is the sound server's
    /// default one.
    void Listen(const QString& pName);
    /// The same, and remembers the device.
    void ChooseDevice(const QString& pName);
    /// Plays a file instead of listening.
    void PlayFile(const QString& pPath, bool pIsLooped);
    /// Listens again.
    void StopFile();
    bool isFilePlaying() const;
    /// Whether files are played without sound; by default they are heard.
    void setMuted(bool pIsMuted);
    bool isMuted() const { return m_isMuted; }

    BeatHand& getHand() { return m_hand; }
    MonitorOutputs& getOutputs() { return m_outputs; }
    /// Forgets the tempo and searches anew.
    void Reset();
    /// By how much all beats come later, ms. Remembered.
    double getOffset() const { return m_beatSettings.offset; }
    void setOffset(double pMs);

    /// Whether nobody has set anything up or chosen an input yet, and no beat has fallen.
    bool isNew() const { return m_isNew && m_isChoiceOurs; }

    /// Whether no sound server was there when the program started.
    bool isFallback() const { return m_isFallback; }
    void setFallback(bool pIsFallback) { m_isFallback = pIsFallback; }

    /// Whether the beats are those of the automatic tracker, not of a profile. Remembered.
    bool isAutomatic() const { return m_beats.isAutomatic(); }
    void setAutomatic(bool pIsAutomatic);

Q_SIGNALS:
    /// Null when there is none. The one before is gone, or is going to be when this returns.
    void OnAnalyzerChanged(AudioAnalyzer* pAnalyzer);
    void OnDeviceChanged(const QString& pName, bool pIsPresent);
    /// getSource() may have changed.
    void OnSourceChanged();

private:
    void _BeginPlainly();
    void _Close();
    void _TakeSource(std::unique_ptr<LiveSource> pSource);
    void _WaitForAnyDevice();
    void _OnTakenOver();
    void _OnAnalyzerCreated(AudioAnalyzer* pAnalyzer);
    void _OnAnchored();
    void _OnNotice(eCaptureNotice pNotice);
    void _OnSourceChanged();
    void _OnFileEnded(const QString& pError);
    void _Tick();
    void _JudgeNotice();
    void _JudgeBeginning();
    void _SetAnalyzer(AudioAnalyzer* pAnalyzer, int pSampleRate);
    void _SaveBeats();

    ConfigurationStore m_store;
    ConfigurationSaver m_saver{m_store};
    BeatSettings m_beatSettings;
    LiveBeats m_beats;
    BeatHand m_hand{m_beats};
    LiveFeed m_feed{m_beats};
    StripLog m_strip{m_beats};
    SoundKeeper m_sound;
    MonitorOutputs m_outputs{m_beats};
    QString m_deviceName;
    std::unique_ptr<LiveSource> m_source;  ///< null without a device, and after the end of a file
    FilePlayer* m_pPlayer = nullptr;       ///< the same; null unless a file is played
    std::optional<SourceState> m_endedFile;
    std::optional<eCaptureNotice> m_notice;
    QElapsedTimer m_sinceClipped;
    bool m_isNew = false;
    bool m_isChoiceOurs = false;  ///< of the device; nobody has named one
    bool m_isFallback = false;
    bool m_isMuted = false;
    int m_peak = 0;  ///< since TakePeak()
    QTimer m_tick;
};
