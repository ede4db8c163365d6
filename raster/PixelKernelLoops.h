// SPDX-License-Identifier: Apache-2.0
// The kernels. Each source file that includes this one compiles them for one
// instruction set. Everything here has internal linkage, and no header with inline
// functions is included: otherwise the linker could merge two versions of a
// function and keep the one that the processor cannot run.
#pragma once

#include "raster/PixelKernels.h"
#ifdef __AVX2__
#include <immintrin.h>
#endif

namespace {

// The number of pixels in a register.
#ifdef __AVX2__
constexpr size_t LANES = 8;
#else
constexpr size_t LANES = 4;
#endif
constexpr size_t LINE_BYTES = 64; // of a cache line
constexpr size_t LINE_PIXELS = LINE_BYTES / sizeof(uint32_t);
constexpr size_t STRIP_COLUMNS = 32; // by measurement; up to 64 is about as fast

typedef uint32_t Quad __attribute__((vector_size(16)));
typedef uint32_t Lanes __attribute__((vector_size(4 * LANES)));
typedef uint16_t Halves __attribute__((vector_size(4 * LANES)));
// The same types in memory, aligned only to a pixel.
typedef uint32_t QuadInMemory __attribute__((vector_size(16), aligned(4), may_alias));
typedef uint32_t LanesInMemory __attribute__((vector_size(4 * LANES), aligned(4), may_alias));

inline size_t smaller(size_t a, size_t b) {
    return a < b ? a : b;
}

// The number of pixels between p and the nearest register-aligned address at or
// below it. Aligned stores never cross a cache line.
inline size_t pixelsPastRegister(const uint32_t* p) {
    return reinterpret_cast<uintptr_t>(p) / sizeof(uint32_t) % LANES;
}

inline Lanes load(const uint32_t* p) {
    return *reinterpret_cast<const LanesInMemory*>(p);
}

inline void store(uint32_t* p, Lanes v) {
    *reinterpret_cast<LanesInMemory*>(p) = v;
}

void fill(uint32_t* dst, size_t count, uint32_t colour) {
    const Lanes lanes = Lanes{} + colour;
    size_t i = 0;
    if (count >= LANES) {
        // The first register's worth is unaligned, all further stores are aligned.
        store(dst, lanes);
        i = LANES - pixelsPastRegister(dst);
    }
    for (; i + 4 * LANES <= count; i += 4 * LANES) {
        store(dst + i, lanes);
        store(dst + i + LANES, lanes);
        store(dst + i + 2 * LANES, lanes);
        store(dst + i + 3 * LANES, lanes);
    }
    for (; i < count; i++) {
        dst[i] = colour;
    }
}

inline Lanes reversed(Lanes v) {
#ifdef __AVX2__
    return __builtin_shufflevector(v, v, 7, 6, 5, 4, 3, 2, 1, 0);
#else
    return __builtin_shufflevector(v, v, 3, 2, 1, 0);
#endif
}

void reverse(const uint32_t* src, uint32_t* dst, size_t count) {
    size_t left = count;
    const auto reversePixels = [&](size_t until) {
        while (left > until) {
            dst[--left] = *src++;
        }
    };
    // Single pixels until the stores are aligned.
    reversePixels(left - smaller(left, pixelsPastRegister(dst + left)));
    for (; left >= 2 * LANES; left -= 2 * LANES, src += 2 * LANES) {
        store(dst + left - LANES, reversed(load(src)));
        store(dst + left - 2 * LANES, reversed(load(src + LANES)));
    }
    reversePixels(0);
}

// Loads four pixels of a row and, into the upper half of a wider register, four
// pixels of the row that is four rows further.
inline Lanes loadQuads(const uint32_t* src, ptrdiff_t srcStep) {
    const Quad low = *reinterpret_cast<const QuadInMemory*>(src);
#ifdef __AVX2__
    const Quad high = *reinterpret_cast<const QuadInMemory*>(src + 4 * srcStep);
    return __builtin_shufflevector(low, high, 0, 1, 2, 3, 4, 5, 6, 7);
#else
    (void)srcStep;
    return low;
#endif
}

// Interleave two registers, separately for each group of four pixels.
#ifdef __AVX2__
#define LECTERN_LOW_PIXELS(a, b) __builtin_shufflevector(a, b, 0, 8, 1, 9, 4, 12, 5, 13)
#define LECTERN_HIGH_PIXELS(a, b) __builtin_shufflevector(a, b, 2, 10, 3, 11, 6, 14, 7, 15)
#define LECTERN_LOW_PAIRS(a, b) __builtin_shufflevector(a, b, 0, 1, 8, 9, 4, 5, 12, 13)
#define LECTERN_HIGH_PAIRS(a, b) __builtin_shufflevector(a, b, 2, 3, 10, 11, 6, 7, 14, 15)
#else
#define LECTERN_LOW_PIXELS(a, b) __builtin_shufflevector(a, b, 0, 4, 1, 5)
#define LECTERN_HIGH_PIXELS(a, b) __builtin_shufflevector(a, b, 2, 6, 3, 7)
#define LECTERN_LOW_PAIRS(a, b) __builtin_shufflevector(a, b, 0, 1, 4, 5)
#define LECTERN_HIGH_PAIRS(a, b) __builtin_shufflevector(a, b, 2, 3, 6, 7)
#endif

// Transposes four columns of LANES rows.
inline void transposeTile(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep) {
    const Lanes row0 = loadQuads(src, srcStep);
    const Lanes row1 = loadQuads(src + srcStep, srcStep);
    const Lanes row2 = loadQuads(src + 2 * srcStep, srcStep);
    const Lanes row3 = loadQuads(src + 3 * srcStep, srcStep);
    const Lanes low01 = LECTERN_LOW_PIXELS(row0, row1);
    const Lanes high01 = LECTERN_HIGH_PIXELS(row0, row1);
    const Lanes low23 = LECTERN_LOW_PIXELS(row2, row3);
    const Lanes high23 = LECTERN_HIGH_PIXELS(row2, row3);
    store(dst, LECTERN_LOW_PAIRS(low01, low23));
    store(dst + dstStep, LECTERN_HIGH_PAIRS(low01, low23));
    store(dst + 2 * dstStep, LECTERN_LOW_PAIRS(high01, high23));
    store(dst + 3 * dstStep, LECTERN_HIGH_PAIRS(high01, high23));
}

#undef LECTERN_LOW_PIXELS
#undef LECTERN_HIGH_PIXELS
#undef LECTERN_LOW_PAIRS
#undef LECTERN_HIGH_PAIRS

void transposePlain(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep, size_t columns,
                    size_t rows) {
    for (size_t c = 0; c < columns; c++, dst += dstStep) {
        const uint32_t* from = src + c;
        for (size_t r = 0; r < rows; r++, from += srcStep) {
            dst[r] = *from;
        }
    }
}

// Transposes as many rows as fill a cache line of the destination, so that each line
// is written once and completely.
void transposeBand(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep, size_t columns) {
    size_t c = 0;
    for (; c + 4 <= columns; c += 4, src += 4, dst += 4 * dstStep) {
        const uint32_t* from = src;
        for (size_t r = 0; r < LINE_PIXELS; r += LANES, from += static_cast<ptrdiff_t>(LANES) * srcStep) {
            transposeTile(from, srcStep, dst + r, dstStep);
        }
    }
    transposePlain(src, srcStep, dst, dstStep, columns - c, LINE_PIXELS);
}

// Works in strips of columns: each column is another row of the destination, and the
// processor can cache only a limited number of page translations and lines.
void transpose(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep, size_t columns,
               size_t rows) {
    // The rows before the first whole cache line of the destination.
    const size_t past = reinterpret_cast<uintptr_t>(dst) % LINE_BYTES / sizeof(uint32_t);
    const size_t peeled = smaller((LINE_PIXELS - past) % LINE_PIXELS, rows);
    const size_t whole = (rows - peeled) / LINE_PIXELS * LINE_PIXELS;
    for (size_t c = 0; c < columns; c += STRIP_COLUMNS) {
        const size_t width = smaller(STRIP_COLUMNS, columns - c);
        const uint32_t* from = src + c;
        uint32_t* to = dst + static_cast<ptrdiff_t>(c) * dstStep;
        transposePlain(from, srcStep, to, dstStep, width, peeled);
        for (size_t r = peeled; r < peeled + whole; r += LINE_PIXELS) {
            transposeBand(from + static_cast<ptrdiff_t>(r) * srcStep, srcStep, to + r, dstStep, width);
        }
        const size_t done = peeled + whole;
        transposePlain(from + static_cast<ptrdiff_t>(done) * srcStep, srcStep, to + done, dstStep, width,
                       rows - done);
    }
}

#ifdef __AVX2__
// Returns the pixels of src at eight ascending offsets, which are below 8 if
// fromFirstEight is true and below 16 otherwise.
inline __m256i pickEight(const uint32_t* src, __m256i offsets, bool fromFirstEight) {
    const auto* window = reinterpret_cast<const __m256i*>(src);
    const __m256i low = _mm256_permutevar8x32_epi32(_mm256_loadu_si256(window), offsets);
    if (fromFirstEight) {
        return low;
    }
    const __m256i high = _mm256_permutevar8x32_epi32(_mm256_loadu_si256(window + 1), offsets);
    return _mm256_blendv_epi8(low, high, _mm256_cmpgt_epi32(offsets, _mm256_set1_epi32(7)));
}
#endif

void pick(const uint32_t* src, const int* columns, uint32_t* dst, size_t count) {
    size_t i = 0;
#ifdef __AVX2__
    for (; i + 8 <= count; i += 8) {
        const int base = columns[i];
        const int span = columns[i + 7] - base;
        if (span > 15 || base + 15 > columns[count - 1]) {
            break;
        }
        const __m256i wanted = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(columns + i));
        _mm256_storeu_si256(
            reinterpret_cast<__m256i*>(dst + i),
            pickEight(src + base, _mm256_sub_epi32(wanted, _mm256_set1_epi32(base)), span < 8));
    }
#endif
    for (; i + 4 <= count; i += 4) {
        dst[i] = src[columns[i]];
        dst[i + 1] = src[columns[i + 1]];
        dst[i + 2] = src[columns[i + 2]];
        dst[i + 3] = src[columns[i + 3]];
    }
    for (; i < count; i++) {
        dst[i] = src[columns[i]];
    }
}

