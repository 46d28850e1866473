// SPDX-License-Identifier: MIT
#pragma once

#include "AnalyzerFixture.h"

#include <QtTest>

#include <support/TestClass.h>

using waves::Samples;

/// Music plays, without a filter, and no beat window ends before a million samples.
struct PlayingFixture : AnalyzerFixture
{
    explicit PlayingFixture(int sampleRate = 44100) : AnalyzerFixture(sampleRate)
    {
        analyzer.m_isStopped = false;
        analyzer.m_beatLength = 20000;
        analyzer.m_beatWindowStart = 900000;
        analyzer.m_beatWindowEnd = 1000000;
        analyzer.m_nextBeatIndex = 950000;
    }

    void detect(const Samples& samples, quint64 index = 0)
    {
        Samples copy = samples;
        analyzer.DetectPulses(copy.data(), copy.size(), index);
    }
};

/// 1024 samples of which the given number is loud, well above 900, and the others silent.
inline Samples loudBlock(std::size_t loud, std::size_t count = 1024)
{
    Samples samples(count, 0);
    std::fill_n(samples.begin(), loud, qint16(1000));
    return samples;
}
