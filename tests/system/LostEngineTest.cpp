// SPDX-License-Identifier: Apache-2.0
// A document whose engine has ended comes back, and its client notices nothing, or is told
// that it does not.
#include "modules/ModuleResults.h"
#include "tests/system/support/ClientFixture.h"
#include <lectern/CommonCalls.h>
#include <lectern/ExcelCalls.h>
#include <lectern/Navigation.h>

#include <signal.h>

#include <filesystem>
#include <fstream>

namespace {

using namespace lectern;

class LostEngineTest : public ClientTest {
protected:
    // Ends all engines by the signal.
    static void endEngines(int signal = SIGKILL) {
        for (const pid_t engine : descendants("lectern-engine")) {
            kill(engine, signal);
        }
        EXPECT_TRUE(eventually([] { return descendants("lectern-engine").empty(); }));
    }
    static void expectDone(const Failure& failure) { EXPECT_FALSE(failure) << failure->text; }
    // A copy that a test may change.
    std::string copyOf(const std::string& file) {
        std::string path = folder.path() + "/" + file;
        std::filesystem::copy(sample(file), path);
        return path;
    }

    // Takes the same steps in two views of a file and loses the engine of one before each.
    // Their pictures must be the same after each step.
    using Step = std::function<void(Document&)>;
    void expectTheSame(const std::string& path, const std::vector<Step>& steps) {
        std::vector<std::vector<uint32_t>> pictures;
        for (const bool loses : {false, true}) {
            const auto document = open(connect(), path);
            ASSERT_TRUE(document);
            for (size_t i = 0; i < steps.size(); i++) {
                if (loses) {
                    endEngines();
                }
                steps[i](*document);
                expectDone(document->paint());
                if (!loses) {
                    pictures.push_back(picture(*document));
                } else {
                    EXPECT_TRUE(picture(*document) == pictures[i]) << path << ", step " << i;
                }
            }
        }
    }
    static Step zoom(double factor) {
        return [factor](Document& document) { expectDone(pinch(document, factor)); };
    }
    static Step move(int rows) {
        return [rows](Document& document) { drag(document, rows); };
    }
    static Step search(const std::string& text) {
        return [text](Document& document) { EXPECT_TRUE(document.ask(common::search(text))); };
    }
    static void next(Document& document) { expectDone(document.ask(common::nextResult())); }
};

TEST_F(LostEngineTest, ATextIsShownAsIfNothingHadHappened) {
    expectTheSame(sample("tour.docx"),
                  {move(400), zoom(1.5), move(500), search("harbour"), next, next, zoom(0.7), move(-300)});
}

TEST_F(LostEngineTest, ALongTextIsShownAsIfNothingHadHappened) {
    expectTheSame(longDocument(60), {move(700), move(700), zoom(1.3), search("the"), next, move(-350)});
}

TEST_F(LostEngineTest, ASheetIsShownAsIfNothingHadHappened) {
    const Step sort = [](Document& document) {
        // A tap on the header of the second column selects it.
        expectDone(document.penDown(150, 8));
        expectDone(document.click(150, 8));
        expectDone(document.penUp(150, 8));
        EXPECT_TRUE(document.ask(excel::sortDescending()));
    };
    const Step otherSheet = [](Document& document) { expectDone(showSheet(document, 1)); };
    const Step firstSheet = [](Document& document) { expectDone(showSheet(document, 0)); };
    expectTheSame(sample("tour.xlsx"),
                  {zoom(0.8), sort, otherSheet, firstSheet, search("e"), next, zoom(1.4)});
}

TEST_F(LostEngineTest, APresentationIsShownAsIfNothingHadHappened) {
    const Step third = [](Document& document) { expectDone(showSlide(document, 2)); };
    expectTheSame(sample("tour.pptx"), {third, zoom(2.0), move(100), search("the"), next, zoom(0.6)});
}

TEST_F(LostEngineTest, ACrashIsNoticedAtOnceAndTheDocumentComesBack) {
    for (const int signal : {SIGSEGV, SIGABRT, SIGBUS}) {
        const auto document = open(connect(), sample("tour.docx"));
        ASSERT_TRUE(document);
        const auto start = std::chrono::steady_clock::now();
        endEngines(signal);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
        expectDone(pinch(*document, 1.5));
    }
}

TEST_F(LostEngineTest, AProtectedDocumentComesBack) {
    const auto document = open(connect(), sample("locked.docx"), {.password = "harbour"});
    ASSERT_TRUE(document);
    endEngines();
    expectDone(pinch(*document, 1.5));
}

TEST_F(LostEngineTest, AFileThatHasChangedKeepsTheLastPictureAndItsClientIsTold) {
    for (const char* file : {"tour.docx", "tour.xlsx", "tour.pptx"}) {
        const std::string path = copyOf(file);
        Event told;
        std::optional<Error> loss;
        OpenOptions options;
        options.events.onDocumentLost = [&](const Error& error) {
            loss = error;
            told.happen();
        };
        const auto document = open(connect(), path, options);
        ASSERT_TRUE(document);
        const std::vector<uint32_t> before = picture(*document);
        std::ofstream(path, std::ios::app) << "x";
        endEngines();

        expectDone(document->doubleClick(100, 100));
        document->settle();
        const Failure failure = document->paint();
        ASSERT_TRUE(failure) << file;
        EXPECT_EQ(failure->kind, Error::Kind::Document);
        EXPECT_EQ(failure->code, MODULE_ENGINE_LOST);
        EXPECT_TRUE(picture(*document) == before) << file;
        EXPECT_TRUE(told.wait());
        EXPECT_EQ(loss->code, MODULE_CHANGED);
    }
}

} // namespace
