// SPDX-License-Identifier: Apache-2.0
// Opening files of any name: giving up, progress, and exports.
#include "modules/TouchFunctions.h"
#include "tests/process/engine/EngineTest.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

namespace lectern::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// A function that a module exports besides those of its table.
template<class Function>
Function* functionOf(const char* module, const char* name) {
    void* loaded = dlopen((MODULE_FOLDER "/" + std::string(module)).c_str(), RTLD_NOW);
    return reinterpret_cast<Function*>(dlsym(loaded, name));
}

class OpenAnyTest : public EngineTest {
protected:
    struct Module {
        decltype(wtg_open_any_file)* open;
        decltype(wtg_export)* save;
        std::int32_t (*close)(void**);
    };
    static Module moduleOf(const char* file, const std::string& prefix) {
        return {functionOf<decltype(wtg_open_any_file)>(file, (prefix + "_open_any_file").c_str()),
                functionOf<decltype(wtg_export)>(file, (prefix + "_export").c_str()),
                functionOf<std::int32_t(void**)>(file, (prefix + "_close_file").c_str())};
    }

    ~OpenAnyTest() override {
        if (document != nullptr) {
            module.close(&document);
        }
        close(cancel);
    }
    std::int32_t open(const std::string& path, const std::string& password = "") {
        const auto name = wide(path);
        const auto secret = wide(password);
        const auto fonts = wide("/usr/share/fonts");
        const auto folder = wide(temporary());
        const auto tell = [](void* data, std::int32_t percent) {
            static_cast<OpenAnyTest*>(data)->told.push_back(percent);
        };
        const lectern_open_request request{name.data(), secret.data(), fonts.data(), folder.data(),
                                           cancel,      tell,          this};
        return module.open(&request, &document);
    }
    // Exports to a file, and returns what it holds then.
    std::int32_t save(std::int32_t format, std::string& contents) {
        const std::string path = documents() + "/exported";
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        const std::int32_t result = module.save(document, format, file);
        close(file);
        std::ostringstream bytes;
        bytes << std::ifstream(path).rdbuf();
        contents = bytes.str();
        return result;
    }

    Module module = moduleOf("WordToGoModule.so", "wtg");
    int cancel = eventfd(0, EFD_CLOEXEC);
    std::vector<std::int32_t> told;
    void* document = nullptr;
};

TEST_F(OpenAnyTest, OpensAFileOfAnyName) {
    EXPECT_EQ(open(write("no-extension", "rows=10\n")), MODULE_OK);
    std::uint32_t scratch = 1;
    std::uint32_t count = 0;
    EXPECT_EQ(wordModule().wtg_get_character_count(document, 0, &scratch, &count), MODULE_OK);
    EXPECT_EQ(count, 100U);
}

TEST_F(OpenAnyTest, FailsAsEveryOpenDoes) {
    EXPECT_EQ(open(documents() + "/none"), MODULE_NOT_FOUND);
    EXPECT_EQ(open(documents()), MODULE_NOT_A_FILE);
    EXPECT_EQ(open(write("empty", "")), MODULE_DAMAGED);
    EXPECT_EQ(open(write("crash", "open=crash\n")), MODULE_ENGINE_LOST);
    const std::string locked = write("locked", "password=sesame\n");
    EXPECT_EQ(open(locked), MODULE_NEEDS_PASSWORD);
    EXPECT_EQ(open(locked, "other"), MODULE_WRONG_PASSWORD);
    EXPECT_EQ(document, nullptr);
    EXPECT_EQ(open(locked, "sesame"), MODULE_OK);
    EXPECT_EQ(module.open(nullptr, &document), MODULE_BAD_ARGUMENT);
    const lectern_open_request nothing{};
    EXPECT_EQ(module.open(&nothing, nullptr), MODULE_BAD_ARGUMENT);
}

TEST_F(OpenAnyTest, WorkbooksAndSlidesOpenToo) {
    for (const auto& [file, prefix] :
         {std::pair("SheetToGoModule.so", "stg"), std::pair("SlideshowToGoModule.so", "sstg")}) {
        module = moduleOf(file, prefix);
        const std::string locked = write("locked", "password=sesame\nname=x\n");
        EXPECT_EQ(open(locked), MODULE_NEEDS_PASSWORD) << file;
        EXPECT_EQ(open(locked, "sesame"), MODULE_OK) << file;
        EXPECT_EQ(module.close(&document), MODULE_OK);
    }
}

TEST_F(OpenAnyTest, AnOpenThatIsGivenUpEndsAtOnceAndLeavesNothing) {
    Document other; // starts the fork server
    EngineTest::open(other, "rows=10\n");
    const std::size_t files = openFiles();
    const std::string path = write("hang", "open=hang\n");
    steady_clock::time_point givenUp;
    std::thread user([&] {
        EXPECT_TRUE(waitUntil([&] { return engines().size() == 2; }));
        EXPECT_TRUE(waitUntil([&] {
            for (const EngineInfo& engine : engines()) {
                if (std::filesystem::exists(engine.folder + "/hanging")) {
                    return true;
                }
            }
            return false;
        }));
        givenUp = steady_clock::now();
        eventfd_write(cancel, 1);
    });
    EXPECT_EQ(open(path), MODULE_CANCELLED);
    const auto taken = steady_clock::now() - givenUp;
    user.join();
    EXPECT_LT(taken, milliseconds(1000)) << "0.1 s on a machine with nothing else to do";
    EXPECT_EQ(document, nullptr);
    EXPECT_TRUE(waitForEngines(1));
    EXPECT_TRUE(waitUntil([&] { return openFiles() <= files; }));
}

