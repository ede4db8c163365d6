// SPDX-License-Identifier: Apache-2.0
// The picture of slides, compared pixel by pixel with the suite's own paint.
#include "tests/system/support/BareSlides.h"
#include "tests/system/support/SlideFixture.h"

#include <algorithm>
#include <random>

namespace {

constexpr int SLIDES_THAT_STAY_AS_THEY_ARE = 6; // of the tour; a box on the last slide is hidden
constexpr int POINTS_ACROSS = 960;
constexpr int POINTS_DOWN = 540;

class SlidePictureTest : public SlidesTest {
protected:
    // Number of pixels that differ from the slide at the view's position, or
    // from black beside it.
    static int wrongPixels(const TestDocument& document, const BareSlides& slides, int slide) {
        const Shown picture = shown(document);
        int wrong = 0;
        for (int i = 0; i < static_cast<int>(picture.size()) - 1; ++i) {
            const int x = i % document.width() + document.scrollX();
            const int y = i / document.width() + document.scrollY();
            const uint32_t colour = picture[static_cast<size_t>(i)];
            if (slides.isInside(x, y)) {
                wrong += colour != slides.colour(slide, x, y) ? 1 : 0;
            } else if (!slides.isOnSlide(x, y)) {
                wrong += colour != 0 ? 1 : 0;
            }
        }
        return wrong;
    }
    // The same for a turned picture: `place` returns the frame's index of a
    // slide's pixel; all other pixels must be black.
    template<class Place>
    static int wrongTurnedPixels(const TestDocument& document, const BareSlides& slides, int slide,
                                 Place place) {
        const Shown picture = shown(document);
        std::vector<bool> covered(picture.size(), false);
        int wrong = 0;
        for (int y = 0; y < slides.height(); ++y) {
            for (int x = 0; x < slides.width(); ++x) {
                const int index = place(x, y);
                if (index < 0 || index >= static_cast<int>(picture.size()) - 1) {
                    continue;
                }
                covered[static_cast<size_t>(index)] = true;
                if (slides.isInside(x, y)) {
                    wrong += picture[static_cast<size_t>(index)] != slides.colour(slide, x, y) ? 1 : 0;
                }
            }
        }
        for (size_t i = 0; i < picture.size() - 1; ++i) {
            wrong += !covered[i] && picture[i] != 0 ? 1 : 0;
        }
        return wrong;
    }
    static void turn(TestDocument& document, const std::string& orientation) {
        EXPECT_EQ(document.call("/ppt", "fitWideMode", orientation), R"({ "returnValue": true })");
    }
};

TEST_F(SlidePictureTest, EverySlideIsTheOneThatTheSuitePaints) {
    for (const auto& [width, height] : {std::pair{480, 800}, {1280, 960}, {1280, 480}}) {
        const int high = width * POINTS_DOWN / POINTS_ACROSS;
        const BareSlides slides(slideSample("tour.pptx"), width, high, POINTS_ACROSS, POINTS_DOWN);
        TestDocument document(*client, *queue, slideSample("tour.pptx"), width, height);
        ASSERT_EQ(document.openResult(), 0);
        ASSERT_EQ(document.paint(), 0);
        for (int slide = 0; slide < SLIDES_THAT_STAY_AS_THEY_ARE; ++slide) {
            ASSERT_EQ(jump(document, slide), slide);
            EXPECT_EQ(document.scrollX(), 0);
            EXPECT_EQ(wrongPixels(document, slides, slide), 0) << width << ", slide " << slide;
            EXPECT_GT(wrongPixels(document, slides, (slide + 1) % SLIDES_THAT_STAY_AS_THEY_ARE), 100)
                << "another slide is another picture";
        }
    }
}

TEST_F(SlidePictureTest, ASlideLowerThanTheViewIsInItsMiddle) {
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 800);
    ASSERT_EQ(document.paint(), 0);
    EXPECT_EQ(document.scrollY(), (270 - 800) / 2);
    EXPECT_DOUBLE_EQ(document.scale(), 0.5);
}

