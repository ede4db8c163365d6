// SPDX-License-Identifier: Apache-2.0
#include "base/PackedPixels.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace {

using lectern::PackedPixels;
using Pixels = std::vector<uint32_t>;

// Runs and single pixels of a few colours, in random order.
Pixels drawing(size_t count, unsigned seed) {
    std::mt19937 engine(seed);
    Pixels pixels;
    while (pixels.size() < count) {
        const size_t run = engine() % 3 == 0 ? 1 + engine() % 5 : 1 + engine() % 300;
        pixels.insert(pixels.end(), std::min(run, count - pixels.size()), engine() % 4 * 0x01010101U);
    }
    return pixels;
}

Pixels noise(size_t count) {
    std::mt19937 engine(1);
    Pixels pixels(count);
    std::generate(pixels.begin(), pixels.end(), [&] { return static_cast<uint32_t>(engine()); });
    return pixels;
}

// Memory of its own pages, of which it can tell how many are in use.
class Pages {
public:
    static constexpr size_t COUNT = 64;

    explicit Pages(PackedPixels::Memory memory)
        : mReserved(static_cast<char*>(mmap(
              nullptr, (COUNT + 2) * mPage, PROT_NONE,
              MAP_ANONYMOUS | (memory == PackedPixels::Memory::SHARED ? MAP_SHARED : MAP_PRIVATE), -1, 0))),
          mStart(mReserved + mPage) {
        EXPECT_EQ(mprotect(mStart, COUNT * mPage, PROT_READ | PROT_WRITE), 0);
    }
    ~Pages() { munmap(mReserved, (COUNT + 2) * mPage); }
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;

    uint32_t* pixels() { return reinterpret_cast<uint32_t*>(mStart); }
    size_t pixelCount() const { return COUNT * mPage / sizeof(uint32_t); }
    size_t inUse() const {
        std::vector<unsigned char> pages(COUNT);
        EXPECT_EQ(mincore(mStart, COUNT * mPage, pages.data()), 0);
        return static_cast<size_t>(
            std::count_if(pages.begin(), pages.end(), [](unsigned char page) { return page % 2 != 0; }));
    }
    // Of private memory: what was written, without the kernel's page of zeros.
    long writtenKiB() const {
        std::ostringstream start;
        start << std::hex << reinterpret_cast<uintptr_t>(mStart) << '-';
        const std::string key = "Anonymous:";
        std::ifstream lines("/proc/self/smaps");
        std::string line;
        while (std::getline(lines, line) && line.rfind(start.str(), 0) != 0) {
        }
        while (std::getline(lines, line) && line.rfind(key, 0) != 0) {
        }
        return std::stol(line.substr(key.size()));
    }

private:
    size_t mPage = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    char* mReserved; // with a page at either end, so that no other memory adjoins
    char* mStart;
};

TEST(PackedPixels, RestoresEveryPixel) {
    for (const size_t count : {1, 2, 3, 4, 5, 100, 5000, 300'000}) {
        for (unsigned seed = 0; seed < 20; seed++) {
            const Pixels before = drawing(count, seed);
            Pixels pixels = before;
            PackedPixels packed;
            packed.pack(pixels.data(), count, PackedPixels::Memory::PRIVATE);
            if (!packed.empty()) {
                std::fill(pixels.begin(), pixels.end(), 0x5A5A5A5AU);
            }
            packed.unpack(pixels.data());
            ASSERT_EQ(pixels, before) << count << ", " << seed;
            EXPECT_TRUE(packed.empty());
        }
    }
}

TEST(PackedPixels, RestoresZerosOverOtherPixels) {
    Pixels pixels(100, 0);
    PackedPixels packed;
    packed.pack(pixels.data(), pixels.size(), PackedPixels::Memory::PRIVATE);
    ASSERT_FALSE(packed.empty());
    pixels[50] = 1;
    packed.unpack(pixels.data());
    EXPECT_EQ(pixels, Pixels(100, 0));
}

class PackedPages : public testing::TestWithParam<PackedPixels::Memory> {};

TEST_P(PackedPages, GoBackToTheSystemUntilTheyAreUnpacked) {
    Pages pages(GetParam());
    const Pixels before = drawing(pages.pixelCount(), 7);
    std::copy(before.begin(), before.end(), pages.pixels());
    EXPECT_EQ(pages.inUse(), Pages::COUNT);
    PackedPixels packed;
    packed.pack(pages.pixels(), pages.pixelCount(), GetParam());
    EXPECT_EQ(pages.inUse(), 0U);
    packed.unpack(pages.pixels());
    EXPECT_TRUE(std::equal(before.begin(), before.end(), pages.pixels()));
}

TEST_P(PackedPages, AreOnlyThoseThatLieWhollyInside) {
    Pages pages(GetParam());
    std::fill_n(pages.pixels(), pages.pixelCount(), 7U);
    PackedPixels packed;
    packed.pack(pages.pixels() + 1, pages.pixelCount() - 2, GetParam());
    EXPECT_EQ(pages.inUse(), 2U);
    EXPECT_EQ(pages.pixels()[0], 7U);
    EXPECT_EQ(pages.pixels()[pages.pixelCount() - 1], 7U);
}

TEST_P(PackedPages, OfAPhotographStay) {
    Pages pages(GetParam());
    const Pixels before = noise(pages.pixelCount());
    std::copy(before.begin(), before.end(), pages.pixels());
    PackedPixels packed;
    packed.pack(pages.pixels(), pages.pixelCount(), GetParam());
    EXPECT_TRUE(packed.empty());
    EXPECT_EQ(pages.inUse(), Pages::COUNT);
    packed.unpack(pages.pixels());
    EXPECT_TRUE(std::equal(before.begin(), before.end(), pages.pixels()));
}

INSTANTIATE_TEST_SUITE_P(Of, PackedPages,
                         testing::Values(PackedPixels::Memory::PRIVATE, PackedPixels::Memory::SHARED),
                         [](const auto& memory) {
                             return memory.param == PackedPixels::Memory::PRIVATE ? "PrivateMemory"
                                                                                  : "SharedMemory";
                         });

TEST(PackedPixels, UnwrittenMemoryStaysWithoutPages) {
    Pages pages(PackedPixels::Memory::PRIVATE);
    PackedPixels packed;
    packed.pack(pages.pixels(), pages.pixelCount(), PackedPixels::Memory::PRIVATE);
    EXPECT_FALSE(packed.empty());
    packed.unpack(pages.pixels());
    EXPECT_EQ(pages.writtenKiB(), 0);
    pages.pixels()[0] = 1;
    EXPECT_GT(pages.writtenKiB(), 0);
}

TEST(PackedPixels, PackingTwiceKeepsTheFirst) {
    Pixels pixels(100, 5);
    PackedPixels packed;
    packed.pack(pixels.data(), pixels.size(), PackedPixels::Memory::PRIVATE);
    std::fill(pixels.begin(), pixels.end(), 6U);
    packed.pack(pixels.data(), pixels.size(), PackedPixels::Memory::PRIVATE);
    packed.unpack(pixels.data());
    EXPECT_EQ(pixels, Pixels(100, 5));
}

} // namespace
