// SPDX-License-Identifier: Apache-2.0
#include "engine/host/Waiting.h"

#include "modules/ModuleTypes.h"

#include <atomic>

namespace lectern::engine {
namespace {

std::atomic<void (*)()> beginCall = nullptr;
std::atomic<void (*)()> endCall = nullptr;

thread_local int tDepth = 0;

void callIfSet(const std::atomic<void (*)()>& call) {
    if (void (*const function)() = call) {
        function();
    }
}

} // namespace

Waiting::Waiting() {
    if (tDepth++ == 0) {
        callIfSet(beginCall);
    }
}

Waiting::~Waiting() {
    if (--tDepth == 0) {
        callIfSet(endCall);
    }
}

} // namespace lectern::engine

void lectern_module_set_wait_calls(void (*begin)(void), void (*end)(void)) {
    lectern::engine::beginCall = begin;
    lectern::engine::endCall = end;
}
