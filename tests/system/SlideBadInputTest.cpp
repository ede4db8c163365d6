// SPDX-License-Identifier: Apache-2.0
// Damaged presentations and invalid requests.
#include "modules/ModuleResults.h"
#include "tests/system/support/SlideFixture.h"

#include <signal.h>

#include <algorithm>
#include <chrono>
#include <random>

namespace {

class SlideBadInputTest : public SlidesTest {
protected:
    static bool isBlackAndWhite(const Shown& picture) {
        return std::all_of(picture.begin(), picture.end(),
                           [](uint32_t colour) { return colour == 0 || colour == 0xFFFFFF; });
    }
    // Every method answers and nothing is shown: a white page on black or, when
    // the document did not open, the screen as it was.
    void expectEmpty(TestDocument& document) {
        const Shown before = shown(document);
        const bool opened = document.openResult() == MODULE_OK;
        const auto nothing = [&] {
            const Shown now = shown(document);
            return opened ? isBlackAndWhite(now) && !isBlack(now) : now == before;
        };
        EXPECT_EQ(document.paint(), 0);
        EXPECT_TRUE(nothing());
        EXPECT_EQ(slideCount(document), 0);
        EXPECT_EQ(slideList(document), "");
        EXPECT_EQ(document.call("/ppt", "getSlideNote"), "");
        EXPECT_EQ(jump(document, 3), 0);
        search(document, "a");
        next(document);
        previous(document);
        document.call("/common", "closeSearch");
        for (const char* orientation : {"left", "right", "down", "up"}) {
            document.call("/ppt", "fitWideMode", std::string(",\"orientation\":\"") + orientation + "\"");
        }
        document.drag(100);
        document.pinch(2.0);
        document.doubleTap(10, 10);
        document.tap(10, 10);
        document.call("/events", "handleFlick", ",\"xCoord\":100,\"yCoord\":-400");
        EXPECT_EQ(document.paint(), 0);
        EXPECT_TRUE(nothing());
    }
    int openResult(const std::string& path, const std::string& password = "") {
        TestDocument::Options options;
        options.password = password;
        TestDocument document(*client, *queue, path, 320, 480, options);
        if (document.openResult() != MODULE_OK) {
            expectEmpty(document);
        }
        return document.openResult();
    }
    // Shows every slide, and searches.
    void lookThrough(const std::string& path) {
        SCOPED_TRACE(path);
        TestDocument document(*client, *queue, path, 480, 800);
        ASSERT_EQ(document.openResult(), MODULE_OK);
        ASSERT_EQ(document.paint(), 0);
        const int slides = slideCount(document);
        ASSERT_GT(slides, 0);
        for (int slide = 0; slide < slides; ++slide) {
            ASSERT_EQ(jump(document, slide), slide);
        }
        search(document, "e");
        slideList(document);
        EXPECT_FALSE(isBlack(shown(document)));
    }
};

TEST_F(SlideBadInputTest, ADeckWithoutSlidesShowsAWhitePage) {
    for (const std::string& path : {madeSlides("none.pptx", "Pptx().save(OUT)"), oldSlidesWithNone()}) {
        TestDocument document(*client, *queue, path, 480, 800);
        ASSERT_EQ(document.openResult(), MODULE_OK) << path;
        expectEmpty(document);
    }
    const std::string bare = madeSlides("bare.pptx", "deck = Pptx()\ndeck.slide()\ndeck.save(OUT)");
    TestDocument document(*client, *queue, bare, 480, 800);
    EXPECT_EQ(slideCount(document), 1) << "an empty slide is one";
    const Shown picture = shown(document);
    EXPECT_EQ(std::count(picture.begin(), picture.end(), 0xFFFFFFU), 480 * 360);
}

TEST_F(SlideBadInputTest, SlidesWithoutTitlesAreListed) {
    const std::string path =
        madeSlides("untitled.pptx", "deck = Pptx()\ndeck.slide()\ndeck.slide().title('')\n"
                                    "deck.slide().box('words', (9, 9, 99, 99))\n"
                                    "deck.save(OUT)");
    TestDocument document(*client, *queue, path, 480, 800);
    EXPECT_EQ(slideList(document),
              R"({"list": [{"data":"", "listitem":"1", "status":"images/check.png"},)"
              R"({"data":"", "listitem":"2", "status":""},{"data":"words", "listitem":"3", "status":""}]})");
}

TEST_F(SlideBadInputTest, MediaAreStillPictures) {
    const std::string path = madeSlides(
        "film.pptx", "from docx_writer import png\ndeck = Pptx()\nslide = deck.slide()\n"
                     "slide.video(b'film', png(9, 9, lambda x, y: (255, 0, 0)), (0, 0, 720, 540))\n"
                     "slide.sound(b'sound')\ndeck.save(OUT)");
    TestDocument film(*client, *queue, path, 480, 800);
    ASSERT_EQ(film.openResult(), MODULE_OK);
    EXPECT_EQ(film.paint(), 0);
    const Shown picture = shown(film);
    EXPECT_GT(std::count(picture.begin(), picture.end(), 0xFF0000U), 470 * 350);
    lookThrough(oldSlidesWithSound());
}

TEST_F(SlideBadInputTest, ThousandsOfShapesAreShown) {
    lookThrough(longSlides(2, 3000));
}

TEST_F(SlideBadInputTest, SlidesOfAnySize) {
    for (const char* size : {"(1, 1)", "(50000, 50000)", "(50000, 1)", "(1, 50000)", "(1 / 12700, 1 / 12700)",
                             "(50000 / 12700, 50000 / 12700)", "(1, 50000 / 12700)"}) {
        SCOPED_TRACE(size);
        const std::string path =
            madeSlides("odd.pptx", std::string("deck = Pptx(") + size +
                                       ")\ndeck.slide().title('Odd', (0, 0, 300, 60))\ndeck.save(OUT)");
        TestDocument document(*client, *queue, path, 480, 800);
        ASSERT_EQ(document.openResult(), MODULE_OK);
        EXPECT_EQ(document.paint(), 0);
        EXPECT_EQ(slideCount(document), 1);
        document.pinch(4.0);
        document.drag(300);
        search(document, "odd");
        for (const char* orientation : {"left", "right", "down", "up"}) {
            document.call("/ppt", "fitWideMode", std::string(",\"orientation\":\"") + orientation + "\"");
        }
        document.pinch(0.1);
        EXPECT_EQ(document.paint(), 0);
    }
}

TEST_F(SlideBadInputTest, SlideNumbersOutOfRangeShowTheFirstOrTheLast) {
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 800);
    for (const auto& [asked, shownSlide] : std::vector<std::pair<std::string, int>>{{"-3", 0},
                                                                                    {"7", 6},
                                                                                    {"12", 6},
                                                                                    {"2147483647", 6},
                                                                                    {"-2147483648", 0},
                                                                                    {"99999999999", 6},
                                                                                    {"-99999999999", 0}}) {
        EXPECT_EQ(document.call("/ppt", "jumpToSlide", ",\"slide\":" + asked),
                  "{ \"slideNumber\": " + std::to_string(shownSlide) + " }")
            << asked;
        EXPECT_EQ(slideTold(document), shownSlide) << asked;
        EXPECT_EQ(document.slide(), shownSlide);
    }
    for (const char* odd : {"\"3\"", "1e400", "[1]", "{}", "true", "3.7"}) {
        document.call("/ppt", "jumpToSlide", std::string(",\"slide\":") + odd);
        EXPECT_GE(document.slide(), 0);
        EXPECT_LE(document.slide(), 6);
    }
    EXPECT_EQ(document.call("/ppt", "jumpToSlide"),
              R"({ "errorCode": "errParamFailed", "errorText": "failed to get slide number" })");
}

