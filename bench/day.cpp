// SPDX-License-Identifier: MIT
#include "BenchSignals.h"
#include "Pipeline.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <unistd.h>

// A day of audio through one analyzer, with an event loop: does the process grow?

namespace {

constexpr std::size_t kBatch = 1024;

/// Resident memory of this process, kB.
long residentSize()
{
    std::ifstream file("/proc/self/statm");
    long pages = 0;
    long resident = 0;
    file >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

void playMinute(Pipeline& pPipeline, waves::Samples& pSamples)
{
    for (std::size_t at = 0; at < pSamples.size(); at += kBatch)
        pPipeline.analyze(pSamples.data() + at, std::min(kBatch, pSamples.size() - at));
    QCoreApplication::processEvents();
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    waves::Samples samples = bench::track();
    Pipeline pipeline;
    for (int hour = 1; hour <= 24; ++hour) {
        for (int minute = 0; minute < 60; ++minute)
            playMinute(pipeline, samples);
        std::printf("hour %2d: %ld kB resident, %.1f BPM\n", hour, residentSize(), pipeline.bpm());
        std::fflush(stdout);
    }
    return 0;
}
