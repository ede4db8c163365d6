// SPDX-License-Identifier: Apache-2.0
// The category "/ppt" on real views with a fake module: calls of views, replies
// and records, and their order.
#include "ServiceTest.h"
#include "ppt/PPT.h"
#include "tests/fakes/slides/FakeSlideModule.h"
#include "tests/unit/service/HeldByAnother.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

constexpr char NOT_POWER_POINT[] =
    R"({ "errorCode": "errWrongType", "errorText": "Not a PowerPoint document" })";
constexpr char NO_SLIDE_NUMBER[] =
    R"({ "errorCode": "errParamFailed", "errorText": "failed to get slide number" })";

class PptMethodsTest : public ServiceTest {
protected:
    void SetUp() override {
        ServiceTest::SetUp();
        fakeSlides().reset();
    }
    // Opens a deck of slides; returns its docid.
    static int addDeck(size_t slides) {
        fakeSlides().slides.resize(slides);
        Documents record;
        record.view = std::make_unique<PPT>(320, 480, static_cast<int>(gDocuments.size()), 0);
        EXPECT_EQ(record.view->openFile("/d/deck.ppt", nullptr), 0);
        gDocuments.push_back(std::move(record));
        fakeSlides().calls.clear();
        return static_cast<int>(gDocuments.size()) - 1;
    }
    // The effects of a call in order: "message ID VALUE" and "reply TEXT".
    std::vector<std::string> traceOf(const std::string& method, const std::string& payload,
                                     size_t docid = 0) {
        std::vector<std::string> steps;
        const auto addMessages = [&] {
            for (const auto& m :
                 takeMessages(static_cast<long>(gDocuments.at(docid).view->dataStoreShmId()))) {
                steps.push_back("message " + std::to_string(m.id) + " " + std::to_string(m.value));
            }
        };
        fakeHub.onReply = [&](const std::string& text) {
            EXPECT_EQ(pthread_mutex_trylock(&gDocumentsMutex), EBUSY) << "the registry is held";
            addMessages();
            steps.push_back("reply " + text);
        };
        call("/ppt", method, payload);
        fakeHub.onReply = nullptr;
        addMessages();
        return steps;
    }
    static std::vector<std::string> methods() {
        return {"getSlideCount", "jumpToSlide", "fitWideMode", "getSlideNote", "getSlideList"};
    }
    std::optional<std::string> callWithSlide(const std::string& method, const std::string& docid) {
        return call("/ppt", method, R"({"slide": 1, "docid": )" + docid + "}");
    }
};

TEST_F(PptMethodsTest, SlideCountIsAnswered) {
    addDeck(7);
    EXPECT_THAT(traceOf("getSlideCount", R"({"docid": 0})"), ElementsAre(R"(reply { "slidecnt": 7 })"));
    EXPECT_THAT(fakeSlides().takeCalls(), IsEmpty());
}

TEST_F(PptMethodsTest, JumpTellsTheSlideRepliesAndThenInvalidates) {
    addDeck(7);
    EXPECT_THAT(traceOf("jumpToSlide", R"({"docid": 0, "slide": 3})"),
                ElementsAre("message 7 3", R"(reply { "slideNumber": 3 })", "message 0 0"));
}

TEST_F(PptMethodsTest, JumpBeyondTheDeckAnswersTheSlideShown) {
    addDeck(7);
    EXPECT_THAT(traceOf("jumpToSlide", R"({"docid": 0, "slide": 99})"),
                ElementsAre("message 7 6", R"(reply { "slideNumber": 6 })", "message 0 0"));
    EXPECT_THAT(traceOf("jumpToSlide", R"({"docid": 0, "slide": -3})"),
                ElementsAre("message 7 0", R"(reply { "slideNumber": 0 })", "message 0 0"));
    EXPECT_THAT(traceOf("jumpToSlide", R"({"docid": 0, "slide": "5"})"),
                ElementsAre("message 7 5", R"(reply { "slideNumber": 5 })", "message 0 0"));
}

