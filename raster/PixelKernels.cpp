// SPDX-License-Identifier: Apache-2.0
#include "raster/PixelKernels.h"

const PixelKernels& pixelKernels() {
#if defined(__x86_64__) || defined(__i386__)
    static const PixelKernels& fastest = __builtin_cpu_supports("avx2") ? AVX2_KERNELS : BASELINE_KERNELS;
    return fastest;
#elif defined(__aarch64__)
    return NEON_KERNELS;
#else
    return BASELINE_KERNELS;
#endif
}