// Each channel becomes (pixel * (255 - alpha) >> 8) + (colour * alpha >> 8). The
// sums stay below 256, so all channels of a pixel can be added at once.
void blend(uint32_t* pixels, size_t count, uint32_t colour) {
    const uint32_t alpha = colour >> 24;
    const uint32_t keep = 255 - alpha;
    const uint32_t share = (((colour & 0x00FF00FF) * alpha >> 8) & 0x00FF00FF) |
                           (((colour & 0x0000FF00) * alpha >> 8) & 0x0000FF00);
    // In 16-bit lanes, blue and red are the low bytes, green and alpha the high
    // ones. The factor 256 keeps the pixel's own alpha.
    const Halves keepLow = reinterpret_cast<Halves>(Lanes{} + (keep << 16 | keep));
    const Halves keepHigh = reinterpret_cast<Halves>(Lanes{} + (256U << 16 | keep));
    size_t i = 0;
    for (; i + LANES <= count; i += LANES) {
        const Lanes old = load(pixels + i);
        const Halves low = (reinterpret_cast<Halves>(old & 0x00FF00FF) * keepLow) >> 8;
        const Halves high = (reinterpret_cast<Halves>(old) >> 8) * keepHigh;
        store(pixels + i,
              (reinterpret_cast<Lanes>(low) | (reinterpret_cast<Lanes>(high) & 0xFF00FF00)) + share);
    }
    for (; i < count; i++) {
        const uint32_t old = pixels[i];
        pixels[i] = (((old & 0x00FF00FF) * keep >> 8) & 0x00FF00FF) +
                    (((old & 0x0000FF00) * keep >> 8) & 0x0000FF00) + (old & 0xFF000000) + share;
    }
}

constexpr PixelKernels KERNELS = {fill, reverse, transpose, pick, blend};

} // namespace