TEST_F(SlideBadInputTest, RestoredSlideNumbersOutOfRangeAreSurvived) {
    auto first = std::make_unique<TestDocument>(*client, *queue, longSlides(40), 480, 800);
    jump(*first, 39);
    TestDocument::Options options;
    options.dataStore = static_cast<unsigned int>(first->store());
    first->destroy();
    TestDocument shorter(*client, *queue, slideSample("tour.pptx"), 480, 800, options);
    ASSERT_EQ(shorter.openResult(), MODULE_OK);
    EXPECT_EQ(shorter.paint(), 0);
    EXPECT_EQ(note(shorter), "");
    slideList(shorter);
    search(shorter, "quay");
    EXPECT_EQ(jump(shorter, 2), 2);
    EXPECT_FALSE(isBlack(shown(shorter)));
}

TEST_F(SlideBadInputTest, OrientationsOfAnyKindAreUpright) {
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 800);
    ASSERT_EQ(document.paint(), 0);
    const Shown upright = shown(document);
    for (const std::string& text :
         {std::string("\"\""), std::string("\"Left\""), std::string("\"left \""), std::string("\"RIGHT\""),
          "\"" + std::string(100'000, 'l') + "\"", std::string("\"\\u0000left\""), std::string("7"),
          std::string("[\"left\"]"), std::string("{\"left\":1}"), std::string("true")}) {
        EXPECT_EQ(document.call("/ppt", "fitWideMode", ",\"orientation\":" + text),
                  R"({ "returnValue": true })");
        EXPECT_TRUE(shown(document) == upright) << text.substr(0, 20);
    }
}

