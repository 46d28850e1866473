// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include <shared/beats/BeliefColumn.h>

/// The mean so far moves towards the new value by its share.
void BeliefColumn::Add(const MeterTracker& pTracker)
{
    beliefs.resize(pTracker.getTempoCount());
    const float share = 1.0F / float(++count);
    for (std::size_t i = 0; i < beliefs.size(); ++i)
        beliefs[i] += share * (float(pTracker.getTempoBelief(i)) - beliefs[i]);
    confidence += share * (float(pTracker.getConfidence()) - confidence);
}

std::vector<double> BeliefColumn::GetTempi(const MeterTracker& pTracker)
{
    std::vector<double> tempi;
    for (std::size_t i = 0; i < pTracker.getTempoCount(); ++i)
        tempi.push_back(pTracker.getTempo(i));
    return tempi;
}
