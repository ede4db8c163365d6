// SPDX-License-Identifier: Apache-2.0
// The service's texts of a presentation, compared with the file's XML.
#include "tests/system/support/SlideFixture.h"

#include <json-c/json.h>

#include <algorithm>
#include <random>

namespace {

struct Entry {
    std::string title;
    std::string number;
    std::string status;
    bool operator==(const Entry&) const = default;
};

std::vector<Entry> entriesOf(const std::string& list) {
    json_object* const reply = json_tokener_parse(list.c_str());
    json_object* slides = nullptr;
    std::vector<Entry> entries;
    if (json_object_object_get_ex(reply, "list", &slides) != 0) {
        for (size_t i = 0; i < json_object_array_length(slides); ++i) {
            json_object* const slide = json_object_array_get_idx(slides, i);
            const auto text = [&](const char* key) {
                return std::string(json_object_get_string(json_object_object_get(slide, key)));
            };
            entries.push_back({text("data"), text("listitem"), text("status")});
        }
    }
    json_object_put(reply);
    return entries;
}

std::string withLineFeeds(std::string note) {
    std::replace(note.begin(), note.end(), '|', '\n');
    return note;
}

class SlideContentsTest : public SlidesTest {
protected:
    static void expectList(TestDocument& document, const std::vector<WrittenSlide>& written, int current) {
        const std::vector<Entry> entries = entriesOf(slideList(document));
        ASSERT_EQ(entries.size(), written.size());
        for (size_t i = 0; i < written.size(); ++i) {
            const bool isCurrent = static_cast<int>(i) == current;
            EXPECT_EQ(entries[i],
                      (Entry{written[i].title, std::to_string(i + 1), isCurrent ? "images/check.png" : ""}))
                << i;
        }
    }
    void expectContents(const std::string& path, const std::vector<WrittenSlide>& written) {
        TestDocument document(*client, *queue, path, 480, 800);
        ASSERT_EQ(document.openResult(), 0) << path;
        EXPECT_EQ(slideCount(document), static_cast<int>(written.size()));
        expectList(document, written, 0);
        for (int slide = 0; slide < static_cast<int>(written.size()); ++slide) {
            ASSERT_EQ(jump(document, slide), slide);
            EXPECT_EQ(note(document), withLineFeeds(written[static_cast<size_t>(slide)].note)) << slide;
        }
        const int last = static_cast<int>(written.size()) - 1;
        expectList(document, written, last);
    }
};

TEST_F(SlideContentsTest, CountTitlesAndNotesAreThoseOfTheFile) {
    for (const std::string& path : {slideSample("tour.pptx"), longSlides(40)}) {
        expectContents(path, readSlides(path));
    }
}

TEST_F(SlideContentsTest, TheBinaryFormatTellsTheSame) {
    expectContents(slideSample("tour.ppt"), readSlides(slideSample("tour.pptx")));
}

TEST_F(SlideContentsTest, GeneratedDecksTellWhatWasPutInThem) {
    const unsigned seed = std::random_device()();
    RecordProperty("seed", std::to_string(seed));
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::string path =
        madeSlides("random.pptx", "import random\nchance = random.Random(" + std::to_string(seed) + R"()
words = 'tide quay boat Ärger été Ω 港口 שלום & < > gull'.split()
say = lambda most: ' '.join(chance.choice(words) for _ in range(chance.randint(1, most)))
deck = Pptx(WIDE)
for i in range(chance.randint(5, 30)):
    slide = deck.slide(hidden=chance.random() < 0.3)
    if chance.random() < 0.8:
        slide.title(say(6))
    if chance.random() < 0.5:
        slide.box(say(6), (50, 150, 800, 300))
    if chance.random() < 0.5:
        slide.note = '\n'.join(say(9) for _ in range(chance.randint(1, 3)))
deck.save(OUT))");
    expectContents(path, readSlides(path));
}

TEST_F(SlideContentsTest, PropertiesAreThoseOfTheFile) {
    stopService();
    startService({{"TZ", "UTC"}});
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 800);
    EXPECT_EQ(document.call("/common", "getDocProperties"),
              R"({ "name": "The Harbour in Slides", "author": "The Lectern makers", )"
              R"("description": "One of everything that slides are made of.", )"
              R"("lastsave": "Feb 11, 2026, 4:05pm", "createdate": "Jan 5, 2026, 8:30am" })");
    TestDocument bare(*client, *queue, madeSlides("bare.pptx", "deck = Pptx()\ndeck.slide()\ndeck.save(OUT)"),
                      480, 800);
    const std::string reply = bare.call("/common", "getDocProperties");
    EXPECT_EQ(reply.find("(no name)"), std::string::npos) << "an empty name is a name";
    EXPECT_NE(reply.find(R"("name": "", "author": "", "description": "")"), std::string::npos) << reply;
}

TEST_F(SlideContentsTest, TheListIsCutWithoutNotice) {
    const std::string make = "deck = Pptx()\ndeck.slide().title('%s')\ndeck.save(OUT)";
    const auto listOf = [&](const std::string& title) {
        std::string python = make;
        python.replace(python.find("%s"), 2, title);
        TestDocument document(*client, *queue, madeSlides("title.pptx", python), 320, 480);
        return slideList(document);
    };
    const std::string fits(60, 'a');
    EXPECT_EQ(listOf(fits),
              R"({"list": [{"data":")" + fits + R"(", "listitem":"1", "status":"images/check.png"}]})");
    const std::string tooLong(100, 'a');
    EXPECT_EQ(listOf(tooLong), (R"({"list": [{"data":")" + tooLong + R"(", "listitem":")").substr(0, 128));
}

TEST_F(SlideContentsTest, TitlesAreNotEscaped) {
    TestDocument document(*client, *queue,
                          madeSlides("quotes.pptx",
                                     R"(deck = Pptx()
deck.slide().title('Say "ahoy" \\ twice')
deck.slide().title('Plan')
deck.save(OUT))"),
                          320, 480);
    jump(document, 1);
    EXPECT_EQ(slideList(document), R"({"list": [{"data":"Say "ahoy" \ twice", "listitem":"1", "status":""},)"
                                   R"({"data":"Plan", "listitem":"2", "status":"images/check.png"}]})");
}

TEST_F(SlideContentsTest, JumpsAreToldToTheClientAndKeptInTheRecord) {
    TestDocument document(*client, *queue, longSlides(40), 480, 800);
    for (const int slide : {7, 7, 39, 0, 20}) {
        EXPECT_EQ(jump(document, slide), slide);
        EXPECT_EQ(slideTold(document), slide);
        EXPECT_EQ(document.slide(), slide);
    }
}

TEST_F(SlideContentsTest, OtherKindsAreRefused) {
    TestDocument words(*client, *queue, sample("tour.txt"), 320, 480);
    for (const char* method :
         {"getSlideCount", "jumpToSlide", "fitWideMode", "getSlideNote", "getSlideList"}) {
        EXPECT_EQ(words.call("/ppt", method, ",\"slide\":1"),
                  R"({ "errorCode": "errWrongType", "errorText": "Not a PowerPoint document" })")
            << method;
    }
    TestDocument slides(*client, *queue, slideSample("tour.pptx"), 320, 480);
    EXPECT_EQ(slides.call("/excel", "getColumnCount"),
              R"({ "errorCode": "errWrongType", "errorText": "Not an Excel document" })");
    EXPECT_EQ(slides.call("/excel", "getLastComment"),
              R"({ "errorCode": "errWrongType", "errorText": "Not an Excel document" })");
    EXPECT_EQ(slides.call("/common", "clearSelection"), R"({ "returnValue": true })");
}

} // namespace
