// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/api/Analysis.h>

#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <support/Waves.h>
#include <vector>

struct AnalysisDeleter
{
    void operator()(AudioAnalysis* pAnalysis) const { AudioAnalysis_Destroy(pAnalysis); }
};
using AnalysisHandle = std::unique_ptr<AudioAnalysis, AnalysisDeleter>;

/// An analysis whose events are written down, one line each, exactly.
class PushedAnalysis
{
public:
    /// With the engine, unless another tracker is named.
    explicit PushedAnalysis(int pRate = 44100,
                            AudioAnalysisTracker pTracker = AudioAnalysisTracker_Profile)
        : m_handle(AudioAnalysis_Create(pRate))
    {
        AudioAnalysis_SetTracker(*this, pTracker);
        AudioAnalysis_SetPulseCallback(*this, &PushedAnalysis::_OnPulse, this);
        AudioAnalysis_SetBeatCallback(*this, &PushedAnalysis::_OnBeat, this);
        AudioAnalysis_SetTempoCallback(*this, &PushedAnalysis::_OnTempo, this);
        AudioAnalysis_SetStopCallback(*this, &PushedAnalysis::_OnStop, this);
        AudioAnalysis_SetSpectrumCallback(*this, &PushedAnalysis::_OnSpectrum, this);
    }
    PushedAnalysis(const PushedAnalysis&) = delete;
    PushedAnalysis& operator=(const PushedAnalysis&) = delete;

    operator AudioAnalysis*() const { return m_handle.get(); }

    AudioAnalysisError push(const waves::Samples& pSamples)
    {
        return AudioAnalysis_PushInt16(*this, pSamples.data(), pSamples.size(), 1);
    }
    void pushInPortions(const waves::Samples& pSamples, std::size_t pPortion)
    {
        for (std::size_t at = 0; at < pSamples.size(); at += pPortion)
            AudioAnalysis_PushInt16(
                *this, &pSamples[at], std::min(pPortion, pSamples.size() - at), 1);
    }
    AudioAnalysisError finish() { return AudioAnalysis_Finish(*this); }

    /// Everything that was told, or the lines that begin with a word.
    const QStringList& getEvents() const { return m_events; }
    QStringList getEvents(const char* pKind) const
    {
        QStringList events;
        for (const QString& event : m_events)
            if (event.startsWith(QLatin1String(pKind)))
                events.append(event);
        return events;
    }
    void clear() { m_events.clear(); }

    std::vector<AudioAnalysisBeat> beats;

private:
    static QString _Text(double pNumber) { return QString::number(pNumber, 'g', 17); }
    static QStringList& _Events(void* pUser)
    {
        return static_cast<PushedAnalysis*>(pUser)->m_events;
    }

    static void _OnPulse(void* pUser, const AudioAnalysisPulse* p)
    {
        _Events(pUser) << QStringLiteral("pulse %1 %2 %3 %4 %5 %6")
                              .arg(p->index)
                              .arg(_Text(p->time))
                              .arg(p->length)
                              .arg(p->loudness)
                              .arg(p->averageVolume)
                              .arg(p->threshold);
    }
    static void _OnBeat(void* pUser, const AudioAnalysisBeat* p)
    {
        static_cast<PushedAnalysis*>(pUser)->beats.push_back(*p);
        _Events(pUser) << QStringLiteral("beat %1 %2 %3 %4 %5 %6")
                              .arg(p->index)
                              .arg(_Text(p->time), _Text(p->bpm), _Text(p->accuracy))
                              .arg(p->isVirtual)
                              .arg(p->loudness);
    }
    static void _OnTempo(void* pUser, const AudioAnalysisTempo* p)
    {
        _Events(pUser)
            << QStringLiteral("tempo %1 %2 %3").arg(p->index).arg(_Text(p->time), _Text(p->bpm));
    }
    static void _OnStop(void* pUser, const AudioAnalysisStop* p)
    {
        _Events(pUser)
            << QStringLiteral("stop %1 %2 %3").arg(p->index).arg(_Text(p->time)).arg(p->isStopped);
    }
    static void _OnSpectrum(void* pUser, const AudioAnalysisSpectrum* p)
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < p->count; ++i)
            sum += double(i + 1) * p->amplitudes[i];
        _Events(pUser) << QStringLiteral("spectrum %1 %2 %3 %4 %5")
                              .arg(p->index)
                              .arg(_Text(p->time))
                              .arg(p->count)
                              .arg(_Text(p->binWidth), _Text(sum));
    }

    AnalysisHandle m_handle;
    QStringList m_events;
};
