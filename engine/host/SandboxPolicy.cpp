// SPDX-License-Identifier: Apache-2.0
#include "engine/host/SandboxPolicy.h"

#include "engine/protocol/Landlock.h"

#include <sys/prctl.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

namespace lectern::engine {
namespace {

bool isRequired() {
    const char* policy = std::getenv("LECTERN_SANDBOX");
    return policy != nullptr && std::strcmp(policy, "require") == 0;
}

void hideMemoryOnce() {
    static std::once_flag once;
    std::call_once(once, [] {
        (void)prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
        std::fprintf(stderr, "engine: this kernel has no Landlock: a document's engine can read and write "
                             "what this user can; LECTERN_SANDBOX=require refuses documents instead\n");
    });
}

} // namespace

bool sandboxSuffices() {
    if (landlockVersion() > 0) {
        return true;
    }
    if (isRequired()) {
        std::fprintf(stderr, "engine: no document is opened: LECTERN_SANDBOX=require is set, and this kernel "
                             "has no Landlock\n");
        return false;
    }
    hideMemoryOnce();
    return true;
}

} // namespace lectern::engine
