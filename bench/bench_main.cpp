// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/TransformKernels.h>

#include <QCoreApplication>

#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    // The analyzer's timers belong to an application.
    const QCoreApplication application(argc, argv);
    benchmark::AddCustomContext("kernel", detail::fastestTransformKernel().name);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
