// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterKernel.h>

#include <immintrin.h>

namespace detail {

namespace {

// GCC 12 warns of the forms without a mask.
constexpr __mmask16 kAll = 0xffff;

// Sixteen cells lie within sixteen steps of the bar, so that one permutation looks all of them up.
float move(const float* pFrom,
           const std::uint8_t* pSteps,
           const MeterLikelihoods& pLikelihoods,
           float pLeak,
           std::size_t pBlocks,
           float* pTo)
{
    const __m512 leak = _mm512_set1_ps(pLeak);
    __m512 sum = _mm512_setzero_ps();
    for (std::size_t i = 0; i < pBlocks * MeterStates::kBlock; i += MeterStates::kBlock) {
        const __m512i steps = _mm512_maskz_cvtepu8_epi32(
            kAll, _mm_loadu_si128(reinterpret_cast<const __m128i*>(pSteps + i)));
        const __m512i places = _mm512_sub_epi32(steps, _mm512_set1_epi32(pSteps[i]));
        const __m512 likelihoods =
            _mm512_maskz_permutexvar_ps(kAll, places, _mm512_loadu_ps(&pLikelihoods[pSteps[i]]));
        const __m512 moved =
            _mm512_mul_ps(_mm512_add_ps(_mm512_loadu_ps(pFrom + i - 1), leak), likelihoods);
        _mm512_storeu_ps(pTo + i, moved);
        sum = _mm512_add_ps(sum, moved);
    }
    std::array<float, MeterStates::kBlock> sums = {};
    _mm512_storeu_ps(sums.data(), sum);
    return sumOfBlock(sums.data());
}

}  // namespace

extern const MeterKernel kAvx512MeterKernel;
const MeterKernel kAvx512MeterKernel{"avx512", move};

}  // namespace detail
