// SPDX-License-Identifier: Apache-2.0
// The part that the controls of all fake modules share, for tests in the same process.
#pragma once

#include <dlfcn.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct FakeCalls {
    // All calls in order, as in "wtg_scroll_down(0, 520)": the arguments
    // without the document, outputs and pixel addresses. Texts are in quotes.
    std::vector<std::string> calls;
    bool recording = true;

    // Scripted results. The next calls of a function take theirs from
    // `nextResults`, later ones from `results`. With 0, the default, the call
    // does its work; any other code is returned and the call has no effect.
    std::map<std::string, std::deque<int32_t>> nextResults;
    std::map<std::string, int32_t> results;

    // The document's properties, whichever file it is.
    std::u16string name, author, description;
    time_t created = 0;
    time_t lastSaved = 0;

    // What the module knows.
    int openDocuments = 0;
    std::vector<uint8_t> highlightColor;

    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }
};

// The control of one kind's fake, which adds what scripts its documents.
template<typename Control>
struct FakeControl : FakeCalls {
    // Everything as at the start, but for the documents that are open.
    void reset() {
        const int open = openDocuments;
        static_cast<Control&>(*this) = Control();
        openDocuments = open;
    }
};

// The control of the module that the loader finds. The module stays loaded.
template<typename Control>
Control& fakeControl(const char* module, const char* getter) {
    void* handle = dlopen(module, RTLD_LAZY);
    void* get = handle != nullptr ? dlsym(handle, getter) : nullptr;
    if (get == nullptr) {
        std::abort(); // LD_LIBRARY_PATH is not set
    }
    return *reinterpret_cast<Control* (*)()>(get)();
}
