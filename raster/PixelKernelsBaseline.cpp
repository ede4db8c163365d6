// SPDX-License-Identifier: Apache-2.0
#include "raster/FourLanes.h"
#include "raster/PixelKernelLoops.h"

const PixelKernels BASELINE_KERNELS = PixelLoops<FourLanes>::KERNELS;
