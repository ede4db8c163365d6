// SPDX-License-Identifier: Apache-2.0
// The kernels, written once for all instruction sets. Each PixelKernelsNAME.cpp
// compiles them for one. Everything here has internal linkage, and no header with
// inline functions is included: otherwise the linker could merge two versions of a
// function and keep the one that the processor cannot run.
#pragma once

#include "raster/PixelKernels.h"

namespace {

constexpr size_t LINE_BYTES = 64; // of a cache line
constexpr size_t LINE_PIXELS = LINE_BYTES / sizeof(uint32_t);
constexpr size_t STRIP_COLUMNS = 32; // by measurement; up to 64 is about as fast

inline size_t smaller(size_t a, size_t b) {
    return a < b ? a : b;
}

// The loops. An instruction set supplies a struct with these static members:
//   Lanes                       a vector of uint32_t: the pixels in a register
//   Lanes reversed(Lanes)       the pixels in reverse order
//   Lanes loadQuads(const uint32_t* src, ptrdiff_t srcStep)
//                               four pixels of a row and, in the upper half of a wider
//                               register, four pixels of the row that is four rows further
//   Lanes lowPixels(Lanes a, Lanes b), Lanes highPixels(Lanes a, Lanes b)
//                               in each group of four: the lower or upper two pixels of a
//                               and b, by turns
//   Lanes lowPairs(Lanes a, Lanes b), Lanes highPairs(Lanes a, Lanes b)
//                               in each group of four: the lower or upper two pixels of a,
//                               and then those of b
//   size_t pickFront(const uint32_t* src, const int* columns, uint32_t* dst, size_t count)
//                               picks pixels from the first on, as far as its instructions
//                               can, and returns their number
template<class InstructionSet>
struct PixelLoops {
    using Set = InstructionSet;
    using Lanes = typename Set::Lanes;
    typedef uint16_t Halves __attribute__((vector_size(sizeof(Lanes))));
    static constexpr size_t LANES = sizeof(Lanes) / sizeof(uint32_t);

    static Lanes load(const uint32_t* p) {
        Lanes v;
        __builtin_memcpy(&v, p, sizeof v);
        return v;
    }

    static void store(uint32_t* p, Lanes v) { __builtin_memcpy(p, &v, sizeof v); }

    static void fill(uint32_t* dst, size_t count, uint32_t colour) {
        size_t i = 0;
        for (; i + LANES <= count; i += LANES) {
            store(dst + i, Lanes{} + colour);
        }
        for (; i < count; i++) {
            dst[i] = colour;
        }
    }

    // The number of pixels between p and the nearest register-aligned address at or
    // below it. Aligned stores never cross a cache line.
    static size_t pixelsPastRegister(const uint32_t* p) {
        return reinterpret_cast<uintptr_t>(p) / sizeof(uint32_t) % LANES;
    }

    static void reverse(const uint32_t* src, uint32_t* dst, size_t count) {
        size_t left = count;
        const auto reversePixels = [&](size_t until) {
            while (left > until) {
                dst[--left] = *src++;
            }
        };
        // Single pixels until the stores are aligned.
        reversePixels(left - smaller(left, pixelsPastRegister(dst + left)));
        for (; left >= 2 * LANES; left -= 2 * LANES, src += 2 * LANES) {
            store(dst + left - LANES, Set::reversed(load(src)));
            store(dst + left - 2 * LANES, Set::reversed(load(src + LANES)));
        }
        reversePixels(0);
    }

    // Transposes four columns of LANES rows.
    static void transposeTile(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep) {
        const Lanes row0 = Set::loadQuads(src, srcStep);
        const Lanes row1 = Set::loadQuads(src + srcStep, srcStep);
        const Lanes row2 = Set::loadQuads(src + 2 * srcStep, srcStep);
        const Lanes row3 = Set::loadQuads(src + 3 * srcStep, srcStep);
        const Lanes low01 = Set::lowPixels(row0, row1);
        const Lanes high01 = Set::highPixels(row0, row1);
        const Lanes low23 = Set::lowPixels(row2, row3);
        const Lanes high23 = Set::highPixels(row2, row3);
        store(dst, Set::lowPairs(low01, low23));
        store(dst + dstStep, Set::highPairs(low01, low23));
        store(dst + 2 * dstStep, Set::lowPairs(high01, high23));
        store(dst + 3 * dstStep, Set::highPairs(high01, high23));
    }

    static void transposePlain(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep,
                               size_t columns, size_t rows) {
        for (size_t c = 0; c < columns; c++, dst += dstStep) {
            const uint32_t* from = src + c;
            for (size_t r = 0; r < rows; r++, from += srcStep) {
                dst[r] = *from;
            }
        }
    }

    // Transposes as many rows as fill a cache line of the destination, so that each line
    // is written once and completely.
    static void transposeBand(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep,
                              size_t columns) {
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
    static void transpose(const uint32_t* src, ptrdiff_t srcStep, uint32_t* dst, ptrdiff_t dstStep,
                          size_t columns, size_t rows) {
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

    static void pick(const uint32_t* src, const int* columns, uint32_t* dst, size_t count) {
#pragma GCC unroll 4
        for (size_t i = Set::pickFront(src, columns, dst, count); i < count; i++) {
            dst[i] = src[columns[i]];
        }
    }

    // Each channel becomes (pixel * (255 - alpha) >> 8) + (colour * alpha >> 8). The
    // sums stay below 256, so all channels of a pixel can be added at once.
    static void blend(uint32_t* pixels, size_t count, uint32_t colour) {
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

    static constexpr PixelKernels KERNELS = {fill, reverse, transpose, pick, blend};
};

} // namespace
