// SPDX-License-Identifier: Apache-2.0
#include "engine/modules/DocumentHandle.h"

#include "engine/host/EngineSettings.h"
#include "engine/host/Supervisor.h"
#include "engine/host/Waiting.h"
#include "engine/modules/Utf16.h"

#include <cstring>
#include <iterator>
#include <optional>
#include <span>
#include <utility>

namespace lectern::engine {
namespace {

std::int32_t open(const std::string& path, const std::string& password, const std::string& temporaryFolder,
                  const LoadInEngine& load, DocumentHandle& handle) {
    DocumentFile file;
    if (const std::int32_t result = findDocumentFile(path, file); result != MODULE_OK) {
        return result;
    }
    if (TimeLimits::isTooLong(file.path, file.bytes)) {
        return MODULE_TOO_LARGE;
    }
    Opening opening{LaunchSettings::forFolder(absolutePath(temporaryFolder)),
                    TimeLimits::forDocument(file.path, file.bytes), std::move(file), password, load};
    const TimePoint deadline = Clock::now() + opening.limits.open;

    const Waiting waiting;
    std::int32_t result = MODULE_OK;
    std::unique_ptr<Engine> engine =
        Supervisor::instance().take(opening.settings, opening.file, deadline, result);
    if (!engine) {
        return result;
    }
    result = load(*engine, deadline, opening.file, password);
    opening.file.opened.reset();
    if (result == MODULE_OK) {
        handle.engine = std::move(engine);
        handle.opening = std::move(opening);
    }
    return result;
}

} // namespace

std::int32_t openInEngine(const std::uint16_t* path, const std::uint16_t* password,
                          const std::uint16_t* temporaryFolder, const LoadInEngine& load,
                          DocumentHandle& handle) {
    const std::optional<std::string> file = toUtf8(path);
    const std::optional<std::string> secret = password == nullptr ? "" : toUtf8(password);
    const std::optional<std::string> temporary = toUtf8(temporaryFolder);
    if (!file || !secret || !temporary || temporary->empty()) {
        return MODULE_BAD_ARGUMENT;
    }
    return open(*file, *secret, *temporary, load, handle);
}

void DocumentHandle::unpackSurfaces() {
    if (!packed) {
        return;
    }
    for (SharedSurface* surface : surfaces()) {
        surface->unpack();
    }
    packed = false;
}

std::int32_t releaseEngineMemory(DocumentHandle& handle) {
    for (SharedSurface* surface : handle.surfaces()) {
        surface->pack();
    }
    handle.packed = true;
    gint result = MODULE_FAILED;
    const auto kind = Losses::callOf(&lectern_ipc_process_call_release_memory_sync);
    const std::int32_t sent = handle.call(kind, [&](GError** error) {
        return lectern_ipc_process_call_release_memory_sync(handle.engine->process(), G_DBUS_CALL_FLAGS_NONE,
                                                            G_MAXINT, &result, nullptr, error);
    });
    return sent != MODULE_OK ? sent : result;
}

std::int32_t deliverVersion(std::uint16_t* text, std::int32_t capacity, std::int32_t* length) {
    if (!isTextBuffer(text, capacity, length)) {
        return MODULE_BAD_ARGUMENT;
    }
    static constexpr char16_t VERSION[] = u"Lectern " LECTERN_VERSION;
    static_assert(sizeof(char16_t) == sizeof(std::uint16_t));
    std::uint16_t units[std::size(VERSION)];
    std::memcpy(units, VERSION, sizeof units);
    deliverText(std::span(units).first(std::size(units) - 1), text, capacity, length);
    return MODULE_OK;
}

} // namespace lectern::engine
