// SPDX-License-Identifier: Apache-2.0
#include "engine/host/DocumentFile.h"
#include "engine/host/EngineSettings.h"
#include "engine/host/Supervisor.h"
#include "engine/modules/Utf16.h"
#include "engine/protocol/BorderGuard.h"
#include "modules/ModuleTypes.h"

#include <optional>
#include <string>

// Starts a spare engine, for which the first open then waits.
void lectern_module_prepare(const uint16_t* temporary_folder) {
    using namespace lectern::engine;
    guardedAtBorder([&] {
        const std::optional<std::string> folder = toUtf8(temporary_folder);
        if (!folder || folder->empty()) {
            return MODULE_BAD_ARGUMENT;
        }
        Supervisor::instance().prepareSpare(LaunchSettings::forFolder(absolutePath(*folder)),
                                            TimeLimits::forDocument("", 0).open);
        return MODULE_OK;
    });
}
