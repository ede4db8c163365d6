// SPDX-License-Identifier: Apache-2.0
#include "tests/fakes/office/Misbehaviour.h"

#include "base/FileDescriptor.h"
#include "engine/protocol/Inherited.h"

#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <new>
#include <stdexcept>
#include <thread>
#include <tuple>
#include <vector>

namespace lectern::engine::fake {
namespace {

// The part after the colon.
std::string detailOf(const std::string& action) {
    const std::size_t colon = action.find(':');
    return colon == std::string::npos ? std::string() : action.substr(colon + 1);
}

void hang() {
    const char* folder = std::getenv("TMPDIR");
    std::ofstream(std::string(folder) + "/hanging") << "yes\n";
    for (;;) {
        std::this_thread::sleep_for(std::chrono::hours(1));
    }
}

void eatMemory() {
    constexpr std::size_t BITE = std::size_t{64} << 20;
    std::vector<std::unique_ptr<char[]>> eaten;
    for (;;) {
        eaten.emplace_back(new char[BITE]);
    }
}

// Files that take no space; removed ones stay open.
void litter(bool removed) {
    constexpr off_t SIZE = off_t{256} << 20;
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        const std::string path = std::string(std::getenv("TMPDIR")) + "/" + name;
        FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
        if (ftruncate(file.release(), SIZE) != 0 || (removed && unlink(path.c_str()) != 0)) {
            std::abort();
        }
    }
}

// A folder in a folder, and so on.
void nest() {
    constexpr int DEEP = 100;
    std::string folder = std::getenv("TMPDIR");
    for (int i = 0; i < DEEP; i++) {
        folder += "/d";
        mkdir(folder.c_str(), S_IRWXU);
    }
}

void* sleepForEver(void*) {
    std::this_thread::sleep_for(std::chrono::hours(1));
    return nullptr;
}

// With stacks so small that the limit on memory allows them.
void startThreads() {
    constexpr int MANY = 600;
    constexpr std::size_t STACK = std::size_t{256} << 10;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, STACK);
    for (int i = 0; i < MANY; i++) {
        pthread_t thread{};
        pthread_create(&thread, &attributes, &sleepForEver, nullptr);
    }
    pthread_attr_destroy(&attributes);
}

} // namespace

std::int32_t misbehave(const std::string& action) {
    if (action == "hang") {
        hang();
    }
    if (action == "crash") {
        raise(SIGSEGV);
    }
    if (action == "garbage") {
        const std::string none(64, 'x');
        std::ignore = write(ENGINE_SOCKET, none.data(), none.size());
        hang();
    }
    if (action == "cut") {
        // The start of a long answer.
        constexpr unsigned char START[] = {'l', 2, 1, 1, 0xE8, 3, 0, 0, 99, 0, 0, 0, 15, 0, 0, 0};
        std::ignore = write(ENGINE_SOCKET, START, sizeof START);
        raise(SIGSEGV);
    }
    if (action == "exit") {
        _exit(3);
    }
    if (action == "eat") {
        eatMemory();
    }
    if (action == "litter" || action == "removed") {
        litter(action == "removed");
    }
    if (action == "nest") {
        nest();
    }
    if (action == "threads") {
        startThreads();
    }
    if (action == "spin") {
        std::thread([] {
            for (volatile bool on = true; on;) {
            }
        }).detach();
    }
    if (action == "starve") {
        throw std::bad_alloc();
    }
    if (action == "throw") {
        throw std::runtime_error("thrown by a document");
    }
    if (action.rfind("slow:", 0) == 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(detailOf(action))));
    }
    if (action.rfind("second:", 0) == 0) {
        static int times = 0; // an engine has one document
        return ++times % 2 == 0 ? std::stoi(detailOf(action)) : 0;
    }
    return action.rfind("code:", 0) == 0 ? std::stoi(detailOf(action)) : 0;
}

} // namespace lectern::engine::fake
