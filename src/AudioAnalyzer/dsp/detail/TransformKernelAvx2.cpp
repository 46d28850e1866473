// SPDX-License-Identifier: MIT
// Four lanes. Sixteen registers hold two stages of four values; three stages would spill.
#define AA_LANES 4
#define AA_STAGES_PER_PASS 2
#include <AudioAnalyzer/dsp/detail/VectorTransform.h>

namespace detail {

extern const TransformKernel kAvx2TransformKernel;
const TransformKernel kAvx2TransformKernel{
    "avx2", transform<short>, transform<double>, inPlace, toShorts};

}  // namespace detail
