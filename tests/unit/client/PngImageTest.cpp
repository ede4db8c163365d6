// SPDX-License-Identifier: Apache-2.0
#include "client/command/PngImage.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstdlib>
#include <memory>
#include <vector>

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

TEST(WritePng, GivesBackTheSameColoursWithoutAlpha) {
    const std::vector<uint32_t> pixels{0xFFFF0000, 0x0000FF00, 0x010000FF,
                                       0x80123456, 0xFFFFFFFF, 0x00000000};
    const File file(std::tmpfile());
    ASSERT_TRUE(lectern::writePng(file.get(), pixels.data(), 3, 2));

    std::rewind(file.get());
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_NE(png_image_begin_read_from_stdio(&image, file.get()), 0) << image.message;
    EXPECT_EQ(image.width, 3U);
    EXPECT_EQ(image.height, 2U);
    EXPECT_EQ(image.format, static_cast<png_uint_32>(PNG_FORMAT_RGB));
    std::vector<uint8_t> colours(PNG_IMAGE_SIZE(image));
    ASSERT_NE(png_image_finish_read(&image, nullptr, colours.data(), 0, nullptr), 0) << image.message;
    const std::vector<uint8_t> expected{255,  0,    0,    0,   255, 0,   0, 0, 255,
                                        0x12, 0x34, 0x56, 255, 255, 255, 0, 0, 0};
    EXPECT_EQ(colours, expected);
}

TEST(WritePng, FailsWhereNothingCanBeWritten) {
    const File full(std::fopen("/dev/full", "wb"));
    ASSERT_NE(full, nullptr);
    const std::vector<uint32_t> pixels(256 * 256, 0xFFABCDEF);
    EXPECT_FALSE(lectern::writePng(full.get(), pixels.data(), 256, 256));
}

} // namespace
