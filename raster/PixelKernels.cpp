// SPDX-License-Identifier: Apache-2.0
#include "raster/PixelKernels.h"

#if defined(__x86_64__) || defined(__i386__)
const PixelKernels& pixelKernels() {
    static const PixelKernels& fastest = __builtin_cpu_supports("avx2") ? AVX2_KERNELS : BASELINE_KERNELS;
    return fastest;
}
#else
const PixelKernels& pixelKernels() {
    return BASELINE_KERNELS;
}
#endif