TEST_F(SlideBadInputTest, ProtectedFilesAreRefusedAtOnceWithAnyPassword) {
    for (const std::string& path : {sample("locked.pptx"), oldSlidesEncrypted()}) {
        for (const char* password : {"", "harbour", "hello"}) {
            const auto start = std::chrono::steady_clock::now();
            EXPECT_EQ(openResult(path, password), MODULE_NEEDS_PASSWORD) << path;
            EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15)) << path;
        }
    }
}

TEST_F(SlideBadInputTest, DamagedFilesOpenOrNotButNothingHangs) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 chance(seed);
    for (const char* name : {"tour.pptx", "tour.ppt"}) {
        const std::string whole = readFile(slideSample(name));
        EXPECT_NE(openResult(slideFile(std::string("cut-") + name, whole.substr(0, whole.size() / 10))),
                  MODULE_OK);
        for (int round = 0; round < 4; ++round) {
            std::string bytes = whole;
            for (int i = 0; i < 100; ++i) {
                bytes[chance() % bytes.size()] = static_cast<char>(chance());
            }
            TestDocument document(*client, *queue, slideFile(std::string("noise-") + name, bytes), 320, 480);
            EXPECT_EQ(document.paint(), 0);
            jump(document, 3);
            search(document, "the");
            next(document);
        }
    }
    EXPECT_EQ(openResult(slideFile("nothing.pptx", "")), MODULE_DAMAGED);
    EXPECT_EQ(openResult(slideFile("words.pptx", "these are only words")), MODULE_WRONG_KIND);
    lookThrough(slideSample("tour.pptx"));
}

TEST_F(SlideBadInputTest, AnEngineKilledIsReplaced) {
    TestDocument lost(*client, *queue, longSlides(40), 480, 800);
    ASSERT_EQ(lost.paint(), 0);
    const std::vector<pid_t> engines = descendants("lectern-engine");
    TestDocument kept(*client, *queue, slideSample("tour.pptx"), 480, 800);
    search(lost, "needle");
    const std::string told = note(lost);
    for (const pid_t engine : engines) {
        kill(engine, SIGKILL);
    }
    EXPECT_EQ(note(lost), told);
    next(lost);
    EXPECT_EQ(jump(lost, 5), 5);
    EXPECT_EQ(slideCount(lost), 40);
    search(lost, "needle");
    lost.pinch(2.0);
    EXPECT_EQ(lost.paint(), 0);
    EXPECT_EQ(jump(kept, 2), 2);
    EXPECT_FALSE(isBlack(shown(kept)));
    lookThrough(longSlides(40));
}

} // namespace
