// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <desktop/session/StripLog.h>
#include <shared/capture/LiveSource.h>
#include <shared/clock/LiveBeats.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

using shared::ClockThread;

StripLog::StripLog(const LiveBeats& pBeats, QObject* pParent) : QObject(pParent), m_beats(pBeats)
{
    Advance();
}

void StripLog::Follow(LiveSource* pSource)
{
    if (m_pSource)
        m_pSource->disconnect(this);
    m_pSource = pSource;
    if (pSource)
        connect(pSource, &LiveSource::OnSamples, this, &StripLog::_OnSamples);
}

void StripLog::AddBeat(qint64 pTime, eBeatKind pKind, bool pIsOne)
{
    m_data.AddBeat({pTime, pKind, pIsOne});
}

void StripLog::Say(const QString& pText)
{
    m_data.AddSaying({ClockThread::getTime(), pText});
}

void StripLog::Advance()
{
    const BeatClockState state = m_beats.getClock().getState();
    m_data.Complete((ClockThread::getTime() - kLag) / StripData::kColumn,
                    state.isRunning() ? float(state.bpm) : 0.0F,
                    m_beats.isPlaying());
}

/// A block may lie in several columns.
void StripLog::_OnSamples(const qint16* pSamples, std::size_t pCount, quint64 pEnd)
{
    const double length = 1e6 / m_pSource->getSampleRate();  // µs a sample
    const std::int64_t end =
        ClockThread::getTime() + std::int64_t(pEnd - HighResolutionTimer::getTime());
    const std::int64_t start = end - std::llround(double(pCount) * length);
    for (std::size_t i = 0; i < pCount;) {
        const std::int64_t number = (start + std::llround(double(i) * length)) / StripData::kColumn;
        const double next = double((number + 1) * StripData::kColumn - start) / length;
        const auto stop = std::min(pCount, std::max(i + 1, std::size_t(std::ceil(next))));
        StripData::Column* pColumn = m_data.Fill(number);
        for (; i < stop; ++i)
            if (pColumn)
                pColumn->level = std::max(pColumn->level, std::abs(int(pSamples[i])));
        if (pColumn)
            _Ask(*pColumn);
    }
    Advance();
}

/// Once a column.
void StripLog::_Ask(StripData::Column& pColumn)
{
    const MeterTracker* pTracker = m_beats.isAutomatic() ? m_beats.getTracker() : nullptr;
    if (!pTracker || !pColumn.beliefs.empty())
        return;
    if (m_data.getTempi().empty())
        m_data.setTempi(BeliefColumn::GetTempi(*pTracker));
    BeliefColumn column;
    column.Add(*pTracker);
    pColumn.beliefs.reserve(column.beliefs.size());
    for (const float belief : column.beliefs)
        pColumn.beliefs.push_back(quint8(std::lround(255.0F * belief)));
}

#include "moc_StripLog.cpp"
