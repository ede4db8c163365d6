// SPDX-License-Identifier: Apache-2.0
// CMakeLists.txt compiles this file with -mavx2.
#include "raster/PixelKernelLoops.h"

const PixelKernels AVX2_KERNELS = KERNELS;
