// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QAudioFormat>

/// The whole analysis, "Electro", stop blocks of 1.5 s, every signal connected, time from samples.
class Pipeline
{
public:
    explicit Pipeline(int pRate = 44100, double pVolumeWindow = 2.0)
        : m_clock(kStart), m_rate(static_cast<quint64>(pRate)),
          m_analyzer(&configured(m_configuration, pVolumeWindow), formatOf(pRate), nullptr)
    {
        const auto nothing = [] {};
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnAmplitudesComputed, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnAudioSamplesAnalyzed, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnAnalysisStarted, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnAnalysisStopped, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnBeat, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnBPMChanged, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnPulseDetected, nothing);
        m_analyzer.Start();
    }

    void analyze(qint16* pSamples, size_t pCount)
    {
        m_fed += pCount;
        m_clock.setTime(kStart + m_fed * 1000000 / m_rate);
        m_analyzer.Analyze(pSamples, pCount);
    }

    double bpm() const { return m_analyzer.getCurrentBPM(); }

private:
    static constexpr quint64 kStart = 1700000000000000;

    static Configuration& configured(Configuration& pConfiguration, double pVolumeWindow)
    {
        pConfiguration.setStopDetectionDuration(1.5);
        pConfiguration.setAverageVolumeCalculationDuration(pVolumeWindow);
        for (const Profile& profile : pConfiguration.getProfiles())
            if (profile.getName() == QLatin1String("Electro"))
                pConfiguration.setSelectedProfile(profile);
        return pConfiguration;
    }

    static QAudioFormat formatOf(int pRate)
    {
        QAudioFormat format;
        format.setSampleRate(pRate);
        return format;
    }

    HighResolutionTimerOverride m_clock;
    quint64 m_rate;
    Configuration m_configuration;
    AudioAnalyzer m_analyzer;
    quint64 m_fed = 0;
};