TEST_F(PptMethodsTest, FitWideModeInvalidatesBeforeTheReply) {
    addDeck(1);
    EXPECT_THAT(traceOf("fitWideMode", R"({"docid": 0, "orientation": "left"})"),
                ElementsAre("message 0 0", std::string("reply ") + DONE));
}

TEST_F(PptMethodsTest, FitWideModeReachesThePicture) {
    addDeck(1);
    std::vector<unsigned int> frame(320 * 480 * 2, 0);
    call("/ppt", "fitWideMode", R"({"docid": 0, "orientation": "right"})");
    gDocuments[0].view->handlePaintRouter(frame.data());
    EXPECT_THAT(fakeSlides().takeCalls(), ElementsAre("sstg_render_slide(0, 0, 480, 360)"));
    EXPECT_EQ(frame[480 * 320], fakeSlidePixel(0, 0, 0)) << "one row beyond the frame, as agreed";
    EXPECT_EQ(frame[320], fakeSlidePixel(0, 479, 0));
}

TEST_F(PptMethodsTest, FitWideModeNeedsNoOrientation) {
    addDeck(1);
    std::vector<unsigned int> frame(320 * 480, 0);
    const auto isBlack = [&] {
        gDocuments[0].view->handlePaintRouter(frame.data());
        return std::all_of(frame.begin(), frame.end(), [](unsigned int p) { return p == 0xFF000000; });
    };
    EXPECT_FALSE(isBlack());
    EXPECT_EQ(call("/ppt", "fitWideMode", R"({"docid": 0})"), DONE);
    EXPECT_TRUE(isBlack()) << "the mode that shows nothing";
    EXPECT_EQ(call("/ppt", "fitWideMode", R"({"docid": 0, "orientation": null})"), DONE);
    EXPECT_FALSE(isBlack());
    EXPECT_EQ(call("/ppt", "fitWideMode", R"({"docid": 0, "orientation": ""})"), DONE);
    EXPECT_FALSE(isBlack()) << "a text, if an empty one";
}

TEST_F(PptMethodsTest, NoteAndListAreTheViewsTexts) {
    addDeck(2);
    fakeSlides().slides[0] = {u"Intro"};
    fakeSlides().slides[1] = {u"Plan", u"Hello"};
    EXPECT_THAT(traceOf("getSlideNote", R"({"docid": 0})"), ElementsAre("reply "));
    call("/ppt", "jumpToSlide", R"({"docid": 0, "slide": 1})");
    takeMessages(static_cast<long>(gDocuments[0].view->dataStoreShmId()));
    EXPECT_THAT(traceOf("getSlideNote", R"({"docid": 0})"), ElementsAre(R"(reply { "note": "Hello" })"));
    EXPECT_THAT(traceOf("getSlideList", R"({"docid": 0})"),
                ElementsAre(R"(reply {"list": [{"data":"Intro", "listitem":"1", "status":""},)"
                            R"({"data":"Plan", "listitem":"2", "status":"images/check.png"}]})"));
}

TEST_F(PptMethodsTest, ViewsMutexIsNotTaken) {
    addDeck(2);
    const HeldByAnother held(gDocuments[0].view->mutex());
    for (const std::string& method : methods()) {
        EXPECT_NE(callWithSlide(method, "0"), std::nullopt) << method;
    }
}

TEST_F(PptMethodsTest, TheDocidIsRequired) {
    for (const std::string& method : methods()) {
        EXPECT_EQ(call("/ppt", method, "{}"), NO_DOCID_TEXT) << method;
        EXPECT_EQ(call("/ppt", method, R"({"slide": 1, "orientation": "left"})"), NO_DOCID_TEXT) << method;
        EXPECT_EQ(call("/ppt", method, "no JSON"), NO_DOCID_TEXT) << method;
    }
}

