// SPDX-License-Identifier: MIT
// Two lanes, which every x86-64 and every 64-bit ARM has.
#define AA_LANES 2
#define AA_STAGES_PER_PASS 2
#include <AudioAnalyzer/dsp/detail/VectorTransform.h>

namespace detail {

extern const TransformKernel kBaselineTransformKernel;
const TransformKernel kBaselineTransformKernel{
    "baseline", transform<short>, transform<double>, inPlace, toShorts};

}  // namespace detail
