// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterKernel.h>

#include <immintrin.h>

namespace detail {

namespace {

// Eight cells lie within eight steps of the bar, so that one permutation looks all of them up.
__m256 moveEight(const float* pFrom,
                 const std::uint8_t* pSteps,
                 const MeterLikelihoods& pLikelihoods,
                 __m256 pLeak)
{
    const __m256i steps =
        _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(pSteps)));
    const __m256i places = _mm256_sub_epi32(steps, _mm256_set1_epi32(*pSteps));
    const __m256 likelihoods =
        _mm256_permutevar8x32_ps(_mm256_loadu_ps(&pLikelihoods[*pSteps]), places);
    return _mm256_mul_ps(_mm256_add_ps(_mm256_loadu_ps(pFrom - 1), pLeak), likelihoods);
}

float move(const float* pFrom,
           const std::uint8_t* pSteps,
           const MeterLikelihoods& pLikelihoods,
           float pLeak,
           std::size_t pBlocks,
           float* pTo)
{
    const __m256 leak = _mm256_set1_ps(pLeak);
    __m256 low = _mm256_setzero_ps();
    __m256 high = _mm256_setzero_ps();
    for (const float* end = pFrom + pBlocks * MeterStates::kBlock; pFrom < end;) {
        const __m256 first = moveEight(pFrom, pSteps, pLikelihoods, leak);
        const __m256 second = moveEight(pFrom + 8, pSteps + 8, pLikelihoods, leak);
        _mm256_storeu_ps(pTo, first);
        _mm256_storeu_ps(pTo + 8, second);
        low = _mm256_add_ps(low, first);
        high = _mm256_add_ps(high, second);
        pFrom += MeterStates::kBlock;
        pSteps += MeterStates::kBlock;
        pTo += MeterStates::kBlock;
    }
    std::array<float, MeterStates::kBlock> sums = {};
    _mm256_storeu_ps(sums.data(), low);
    _mm256_storeu_ps(&sums[8], high);
    return sumOfBlock(sums.data());
}

}  // namespace

extern const MeterKernel kAvx2MeterKernel;
const MeterKernel kAvx2MeterKernel{"avx2", move};

}  // namespace detail
