// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/detail/TransformKernel.h>

namespace detail {

/// The kernels of this build, slowest first, ended by a null pointer. The first runs everywhere.
extern const TransformKernel* const kTransformKernels[];

/// Whether this processor and its operating system can run the kernel.
bool isSupported(const TransformKernel& pKernel);

/// The fastest kernel that can run here; the same one for the whole life of the process.
const TransformKernel& fastestTransformKernel();

}  // namespace detail
