// SPDX-License-Identifier: MIT
#include <cli/analyze/FileAnalysis.h>

#include <QAudioFormat>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr quint64 kStartTime = 1000000;  ///< µs; any constant above 0

QAudioFormat MakeFormat(int pSampleRate)
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(pSampleRate);
    format.setChannelCount(1);
    format.setSampleSize(16);
    format.setSampleType(QAudioFormat::SignedInt);
    format.setByteOrder(QAudioFormat::Endian(QSysInfo::ByteOrder));
    return format;
}

/// The settings must be in the configuration before the analyzer is made from it.
Configuration* ApplyTo(Configuration& pConfiguration, const AnalysisOptions& pOptions)
{
    const QString refusal = pOptions.Apply(pConfiguration);
    Q_ASSERT_X(refusal.isEmpty(), "FileAnalysis", qPrintable(refusal));
    return &pConfiguration;
}

}  // namespace

FileAnalysis::FileAnalysis(const AnalysisOptions& pOptions, AudioSource& pSource)
    : m_options(pOptions), m_source(pSource), m_clock(kStartTime),
      m_analyzer(ApplyTo(m_configuration, m_options), MakeFormat(pSource.getSampleRate()), nullptr),
      m_batch(m_analyzer.getPulseBlockSize())
{
    m_options.Apply(m_analyzer);
    m_analyzer.setBeatTimerAllowed(false);
    m_log.Follow(&m_analyzer, pSource.getSampleRate());
    QObject::connect(&m_analyzer,
                     &AudioAnalyzer::OnAudioSamplesAnalyzed,
                     &m_log,
                     [this](unsigned int, qint16* pSamples, unsigned int pCount) {
                         _TraceLevel(pSamples, pCount);
                     });
}

bool FileAnalysis::Run(const BatchObserver& pObserver)
{
    m_analyzer.Start();
    if (!_AnalyzeSource(pObserver) || !_CheckSource())
        return false;
    m_log.setEnd(m_sampleCount);
    _FeedSilence();
    m_log.Finish();
    return true;
}

/// Feeds all whole blocks; the samples of the last, shorter one stay at the front of the batch.
bool FileAnalysis::_AnalyzeSource(const BatchObserver& pObserver)
{
    for (;;) {
        const std::size_t count = m_source.Read(m_batch.data(), m_batch.size());
        m_sampleCount += count;
        for (std::size_t i = 0; i < count; ++i)
            m_peak = std::max(m_peak, std::abs(int(m_batch[i])));
        if (count == m_batch.size())
            _Feed(count);
        if (!pObserver(m_source.getFrames(), count))
            return false;
        if (count < m_batch.size())
            return true;
    }
}

bool FileAnalysis::_CheckSource()
{
    m_error = m_source.getError();
    if (m_error.isEmpty() && m_sampleCount < m_batch.size()) {
        m_error = tr("too short: %1 samples, and the analysis needs %2 at least; give longer audio")
                      .arg(m_sampleCount)
                      .arg(m_batch.size());
    }
    return m_error.isEmpty();
}

void FileAnalysis::_Feed(std::size_t pCount)
{
    m_fedCount += pCount;
    m_clock.setTime(kStartTime + m_fedCount * 1000000 / quint64(m_source.getSampleRate()));
    m_analyzer.Analyze(m_batch.data(), pCount);
}

/// Completes the last block, then waits out the longest time that a beat window can stay open.
void FileAnalysis::_FeedSilence()
{
    const quint64 rest = m_log.getSettlingSampleCount();
    std::fill(
        m_batch.begin() + std::ptrdiff_t(m_sampleCount - m_fedCount), m_batch.end(), qint16(0));
    _Feed(m_batch.size());
    std::fill(m_batch.begin(), m_batch.end(), qint16(0));
    while (m_fedCount < m_sampleCount + rest)
        _Feed(m_batch.size());
}

void FileAnalysis::_TraceLevel(qint16* pSamples, unsigned int pCount)
{
    int level = 0;
    for (unsigned int i = 0; i < pCount; ++i)
        level = std::max(level, std::abs(int(pSamples[i])));
    const int threshold = m_log.isPlaying() ? std::max<int>(0, m_analyzer.getThreshold()) : 0;
    if (m_tracedCount < m_sampleCount)
        m_levels.Append(double(m_tracedCount) / m_source.getSampleRate(), level, threshold);
    m_tracedCount += pCount;
}
