// SPDX-License-Identifier: Apache-2.0
// The inner loops over pixels, which determine the speed of all copies and fills.
// For raster/ and views that compose frames. Each exists once per instruction set, compiled from the loops in
// PixelKernelLoops.h, which say what an instruction set has to supply; pixelKernels()
// chooses. All versions return identical pixels.
#pragma once

#include <cstddef>
#include <cstdint>

// Counts and steps are in pixels. Sources and destinations must not overlap.
struct PixelKernels {
    void (*fill)(uint32_t* dst, size_t count, uint32_t colour);
    // dst[count - 1 - i] = src[i].
    void (*reverse)(const uint32_t* src, uint32_t* dst, size_t count);
    // dst[c * dstStep + r] = src[r * srcStep + c] for all columns c and rows r of
    // the source. A negative step also mirrors the image.
    void (*transpose)(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep,
                      size_t columns, size_t rows);
    // dst[i] = src[columns[i]]. REQUIRES: columns ascend, and src is readable up to
    // columns[count - 1].
    void (*pick)(const uint32_t* src, const int* columns, uint32_t* dst, size_t count);
    // Blends the colour 0xAARRGGBB over the pixels, which keep their own alpha.
    void (*blend)(uint32_t* pixels, size_t count, uint32_t colour);
};

// Runs on every processor of the architecture.
extern const PixelKernels BASELINE_KERNELS;
#if defined(__x86_64__) || defined(__i386__)
// Runs only on processors with AVX2.
extern const PixelKernels AVX2_KERNELS;
#elif defined(__aarch64__)
extern const PixelKernels NEON_KERNELS;
#endif

// The fastest kernels that this processor can run.
const PixelKernels& pixelKernels();
