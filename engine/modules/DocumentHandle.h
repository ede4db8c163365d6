// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/DocumentFile.h"
#include "engine/host/Engine.h"
#include "engine/host/Export.h"
#include "engine/host/SharedSurface.h"
#include "engine/protocol/BorderGuard.h"
#include "modules/ModuleResults.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace lectern::engine {

// The common part of all modules' document handles. Guarded by its mutex.
struct LECTERN_ENGINE_EXPORT DocumentHandle {
    std::mutex mutex;
    std::unique_ptr<Engine> engine;
    std::chrono::milliseconds callLimit{};
    bool packed = false; // whether the surfaces are

    virtual ~DocumentHandle() = default;
    // The surfaces that are packed while the document rests.
    virtual std::vector<SharedSurface*> surfaces() { return {}; }
    void unpackSurfaces();

    TimePoint deadline() const { return Clock::now() + callLimit; }
};

// Runs one module function on a document; the mutex keeps others out.
template<class Handle, class Operation>
std::int32_t onHandle(void* doc, Operation operation) {
    if (doc == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return guardedAtBorder([&] {
        auto& handle = *static_cast<Handle*>(doc);
        const std::lock_guard lock(handle.mutex);
        handle.unpackSurfaces();
        return operation(handle);
    });
}

// Opens a file in an engine through the interface of the document's kind;
// returns a module_result code.
using LoadInEngine = std::function<std::int32_t(Engine&, TimePoint deadline, const DocumentFile&,
                                                const std::string& password)>;

// Implements a module's open function: checks the file, takes an engine, loads
// the file. The texts are that function's arguments. On success sets the
// handle's engine and time limit.
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
            *doc = handle.release();
        }
        return result;
    });
}

template<class Handle>
std::int32_t closeDocument(void** doc) {
    if (doc == nullptr || *doc == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    delete static_cast<Handle*>(*doc);
    *doc = nullptr;
    return MODULE_OK;
}

// For a document that rests: makes the engine return unused memory to the system, and
// packs the surfaces until the next call.
LECTERN_ENGINE_EXPORT std::int32_t releaseEngineMemory(DocumentHandle& handle);

// Delivers the version, the same for all modules, through a text call.
LECTERN_ENGINE_EXPORT std::int32_t deliverVersion(std::uint16_t* text, std::int32_t capacity,
                                                  std::int32_t* length);

} // namespace lectern::engine
