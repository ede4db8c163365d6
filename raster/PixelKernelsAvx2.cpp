// SPDX-License-Identifier: Apache-2.0
// Compiled for AVX2, which CMakeLists.txt asks for.
#include "raster/PixelKernelLoops.h"

const PixelKernels AVX2_KERNELS = KERNELS;