TEST_F(OpenAnyTest, AnOpenThatIsGivenUpBeforeItBeginsDoesNotBegin) {
    eventfd_write(cancel, 1);
    EXPECT_EQ(open(write("hang", "open=hang\n")), MODULE_CANCELLED);
    EXPECT_TRUE(waitForEngines(0));
}

TEST_F(OpenAnyTest, WithoutACancelDescriptorTheOpenRunsToItsEnd) {
    close(cancel);
    cancel = -1;
    EXPECT_EQ(open(write("slow", "open=slow:150\n")), MODULE_OK);
}

TEST_F(OpenAnyTest, ProgressIsToldWhileTheFileOpens) {
    EXPECT_EQ(open(write("slow", "progress=10 40\nopen=slow:600\n")), MODULE_OK);
    EXPECT_EQ(told, std::vector<std::int32_t>{40}) << "the last one that stood when it was looked at";
}

TEST_F(OpenAnyTest, NoProgressIsToldWithoutAny) {
    EXPECT_EQ(open(write("slow", "open=slow:300\n")), MODULE_OK);
    EXPECT_TRUE(told.empty());
}

TEST_F(OpenAnyTest, ImpossibleProgressIsNotTold) {
    EXPECT_EQ(open(write("slow", "progress=-1\nopen=slow:300\n")), MODULE_OK);
    EXPECT_EQ(module.close(&document), MODULE_OK);
    EXPECT_EQ(open(write("slow", "progress=101\nopen=slow:300\n")), MODULE_OK);
    EXPECT_TRUE(told.empty());
}

TEST_F(OpenAnyTest, ALostDocumentComesBackInTheSameWay) {
    ASSERT_EQ(open(write("no-extension", "password=sesame\nrows=10\n"), "sesame"), MODULE_OK);
    const EngineInfo engine = engineOfDocument();
    kill(engine.pid, SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return kill(engine.pid, 0) != 0; }));
    std::int32_t words = 0;
    EXPECT_EQ(wordModule().wtg_word_count(document, &words), MODULE_OK);
    EXPECT_NE(engineOfDocument().pid, engine.pid);
}

TEST_F(OpenAnyTest, AnExportIsMadeByAnEngineOfItsOwn) {
    ASSERT_EQ(open(write("a", "text=some words\npassword=sesame\n"), "sesame"), MODULE_OK);
    const pid_t before = engineOfDocument().pid;
    std::string contents;
    EXPECT_EQ(save(LECTERN_EXPORT_PDF, contents), MODULE_OK);
    EXPECT_EQ(contents, "00 some words");
    EXPECT_EQ(save(LECTERN_EXPORT_TEXT, contents), MODULE_OK);
    EXPECT_EQ(contents, "01 some words");
    EXPECT_EQ(engineOfDocument().pid, before);
    EXPECT_TRUE(waitForEngines(1));
}

TEST_F(OpenAnyTest, AnExportThatFailsSaysSoAndLeavesTheDocument) {
    ASSERT_EQ(open(write("a", "export=code:16\ntext=x\n")), MODULE_OK);
    std::string contents;
    EXPECT_EQ(save(LECTERN_EXPORT_PDF, contents), MODULE_REFUSED);
    EXPECT_EQ(contents, "");
    write("a", "export=crash\ntext=x\nrows=11\n");
    EXPECT_EQ(save(LECTERN_EXPORT_PDF, contents), MODULE_CHANGED);
    std::int32_t words = 0;
    EXPECT_EQ(wordModule().wtg_word_count(document, &words), MODULE_OK);
    EXPECT_EQ(module.close(&document), MODULE_OK);
    ASSERT_EQ(open(documents() + "/a"), MODULE_OK);
    EXPECT_EQ(save(LECTERN_EXPORT_PDF, contents), MODULE_ENGINE_LOST);
    EXPECT_EQ(wordModule().wtg_word_count(document, &words), MODULE_OK);
}

TEST_F(OpenAnyTest, AnExportOfImpossibleArgumentsIsRefused) {
    ASSERT_EQ(open(write("a", "text=x\n")), MODULE_OK);
    EXPECT_EQ(module.save(document, 2, 1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(module.save(document, -1, 1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(module.save(document, LECTERN_EXPORT_PDF, -1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(module.save(nullptr, LECTERN_EXPORT_PDF, 1), MODULE_BAD_ARGUMENT);
}

TEST_F(OpenAnyTest, AnExportThatIsTooLargeIsNotCopied) {
    ASSERT_EQ(open(write("a", "text=x\nexported=134217729\n")), MODULE_OK); // takes no space
    std::string contents;
    EXPECT_EQ(save(LECTERN_EXPORT_PDF, contents), MODULE_TOO_LARGE);
    EXPECT_EQ(contents, "");
}

} // namespace
} // namespace lectern::test
