// SPDX-License-Identifier: Apache-2.0
// x86 with AVX2: registers of eight pixels. CMakeLists.txt compiles this file with
// -mavx2.
#include "raster/PixelKernelLoops.h"

#include <immintrin.h>

namespace {

struct Avx2 {
    typedef uint32_t Lanes __attribute__((vector_size(32)));
    typedef uint32_t Quad __attribute__((vector_size(16)));

    static Lanes reversed(Lanes v) { return __builtin_shufflevector(v, v, 7, 6, 5, 4, 3, 2, 1, 0); }
    static Lanes loadQuads(const uint32_t* src, ptrdiff_t srcStep) {
        Quad low;
        Quad high;
        __builtin_memcpy(&low, src, sizeof low);
        __builtin_memcpy(&high, src + 4 * srcStep, sizeof high);
        return __builtin_shufflevector(low, high, 0, 1, 2, 3, 4, 5, 6, 7);
    }
    static Lanes lowPixels(Lanes a, Lanes b) {
        return __builtin_shufflevector(a, b, 0, 8, 1, 9, 4, 12, 5, 13);
    }
    static Lanes highPixels(Lanes a, Lanes b) {
        return __builtin_shufflevector(a, b, 2, 10, 3, 11, 6, 14, 7, 15);
    }
    static Lanes lowPairs(Lanes a, Lanes b) {
        return __builtin_shufflevector(a, b, 0, 1, 8, 9, 4, 5, 12, 13);
    }
    static Lanes highPairs(Lanes a, Lanes b) {
        return __builtin_shufflevector(a, b, 2, 3, 10, 11, 6, 7, 14, 15);
    }

    // Eight pixels at a time, as long as they lie within sixteen of the source.
    static size_t pickFront(const uint32_t* src, const int* columns, uint32_t* dst, size_t count) {
        size_t i = 0;
        for (; i + 8 <= count; i += 8) {
            const int base = columns[i];
            const int span = columns[i + 7] - base;
            if (span > 15 || base + 15 > columns[count - 1]) {
                break;
            }
            const __m256i wanted = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(columns + i));
            const __m256i offsets = _mm256_sub_epi32(wanted, _mm256_set1_epi32(base));
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst + i),
                                pickEight(src + base, offsets, span < 8));
        }
        return i;
    }

private:
    // Returns the pixels of src at eight ascending offsets, which are below 8 if
    // fromFirstEight is true and below 16 otherwise.
    static __m256i pickEight(const uint32_t* src, __m256i offsets, bool fromFirstEight) {
        const auto* window = reinterpret_cast<const __m256i*>(src);
        const __m256i low = _mm256_permutevar8x32_epi32(_mm256_loadu_si256(window), offsets);
        if (fromFirstEight) {
            return low;
        }
        const __m256i high = _mm256_permutevar8x32_epi32(_mm256_loadu_si256(window + 1), offsets);
        return _mm256_blendv_epi8(low, high, _mm256_cmpgt_epi32(offsets, _mm256_set1_epi32(7)));
    }
};

} // namespace

const PixelKernels AVX2_KERNELS = PixelLoops<Avx2>::KERNELS;
