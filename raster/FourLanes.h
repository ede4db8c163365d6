// SPDX-License-Identifier: Apache-2.0
// Registers of four pixels, in the compiler's own vector code: it uses the instructions
// that the processor has for them. See PixelKernelLoops.h.
#pragma once

#include "raster/PixelKernels.h"

namespace {

struct FourLanes {
    typedef uint32_t Lanes __attribute__((vector_size(16)));

    static Lanes reversed(Lanes v) { return __builtin_shufflevector(v, v, 3, 2, 1, 0); }
    static Lanes loadQuads(const uint32_t* src, ptrdiff_t /*srcStep*/) {
        Lanes v;
        __builtin_memcpy(&v, src, sizeof v);
        return v;
    }
    static Lanes lowPixels(Lanes a, Lanes b) { return __builtin_shufflevector(a, b, 0, 4, 1, 5); }
    static Lanes highPixels(Lanes a, Lanes b) { return __builtin_shufflevector(a, b, 2, 6, 3, 7); }
    static Lanes lowPairs(Lanes a, Lanes b) { return __builtin_shufflevector(a, b, 0, 1, 4, 5); }
    static Lanes highPairs(Lanes a, Lanes b) { return __builtin_shufflevector(a, b, 2, 3, 6, 7); }
    static size_t pickFront(const uint32_t* /*src*/, const int* /*columns*/, uint32_t* /*dst*/,
                            size_t /*count*/) {
        return 0;
    }
};

} // namespace
