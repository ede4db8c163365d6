// SPDX-License-Identifier: Apache-2.0
// Opening and closing documents.

#include "engine/proxy/DocumentFile.h"
#include "engine/proxy/EngineSettings.h"
#include "engine/proxy/Supervisor.h"
#include "engine/proxy/Utf16.h"
#include "engine/proxy/WordHandle.h"
#include "modules/WordToGoModule.h"

#include <glib.h>

#include <cstring>
#include <optional>
#include <string>

using namespace lectern::engine;

namespace {

// Loads the file in an engine. The engine is no longer of use when it cannot.
std::int32_t load(Engine& engine, TimePoint deadline, const DocumentFile& file, const std::string& password) {
    gint result = MODULE_FAILED;
    gboolean painted = FALSE;
    const std::int32_t sent = engine.call(deadline, [&](GError** error) {
        return lectern_ipc_word_call_open_sync(engine.word(), file.path.c_str(), password.c_str(),
                                               G_DBUS_CALL_FLAGS_NONE, G_MAXINT, &result, &painted, nullptr,
                                               error);
    });
    return sent != MODULE_OK ? sent : result;
}

std::int32_t open(const std::string& path, const std::string& password, const std::string& temporary,
                  void** doc) {
    DocumentFile file;
    if (const std::int32_t result = findDocumentFile(path, file); result != MODULE_OK) {
        return result;
    }
    const LaunchSettings settings = LaunchSettings::forFolder(absolutePath(temporary));
    const TimeLimits limits = TimeLimits::forDocument(file.path, file.bytes);
    const TimePoint deadline = Clock::now() + limits.open;

    auto handle = std::make_unique<WordHandle>();
    handle->callLimit = limits.call;
    std::int32_t result = MODULE_OK;
    handle->engine = Supervisor::instance().take(settings, deadline, result);
    if (!handle->engine) {
        return result;
    }
    result = load(*handle->engine, deadline, file, password);
    // Only now, so that it does not slow down the open that waits.
    Supervisor::instance().prepareSpare(settings, limits.open);
    if (result == MODULE_OK) {
        *doc = handle.release();
    }
    return result;
}

} // namespace

int32_t wtg_open_file(const uint16_t* path, const uint16_t* password, const uint16_t* /*font_dir*/,
                      const uint16_t* temp_dir, void** doc) {
    if (doc == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *doc = nullptr;
    return guarded([&] {
        const std::optional<std::string> file = toUtf8(path);
        const std::optional<std::string> secret = password == nullptr ? "" : toUtf8(password);
        const std::optional<std::string> temporary = toUtf8(temp_dir);
        if (!file || !secret || !temporary || temporary->empty()) {
            return std::int32_t{MODULE_BAD_ARGUMENT};
        }
        return open(*file, *secret, *temporary, doc);
    });
}

int32_t wtg_close_file(void** doc) {
    if (doc == nullptr || *doc == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    delete static_cast<WordHandle*>(*doc);
    *doc = nullptr;
    return MODULE_OK;
}

int32_t wtg_release_memory(void* doc) {
    return onDocument(doc, [](WordHandle& handle) {
        gint result = MODULE_FAILED;
        const std::int32_t sent = handle.engine->call(Clock::now() + handle.callLimit, [&](GError** error) {
            return lectern_ipc_process_call_release_memory_sync(
                handle.engine->process(), G_DBUS_CALL_FLAGS_NONE, G_MAXINT, &result, nullptr, error);
        });
        return sent != MODULE_OK ? sent : result;
    });
}

int32_t wtg_get_version(uint16_t* text, int32_t capacity, int32_t* length) {
    if (!isTextBuffer(text, capacity, length)) {
        return MODULE_BAD_ARGUMENT;
    }
    static constexpr char16_t kVersion[] = u"Lectern " LECTERN_VERSION;
    static_assert(sizeof(char16_t) == sizeof(uint16_t));
    uint16_t units[std::size(kVersion)];
    std::memcpy(units, kVersion, sizeof units);
    deliverText(std::span(units).first(std::size(units) - 1), text, capacity, length);
    return MODULE_OK;
}
