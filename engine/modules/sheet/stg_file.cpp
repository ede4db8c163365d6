// SPDX-License-Identifier: Apache-2.0
// Opening and closing workbooks.

#include "engine/modules/Exporting.h"
#include "engine/modules/OpenAttempt.h"
#include "engine/modules/sheet/SheetHandle.h"

using namespace lectern::engine;

namespace {

// Loads the file in an engine. After a failure the engine cannot be used any more.
std::int32_t load(Engine& engine, TimePoint deadline, const DocumentFile& file, const std::string& password) {
    gint result = MODULE_FAILED;
    const std::int32_t sent = engine.call(deadline, [&](GError** error) {
        return lectern_ipc_sheet_call_open_sync(engine.sheet(), file.path.c_str(), password.c_str(),
                                                G_DBUS_CALL_FLAGS_NONE, G_MAXINT, &result, nullptr, error);
    });
    return sent != MODULE_OK ? sent : codeFromEngine(result);
}

std::int32_t loadAny(Engine& engine, TimePoint deadline, const DocumentFile& file,
                     const std::string& password, int progress) {
    return callOpenAny(engine, deadline, engine.sheet(), &lectern_ipc_sheet_call_open_any_sync, file,
                       password, progress);
}

} // namespace

int32_t stg_open_file(const uint16_t* path, const uint16_t* password, const uint16_t* /*font_dir*/,
                      const uint16_t* temp_dir, void** doc) {
    return openDocument<SheetHandle>(path, password, temp_dir, load, doc);
}

int32_t stg_open_any_file(const lectern_open_request* request, void** doc) {
    return openAnyDocument<SheetHandle>(request, loadAny, doc);
}

int32_t stg_export(void* doc, int32_t format, int32_t descriptor) {
    return exportDocument<SheetHandle>(doc, DocumentKind::Sheet, format, descriptor);
}

int32_t stg_close_file(void** doc) {
    return closeDocument<SheetHandle>(doc);
}

int32_t stg_release_memory(void* doc) {
    return onWorkbook(
        doc,
        [](SheetHandle& handle) {
            const std::int32_t result =
                callEngine(handle, &lectern_ipc_sheet_call_release_memory_sync, std::tuple<>());
            const std::int32_t released = releaseEngineMemory(handle); // packs also without an engine
            return result == MODULE_OK ? released : result;
        },
        WhenLost::StayLost);
}

int32_t lectern_module_lost(void* doc) {
    return lossOf(doc);
}

int32_t stg_get_version(uint16_t* text, int32_t capacity, int32_t* length) {
    return deliverVersion(text, capacity, length);
}
