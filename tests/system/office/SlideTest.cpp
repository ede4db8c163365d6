// SPDX-License-Identifier: Apache-2.0
// Painted slides, compared with the pictures that the suite exports.
#include "engine/office/DocumentLoading.h"
#include "engine/office/slide/SlideDocument.h"
#include "modules/ModuleResults.h"
#include "tests/system/office/OfficeFixture.h"

#include <com/sun/star/drawing/GraphicExportFilter.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <png.h>

#include <cstdlib>

namespace lectern::engine::test {
namespace {

using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY_THROW;
using Pixels = std::vector<uint32_t>;

constexpr int32_t WIDTH = 640;
constexpr int32_t HEIGHT = 360;

Sequence<css::beans::PropertyValue> values(std::vector<std::pair<const char*, Any>> entries) {
    std::vector<css::beans::PropertyValue> all(entries.size());
    for (size_t i = 0; i < entries.size(); ++i) {
        all[i].Name = OUString::createFromAscii(entries[i].first);
        all[i].Value = entries[i].second;
    }
    return {all.data(), static_cast<sal_Int32>(all.size())};
}

Pixels readPng(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_NE(png_image_begin_read_from_file(&image, path.c_str()), 0) << path;
    image.format = PNG_FORMAT_BGRA;
    Pixels pixels(size_t{image.width} * image.height);
    const png_color white{255, 255, 255};
    EXPECT_NE(png_image_finish_read(&image, &white, pixels.data(), 0, nullptr), 0);
    EXPECT_EQ(image.width, uint32_t{WIDTH});
    EXPECT_EQ(image.height, uint32_t{HEIGHT});
    return pixels;
}

class SlidePictures : public OfficeTest {
protected:
    // The pictures of all slides that the suite exports.
    static std::vector<Pixels> exported(const std::string& path) {
        LoadedModel loaded;
        EXPECT_EQ(loadModel(office().d(), path, "", testFolder(), loaded), MODULE_OK);
        const Reference<css::drawing::XDrawPagesSupplier> supplier(loaded.model, UNO_QUERY_THROW);
        const auto filter = css::drawing::GraphicExportFilter::create(office().d().context);
        const std::string file = testFolder() / "slide.png";
        std::vector<Pixels> pictures;
        for (sal_Int32 i = 0; i < supplier->getDrawPages()->getCount(); ++i) {
            filter->setSourceDocument({supplier->getDrawPages()->getByIndex(i), UNO_QUERY_THROW});
            const auto size = values({{"PixelWidth", Any(WIDTH)}, {"PixelHeight", Any(HEIGHT)}});
            EXPECT_TRUE(
                filter->filter(values({{"URL", Any(OUString::createFromAscii(("file://" + file).c_str()))},
                                       {"FilterName", Any(OUString("PNG"))},
                                       {"FilterData", Any(size)}})));
            pictures.push_back(readPng(file));
        }
        return pictures;
    }
};

// Share of the pixels that differ from their neighbourhood by more than a
// differently smoothed edge does.
double differing(const Pixels& a, const Pixels& b) {
    constexpr int NOTICEABLE = 96;
    const auto green = [](const Pixels& pixels, int32_t x, int32_t y) {
        return static_cast<int>(pixels[static_cast<size_t>(y * WIDTH + x)] >> 8 & 0xFF);
    };
    int count = 0;
    for (int32_t y = 1; y < HEIGHT - 1; ++y) {
        for (int32_t x = 1; x < WIDTH - 1; ++x) {
            int least = 255;
            for (int32_t dy = -1; dy <= 1; ++dy) {
                for (int32_t dx = -1; dx <= 1; ++dx) {
                    least = std::min(least, std::abs(green(a, x, y) - green(b, x + dx, y + dy)));
                }
            }
            count += least > NOTICEABLE ? 1 : 0;
        }
    }
    return static_cast<double>(count) / (WIDTH * HEIGHT);
}

TEST_F(SlidePictures, AreThoseThatTheSuiteExports) {
    const std::string path = std::string(SAMPLES_FOLDER) + "/tour.pptx";
    const std::vector<Pixels> wanted = exported(path);
    ASSERT_EQ(wanted.size(), 7U);
    std::unique_ptr<SlideDocument> document;
    ASSERT_EQ(SlideDocument::open(office(), path, testFolder(), document), MODULE_OK);
    Pixels pixels(size_t{WIDTH} * size_t{HEIGHT});
    ASSERT_EQ(document->setSurface(pixels.data(), WIDTH, HEIGHT), MODULE_OK);
    for (int32_t slide = 0; slide < 6; ++slide) { // on the last one a box is hidden
        ASSERT_EQ(document->render(slide), MODULE_OK);
        EXPECT_LT(differing(pixels, wanted[static_cast<size_t>(slide)]), 0.001) << slide;
        EXPECT_GT(differing(pixels, wanted[static_cast<size_t>(slide + 1) % 6]), 0.005)
            << "another slide is another picture";
    }
    ASSERT_EQ(document->render(6), MODULE_OK);
    EXPECT_GT(differing(wanted[6], pixels), 0.02) << "what animations take away is missing";
}

TEST_F(SlidePictures, AreTheSameAfterPreparations) {
    const std::string path = std::string(SAMPLES_FOLDER) + "/tour.pptx";
    constexpr int32_t ROOM = 3;
    constexpr size_t PICTURE = size_t{WIDTH} * size_t{HEIGHT};
    const auto shown = [&](bool prepares) {
        std::unique_ptr<SlideDocument> document;
        EXPECT_EQ(SlideDocument::open(office(), path, testFolder(), document), MODULE_OK);
        Pixels memory(PICTURE * ROOM);
        document->setRoom(ROOM);
        EXPECT_EQ(document->setSurface(memory.data(), WIDTH, HEIGHT), MODULE_OK);
        std::vector<Pixels> pictures;
        for (const int32_t slide : {0, 1, 2, 1, 3, 2, 1, 0, 6, 5}) {
            EXPECT_EQ(document->render(slide), MODULE_OK);
            const Pixels before = memory;
            int32_t steps = 0;
            while (prepares && document->prepareNext()) {
                ++steps;
            }
            EXPECT_EQ(steps > 1, prepares) << "it takes more than one";
            EXPECT_TRUE(memory == before) << "kept pictures stay";
            const auto first = memory.begin() + document->picture() * static_cast<int64_t>(PICTURE);
            pictures.emplace_back(first, first + PICTURE);
        }
        return pictures;
    };
    EXPECT_TRUE(shown(true) == shown(false));
}

} // namespace
} // namespace lectern::engine::test
