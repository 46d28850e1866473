// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterKernel.h>

namespace detail {

namespace {

float move(const float* pFrom,
           const std::uint8_t* pSteps,
           const MeterLikelihoods& pLikelihoods,
           float pLeak,
           std::size_t pBlocks,
           float* pTo)
{
    std::array<float, MeterStates::kBlock> sums = {};
    for (std::size_t block = 0; block < pBlocks; ++block)
        for (float& sum : sums) {
            *pTo = (pFrom[-1] + pLeak) * pLikelihoods[*pSteps++];
            sum += *pTo++;
            ++pFrom;
        }
    return sumOfBlock(sums.data());
}

const MeterKernel kBaselineMeterKernel{"baseline", move};

}  // namespace

#if defined(__x86_64__)

extern const MeterKernel kAvx2MeterKernel;
extern const MeterKernel kAvx512MeterKernel;

const MeterKernel* const kMeterKernels[] = {
    &kBaselineMeterKernel, &kAvx2MeterKernel, &kAvx512MeterKernel, nullptr};

bool isSupported(const MeterKernel& pKernel)
{
    __builtin_cpu_init();
    if (&pKernel == &kAvx512MeterKernel)
        return __builtin_cpu_supports("avx512f");
    if (&pKernel == &kAvx2MeterKernel)
        return __builtin_cpu_supports("avx2");
    return true;
}

#else

const MeterKernel* const kMeterKernels[] = {&kBaselineMeterKernel, nullptr};

bool isSupported(const MeterKernel&)
{
    return true;
}

#endif

namespace {

const MeterKernel& chooseFastest()
{
    const MeterKernel* pFastest = &kBaselineMeterKernel;
    for (const MeterKernel* const* ppKernel = kMeterKernels; *ppKernel; ++ppKernel)
        if (isSupported(**ppKernel))
            pFastest = *ppKernel;
    return *pFastest;
}

}  // namespace

const MeterKernel& fastestMeterKernel()
{
    static const MeterKernel& fastest = chooseFastest();
    return fastest;
}

}  // namespace detail
