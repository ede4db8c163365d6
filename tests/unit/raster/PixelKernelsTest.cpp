// SPDX-License-Identifier: Apache-2.0
// Tests every set of kernels that this processor supports, not only the default one.
#include "raster/PixelKernels.h"

#include "Arena.h"
#include "PlainLoops.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

namespace {

struct NamedKernels {
    const char* name;
    const PixelKernels* kernels;
};

std::vector<NamedKernels> runnableKernels() {
    std::vector<NamedKernels> all{{"Baseline", &BASELINE_KERNELS}};
#if defined(__x86_64__) || defined(__i386__)
    if (__builtin_cpu_supports("avx2")) {
        all.push_back({"Avx2", &AVX2_KERNELS});
    }
#elif defined(__aarch64__)
    all.push_back({"Neon", &NEON_KERNELS});
#endif
    return all;
}

constexpr size_t LONGEST = 200; // pixels; several registers and a remainder

// Memory that ends where the next read is a crash.
class ReadablePage {
public:
    ReadablePage()
        : mStart(static_cast<char*>(
              mmap(nullptr, 2 * mBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))) {
        EXPECT_EQ(mprotect(mStart + mBytes, mBytes, PROT_NONE), 0);
    }
    ~ReadablePage() { munmap(mStart, 2 * mBytes); }
    ReadablePage(const ReadablePage&) = delete;
    ReadablePage& operator=(const ReadablePage&) = delete;

    // A copy of the first `count` pixels at the end of the memory.
    const uint32_t* ending(const std::vector<uint32_t>& pixels, size_t count) {
        uint32_t* copy = reinterpret_cast<uint32_t*>(mStart + mBytes) - count;
        std::copy_n(pixels.begin(), count, copy);
        return copy;
    }

private:
    size_t mBytes = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    char* mStart;
};

class Kernels : public testing::TestWithParam<NamedKernels> {
protected:
    const PixelKernels& mKernels = *GetParam().kernels;
    std::vector<uint32_t> mSource = noise(LONGEST * LONGEST, 5);
    ReadablePage mReadable;
    Arena mOurs{LONGEST * LONGEST, 400};
    Arena mPlain{LONGEST * LONGEST, 400};
};

TEST_P(Kernels, FillEveryLengthAtEveryAlignment) {
    for (size_t count = 0; count < LONGEST; count++) {
        mKernels.fill(mOurs.start() + count % 17, count, 0x89ABCDEF);
        std::fill_n(mPlain.start() + count % 17, count, 0x89ABCDEF);
        ASSERT_TRUE(mOurs == mPlain) << count;
        mOurs.reset();
        mPlain.reset();
    }
}

TEST_P(Kernels, ReverseEveryLength) {
    for (size_t count = 0; count < LONGEST; count++) {
        mKernels.reverse(mSource.data(), mOurs.start() + 1, count);
        std::reverse_copy(mSource.data(), mSource.data() + count, mPlain.start() + 1);
        ASSERT_TRUE(mOurs == mPlain) << count;
    }
}

TEST_P(Kernels, TransposeEverySizeInEveryDirection) {
    const ptrdiff_t step = 60;
    const size_t sides[] = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33, 50};
    for (const size_t columns : sides) {
        for (const size_t rows : sides) {
            for (const ptrdiff_t sourceSign : {1, -1}) {
                for (const ptrdiff_t sign : {1, -1}) {
                    const uint32_t* src = mSource.data() + 60 * step;
                    const size_t place = 60 * 60 + (columns + rows) % 16;
                    mKernels.transpose(src, sourceSign * step, mOurs.start() + place, sign * step, columns,
                                       rows);
                    for (size_t c = 0; c < columns; c++) {
                        for (size_t r = 0; r < rows; r++) {
                            mPlain.start()[static_cast<ptrdiff_t>(place + r) +
                                           static_cast<ptrdiff_t>(c) * sign * step] =
                                src[static_cast<ptrdiff_t>(r) * sourceSign * step +
                                    static_cast<ptrdiff_t>(c)];
                        }
                    }
                    ASSERT_TRUE(mOurs == mPlain) << columns << " x " << rows;
                    mOurs.reset();
                    mPlain.reset();
                }
            }
        }
    }
}

TEST_P(Kernels, PickNothingBeyondTheLastColumn) {
    for (int hundredths = 0; hundredths < 400; hundredths += 5) {
        const double step = hundredths / 100.0;
        for (size_t count = 1; count < 50; count++) {
            std::vector<int> columns(count);
            for (size_t i = 0; i < count; i++) {
                columns[i] = static_cast<int>(3 + step * static_cast<double>(i));
            }
            const uint32_t* source = mReadable.ending(mSource, static_cast<size_t>(columns.back()) + 1);
            mKernels.pick(source, columns.data(), mOurs.start(), count);
            for (size_t i = 0; i < count; i++) {
                mPlain.start()[i] = source[columns[i]];
            }
            ASSERT_TRUE(mOurs == mPlain) << step << ", " << count;
        }
    }
}

TEST_P(Kernels, BlendEveryLength) {
    for (size_t count = 0; count < LONGEST; count++) {
        mKernels.blend(mOurs.start() + 1, count, 0x5A30F0C1);
        for (size_t i = 1; i <= count; i++) {
            mPlain.start()[i] = plain::blended(mPlain.start()[i], 0x5A30F0C1);
        }
        ASSERT_TRUE(mOurs == mPlain) << count;
    }
}

// Every alpha with every value of a channel over every old value. The three
// channels have the values at different places, so that a leak into the
// neighbour shows.
TEST_P(Kernels, BlendEveryAlphaAndChannelOverEveryOldValue) {
    std::vector<uint32_t> old(256);
    for (uint32_t v = 0; v < 256; v++) {
        old[v] = (v * 7 % 256) << 24 | v << 16 | (v + 85) % 256 << 8 | (v + 170) % 256;
    }
    std::vector<uint32_t> pixels(256);
    std::vector<uint32_t> expected(256);
    for (uint32_t alpha = 0; alpha < 256; alpha++) {
        for (uint32_t c = 0; c < 256; c++) {
            const uint32_t colour = alpha << 24 | c << 16 | (c + 101) % 256 << 8 | (c + 202) % 256;
            pixels = old;
            mKernels.blend(pixels.data(), pixels.size(), colour);
            std::transform(old.begin(), old.end(), expected.begin(),
                           [colour](uint32_t pixel) { return plain::blended(pixel, colour); });
            ASSERT_EQ(pixels, expected) << std::hex << colour;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Kernels, testing::ValuesIn(runnableKernels()),
                         [](const auto& set) { return std::string(set.param.name); });

} // namespace
