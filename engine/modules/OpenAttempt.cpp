// SPDX-License-Identifier: Apache-2.0
#include "engine/modules/OpenAttempt.h"

#include "engine/host/Waiting.h"
#include "engine/modules/Utf16.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <thread>
#include <utility>
#include <vector>

namespace lectern::engine {
namespace {

using std::chrono::milliseconds;

// The time between two looks at the progress.
constexpr milliseconds LOOK(100);
// The time for an open that is given up to end. It takes longer only if it waits for the
// fork server, which others wait for, too.
constexpr milliseconds GRACE(80);

// Waits until one of the files is readable; -1 is none. Returns whether the first is.
bool awaitEither(int first, int second, milliseconds longest) {
    pollfd files[] = {{first, POLLIN, 0}, {second, POLLIN, 0}};
    (void)poll(files, std::size(files), static_cast<int>(longest.count()));
    return files[0].revents != 0;
}

bool isReadable(int file) {
    return file >= 0 && awaitEither(file, -1, milliseconds(0));
}

std::vector<std::uint16_t> copied(const std::uint16_t* text) {
    std::vector<std::uint16_t> units;
    for (; text != nullptr && *text != 0; ++text) {
        units.push_back(*text);
    }
    units.push_back(0);
    return units;
}

} // namespace

// Copies of the request's, because the thread may outlive the call.
struct OpenAttempt::Texts {
    std::vector<std::uint16_t> path;
    std::vector<std::uint16_t> password;
    std::vector<std::uint16_t> temporaryFolder;
};

OpenAttempt::OpenAttempt()
    : mEnded(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), mProgress(SharedSurface::make(1, 1)) {}

std::int32_t OpenAttempt::run(const lectern_open_request& request, const LoadAnyInEngine& load,
                              std::unique_ptr<DocumentHandle>& handle) {
    if (request.path == nullptr || request.temp_dir == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    const auto attempt = std::make_shared<OpenAttempt>();
    if (!attempt->mEnded) {
        return MODULE_FAILED;
    }
    const Waiting waiting;
    std::thread([attempt, load, handle = std::move(handle),
                 texts = Texts{copied(request.path), copied(request.password),
                               copied(request.temp_dir)}]() mutable {
        attempt->open(texts, load, std::move(handle));
    }).detach();
    return attempt->follow(request) ? attempt->take(handle) : std::int32_t{MODULE_CANCELLED};
}

// Waits for the attempt's end. False if it was given up.
bool OpenAttempt::follow(const lectern_open_request& request) {
    std::int32_t told = 0;
    while (!awaitEither(mEnded.get(), request.cancel_descriptor, LOOK)) {
        if (isReadable(request.cancel_descriptor)) {
            giveUp();
            (void)awaitEither(mEnded.get(), -1, GRACE);
            return false;
        }
        if (const std::int32_t now = percent(); request.progress != nullptr && now > told) {
            told = now;
            request.progress(request.data, now);
        }
    }
    return true;
}

std::int32_t OpenAttempt::take(std::unique_ptr<DocumentHandle>& handle) {
    const Lock lock(mMutex);
    handle = std::move(mHandle);
    return mResult;
}

// On the attempt's thread.
void OpenAttempt::open(const Texts& texts, const LoadAnyInEngine& load,
                       std::unique_ptr<DocumentHandle> handle) {
    const int progress = mProgress ? mProgress->memory() : -1;
    const LoadInEngine loadNow = [&](Engine& engine, TimePoint deadline, const DocumentFile& file,
                                     const std::string& password) {
        return loadIn(engine, [&] { return load(engine, deadline, file, password, progress); });
    };
    const std::int32_t result = guardedAtBorder([&] {
        return openInEngine(texts.path.data(), texts.password.data(), texts.temporaryFolder.data(), loadNow,
                            *handle);
    });
    handle->opening.load = [load](Engine& engine, TimePoint deadline, const DocumentFile& file,
                                  const std::string& password) {
        return load(engine, deadline, file, password, -1);
    };
    finish(result, std::move(handle));
}

void OpenAttempt::finish(std::int32_t result, std::unique_ptr<DocumentHandle> handle) {
    bool isGivenUp = false;
    {
        const Lock lock(mMutex);
        isGivenUp = mGivenUp;
        if (!isGivenUp) {
            mResult = result;
            mHandle = std::move(handle);
        }
    }
    handle.reset(); // ends an engine that nobody wants, before the caller hears of the end
    eventfd_write(mEnded.get(), 1);
}

std::int32_t OpenAttempt::loadIn(Engine& engine, const std::function<std::int32_t()>& load) {
    {
        const Lock lock(mMutex);
        if (mGivenUp) {
            return MODULE_CANCELLED;
        }
        mEngine = &engine;
    }
    const std::int32_t result = load();
    const Lock lock(mMutex);
    mEngine = nullptr;
    return mGivenUp ? std::int32_t{MODULE_CANCELLED} : result;
}

void OpenAttempt::giveUp() {
    const Lock lock(mMutex);
    mGivenUp = true;
    if (mEngine != nullptr) {
        mEngine->abort();
    }
}

// What the engine tells; -1 if it is no percentage.
std::int32_t OpenAttempt::percent() const {
    std::uint32_t told = 0;
    if (mProgress) {
        mProgress->copyTo(&told);
    }
    return told <= 100 ? static_cast<std::int32_t>(told) : -1;
}

} // namespace lectern::engine
