// SPDX-License-Identifier: Apache-2.0
#include "engine/host/DocumentFile.h"
#include "engine/host/EngineSettings.h"
#include "engine/host/Supervisor.h"
#include "engine/modules/Utf16.h"
#include "engine/protocol/BorderGuard.h"
#include "modules/ModuleTypes.h"

#include <optional>
#include <string>

// Starts the fork server, whose suite the first open then finds ready.
void lectern_module_prepare(const uint16_t* temporary_folder) {
    using namespace lectern::engine;
    guardedAtBorder([&] {
        const std::optional<std::string> folder = toUtf8(temporary_folder);
        if (!folder || folder->empty()) {
            return MODULE_BAD_ARGUMENT;
        }
        Supervisor::instance().prepare(LaunchSettings::forFolder(absolutePath(*folder)));
        return MODULE_OK;
    });
}
