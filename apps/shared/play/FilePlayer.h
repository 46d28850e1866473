// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/LiveSource.h>
#include <shared/play/FileSound.h>
#include <shared/play/ReadAhead.h>

#include <QString>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

/// Has an audio file analysed at real speed, exactly as if it were live, and heard, if that is
/// wanted.
///
/// Samples are analysed when they sound: as the sound server tells of those that it was given, else
/// as the clock says. When they are not there in time, or the program was held up, the analysis is
/// started anew from where the file is. A server that goes takes nothing from the analysis.
///
/// Threads: one event-loop thread.
class FilePlayer : public LiveSource
{
    Q_OBJECT

public:
    /// pConfiguration is not owned and must outlive the player.
    explicit FilePlayer(Configuration& pConfiguration, QObject* pParent = nullptr);
    ~FilePlayer() override;

    /// It is to be heard on the default output. To be called before Open().
    void WantSound() { m_sound.Want(); }
    /// Takes effect within a fifth of a second.
    void setMuted(bool pIsMuted) { m_sound.setMuted(pIsMuted); }
    /// To be called once.
    void Open(const QString& pPath, bool pIsLooped);

    /// Its position is that of this moment.
    SourceState getSource() const override;

private:
    void _Tick();
    bool _Read();
    void _TakeChunk();
    void _ChoosePace(quint64 pNow);
    void _PaceAnew(quint64 pNow);
    void _WriteSound();
    std::optional<quint64> _CountDue(quint64 pNow) const;
    quint64 _CountElapsed(quint64 pNow) const;
    void _AnalyzeDue(quint64 pDue, quint64 pNow);
    void _Anchor(quint64 pInstant);
    void _Analyze(std::size_t pCount, quint64 pEnd);
    quint64 _MicroSeconds(quint64 pFrames) const;
    double _Seconds(quint64 pFrames) const;
    std::size_t _getWaiting() const { return m_samples.size() - m_analyzed; }
    void _End();

    QString m_path;
    std::unique_ptr<ReadAhead> m_source;
    std::vector<qint16> m_samples;  ///< of the file, from a little before those to be analysed
    std::size_t m_analyzed = 0;     ///< of these samples
    bool m_isWholeRead = false;
    QString m_error;           ///< why the file ended early
    quint64 m_frameCount = 0;  ///< of the file; 0 = unknown
    quint64 m_position = 0;    ///< samples analysed since the file was opened

    FileSound m_sound;
    eFileSound m_toldSound = eFileSilent;
    bool m_isBySound = false;   ///< the sound sets the pace, not the clock
    quint64 m_paceTime = 0;     ///< µs since the epoch; from when on the clock does; 0 = never
    quint64 m_paced = 0;        ///< samples analysed at the present pace
    std::size_t m_written = 0;  ///< to the sound, of the samples that are not analysed

    quint64 m_anchor = 0;       ///< µs since the epoch
    quint64 m_sinceAnchor = 0;  ///< samples
    QTimer m_tick;
};
