// SPDX-License-Identifier: Apache-2.0
#include "tests/process/engine/EngineTest.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace lectern::test {
namespace {

namespace fs = std::filesystem;

// One folder for the whole process. It is removed last, after the engines,
// which end when the process exits.
const std::string& rootFolder() {
    static const std::string& root = *[] {
        auto* path = new std::string(fs::temp_directory_path() / "lectern-test-XXXXXX");
        if (mkdtemp(path->data()) == nullptr) {
            std::abort();
        }
        std::atexit([] {
            std::error_code ignored;
            fs::remove_all(rootFolder(), ignored);
        });
        return path;
    }();
    return root;
}

} // namespace

EngineTest::EngineTest() {
    static int count = 0;
    mFolder = rootFolder() + "/" + std::to_string(count++) + "/";
    mDocuments = mFolder + "documents";
    mTemporary = mFolder + "temporary";
    fs::create_directories(mDocuments);
    fs::create_directories(mTemporary);
    setVariable("LECTERN_ENGINE", FAKE_ENGINE);
}

EngineTest::~EngineTest() {
    for (const char* name : mVariables) {
        unsetenv(name);
    }
}

std::string EngineTest::write(const std::string& name, const std::string& contents) const {
    const std::string path = mDocuments + "/" + name;
    std::ofstream(path) << contents;
    return path;
}

void EngineTest::open(Document& document, const std::string& contents) const {
    static int count = 0;
    const std::string path = write("document" + std::to_string(count++) + ".docx", contents);
    ASSERT_EQ(document.open(path, temporary()), MODULE_OK);
    ASSERT_NE(document.get(), nullptr);
}

void EngineTest::show(Document& document, std::vector<std::uint32_t>& pixels, std::int32_t width,
                      std::int32_t height) const {
    pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    std::uint32_t position = 0;
    ASSERT_EQ(wordModule().wtg_set_offscreen_buffer(document.get(), 0, pixels.data(), width, height),
              MODULE_OK);
    ASSERT_EQ(wordModule().wtg_get_top_left_character(document.get(), 0, &position), MODULE_OK);
}

void EngineTest::setVariable(const char* name, const std::string& value) {
    setenv(name, value.c_str(), 1);
    mVariables.push_back(name);
}

std::vector<EngineInfo> EngineTest::engines() const {
    std::vector<EngineInfo> all = enginesOf(getpid());
    std::erase_if(all, [&](const EngineInfo& engine) { return engine.folder.rfind(mFolder, 0) != 0; });
    return all;
}

pid_t EngineTest::forkServer() const {
    const std::vector<pid_t> servers = forkServersOf(getpid());
    return servers.empty() ? 0 : servers.front();
}

EngineInfo EngineTest::engineOfDocument() const {
    EngineInfo found{};
    fs::file_time_type newest = fs::file_time_type::min();
    for (const EngineInfo& engine : engines()) {
        std::error_code error;
        const fs::file_time_type time = fs::last_write_time(engine.folder + "/copy", error);
        if (!error && time >= newest) {
            newest = time;
            found = engine;
        }
    }
    return found;
}

bool EngineTest::waitForEngines(std::size_t count) const {
    return waitUntil([&] { return engines().size() == count; });
}

void EngineTest::killEngine() const {
    ASSERT_EQ(engines().size(), 1U);
    const pid_t engine = engines().front().pid;
    kill(engine, SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return kill(engine, 0) != 0; }));
}

bool EngineTest::waitUntil(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

std::size_t entriesIn(const std::string& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

std::size_t openFiles() {
    return entriesIn("/proc/self/fd");
}

std::u16string textOf(const std::vector<std::uint16_t>& buffer) {
    std::u16string text;
    for (std::size_t i = 0; i < buffer.size() && buffer[i] != 0; i++) {
        text.push_back(static_cast<char16_t>(buffer[i]));
    }
    return text;
}

} // namespace lectern::test
