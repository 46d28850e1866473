// SPDX-License-Identifier: MIT
#include <shared/capture/LiveSource.h>

#include <QAudioFormat>

LiveSource::LiveSource(Configuration& pConfiguration, QObject* pParent)
    : QObject(pParent), m_configuration(pConfiguration)
{
}

LiveSource::~LiveSource() = default;

void LiveSource::_Prepare(const QAudioFormat& pFormat, double pLevelSeconds)
{
    const int rate = pFormat.sampleRate();
    m_levels = shared::LevelWatch(quint64(pLevelSeconds * rate));
    if (m_analyzer && m_sampleRate == rate)
        return;
    m_sampleRate = rate;
    m_analyzer = std::make_unique<AudioAnalyzer>(&m_configuration, pFormat, nullptr);
    Q_EMIT OnAnalyzerCreated(m_analyzer.get());
}

void LiveSource::_WatchLevel(const qint16* pSamples, std::size_t pCount)
{
    const auto notices = m_levels.Add(pSamples, pCount, isPlaying());
    for (const eCaptureNotice notice : notices)
        Q_EMIT OnNotice(notice);
}

#include "moc_LiveSource.cpp"
