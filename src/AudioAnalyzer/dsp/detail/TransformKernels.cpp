// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/TransformKernels.h>

namespace detail {

extern const TransformKernel kBaselineTransformKernel;

#if defined(__x86_64__)

extern const TransformKernel kAvx2TransformKernel;
extern const TransformKernel kAvx512TransformKernel;

const TransformKernel* const kTransformKernels[] = {
    &kBaselineTransformKernel, &kAvx2TransformKernel, &kAvx512TransformKernel, nullptr};

bool isSupported(const TransformKernel& pKernel)
{
    __builtin_cpu_init();
    if (&pKernel == &kAvx512TransformKernel)
        return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
               __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl");
    if (&pKernel == &kAvx2TransformKernel)
        return __builtin_cpu_supports("avx2");
    return true;
}

#else

const TransformKernel* const kTransformKernels[] = {&kBaselineTransformKernel, nullptr};

bool isSupported(const TransformKernel&)
{
    return true;
}

#endif

namespace {

const TransformKernel& chooseFastest()
{
    const TransformKernel* pFastest = &kBaselineTransformKernel;
    for (const TransformKernel* const* ppKernel = kTransformKernels; *ppKernel; ++ppKernel)
        if (isSupported(**ppKernel))
            pFastest = *ppKernel;
    return *pFastest;
}

}  // namespace

const TransformKernel& fastestTransformKernel()
{
    static const TransformKernel& fastest = chooseFastest();
    return fastest;
}

}  // namespace detail