TEST_F(SlidePictureTest, AnimationsHaveEnded) {
    constexpr uint32_t BOX = 0xC8553D; // of the hidden box
    const BareSlides slides(slideSample("tour.pptx"), 480, 270, POINTS_ACROSS, POINTS_DOWN);
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 800);
    ASSERT_EQ(jump(document, 6), 6);
    const Shown picture = shown(document);
    EXPECT_EQ(std::count(picture.begin(), picture.end(), BOX), 0);
    EXPECT_EQ(slides.colour(6, 165, 190), BOX) << "it is there before they have";
    EXPECT_EQ(picture[static_cast<size_t>((265 + 190) * 480 + 165)], 0xFFFFFFU);
}

TEST_F(SlidePictureTest, PinchedAndDraggedItIsTheSamePictureLarger) {
    const BareSlides slides(slideSample("tour.pptx"), 960, 540, POINTS_ACROSS, POINTS_DOWN);
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 320);
    ASSERT_EQ(document.paint(), 0);
    document.pinch(2.0);
    ASSERT_DOUBLE_EQ(document.scale(), 1.0);
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 chance(seed);
    const auto upTo = [&](int most) { return static_cast<int>(chance() % static_cast<unsigned>(most)); };
    for (int step = 0; step < 25; ++step) {
        const int slide = upTo(SLIDES_THAT_STAY_AS_THEY_ARE);
        ASSERT_EQ(jump(document, slide), slide);
        document.penDown(upTo(480), upTo(320));
        document.penMove(upTo(480), upTo(320));
        document.penUp(upTo(480), upTo(320));
        ASSERT_EQ(document.paint(), 0);
        ASSERT_EQ(wrongPixels(document, slides, slide), 0) << "step " << step;
        ASSERT_GE(document.scrollX(), 0);
        ASSERT_LE(document.scrollX(), 960 - 480);
        ASSERT_GE(document.scrollY(), 0);
        ASSERT_LE(document.scrollY(), 540 - 320);
    }
}

TEST_F(SlidePictureTest, DoubleTapsGoThroughThreeZooms) {
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 320);
    ASSERT_EQ(document.paint(), 0);
    for (const double zoom : {1.25, 1.625, 0.875, 1.25}) {
        document.doubleTap(240, 160);
        EXPECT_DOUBLE_EQ(document.scale(), zoom);
        const int width = static_cast<int>(960 * zoom) + static_cast<int>(960 * zoom) % 2;
        const int height = static_cast<int>(540 * zoom) + static_cast<int>(540 * zoom) % 2;
        const BareSlides slides(slideSample("tour.pptx"), width, height, POINTS_ACROSS, POINTS_DOWN);
        EXPECT_EQ(wrongPixels(document, slides, 0), 0) << zoom;
    }
}

TEST_F(SlidePictureTest, PinchesEndAtTheLimits) {
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 320);
    ASSERT_EQ(document.paint(), 0);
    document.pinch(10);
    EXPECT_DOUBLE_EQ(document.scale(), 2.0);
    document.pinch(0.01);
    EXPECT_DOUBLE_EQ(document.scale(), 0.5);
    const BareSlides slides(slideSample("tour.pptx"), 480, 270, POINTS_ACROSS, POINTS_DOWN);
    EXPECT_EQ(wrongPixels(document, slides, 0), 0);
}

TEST_F(SlidePictureTest, AFlickGlidesAndDoesNotTurnThePage) {
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 320);
    ASSERT_EQ(document.paint(), 0);
    document.pinch(4.0);
    const int from = document.scrollY();
    document.call("/events", "handleFlick", ",\"xCoord\":0,\"yCoord\":-400");
    EXPECT_TRUE(eventually([&] {
        document.paint();
        return document.scrollY() > from + 50;
    }));
    EXPECT_EQ(document.slide(), 0);
    const BareSlides slides(slideSample("tour.pptx"), 1920, 1080, POINTS_ACROSS, POINTS_DOWN);
    document.penDown(10, 10); // the glide stops
    document.penUp(10, 10);
    document.paint();
    EXPECT_EQ(wrongPixels(document, slides, 0), 0);
}

