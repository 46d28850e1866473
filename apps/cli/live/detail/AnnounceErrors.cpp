// SPDX-License-Identifier: MIT
#include <cli/live/detail/AnnounceErrors.h>

#include <algorithm>
#include <cmath>

namespace cli {

namespace {

constexpr std::size_t kMostAnnouncements = 64;  ///< that wait for a beat
constexpr double kMost = 0.95;                  ///< share of the errors

quint64 Distance(quint64 pLeft, quint64 pRight)
{
    return pLeft > pRight ? pLeft - pRight : pRight - pLeft;
}

}  // namespace

void AnnounceErrors::AddAnnouncement(quint64 pNow)
{
    m_announcements.push_back(pNow);
    if (m_announcements.size() > kMostAnnouncements)
        m_announcements.pop_front();
}

void AnnounceErrors::AddBeat(quint64 pSound)
{
    if (m_beat != 0)
        _Pair(m_beat, (pSound - m_beat) / 2);
    m_beat = pSound;
}

void AnnounceErrors::Interrupt()
{
    m_announcements.clear();
    m_beat = 0;
}

AnnounceStatistics AnnounceErrors::getStatistics() const
{
    AnnounceStatistics result;
    result.count = m_errors.size();
    result.missing = m_missing;
    if (m_errors.empty())
        return result;
    std::vector<double> sorted = m_errors;
    std::sort(sorted.begin(), sorted.end());
    const std::size_t middle = sorted.size() / 2;
    result.median =
        sorted.size() % 2 == 1 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2.0;
    double sum = 0.0;
    for (const double error : sorted)
        sum += error;
    const double mean = sum / double(sorted.size());
    double squares = 0.0;
    for (const double error : sorted)
        squares += (error - mean) * (error - mean);
    result.deviation = std::sqrt(squares / double(sorted.size()));
    for (double& error : sorted)
        error = std::fabs(error);
    std::sort(sorted.begin(), sorted.end());
    result.most = sorted[std::size_t(std::ceil(kMost * double(sorted.size()))) - 1];
    return result;
}

void AnnounceErrors::_Pair(quint64 pSound, quint64 pReach)
{
    const auto nearest = std::min_element(
        m_announcements.begin(), m_announcements.end(), [&](quint64 pLeft, quint64 pRight) {
            return Distance(pLeft, pSound) < Distance(pRight, pSound);
        });
    if (nearest == m_announcements.end() || Distance(*nearest, pSound) > pReach) {
        m_missing += m_errors.empty() ? 0 : 1;
        return;
    }
    m_errors.push_back((double(*nearest) - double(pSound)) / 1000.0);
    m_announcements.erase(m_announcements.begin(), nearest + 1);
}

}  // namespace cli
