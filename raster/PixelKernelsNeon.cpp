// SPDX-License-Identifier: Apache-2.0
// 64-bit ARM, where every processor has NEON.
#include "raster/FourLanes.h"
#include "raster/PixelKernelLoops.h"

#include <arm_neon.h>

namespace {

struct Neon : FourLanes {
    // Four pixels at a time, as long as they lie within eight of the source. The lookup
    // selects bytes, so the place of a pixel becomes those of its four bytes.
    static size_t pickFront(const uint32_t* src, const int* columns, uint32_t* dst, size_t count) {
        size_t i = 0;
        for (; i + 4 <= count; i += 4) {
            const int base = columns[i];
            if (columns[i + 3] - base > 7 || base + 7 > columns[count - 1]) {
                break;
            }
            const int32x4_t offsets = vsubq_s32(vld1q_s32(columns + i), vdupq_n_s32(base));
            const uint32x4_t bytes =
                vmlaq_n_u32(vdupq_n_u32(0x03020100), vreinterpretq_u32_s32(offsets), 0x04040404);
            const uint8x16x2_t window = {{vreinterpretq_u8_u32(vld1q_u32(src + base)),
                                          vreinterpretq_u8_u32(vld1q_u32(src + base + 4))}};
            vst1q_u32(dst + i, vreinterpretq_u32_u8(vqtbl2q_u8(window, vreinterpretq_u8_u32(bytes))));
        }
        return i;
    }
};

} // namespace

const PixelKernels NEON_KERNELS = PixelLoops<Neon>::KERNELS;
