// SPDX-License-Identifier: MIT
// Eight lanes. Thirty-two registers hold three stages of eight values.
#define AA_LANES 8
#define AA_STAGES_PER_PASS 3
#include <AudioAnalyzer/dsp/detail/VectorTransform.h>

namespace detail {

extern const TransformKernel kAvx512TransformKernel;
const TransformKernel kAvx512TransformKernel{
    "avx512", transform<short>, transform<double>, inPlace, toShorts};

}  // namespace detail
