// SPDX-License-Identifier: Apache-2.0
#include "raster/PixelKernelLoops.h"

const PixelKernels BASELINE_KERNELS = KERNELS;
