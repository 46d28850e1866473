// SPDX-License-Identifier: MIT
#include <demo/RecordingJoiner.h>

RecordingJoiner::RecordingJoiner(const QStringList& pInputs) : m_inputs(pInputs) {}

bool RecordingJoiner::Open()
{
    if (!m_inputs.isEmpty())
        return _Next();
    m_error = tr("there is nothing to join");
    return false;
}

std::size_t RecordingJoiner::Read(float* pSamples, std::size_t pCount)
{
    m_buffer.resize(pCount);
    std::size_t count = 0;
    do {
        count = m_reader->Read(m_buffer.data(), pCount);
        if (!m_reader->getError().isEmpty())
            _Fail(m_reader->getError());
    } while (count == 0 && m_error.isEmpty() && m_next < m_inputs.size() && _Next());
    if (!m_error.isEmpty())
        return 0;
    for (std::size_t i = 0; i < count; ++i)
        pSamples[i] = float(m_buffer[i]) / 32768.0f;
    m_frames += count;
    return count;
}

std::vector<double> RecordingJoiner::getStarts() const
{
    std::vector<double> starts;
    for (const quint64 start : m_starts)
        starts.push_back(double(start) / m_rate);
    starts.push_back(double(m_frames) / m_rate);
    return starts;
}

bool RecordingJoiner::_Next()
{
    m_reader = std::make_unique<AudioFileReader>();
    if (!m_reader->Open(m_inputs[m_next++]))
        return _Fail(m_reader->getError());
    if (m_rate != 0 && m_reader->getSampleRate() != m_rate)
        return _Fail(tr("its rate differs from that of the files ahead of it"));
    m_rate = m_reader->getSampleRate();
    m_starts.push_back(m_frames);
    return true;
}

bool RecordingJoiner::_Fail(const QString& pReason)
{
    m_error = QStringLiteral("%1: %2").arg(m_inputs[m_next - 1], pReason);
    return false;
}
