// SPDX-License-Identifier: Apache-2.0
// Opening and closing documents.

#include "engine/modules/Exporting.h"
#include "engine/modules/OpenAttempt.h"
#include "engine/modules/word/WordHandle.h"
#include "modules/WordToGoModule.h"

using namespace lectern::engine;

namespace {

// Loads the file in an engine. After a failure the engine cannot be used any more.
std::int32_t load(Engine& engine, TimePoint deadline, const DocumentFile& file, const std::string& password) {
    gint result = MODULE_FAILED;
    gboolean painted = FALSE;
    const std::int32_t sent = engine.call(deadline, [&](GError** error) {
        return lectern_ipc_word_call_open_sync(engine.word(), file.path.c_str(), password.c_str(),
                                               G_DBUS_CALL_FLAGS_NONE, G_MAXINT, &result, &painted, nullptr,
                                               error);
    });
    return sent != MODULE_OK ? sent : codeFromEngine(result);
}

std::int32_t loadAny(Engine& engine, TimePoint deadline, const DocumentFile& file,
                     const std::string& password, int progress) {
    gboolean painted = FALSE;
    return callOpenAny(engine, deadline, engine.word(), &lectern_ipc_word_call_open_any_sync, file, password,
                       progress, &painted);
}

} // namespace

int32_t wtg_open_file(const uint16_t* path, const uint16_t* password, const uint16_t* /*font_dir*/,
                      const uint16_t* temp_dir, void** doc) {
    return openDocument<WordHandle>(path, password, temp_dir, load, doc);
}

int32_t wtg_open_any_file(const lectern_open_request* request, void** doc) {
    return openAnyDocument<WordHandle>(request, loadAny, doc);
}

int32_t wtg_export(void* doc, int32_t format, int32_t descriptor) {
    return exportDocument<WordHandle>(doc, DocumentKind::Text, format, descriptor);
}

int32_t wtg_close_file(void** doc) {
    return closeDocument<WordHandle>(doc);
}

int32_t wtg_release_memory(void* doc) {
    return onDocument(
        doc, [](WordHandle& handle) { return releaseEngineMemory(handle); }, WhenLost::StayLost);
}

int32_t lectern_module_lost(void* doc) {
    return lossOf(doc);
}

int32_t wtg_get_version(uint16_t* text, int32_t capacity, int32_t* length) {
    return deliverVersion(text, capacity, length);
}
