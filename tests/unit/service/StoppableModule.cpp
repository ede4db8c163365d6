// SPDX-License-Identifier: Apache-2.0
// A module that has only the functions that are called when the service starts and
// before it ends. It stays loaded, like one that has begun to prepare something.
#include "modules/ModuleTypes.h"

#include <atomic>
#include <string>

extern "C" {

LECTERN_MODULE_EXPORT int stop_count();
LECTERN_MODULE_EXPORT const char* prepared_folders();
LECTERN_MODULE_EXPORT void wait_as_a_call_does(void (*meanwhile)());

static std::atomic<int> stops{0};
static std::string& folders = *new std::string();

void lectern_module_stop_soon() {
    ++stops;
}

void lectern_module_prepare(const uint16_t* temporary_folder) {
    for (const uint16_t* unit = temporary_folder; *unit != 0; ++unit) {
        folders.push_back(static_cast<char>(*unit));
    }
    folders.push_back(';');
}

static void (*begin_wait)() = nullptr;
static void (*end_wait)() = nullptr;

void lectern_module_set_wait_calls(void (*begin)(), void (*end)()) {
    begin_wait = begin;
    end_wait = end;
}

void wait_as_a_call_does(void (*meanwhile)()) {
    begin_wait();
    meanwhile();
    end_wait();
}

int stop_count() {
    return stops;
}

const char* prepared_folders() {
    return folders.c_str();
}
}
