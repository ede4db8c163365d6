// SPDX-License-Identifier: Apache-2.0
#include "service/Resting.h"

#include <glib.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

bool timerRuns GUARDED_BY(gRegistry) = false;

milliseconds restAfter() {
    static const milliseconds LIMIT = [] {
        const char* const text = std::getenv("LECTERN_REST_AFTER_MS");
        guint64 value = REST_AFTER_MS;
        if (text != nullptr) {
            g_ascii_string_to_unsigned(text, 10, 1, G_MAXINT, &value, nullptr);
        }
        return milliseconds(value);
    }();
    return LIMIT;
}

gboolean restUnused(void* data);

void startTimer(Clock::duration delay) REQUIRES(gRegistry) {
    timerRuns = true;
    const auto rounded = std::chrono::ceil<milliseconds>(delay).count();
    g_timeout_add(static_cast<guint>(std::max<int64_t>(rounded, 1)), restUnused, nullptr);
}

// Lets the documents rest whose time is over. Starts the timer for the next one.
gboolean restUnused(void* /*data*/) {
    RegistryLock lock;
    if (!lock.held()) {
        return G_SOURCE_REMOVE;
    }
    timerRuns = false;
    const Clock::time_point now = Clock::now();
    Clock::time_point next = Clock::time_point::max();
    bool rested = false;
    for (unsigned int docid = 0; docid < gDocuments.size(); ++docid) {
        const Documents& document = gDocuments[docid];
        if (document.view == nullptr || document.view->isResting()) {
            continue;
        }
        const Clock::time_point due = document.lastUse + restAfter();
        if (document.inUse || document.opening) {
            next = std::min(next, now + restAfter());
        } else if (due <= now) {
            lock.claim(docid);
            document.view->rest();
            rested = true;
        } else {
            next = std::min(next, due);
        }
    }
    if (rested) {
        malloc_trim(0);
    }
    // A use during a module's wait may have started it already.
    if (next != Clock::time_point::max() && !timerRuns) {
        startTimer(next - now);
    }
    return G_SOURCE_REMOVE;
}

} // namespace

void noteUse(Documents& document) {
    document.view->wake();
    document.lastUse = Clock::now();
    if (!timerRuns) {
        startTimer(restAfter());
    }
}
