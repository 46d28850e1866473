// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AnalysisPump.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/analysis/detail/SampleTime.h>

#include <QAudioFormat>

#include <algorithm>

namespace {

QAudioFormat MonoFormat(int pSampleRate)
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(pSampleRate);
    format.setChannelCount(1);
    format.setSampleSize(16);
    format.setSampleType(QAudioFormat::SignedInt);
    return format;
}

}  // namespace

AnalysisPump::AnalysisPump(Configuration* pConfiguration, int pSampleRate)
    : m_sampleRate(pSampleRate), m_analyzer(pConfiguration, MonoFormat(pSampleRate), nullptr),
      m_block(m_analyzer.getPulseBlockSize())
{
    m_analyzer.setBeatTimerAllowed(false);
    m_follower.Follow(&m_analyzer);
}

void AnalysisPump::Commit(std::size_t pCount)
{
    m_sampleCount += pCount;
    m_fill += pCount;
    if (m_fill == m_block.size())
        _Feed();
}

void AnalysisPump::Finish()
{
    m_follower.setEnd(m_sampleCount);
    const quint64 end = m_sampleCount + m_follower.getSettlingSampleCount(m_sampleRate);
    do {
        std::fill(m_block.begin() + std::ptrdiff_t(m_fill), m_block.end(), qint16(0));
        _Feed();
    } while (m_fedCount < end);
}

// The start sets up the first beat window, so it waits for the settings.
void AnalysisPump::_Feed()
{
    HighResolutionTimerOverride clock(detail::SampleTime(m_fedCount, m_sampleRate));
    m_analyzer.Start();
    m_fill = 0;
    m_fedCount += m_block.size();
    clock.setTime(detail::SampleTime(m_fedCount, m_sampleRate));
    m_analyzer.Analyze(m_block.data(), m_block.size());
}
