// SPDX-License-Identifier: Apache-2.0
// The loops over pixels that decide how fast everything else is; not for use
// outside raster/. Each exists once per instruction set, from the same source,
// and all of them give the same bits.
#pragma once

#include <cstddef>
#include <cstdint>

// Counts are pixels; sources and destinations never overlap.
struct PixelKernels {
    void (*fill)(uint32_t* dst, size_t count, uint32_t colour);
    // dst[count - 1 - i] = src[i].
    void (*reverse)(const uint32_t* src, uint32_t* dst, size_t count);
    // dst[c * dstStep + r] = src[r * srcStep + c] for all columns c and rows r of
    // the source. A negative step turns the image over on the way.
    void (*transpose)(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep,
                      size_t columns, size_t rows);
    // dst[i] = src[columns[i]]. The columns rise; src can be read up to columns[count - 1].
    void (*pick)(const uint32_t* src, const int* columns, uint32_t* dst, size_t count);
    // The colour 0xAARRGGBB over pixels; they keep their own alpha.
    void (*blend)(uint32_t* pixels, size_t count, uint32_t colour);
};

// What every processor of the architecture runs.
extern const PixelKernels BASELINE_KERNELS;
#if defined(__x86_64__) || defined(__i386__)
// To be run only where the processor has AVX2.
extern const PixelKernels AVX2_KERNELS;
#endif

// The fastest that this processor runs.
const PixelKernels& pixelKernels();
