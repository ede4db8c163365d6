// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/DocumentFile.h"
#include "engine/host/Engine.h"
#include "engine/host/EngineSettings.h"
#include "engine/host/Export.h"
#include "engine/host/SharedSurface.h"
#include "engine/modules/BusyTime.h"
#include "engine/modules/Losses.h"
#include "engine/protocol/BorderGuard.h"
#include "modules/ModuleResults.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace lectern::engine {

// Opens a file in an engine through the interface of the document's kind;
// returns a module_result code.
using LoadInEngine = std::function<std::int32_t(Engine&, TimePoint deadline, const DocumentFile&,
                                                const std::string& password)>;

// How a document was opened, to open it again.
struct Opening {
    LaunchSettings settings;
    TimeLimits limits;
    DocumentFile file;
    std::string password;
    LoadInEngine load;
};

// The common part of all modules' document handles. Guarded by its mutex.
//
// A handle keeps what its engine was told, as far as later answers depend on it. When a
// call meets a lost engine, another one opens the file, is told the same, and the call
// is repeated once. That ends when Losses says so: then the document is lost for ever.
struct LECTERN_ENGINE_EXPORT DocumentHandle {
    std::mutex mutex;
    std::unique_ptr<Engine> engine;
    Opening opening;
    Losses losses; // its code() may be read without the mutex
    BusyTime busy;
    bool packed = false; // whether the surfaces are

    virtual ~DocumentHandle() = default;
    // The surfaces that are packed while the document rests.
    virtual std::vector<SharedSurface*> surfaces() { return {}; }
    void unpackSurfaces();

    // Runs one call of the engine, as Engine::call does. A document whose calls take too
    // long together is lost.
    template<class Send>
    std::int32_t call(Losses::Call kind, Send send) {
        if (!engine->isAlive()) {
            return MODULE_ENGINE_LOST;
        }
        const TimePoint start = Clock::now();
        return noteCall(kind, start, engine->call(deadline(start), send));
    }

    // After a call has found the engine lost: opens the file in another one and restores
    // what the lost one was told. False if the document stays lost.
    bool bringBack();

protected:
    // Tells the engine, which has just opened the file, what the lost one was told.
    virtual std::int32_t restore() = 0;

private:
    TimePoint deadline(TimePoint now);
    std::int32_t noteCall(Losses::Call kind, TimePoint start, std::int32_t result);
    std::int32_t reopen();
    std::int32_t loadAgain(const DocumentFile& file, std::unique_ptr<Engine>& replacement);

    TimePoint mLatest = TimePoint::max(); // the end of the time for the restoring
    TimePoint mNotBefore;                 // of the next attempt
};

enum class WhenLost { BringBack, StayLost };

// Runs one module function on a document; the mutex keeps others out.
template<class Handle, class Operation>
std::int32_t onHandle(void* doc, Operation operation, WhenLost whenLost = WhenLost::BringBack) {
    if (doc == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return guardedAtBorder([&]() -> std::int32_t {
        auto& handle = static_cast<Handle&>(*static_cast<DocumentHandle*>(doc));
        const std::lock_guard lock(handle.mutex);
        handle.unpackSurfaces();
        const std::int32_t result = operation(handle);
        const bool isBack =
            result == MODULE_ENGINE_LOST && whenLost == WhenLost::BringBack && handle.bringBack();
        return isBack ? operation(handle) : result;
    });
}

// Implements a module's open function: checks the file, takes an engine, loads
// the file. The texts are that function's arguments. On success sets the
// handle's engine and its opening.
[[nodiscard]] LECTERN_ENGINE_EXPORT std::int32_t
openInEngine(const std::uint16_t* path, const std::uint16_t* password, const std::uint16_t* temporaryFolder,
             const LoadInEngine& load, DocumentHandle& handle);

// Creates a module's handle for an opened document; *doc stays null when the
// file cannot be opened.
template<class Handle>
std::int32_t openDocument(const std::uint16_t* path, const std::uint16_t* password,
                          const std::uint16_t* temporaryFolder, const LoadInEngine& load, void** doc) {
    if (doc == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *doc = nullptr;
    return guardedAtBorder([&] {
        auto handle = std::make_unique<Handle>();
        const std::int32_t result = openInEngine(path, password, temporaryFolder, load, *handle);
        if (result == MODULE_OK) {
            *doc = static_cast<DocumentHandle*>(handle.release());
        }
        return result;
    });
}

template<class Handle>
std::int32_t closeDocument(void** doc) {
    if (doc == nullptr || *doc == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    delete static_cast<Handle*>(static_cast<DocumentHandle*>(*doc));
    *doc = nullptr;
    return MODULE_OK;
}

// Why a document does not come back; 0 while it does, or for null.
inline std::int32_t lossOf(void* doc) {
    return doc == nullptr ? std::int32_t{MODULE_OK} : static_cast<DocumentHandle*>(doc)->losses.code();
}

// For a document that rests: makes the engine return unused memory to the system, and
// packs the surfaces until the next call.
LECTERN_ENGINE_EXPORT std::int32_t releaseEngineMemory(DocumentHandle& handle);

// Delivers the version, the same for all modules, through a text call.
LECTERN_ENGINE_EXPORT std::int32_t deliverVersion(std::uint16_t* text, std::int32_t capacity,
                                                  std::int32_t* length);

} // namespace lectern::engine