TEST_F(PptMethodsTest, JumpNeedsASlide) {
    addDeck(2);
    EXPECT_EQ(call("/ppt", "jumpToSlide", R"({"docid": 0})"), NO_SLIDE_NUMBER);
    EXPECT_EQ(call("/ppt", "jumpToSlide", R"({"docid": 99})"), NO_SLIDE_NUMBER) << "before existence";
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(PptMethodsTest, DocumentsThatDoNotExistAreTold) {
    addDeck(2);
    for (const char* docid : {"1", "-1", "2147483647", "-2147483648"}) {
        for (const std::string& method : methods()) {
            EXPECT_EQ(callWithSlide(method, docid), NO_DOCUMENT) << method << docid;
        }
    }
}

TEST_F(PptMethodsTest, OtherKindsAreRefusedAndThatIsSaid) {
    addView(_EXCEL);
    addView(_WORD);
    for (const char* docid : {"0", "1"}) {
        for (const std::string& method : methods()) {
            CaptureStderr();
            EXPECT_EQ(callWithSlide(method, docid), NOT_POWER_POINT) << method;
            EXPECT_EQ(GetCapturedStderr(), "Not a PowerPoint document\n") << method;
        }
    }
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(PptMethodsTest, ParametersAreCheckedBeforeTheRegistryIsLocked) {
    const StuckRegistry stuck;
    for (const std::string& method : methods()) {
        EXPECT_EQ(call("/ppt", method, "{}"), NO_DOCID_TEXT) << method;
    }
    EXPECT_EQ(call("/ppt", "jumpToSlide", R"({"docid": 0})"), NO_SLIDE_NUMBER);
}

TEST_F(PptMethodsTest, WithoutTheRegistryThereIsNoReply) {
    addDeck(2);
    const StuckRegistry stuck;
    for (const std::string& method : methods()) {
        CaptureStderr();
        EXPECT_EQ(callWithSlide(method, "0"), std::nullopt) << method;
        EXPECT_EQ(GetCapturedStderr(), "Unable to acquire mutex: 35.");
    }
}

TEST_F(PptMethodsTest, DocumentThatFailedToOpenIsAnswered) {
    addDeck(2);
    Documents record;
    record.view = std::make_unique<PPT>(320, 480, 1, 0);
    EXPECT_EQ(record.view->openFile("/d/code-5.ppt", nullptr), 5);
    gDocuments.push_back(std::move(record));
    EXPECT_THAT(traceOf("getSlideCount", R"({"docid": 1})", 1), ElementsAre(R"(reply { "slidecnt": 0 })"));
    EXPECT_THAT(traceOf("jumpToSlide", R"({"docid": 1, "slide": 4})", 1),
                ElementsAre("message 7 0", R"(reply { "slideNumber": 0 })", "message 0 0"));
    EXPECT_THAT(traceOf("fitWideMode", R"({"docid": 1})", 1),
                ElementsAre("message 0 0", std::string("reply ") + DONE));
    EXPECT_THAT(traceOf("getSlideNote", R"({"docid": 1})", 1), ElementsAre("reply "));
    EXPECT_THAT(traceOf("getSlideList", R"({"docid": 1})", 1), ElementsAre("reply "));
}

TEST_F(PptMethodsTest, SearchRepliesNothingCountedAndInvalidates) {
    addDeck(3);
    fakeSlides().slides[2].hits = {{{0, 0, 10, 10}}};
    std::vector<std::string> steps;
    fakeHub.onReply = [&](const std::string& text) { steps.push_back(text); };
    call("/common", "Search", R"({"docid": 0, "search": "x"})");
    EXPECT_THAT(steps, ElementsAre(R"({ "resultcount": 0 })"));
    const auto messages = takeMessages(static_cast<long>(gDocuments[0].view->dataStoreShmId()));
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].id, _SLIDE_CHANGED);
    EXPECT_EQ(messages[0].value, 2);
    EXPECT_EQ(messages[1].id, _INVALIDATED);
}

} // namespace