TEST_F(SlidePictureTest, TurnedForADeviceOnItsSide) {
    constexpr int WIDTH = 480;
    constexpr int HEIGHT = 800;
    const BareSlides lying(slideSample("tour.pptx"), 800, 450, POINTS_ACROSS, POINTS_DOWN);
    const BareSlides upright(slideSample("tour.pptx"), 480, 270, POINTS_ACROSS, POINTS_DOWN);
    TestDocument document(*client, *queue, slideSample("tour.pptx"), WIDTH, HEIGHT);
    for (const int slide : {0, 3}) {
        jump(document, slide);
        turn(document, ",\"orientation\":\"right\"");
        EXPECT_EQ(
            wrongTurnedPixels(document, lying, slide, [](int x, int y) { return (HEIGHT - x) * WIDTH + y; }),
            0);
        turn(document, ",\"orientation\":\"left\"");
        EXPECT_EQ(
            wrongTurnedPixels(document, lying, slide, [](int x, int y) { return x * WIDTH + HEIGHT - y; }),
            0);
        turn(document, ",\"orientation\":\"down\"");
        EXPECT_EQ(wrongTurnedPixels(document, upright, slide,
                                    [](int x, int y) { return (WIDTH - y) * HEIGHT + HEIGHT - x; }),
                  0);
        turn(document, ",\"orientation\":\"up\"");
        EXPECT_EQ(wrongPixels(document, upright, slide), 0);
        turn(document, "");
        EXPECT_TRUE(isBlack(shown(document)));
        turn(document, "");
        EXPECT_EQ(wrongPixels(document, upright, slide), 0);
    }
}

TEST_F(SlidePictureTest, AClosedDeckOpensAgainWhereItWas) {
    auto first = std::make_unique<TestDocument>(*client, *queue, slideSample("tour.pptx"), 480, 320);
    ASSERT_EQ(first->paint(), 0);
    first->pinch(3.0);
    jump(*first, 3);
    first->drag(150);
    const Shown before = shown(*first);
    TestDocument::Options options;
    options.dataStore = static_cast<unsigned int>(first->store());
    first->destroy(); // the state segment stays while the client has it attached
    TestDocument again(*client, *queue, slideSample("tour.pptx"), 480, 320, options);
    ASSERT_EQ(again.openResult(), 0);
    ASSERT_EQ(again.paint(), 0);
    EXPECT_EQ(again.slide(), 3);
    EXPECT_TRUE(shown(again) == before);
}

TEST_F(SlidePictureTest, LongJumpingAtRandomDoesNotGrowTheMemory) {
    constexpr int SLIDES = 300;
#ifdef __SANITIZE_ADDRESS__
    // Its allocator keeps varying amounts of freed memory: about 12 MiB. A
    // thousand lost pictures would be hundreds of MiB.
    constexpr size_t ALLOWED = size_t{32} << 20;
#else
    constexpr size_t ALLOWED = size_t{2} << 20;
#endif
    const unsigned seed = std::random_device()();
    RecordProperty("seed", std::to_string(seed));
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 chance(seed);
    TestDocument document(*client, *queue, longSlides(SLIDES), 480, 800);
    ASSERT_EQ(slideCount(document), SLIDES);
    // Show everything once, so that the caches are full.
    for (int slide = 0; slide < SLIDES; ++slide) {
        ASSERT_EQ(jump(document, slide), slide);
    }
    const size_t before = privateMemory();
    for (int times = 0; times < 1000; ++times) {
        const int slide = static_cast<int>(chance() % SLIDES);
        ASSERT_EQ(jump(document, slide), slide);
        ASSERT_EQ(slideTold(document), slide);
    }
    const size_t after = privateMemory();
    RecordProperty("before", std::to_string(before >> 10));
    RecordProperty("after", std::to_string(after >> 10));
    EXPECT_LT(after, before + ALLOWED) << before << " bytes before";
}

} // namespace
