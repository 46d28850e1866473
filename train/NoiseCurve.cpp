// SPDX-License-Identifier: MIT
#include "NoiseCurve.h"

#include "Following.h"

#include <algorithm>
#include <cstdio>

namespace {

using Followed = std::vector<std::vector<FollowedBeat>>;

Followed followAll(const std::vector<Track>& pTracks, const detail::MeterTable& pTable)
{
    Followed all;
    for (const Track& track : pTracks)
        all.push_back(followTrack(track, pTable));
    return all;
}

double countOver(const std::vector<FollowedBeat>& pBeats, float pEvidence)
{
    return double(std::count_if(
        pBeats.begin(),
        pBeats.end(),
        [=](const FollowedBeat& pBeat) { return pBeat.evidence > pEvidence; }));
}

}  // namespace

void printNoiseCurve(const std::vector<Track>& pNoise,
                     const std::vector<Track>& pMusic,
                     const detail::MeterTable& pTable)
{
    const Followed noise = followAll(pNoise, pTable);
    const Followed music = followAll(pMusic, pTable);
    std::printf("\nbeats a minute over sound without a beat\n");
    for (std::size_t i = 0; i < noise.size(); ++i)
        std::printf("%-20s %5.1f\n",
                    qPrintable(pNoise[i].name.left(20)),
                    60.0 * double(toldTimes(noise[i]).size()) / pNoise[i].duration);
    std::printf("\nevidence  most false beats a minute  beats of music told, %%\n");
    for (const float evidence : {-4.5F, -3.0F, -2.0F, -1.0F, 0.0F, 1.0F, 2.0F, 4.0F, 8.0F, 12.0F}) {
        double most = 0.0;
        for (std::size_t i = 0; i < noise.size(); ++i)
            most = std::max(most, 60.0 * countOver(noise[i], evidence) / pNoise[i].duration);
        double told = 0.0;
        double all = 0.0;
        for (const std::vector<FollowedBeat>& beats : music) {
            told += countOver(beats, evidence);
            all += double(beats.size());
        }
        std::printf("%8.1f %26.1f %23.1f\n", double(evidence), most, 100.0 * told / all);
    }
}
