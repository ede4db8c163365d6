// SPDX-License-Identifier: Apache-2.0
// Opening and closing presentations.

#include "engine/modules/Exporting.h"
#include "engine/modules/OpenAttempt.h"
#include "engine/modules/slide/SlideHandle.h"

using namespace lectern::engine;

namespace {

// Loads the file in an engine. After a failure the engine cannot be used any more.
std::int32_t load(Engine& engine, TimePoint deadline, const DocumentFile& file,
                  const std::string& /*password*/) {
    gint result = MODULE_FAILED;
    const std::int32_t sent = engine.call(deadline, [&](GError** error) {
        return lectern_ipc_slide_call_open_sync(engine.slide(), file.path.c_str(), G_DBUS_CALL_FLAGS_NONE,
                                                G_MAXINT, &result, nullptr, error);
    });
    return sent != MODULE_OK ? sent : codeFromEngine(result);
}

std::int32_t loadAny(Engine& engine, TimePoint deadline, const DocumentFile& file,
                     const std::string& password, int progress) {
    return callOpenAny(engine, deadline, engine.slide(), &lectern_ipc_slide_call_open_any_sync, file,
                       password, progress);
}

} // namespace

int32_t sstg_open_file(const uint16_t* path, const uint16_t* /*font_dir*/, const uint16_t* temp_dir,
                       void** doc) {
    return openDocument<SlideHandle>(path, nullptr, temp_dir, load, doc);
}

int32_t sstg_open_any_file(const lectern_open_request* request, void** doc) {
    return openAnyDocument<SlideHandle>(request, loadAny, doc);
}

int32_t sstg_export(void* doc, int32_t format, int32_t descriptor) {
    return exportDocument<SlideHandle>(doc, DocumentKind::Slides, format, descriptor);
}

int32_t sstg_close_file(void** doc) {
    return closeDocument<SlideHandle>(doc);
}

int32_t sstg_release_memory(void* doc) {
    return onSlideshow(
        doc,
        [](SlideHandle& handle) {
            const std::int32_t result =
                callEngine(handle, &lectern_ipc_slide_call_release_memory_sync, std::tuple<>());
            return result == MODULE_OK ? releaseEngineMemory(handle) : result;
        },
        WhenLost::StayLost);
}

int32_t lectern_module_lost(void* doc) {
    return lossOf(doc);
}

int32_t sstg_get_version(uint16_t* text, int32_t capacity, int32_t* length) {
    return deliverVersion(text, capacity, length);
}
