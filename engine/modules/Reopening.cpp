// SPDX-License-Identifier: Apache-2.0
// How a document gets another engine when it has lost one.
#include "base/DescriptorsLeft.h"
#include "engine/host/Supervisor.h"
#include "engine/host/Waiting.h"
#include "engine/modules/DocumentHandle.h"

#include <algorithm>
#include <utility>

namespace lectern::engine {
namespace {

// How long the system may lack processes or descriptors before it is asked again.
constexpr std::chrono::seconds PAUSE(1);

// File descriptors that must be free: those of a start, and those of the file and of
// surfaces.
constexpr std::size_t FOR_REOPENING = 32;

// Names the reopening among the calls that lose engines.
void reopening() {}

} // namespace

TimePoint DocumentHandle::deadline(TimePoint now) {
    const auto left = opening.limits.busy - busy.until(now);
    return std::min({now + opening.limits.call, now + std::max(left, Clock::duration::zero()), mLatest});
}

std::int32_t DocumentHandle::noteCall(Losses::Call kind, TimePoint start, std::int32_t result) {
    const TimePoint now = Clock::now();
    busy.add(start, now);
    if (engine->isLost()) {
        losses.note(kind, result, now);
    } else {
        losses.noteAnswer(kind);
    }
    if (busy.until(now) < opening.limits.busy) {
        return result;
    }
    engine->kill();
    losses.giveUp(MODULE_TIMED_OUT);
    return MODULE_TIMED_OUT;
}

bool DocumentHandle::bringBack() {
    const TimePoint start = Clock::now();
    if (losses.code() != MODULE_OK || start < mNotBefore || Supervisor::instance().isStopping()) {
        return false;
    }
    if (!descriptorsLeft<FOR_REOPENING>()) {
        mNotBefore = start + PAUSE;
        return false;
    }
    mLatest = start + opening.limits.open;
    const std::int32_t result = reopen();
    mLatest = TimePoint::max();
    if (result == MODULE_NO_ENGINE) {
        mNotBefore = Clock::now() + PAUSE;
    } else if (result != MODULE_OK) {
        losses.note(reopening, result, Clock::now());
    } else {
        losses.noteAnswer(reopening);
    }
    return result == MODULE_OK;
}

std::int32_t DocumentHandle::reopen() {
    DocumentFile found;
    std::int32_t result = findDocumentFile(opening.file.path, found);
    if (result == MODULE_OK && !found.isSameAs(opening.file)) {
        result = MODULE_CHANGED;
    }
    if (result != MODULE_OK) {
        losses.giveUp(result);
        return result;
    }
    std::unique_ptr<Engine> replacement;
    result = loadAgain(found, replacement);
    if (result != MODULE_OK) {
        return result;
    }
    std::swap(engine, replacement); // the lost one comes back if the restoring fails
    result = restore();
    if (result != MODULE_OK) {
        std::swap(engine, replacement);
    }
    return result;
}

std::int32_t DocumentHandle::loadAgain(const DocumentFile& file, std::unique_ptr<Engine>& replacement) {
    const Waiting waiting;
    const TimePoint start = Clock::now();
    std::int32_t result = MODULE_OK;
    replacement = Supervisor::instance().take(opening.settings, file, mLatest, result);
    if (replacement) {
        result = opening.load(*replacement, mLatest, file, opening.password);
    }
    busy.add(start, Clock::now());
    return result;
}

} // namespace lectern::engine
