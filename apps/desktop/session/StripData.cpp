// SPDX-License-Identifier: MIT
#include <desktop/session/StripData.h>

#include <algorithm>

namespace {

/// Sound may be told a little before it sounds.
constexpr std::int64_t kAhead = 40;  // columns

}  // namespace

const StripData::Column* StripData::getColumn(std::int64_t pNumber) const
{
    const bool isKept = pNumber >= m_first && pNumber < m_end;
    return isKept ? &m_columns[std::size_t(pNumber - m_first)] : nullptr;
}

StripData::Column* StripData::Fill(std::int64_t pNumber)
{
    if (m_end == 0 || pNumber < m_end || pNumber >= m_end + kAhead)
        return nullptr;
    if (pNumber - m_first >= std::int64_t(m_columns.size()))
        m_columns.resize(std::size_t(pNumber - m_first + 1));
    return &m_columns[std::size_t(pNumber - m_first)];
}

void StripData::Complete(std::int64_t pEnd, float pBPM, bool pIsPlaying)
{
    // At the beginning, and when the machine has slept.
    if (pEnd - m_end >= kColumns) {
        m_columns.clear();
        m_first = m_end = pEnd;
    }
    if (pEnd - m_first > std::int64_t(m_columns.size()))
        m_columns.resize(std::size_t(pEnd - m_first));
    for (; m_end < pEnd; ++m_end) {
        Column& column = m_columns[std::size_t(m_end - m_first)];
        column.bpm = pBPM;
        column.isPlaying = pIsPlaying;
    }
    _Forget();
}

void StripData::_Forget()
{
    for (; m_end - m_first > kColumns; ++m_first)
        m_columns.pop_front();
    const std::int64_t oldest = m_first * kColumn;
    while (!m_beats.empty() && m_beats.front().time < oldest)
        m_beats.pop_front();
    while (!m_sayings.empty() && (m_sayings.front().time < oldest || m_sayings.size() > kSayings))
        m_sayings.pop_front();
}

void StripData::AddBeat(const Beat& pBeat)
{
    m_beats.push_back(pBeat);
}

void StripData::AddSaying(const Saying& pSaying)
{
    if (!m_sayings.empty() && m_sayings.back().text == pSaying.text)
        return;
    m_sayings.push_back(pSaying);
    ++m_said;
}
